// Port: the notification area of the desktop, where a program shows a small icon while it has no
// window.
//
// What to show travels in a record with the layout that Windows gives to it (the ANSI form of
// NOTIFYICONDATA, documented with Shell_NotifyIcon); other systems take out of it what they need.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace tidewarden {

// A window and a picture by the numbers that their system gives to them; 0 is none. On 64-bit
// Windows too, such numbers have 32 significant bits.
using WindowHandle = std::uint32_t;
using IconHandle = std::uint32_t;

inline constexpr std::size_t kNotifyTipBytes = 64;

struct NotifyIconRecord {
  std::uint32_t cbSize = 0;            // bytes of the record
  WindowHandle hWnd = 0;               // who hears of the mouse
  std::uint32_t uID = 0;               // which icon of that window
  std::uint32_t uFlags = 0;            // which of the fields below count
  std::uint32_t uCallbackMessage = 0;  // the message in which hWnd hears of it
  IconHandle hIcon = 0;
  // In the code page, filled up with blanks. Not always ended by a NUL: an adapter that hands the
  // record to the system puts one into the last byte of its copy.
  std::array<char, kNotifyTipBytes> szTip{};
};
static_assert(sizeof(NotifyIconRecord) == 88, "the layout that the system reads");

// By the numbers of Shell_NotifyIcon.
enum class NotifyIconMessage : std::uint32_t { kAdd = 0, kModify = 1, kDelete = 2 };

// The mouse over the icon, by the numbers of Windows' mouse messages.
enum class IconMouseMessage : std::int32_t {
  kLeftDown = 513,
  kLeftUp = 514,
  kLeftDoubleClick = 515,
  kRightDown = 516,
  kRightUp = 517,
  kRightDoubleClick = 518,
};

class NotificationArea {
 public:
  virtual ~NotificationArea() = default;

  // Shows, changes or takes away the icon of `record`. `tooltip` is the whole text in UTF-8, for
  // systems whose tooltips are not as short as the record's; for kDelete it says nothing. Whether
  // it worked is not told: a desktop without the area shows nothing.
  virtual void NotifyIcon(NotifyIconMessage message, const NotifyIconRecord& record,
                          std::string_view tooltip) = 0;

  // True when the desktop has the area at this moment, so that a window that hides itself can be
  // fetched back by its icon.
  [[nodiscard]] virtual bool IsAvailable() = 0;

  // What the area tells; a listener may be left empty. Both are called from the event loop, never
  // from inside NotifyIcon.
  std::function<void(IconMouseMessage message)> Mouse;  // the mouse over the icon
  std::function<void()> Appeared;  // an icon was added in vain; now there is an area that shows it
};

}  // namespace tidewarden
