// The sound port over SDL2_mixer: wav, ogg, mp3, flac and whatever else the library reads.
//
// The sound device is opened for a sound and given back as soon as Rest, Stop or the end of the
// player finds it idle, so that the program does not hold it all day. The environment variables
// of SDL choose the device; SDL_AUDIODRIVER=disk writes what would be heard to a file.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "alarm/sound_player.h"

namespace tidewarden {

class SdlSoundPlayer : public SoundPlayer {
 public:
  // `beep` sounds the system's exclamation and does not wait for it; an empty one stands for a
  // system without, where the player sounds a short tone of its own. `complain` takes one line for
  // standard error, without a line end. `library` is the file that the system's loader is to find.
  SdlSoundPlayer(std::function<void()> beep, std::function<void(const std::string&)> complain,
                 std::string library = "libSDL2_mixer-2.0.so.0");
  ~SdlSoundPlayer() override;
  SdlSoundPlayer(const SdlSoundPlayer&) = delete;
  SdlSoundPlayer& operator=(const SdlSoundPlayer&) = delete;

  void Play(const std::string& path, SoundKind kind) override;
  void Beep(const std::string& reason) override;
  void Stop() override;
  void Rest() override;
  [[nodiscard]] std::vector<std::string> Endings() const override;

  [[nodiscard]] bool isPlaying() const;
  [[nodiscard]] bool holdsDevice() const { return device_ != nullptr; }

 private:
  class Library;
  class Device;

  Device& OpenDevice();

  std::function<void()> beep_;
  std::function<void(const std::string&)> complain_;
  std::string libraryName_;
  std::unique_ptr<Library> library_;
  std::unique_ptr<Device> device_;
};

}  // namespace tidewarden
