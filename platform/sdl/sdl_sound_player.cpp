#include "platform/sdl/sdl_sound_player.h"

// The program has a main function of its own.
#define SDL_MAIN_HANDLED
#include <SDL.h>
#include <SDL_mixer.h>
#include <dlfcn.h>

#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>

namespace tidewarden {
namespace {

constexpr int kRate = 44'100;
constexpr int kChannels = 2;
constexpr int kBufferSamples = 2048;  // about 46 ms
constexpr int kOnce = 1;

template <typename Number>
void AppendLowByteFirst(std::string& bytes, Number number) {
  for (std::size_t i = 0; i < sizeof number; ++i) {
    bytes += static_cast<char>(static_cast<std::uint64_t>(number) >> (8 * i) & 0xFF);
  }
}

// A sine that swells and fades, so that neither end clicks, as a wave file of one channel.
std::string MakeTone() {
  constexpr double kHertz = 880;
  constexpr double kLoudest = 16'000;
  constexpr int kSamples = kRate * 3 / 10;
  constexpr std::uint32_t kBytes = kSamples * sizeof(std::int16_t);
  std::string tone = "RIFF";
  AppendLowByteFirst(tone, kBytes + 36);
  tone += "WAVEfmt ";
  AppendLowByteFirst(tone, std::uint32_t{16});
  AppendLowByteFirst(tone, std::uint16_t{1});  // samples as they are
  AppendLowByteFirst(tone, std::uint16_t{1});
  AppendLowByteFirst(tone, std::uint32_t{kRate});
  AppendLowByteFirst(tone, std::uint32_t{kRate * sizeof(std::int16_t)});
  AppendLowByteFirst(tone, std::uint16_t{sizeof(std::int16_t)});
  AppendLowByteFirst(tone, std::uint16_t{16});
  tone += "data";
  AppendLowByteFirst(tone, kBytes);
  for (int i = 0; i < kSamples; ++i) {
    const double swell = std::sin(std::numbers::pi * i / kSamples);
    const double wave = std::sin(2 * std::numbers::pi * kHertz * i / kRate);
    const auto sample = static_cast<std::int16_t>(std::lround(kLoudest * swell * wave));
    AppendLowByteFirst(tone, static_cast<std::uint16_t>(sample));
  }
  return tone;
}

}  // namespace

// What is used of SDL2_mixer and of the SDL2 below it. They bring forty libraries along, which cost
// a fifth of the program's start, and most days nothing sounds: so they are loaded for the first
// sound.
class SdlSoundPlayer::Library {
 public:
  explicit Library(const std::string& name)
      : handle_(::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    isLoaded_ = handle_ != nullptr && Find("SDL_SetHint", SetHint) &&
                Find("SDL_SetMainReady", SetMainReady) &&
                Find("SDL_InitSubSystem", InitSubSystem) &&
                Find("SDL_QuitSubSystem", QuitSubSystem) && Find("SDL_GetError", GetError) &&
                Find("Mix_OpenAudioDevice", OpenAudioDevice) &&
                Find("Mix_CloseAudio", CloseAudio) && Find("Mix_LoadMUS", LoadMUS) &&
                Find("SDL_RWFromConstMem", RWFromConstMem) && Find("Mix_LoadMUS_RW", LoadMUS_RW) &&
                Find("Mix_PlayMusic", PlayMusic) && Find("Mix_PlayingMusic", PlayingMusic) &&
                Find("Mix_HaltMusic", HaltMusic) && Find("Mix_FreeMusic", FreeMusic);
    if (isLoaded_) return;
    const char* const problem = ::dlerror();
    problem_ = problem != nullptr ? problem : name;
  }

  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  [[nodiscard]] bool isLoaded() const { return isLoaded_; }
  // Why it is not, in the system's words.
  [[nodiscard]] const std::string& problem() const { return problem_; }

  decltype(&SDL_SetHint) SetHint = nullptr;
  decltype(&SDL_SetMainReady) SetMainReady = nullptr;
  decltype(&SDL_InitSubSystem) InitSubSystem = nullptr;
  decltype(&SDL_QuitSubSystem) QuitSubSystem = nullptr;
  decltype(&SDL_GetError) GetError = nullptr;
  decltype(&Mix_OpenAudioDevice) OpenAudioDevice = nullptr;
  decltype(&Mix_CloseAudio) CloseAudio = nullptr;
  decltype(&Mix_LoadMUS) LoadMUS = nullptr;
  decltype(&SDL_RWFromConstMem) RWFromConstMem = nullptr;
  decltype(&Mix_LoadMUS_RW) LoadMUS_RW = nullptr;
  decltype(&Mix_PlayMusic) PlayMusic = nullptr;
  decltype(&Mix_PlayingMusic) PlayingMusic = nullptr;
  decltype(&Mix_HaltMusic) HaltMusic = nullptr;
  decltype(&Mix_FreeMusic) FreeMusic = nullptr;

