#include "platform/sdl/sdl_sound_player.h"

// The program has a main function of its own.
#define SDL_MAIN_HANDLED
#include <SDL.h>
#include <SDL_mixer.h>

#include <utility>

namespace tidewarden {
namespace {

constexpr int kRate = 44'100;
constexpr int kChannels = 2;
constexpr int kBufferSamples = 2048;  // about 46 ms
constexpr int kOnce = 1;

}  // namespace

// The open sound device and the sound that it plays.
class SdlSoundPlayer::Device {
 public:
  Device() {
    // SDL would else take over the signals that end a program.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tidewarden");
    SDL_SetMainReady();
    isInitialized_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    isOpen_ =
        isInitialized_ && Mix_OpenAudioDevice(kRate, MIX_DEFAULT_FORMAT, kChannels, kBufferSamples,
                                              nullptr, SDL_AUDIO_ALLOW_ANY_CHANGE) == 0;
  }

  ~Device() {
    Halt();
    if (isOpen_) Mix_CloseAudio();
    if (isInitialized_) SDL_QuitSubSystem(SDL_INIT_AUDIO);
  }
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;

  [[nodiscard]] bool isOpen() const { return isOpen_; }

  bool Start(const std::string& path) {
    Halt();
    music_ = Mix_LoadMUS(path.c_str());
    return music_ != nullptr && Mix_PlayMusic(music_, kOnce) == 0;
  }

 private:
  void Halt() {
    if (music_ == nullptr) return;
    Mix_HaltMusic();
    Mix_FreeMusic(std::exchange(music_, nullptr));
  }

  bool isInitialized_ = false;
  bool isOpen_ = false;
  Mix_Music* music_ = nullptr;
};

SdlSoundPlayer::SdlSoundPlayer(std::function<void()> beep,
                               std::function<void(const std::string&)> complain)
    : beep_(std::move(beep)), complain_(std::move(complain)) {}

SdlSoundPlayer::~SdlSoundPlayer() = default;

void SdlSoundPlayer::Play(const std::string& path, SoundKind /*kind*/) {
  if (!device_) device_ = std::make_unique<Device>();
  if (device_->isOpen() && device_->Start(path)) return;
  // The reason is read before the device is closed, which may put another in its place.
  const std::string reason = path + ": cannot be played: " + SDL_GetError();
  device_.reset();
  Beep(reason);
}

void SdlSoundPlayer::Beep(const std::string& reason) {
  complain_(reason);
  beep_();
}

void SdlSoundPlayer::Stop() {
  device_.reset();
}

void SdlSoundPlayer::Rest() {
  if (device_ && !isPlaying()) device_.reset();
}

bool SdlSoundPlayer::isPlaying() const {
  return device_ && Mix_PlayingMusic() != 0;
}

}  // namespace tidewarden
