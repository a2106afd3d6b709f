#include "platform/windows/windows_sound_player.h"

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
  calls.control = [](const std::wstring& command) {
    return ::mciSendStringW(command.c_str(), nullptr, 0, nullptr) == 0;
  };
  calls.hasStopped = [](const std::wstring& name) {
    const MCIDEVICEID device = ::mciGetDeviceIDW(name.c_str());
    MCI_STATUS_PARMS status{};
    status.dwItem = MCI_STATUS_MODE;
    return device != 0 &&
           ::mciSendCommandW(device, MCI_STATUS, MCI_STATUS_ITEM,
                             reinterpret_cast<DWORD_PTR>(&status)) == 0 &&
           status.dwReturn == MCI_MODE_STOP;
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
  if (controlIsOpen_ && Control(L"play")) return;
  // Nothing would come to an end: the file is not to stay open, and locked, for that.
  CloseControl();
  Beep(path + " cannot be played");
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
  if (controlIsOpen_ && calls_.hasStopped(kDevice)) CloseControl();
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
  return calls_.control(open + alias) || calls_.control(open + L" type mpegvideo" + alias);
}

// A command for the open file.
bool WindowsSoundPlayer::Control(const std::wstring& verb) const {
  return calls_.control(verb + L" " + kDevice);
}

void WindowsSoundPlayer::CloseControl() {
  if (controlIsOpen_) Control(L"close");
  controlIsOpen_ = false;
}

}  // namespace tidewarden