 private:
  template <typename Function>
  bool Find(const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(handle_, name));
    return function != nullptr;
  }

  void* handle_;  // never closed: threads of the library may outlive a sound
  bool isLoaded_ = false;
  std::string problem_;
};

// The open sound device and the sound that it plays.
class SdlSoundPlayer::Device {
 public:
  explicit Device(const Library& sdl) : sdl_(sdl) {
    if (!sdl_.isLoaded()) return;
    // SDL would else take over the signals that end a program.
    sdl_.SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    sdl_.SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tidewarden");
    sdl_.SetMainReady();
    isInitialized_ = sdl_.InitSubSystem(SDL_INIT_AUDIO) == 0;
    isOpen_ =
        isInitialized_ && sdl_.OpenAudioDevice(kRate, MIX_DEFAULT_FORMAT, kChannels, kBufferSamples,
                                               nullptr, SDL_AUDIO_ALLOW_ANY_CHANGE) == 0;
  }

  ~Device() {
    Halt();
    if (isOpen_) sdl_.CloseAudio();
    if (isInitialized_) sdl_.QuitSubSystem(SDL_INIT_AUDIO);
  }
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;

  [[nodiscard]] bool isOpen() const { return isOpen_; }

  bool Start(const std::string& path) {
    Halt();
    music_ = sdl_.LoadMUS(path.c_str());
    return music_ != nullptr && sdl_.PlayMusic(music_, kOnce) == 0;
  }

  bool StartTone() {
    Halt();
    // The library reads it while it plays.
    static const std::string tone = MakeTone();
    music_ =
        sdl_.LoadMUS_RW(sdl_.RWFromConstMem(tone.data(), static_cast<int>(tone.size())), SDL_TRUE);
    return music_ != nullptr && sdl_.PlayMusic(music_, kOnce) == 0;
  }

  [[nodiscard]] bool isPlaying() const { return isOpen_ && sdl_.PlayingMusic() != 0; }

  // Why the last call has failed.
  [[nodiscard]] std::string Problem() const {
    return sdl_.isLoaded() ? sdl_.GetError() : sdl_.problem();
  }

 private:
  void Halt() {
    if (music_ == nullptr) return;
    sdl_.HaltMusic();
    sdl_.FreeMusic(std::exchange(music_, nullptr));
  }

  const Library& sdl_;
  bool isInitialized_ = false;
  bool isOpen_ = false;
  Mix_Music* music_ = nullptr;
};

SdlSoundPlayer::SdlSoundPlayer(std::function<void()> beep,
                               std::function<void(const std::string&)> complain,
                               std::string library)
    : beep_(std::move(beep)), complain_(std::move(complain)), libraryName_(std::move(library)) {}

SdlSoundPlayer::~SdlSoundPlayer() = default;

SdlSoundPlayer::Device& SdlSoundPlayer::OpenDevice() {
  if (!library_) library_ = std::make_unique<Library>(libraryName_);
  if (!device_) device_ = std::make_unique<Device>(*library_);
  return *device_;
}

void SdlSoundPlayer::Play(const std::string& path, SoundKind /*kind*/) {
  if (OpenDevice().isOpen() && device_->Start(path)) return;
  // The reason is read before the device is closed, which may put another in its place.
  const std::string reason = path + ": cannot be played: " + device_->Problem();
  device_.reset();
  Beep(reason);
}

void SdlSoundPlayer::Beep(const std::string& reason) {
  complain_(reason);
  if (beep_) {
    beep_();
    return;
  }
  if (OpenDevice().isOpen() && device_->StartTone()) return;
  const std::string problem = "no beep either: " + device_->Problem();
  device_.reset();
  complain_(problem);
}

void SdlSoundPlayer::Stop() {
  device_.reset();
}

void SdlSoundPlayer::Rest() {
  if (device_ && !isPlaying()) device_.reset();
}

std::vector<std::string> SdlSoundPlayer::Endings() const {
  return {"wav", "ogg", "mp3", "flac"};
}

bool SdlSoundPlayer::isPlaying() const {
  return device_ && device_->isPlaying();
}

}  // namespace tidewarden
