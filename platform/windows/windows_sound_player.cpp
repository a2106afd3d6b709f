#include "platform/windows/windows_sound_player.h"

#include <array>
#include <utility>

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_text.h"

// Needs the types of windows.h.
#include <mmsystem.h>

namespace tidewarden {
namespace {

constexpr DWORD kFileInBackground = SND_FILENAME | SND_ASYNC;
constexpr wchar_t kDevice[] = L"tidewarden";  // what the control's commands call the open file

}  // namespace

SoundCalls SystemSoundCalls() {
  SoundCalls calls;
  calls.playSound = [](const std::wstring& path, unsigned long flags) {
    return ::PlaySoundW(path.empty() ? nullptr : path.c_str(), nullptr, flags) != FALSE;
  };
  calls.control = [](const std::wstring& command, std::wstring* answer) {
    std::array<wchar_t, 128> text{};
    const MCIERROR error =
        ::mciSendStringW(command.c_str(), text.data(), static_cast<UINT>(text.size()), nullptr);
    if (answer != nullptr) *answer = text.data();
    return error == 0;
  };
  calls.messageBeep = [](unsigned kind) { ::MessageBeep(kind); };
  return calls;
}

WindowsSoundPlayer::WindowsSoundPlayer(std::function<void(const std::string&)> complain,
                                       SoundCalls calls)
    : complain_(std::move(complain)), calls_(std::move(calls)) {}

WindowsSoundPlayer::~WindowsSoundPlayer() {
  WindowsSoundPlayer::Stop();
}

void WindowsSoundPlayer::Play(const std::string& path, SoundKind kind) {
  // The two players know nothing of each other.
  if (kind == SoundKind::kWave) {
    CloseControl();
    if (!calls_.playSound(WidePath(path), kFileInBackground)) Beep(path + " cannot be played");
    return;
  }
  calls_.playSound({}, 0);
  Control(L"close");
  Control(L"stop");
  controlIsOpen_ = OpenControl(path);
  if (!controlIsOpen_ || !Control(L"play")) Beep(path + " cannot be played");
}

void WindowsSoundPlayer::Beep(const std::string& reason) {
  complain_(reason);
  calls_.messageBeep(MB_ICONEXCLAMATION);
}

void WindowsSoundPlayer::Stop() {
  calls_.playSound({}, 0);
  CloseControl();
}

void WindowsSoundPlayer::Rest() {
  if (!controlIsOpen_) return;
  std::wstring mode;
  // An answer in another language only means that the file stays open for longer.
  if (Control(L"status mode", &mode) && mode == L"stopped") CloseControl();
}

// Without others installed, the control's own players know these.
std::vector<std::string> WindowsSoundPlayer::Endings() const {
  return {"wav", "mp3", "wma", "mid"};
}

// The control knows kinds of file by the registry's list of name endings. What is not there may
// still be readable to its general player, which looks at the content.
bool WindowsSoundPlayer::OpenControl(const std::string& path) {
  const std::wstring open = L"open \"" + WidePath(path) + L"\"";
  const std::wstring alias = std::wstring(L" alias ") + kDevice;
  return calls_.control(open + alias, nullptr) ||
         calls_.control(open + L" type mpegvideo" + alias, nullptr);
}

// A command for the open file: the word that names it stands behind the first one.
bool WindowsSoundPlayer::Control(const std::wstring& command, std::wstring* answer) const {
  const std::size_t verb = command.find(L' ');
  const std::wstring rest = verb == std::wstring::npos ? L"" : command.substr(verb);
  return calls_.control(command.substr(0, verb) + L" " + kDevice + rest, answer);
}

void WindowsSoundPlayer::CloseControl() {
  if (controlIsOpen_) Control(L"close");
  controlIsOpen_ = false;
}

}  // namespace tidewarden
