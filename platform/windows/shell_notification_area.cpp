#include "platform/windows/shell_notification_area.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace tidewarden {
namespace {

// The system extends the sign of a 32-bit handle, and drops it again, in the same way.
void* HandleOf(std::uint32_t number) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): handles are numbers in the guise of pointers.
  return reinterpret_cast<void*>(static_cast<std::intptr_t>(static_cast<std::int32_t>(number)));
}

std::uint32_t NumberOfHandle(const void* handle) {
  return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(handle));
}

// The first form of the record, which ends behind a tooltip of 64 bytes.
constexpr DWORD kNativeSize = NOTIFYICONDATAA_V1_SIZE;
static_assert(sizeof(void*) != 4 || kNativeSize == sizeof(NotifyIconRecord));

constexpr unsigned kCodePageOfRecords = 1252;

// The tooltip of a record in another code page, as many whole characters as there is room for.
std::string InCodePage(unsigned codePage, const std::array<char, kNotifyTipBytes>& tip) {
  const auto units = static_cast<int>(std::find(tip.begin(), tip.end(), '\0') - tip.begin());
  std::array<wchar_t, kNotifyTipBytes> wide{};
  const int length = ::MultiByteToWideChar(kCodePageOfRecords, 0, tip.data(), units, wide.data(),
                                           static_cast<int>(wide.size()));
  std::string text;
  for (int i = 0; i < length; ++i) {
    std::array<char, 8> bytes{};
    const int count =
        ::WideCharToMultiByte(codePage, 0, &wide.at(static_cast<std::size_t>(i)), 1, bytes.data(),
                              static_cast<int>(bytes.size()), nullptr, nullptr);
    if (text.size() + static_cast<std::size_t>(count) >= kNotifyTipBytes) break;
    text.append(bytes.data(), static_cast<std::size_t>(count));
  }
  return text;
}

}  // namespace

HWND WindowOf(WindowHandle number) {
  return static_cast<HWND>(HandleOf(number));
}

WindowHandle NumberOf(HWND window) {
  return NumberOfHandle(window);
}

HICON PictureOf(IconHandle number) {
  return static_cast<HICON>(HandleOf(number));
}

IconHandle NumberOf(HICON picture) {
  return NumberOfHandle(picture);
}

NOTIFYICONDATAA NativeRecord(const NotifyIconRecord& record, unsigned codePage) {
  NOTIFYICONDATAA data{};
  data.cbSize = kNativeSize;
  data.hWnd = WindowOf(record.hWnd);
  data.uID = record.uID;
  data.uFlags = record.uFlags;
  data.uCallbackMessage = record.uCallbackMessage;
  data.hIcon = PictureOf(record.hIcon);
  if (codePage == kCodePageOfRecords) {
    std::copy(record.szTip.begin(), record.szTip.end(), data.szTip);
    data.szTip[kNotifyTipBytes - 1] = '\0';
  } else {
    InCodePage(codePage, record.szTip).copy(data.szTip, kNotifyTipBytes - 1);
  }
  return data;
}

ShellAreaCalls SystemShellAreaCalls() {
  ShellAreaCalls calls;
  calls.notifyIcon = [](DWORD message, NOTIFYICONDATAA& data) {
    // A refusal alone says nothing of its reason.
    ::SetLastError(ERROR_SUCCESS);
    return ::Shell_NotifyIconA(message, &data) != 0;
  };
  calls.wasBusy = [] { return ::GetLastError() == ERROR_TIMEOUT; };
  calls.isSeen = [](HWND window) {
    return ::IsWindowVisible(window) != 0 && ::IsIconic(window) == 0;
  };
  calls.hasArea = [] { return ::FindWindowW(L"Shell_TrayWnd", nullptr) != nullptr; };
  calls.letIn = [](HWND window, UINT message) {
    // Where it is refused the shell speaks to no elevated program, and all others need nothing.
    ::ChangeWindowMessageFilterEx(window, message, MSGFLT_ALLOW, nullptr);
  };
  return calls;
}

ShellNotificationArea::ShellNotificationArea(ShellAreaCalls calls)
    : calls_(std::move(calls)), shellStarted_(::RegisterWindowMessageW(L"TaskbarCreated")) {}

void ShellNotificationArea::NotifyIcon(NotifyIconMessage message, const NotifyIconRecord& record,
                                       std::string_view /*tooltip*/) {
  if (message == NotifyIconMessage::kDelete) {
    shown_.reset();
    isMissing_ = false;
    NOTIFYICONDATAA data = NativeRecord(record);
    calls_.notifyIcon(NIM_DELETE, data);
    return;
  }
  // The shell has the rights of the user; a program that an administrator has started has more,
  // and would hear nothing.
  if (message == NotifyIconMessage::kAdd) {
    calls_.letIn(WindowOf(record.hWnd), shellStarted_);
    calls_.letIn(WindowOf(record.hWnd), record.uCallbackMessage);
  }
  shown_ = record;
  Show(static_cast<DWORD>(message));
}

// The shell refuses to add an icon that it has, also one that it has taken after it seemed too
// busy, and to change one that it does not have.
void ShellNotificationArea::Show(DWORD message) {
  NOTIFYICONDATAA data = NativeRecord(*shown_);
  const DWORD other = message == NIM_ADD ? NIM_MODIFY : NIM_ADD;
  isMissing_ = !calls_.notifyIcon(message, data) && !calls_.notifyIcon(other, data);
}

// The shell does not say that it has dropped an icon, and its word that it has started anew may not
// arrive.
void ShellNotificationArea::LookForIcon() {
  NOTIFYICONDATAA data = NativeRecord(*shown_);
  if (calls_.notifyIcon(NIM_MODIFY, data) || calls_.wasBusy()) return;
  isMissing_ = !calls_.notifyIcon(NIM_ADD, data);
}

bool ShellNotificationArea::IsAvailable() {
  if (!calls_.hasArea()) return false;
  if (isMissing_) {
    Show(NIM_ADD);
  } else if (shown_) {
    LookForIcon();
  }
  return !isMissing_;
}

bool ShellNotificationArea::IsFromIcon(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) const {
  if (!shown_ || window != WindowOf(shown_->hWnd)) return false;
  if (message != shown_->uCallbackMessage || wParam != shown_->uID) return false;
  const bool isMouse = lParam >= static_cast<LPARAM>(IconMouseMessage::kLeftDown) &&
                       lParam <= static_cast<LPARAM>(IconMouseMessage::kRightDoubleClick);
  // A mouse that drags over the first line of pixels of a window looks the same.
  return isMouse && !calls_.isSeen(window);
}

bool ShellNotificationArea::HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (shellStarted_ != 0 && message == shellStarted_) {
    // Every window of the program hears of it; the icon's window counts.
    if (shown_ && window == WindowOf(shown_->hWnd)) {
      Show(NIM_ADD);
      if (!isMissing_ && Appeared) Appeared();
    }
    return false;
  }
  if (!IsFromIcon(window, message, wParam, lParam)) return false;
  if (Mouse) Mouse(static_cast<IconMouseMessage>(lParam));
  return true;
}

}  // namespace tidewarden
