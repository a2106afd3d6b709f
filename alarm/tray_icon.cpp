#include "alarm/tray_icon.h"

#include <cmath>
#include <limits>
#include <utility>

#include "core/text_encoding.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::uint32_t kOnlyIcon = 1;
constexpr std::uint32_t kMessageIconAndTip = 1 | 2 | 4;  // NIF_MESSAGE, NIF_ICON, NIF_TIP
constexpr std::uint32_t kMouseMove = 512;                // WM_MOUSEMOVE

// As the system converts text for its code page: what has no place there becomes "?".
std::string InCodePage(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    std::string_view rest = text;
    static_cast<void>(TakeCharacter(rest));
    out += EncodeWindows1252(text.substr(0, text.size() - rest.size())).value_or("?");
    text = rest;
  }
  return out;
}

std::array<char, kNotifyTipBytes> TipField(std::string_view tooltip) {
  std::array<char, kNotifyTipBytes> field{};
  field.fill(' ');
  const std::string bytes = InCodePage(tooltip);
  bytes.copy(field.data(), field.size());
  return field;
}

std::int32_t MessageNumber(double x, double twipsPerPixel) {
  const double number = x / twipsPerPixel;
  // Also false for what is no number at all.
  const bool fits = std::abs(number) < std::numeric_limits<std::int32_t>::max();
  return fits ? static_cast<std::int32_t>(RoundHalfToEven(number)) : 0;
}

}  // namespace

void TrayIcon::Visible(bool blnData) {
  isVisible_ = blnData;
  if (blnData) FillRecord();
  area_.NotifyIcon(blnData ? NotifyIconMessage::kAdd : NotifyIconMessage::kDelete, record_,
                   Tooltip());
}

void TrayIcon::Icon(IconHandle vData) {
  icon_ = vData;
  if (isVisible_) Modify();
}

void TrayIcon::Tooltip(std::string_view vData) {
  tooltip_ = vData;
  tooltip_.push_back('\0');
  if (isVisible_) Modify();
}

std::string_view TrayIcon::Tooltip() const {
  const std::string_view stored = tooltip_;
  return stored.substr(0, stored.empty() ? 0 : stored.size() - 1);
}

void TrayIcon::Modify() {
  FillRecord();
  area_.NotifyIcon(NotifyIconMessage::kModify, record_, Tooltip());
}

void TrayIcon::FillRecord() {
  record_ = {.cbSize = sizeof(NotifyIconRecord),
             .hWnd = OwnerForm,
             .uID = kOnlyIcon,
             .uFlags = kMessageIconAndTip,
             .uCallbackMessage = kMouseMove,
             .hIcon = icon_,
             .szTip = TipField(tooltip_)};
}

void TrayIcon::HandleCallback(double x, double twipsPerPixel) {
  lastMessage_ = MessageNumber(x, twipsPerPixel);
  if (*busy_) return;
  // Cleared however the handler ends, and without touching an icon that the handler destroyed.
  struct Busy {
    explicit Busy(std::shared_ptr<bool> busyFlag) : flag(std::move(busyFlag)) { *flag = true; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { *flag = false; }
    std::shared_ptr<bool> flag;
  };
  const Busy busy(busy_);
  Raise(static_cast<IconMouseMessage>(lastMessage_));
}

void TrayIcon::Raise(IconMouseMessage message) const {
  // Handlers are called through copies, which last when a handler destroys the icon.
  const auto raise = [](auto handler, auto... arguments) {
    if (handler) handler(arguments...);
  };
  switch (message) {
    case IconMouseMessage::kLeftDown:
      return raise(MouseDown, TrayButton::kLeft);
    case IconMouseMessage::kLeftUp:
      return raise(MouseUp, TrayButton::kLeft);
    case IconMouseMessage::kRightDown:
      return raise(MouseDown, TrayButton::kRight);
    case IconMouseMessage::kRightUp:
      return raise(MouseUp, TrayButton::kRight);
    case IconMouseMessage::kLeftDoubleClick:
    case IconMouseMessage::kRightDoubleClick:
      return raise(DblClick);
  }
}

}  // namespace tidewarden
