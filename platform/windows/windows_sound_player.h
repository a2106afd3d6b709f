// The sound port over the system's own players: PlaySound for wave files, the multimedia control
// for all others.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "alarm/sound_player.h"

namespace tidewarden {

// The calls of the system; a test puts its own in their places.
struct SoundCalls {
  // PlaySoundW with these flags; `path` empty for no sound. False when it does not play.
  std::function<bool(const std::wstring& path, unsigned long flags)> playSound;
  // One command for mciSendStringW. False when it fails.
  std::function<bool(const std::wstring& command)> control;
  // Whether what the control has open under this name has come to its end or been stopped. By
  // number: the control's words are in the user's language.
  std::function<bool(const std::wstring& name)> hasStopped;
  std::function<void(unsigned kind)> messageBeep;
};

[[nodiscard]] SoundCalls SystemSoundCalls();

class WindowsSoundPlayer : public SoundPlayer {
 public:
  // `complain` takes one line for standard error, without a line end.
  explicit WindowsSoundPlayer(std::function<void(const std::string&)> complain,
                              SoundCalls calls = SystemSoundCalls());
  ~WindowsSoundPlayer() override;
  WindowsSoundPlayer(const WindowsSoundPlayer&) = delete;
  WindowsSoundPlayer& operator=(const WindowsSoundPlayer&) = delete;

  void Play(const std::string& path, SoundKind kind) override;
  void Beep(const std::string& reason) override;
  void Stop() override;
  void Rest() override;
  [[nodiscard]] std::vector<std::string> Endings() const override;

 private:
  bool OpenControl(const std::string& path);
  bool Control(const std::wstring& verb) const;
  void CloseControl();

  std::function<void(const std::string&)> complain_;
  SoundCalls calls_;
  bool controlIsOpen_ = false;
};

}  // namespace tidewarden
