// What the sound adapter really plays, recorded by SDL's disk driver in place of a sound card.
#include "platform/sdl/sdl_sound_player.h"

#include <gmock/gmock.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numbers>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/source_folder.h"

namespace tidewarden {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Samples = std::vector<std::int16_t>;
constexpr int kRate = 44'100;

std::string ReadAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

template <typename Number>
Number NumberAt(const std::string& bytes, std::size_t at) {
  Number number{};
  std::memcpy(&number, bytes.data() + at, sizeof number);
  return number;
}

Samples SamplesOf(std::string_view bytes) {
  Samples samples(bytes.size() / sizeof(std::int16_t));
  std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(std::int16_t));
  return samples;
}

struct WaveFile {
  std::uint16_t format = 0;
  std::uint16_t channels = 0;
  std::uint32_t rate = 0;
  std::uint16_t bits = 0;
  Samples samples;
};

WaveFile ReadWave(const fs::path& path) {
  const std::string bytes = ReadAll(path);
  WaveFile wave;
  if (!bytes.starts_with("RIFF") || bytes.substr(8, 8) != "WAVEfmt ") return wave;
  wave.format = NumberAt<std::uint16_t>(bytes, 20);
  wave.channels = NumberAt<std::uint16_t>(bytes, 22);
  wave.rate = NumberAt<std::uint32_t>(bytes, 24);
  wave.bits = NumberAt<std::uint16_t>(bytes, 34);
  const std::size_t data = bytes.find("data");
  wave.samples =
      SamplesOf(std::string_view(bytes).substr(data + 8, NumberAt<std::uint32_t>(bytes, data + 4)));
  return wave;
}

void WriteWave(const fs::path& path, const Samples& samples) {
  const auto number = [](auto value) {
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
  };
  const auto size = static_cast<std::uint32_t>(samples.size() * sizeof(std::int16_t));
  std::ofstream out(path, std::ios::binary);
  out << "RIFF" << number(size + 36) << "WAVEfmt " << number(std::uint32_t{16})
      << number(std::uint16_t{1}) << number(std::uint16_t{1}) << number(std::uint32_t{kRate})
      << number(std::uint32_t{kRate * 2}) << number(std::uint16_t{2}) << number(std::uint16_t{16})
      << "data" << number(size);
  for (const std::int16_t sample : samples) out << number(sample);
}

// The left channel, without the silence before and after. Both channels must be the same.
Samples Heard(const fs::path& recording) {
  const Samples both = SamplesOf(ReadAll(recording));
  Samples left;
  for (std::size_t i = 0; i + 1 < both.size(); i += 2) {
    if (both[i] != both[i + 1]) ADD_FAILURE() << "the channels differ at " << i;
    left.push_back(both[i]);
  }
  const auto isSound = [](std::int16_t sample) { return sample != 0; };
  left.erase(left.begin(), std::find_if(left.begin(), left.end(), isSound));
  left.erase(std::find_if(left.rbegin(), left.rend(), isSound).base(), left.end());
  return left;
}

Samples WithoutSilence(Samples samples) {
  const auto isSound = [](std::int16_t sample) { return sample != 0; };
  samples.erase(samples.begin(), std::find_if(samples.begin(), samples.end(), isSound));
  samples.erase(std::find_if(samples.rbegin(), samples.rend(), isSound).base(), samples.end());
  return samples;
}

double Loudness(const Samples& samples) {
  double sum = 0;
  for (const double sample : samples) sum += sample * sample;
  return samples.empty() ? 0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

// How much of a sound is a sine of `hertz`: near 1 for that sine, near 0 for any other.
double ShareOf(double hertz, const Samples& samples) {
  double sine = 0;
  double cosine = 0;
  double whole = 0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double angle = 2 * std::numbers::pi * hertz * static_cast<double>(i) / kRate;
    const double sample = samples[i];
    sine += sample * std::sin(angle);
    cosine += sample * std::cos(angle);
    whole += sample * sample;
  }
  return 2 * (sine * sine + cosine * cosine) / (whole * static_cast<double>(samples.size()));
}

class SdlSoundPlayerTest : public ::testing::Test {
 protected:
  SdlSoundPlayerTest() {
    std::string pattern = (fs::temp_directory_path() / "tidewarden-sound-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    ::setenv("SDL_AUDIODRIVER", "disk", 1);
    ::setenv("SDL_DISKAUDIOFILE", recording().c_str(), 1);
    // The disk driver waits after each buffer for as long as it would sound, unless told so.
    ::setenv("SDL_DISKAUDIODELAY", "1", 1);
  }
  ~SdlSoundPlayerTest() override { fs::remove_all(folder_); }

  [[nodiscard]] fs::path recording() const { return folder_ / "heard.raw"; }

  void WaitForTheEnd() {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (player_.isPlaying() && std::chrono::steady_clock::now() < limit) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    EXPECT_FALSE(player_.isPlaying());
  }

  fs::path folder_;
  int beeps_ = 0;
  std::vector<std::string> complaints_;
  SdlSoundPlayer player_{[this] { ++beeps_; },
                         [this](const std::string& line) { complaints_.push_back(line); }};
};

const fs::path kOwnSound = fs::path(TIDEWARDEN_TEST_PROGRAM_FOLDER) / "alarms" / "emergency.wav";

TEST(OwnSound, IsShortClearAndFarFromClipping) {
  const WaveFile wave = ReadWave(kOwnSound);
  EXPECT_EQ(wave.format, 1);  // PCM
  EXPECT_EQ(wave.channels, 1);
  EXPECT_EQ(wave.rate, kRate);
  EXPECT_EQ(wave.bits, 16);
  const double seconds = static_cast<double>(wave.samples.size()) / kRate;
  EXPECT_GE(seconds, 2.0);
  EXPECT_LE(seconds, 4.0);
  EXPECT_LT(fs::file_size(kOwnSound), 400'000);
  const auto loudest = std::max_element(
      wave.samples.begin(), wave.samples.end(),
      [](std::int16_t a, std::int16_t b) { return std::abs(int{a}) < std::abs(int{b}); });
  EXPECT_GT(std::abs(int{*loudest}), 32'768 / 2);
  EXPECT_LT(std::abs(int{*loudest}), 32'768 * 8 / 10);
  // No click at either end.
  EXPECT_LT(std::abs(int{wave.samples.front()}), 50);
  EXPECT_LT(std::abs(int{wave.samples.back()}), 50);
  // Between -20 and -10 dB of full scale over the first two seconds.
  const double loudness =
      Loudness({wave.samples.begin(), wave.samples.begin() + std::ptrdiff_t{2} * kRate}) / 32'768;
  EXPECT_GT(loudness, 0.1);
  EXPECT_LT(loudness, 0.32);
}

TEST_F(SdlSoundPlayerTest, PlaysEverySampleOfTheOwnSound) {
  player_.Play(kOwnSound, SoundKind::kWave);
  WaitForTheEnd();
  player_.Rest();
  const Samples expected = WithoutSilence(ReadWave(kOwnSound).samples);
  const Samples heard = Heard(recording());
  ASSERT_GT(expected.size(), 80'000U);
  // The quietest samples at the very end may be rounded to silence.
  ASSERT_NEAR(static_cast<double>(heard.size()), static_cast<double>(expected.size()), 50);
  int different = 0;
  for (std::size_t i = 0; i < std::min(heard.size(), expected.size()); ++i) {
    if (std::abs(heard[i] - expected[i]) > 1) ++different;
  }
  EXPECT_EQ(different, 0);
  EXPECT_EQ(beeps_, 0);
  EXPECT_THAT(complaints_, IsEmpty());
}

TEST_F(SdlSoundPlayerTest, PlaysTheOtherKindsOfFiles) {
  EXPECT_THAT(player_.Endings(), ElementsAre("wav", "ogg", "mp3", "flac"));
  for (const char* const name : {"tone.flac", "tone.ogg", "tone.mp3"}) {
    SCOPED_TRACE(name);
    player_.Play(test::SourceFolder() / "tests/data/sounds" / name, SoundKind::kOther);
    WaitForTheEnd();
    player_.Rest();
    EXPECT_THAT(complaints_, IsEmpty());
    const Samples heard = Heard(recording());
    EXPECT_NEAR(static_cast<double>(heard.size()), kRate / 2.0, kRate / 10.0);
    EXPECT_NEAR(Loudness(heard), 16'000 / std::numbers::sqrt2, 1'500);
    EXPECT_GT(ShareOf(441, heard), 0.8);
    EXPECT_LT(ShareOf(600, heard), 0.05);
  }
}

TEST_F(SdlSoundPlayerTest, ANewSoundTakesThePlaceOfTheOneThatPlays) {
  ::unsetenv("SDL_DISKAUDIODELAY");  // as long as it would sound
  const Samples first(std::size_t{20} * kRate, 1'000);
  const Samples second(kRate / 5, 2'000);
  WriteWave(folder_ / "first.wav", first);
  WriteWave(folder_ / "second.wav", second);
  player_.Play(folder_ / "first.wav", SoundKind::kWave);
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_TRUE(player_.isPlaying());
  player_.Play(folder_ / "second.wav", SoundKind::kWave);
  WaitForTheEnd();
  player_.Stop();

  const Samples heard = Heard(recording());
  const auto near = [](int wanted) {
    return [wanted](std::int16_t sample) { return std::abs(sample - wanted) <= 1; };
  };
  const auto change = std::find_if(heard.begin(), heard.end(), near(2'000));
  EXPECT_GT(change - heard.begin(), 0);
  EXPECT_LT(change - heard.begin(), std::ptrdiff_t{10} * kRate);
  // Nothing of the first sound goes on below or after the second.
  EXPECT_TRUE(std::none_of(change, heard.end(), near(1'000)));
  EXPECT_TRUE(std::none_of(change, heard.end(), near(3'000)));
  EXPECT_EQ(std::count_if(change, heard.end(), near(2'000)),
            static_cast<std::ptrdiff_t>(second.size()));
}

TEST_F(SdlSoundPlayerTest, DoesNotWaitForTheEndOfASound) {
  ::unsetenv("SDL_DISKAUDIODELAY");
  WriteWave(folder_ / "long.wav", Samples(std::size_t{60} * kRate, 500));
  const auto start = std::chrono::steady_clock::now();
  player_.Play(folder_ / "long.wav", SoundKind::kWave);
  player_.Rest();
  EXPECT_TRUE(player_.isPlaying());  // a sound that plays is not cut by the rest
  player_.Stop();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
  EXPECT_FALSE(player_.isPlaying());
}

TEST_F(SdlSoundPlayerTest, HoldsTheDeviceNoLongerThanItPlays) {
  EXPECT_FALSE(player_.holdsDevice());
  EXPECT_FALSE(fs::exists(recording()));
  WriteWave(folder_ / "short.wav", Samples(kRate / 10, 500));
  player_.Play(folder_ / "short.wav", SoundKind::kWave);
  EXPECT_TRUE(player_.holdsDevice());
  WaitForTheEnd();
  player_.Rest();
  EXPECT_FALSE(player_.holdsDevice());
  player_.Play(folder_ / "short.wav", SoundKind::kWave);
  EXPECT_TRUE(player_.holdsDevice());
  player_.Stop();
  EXPECT_FALSE(player_.holdsDevice());
  player_.Stop();
  player_.Rest();
}

TEST_F(SdlSoundPlayerTest, BeepsAndSaysSoWhenAFileCannotBePlayed) {
  std::ofstream(folder_ / "text.mp3") << "This is not a sound.";
  std::ofstream(folder_ / "empty.wav") << "";
  fs::create_directory(folder_ / "folder.wav");
  const std::vector<std::string> bad{"text.mp3", "empty.wav", "folder.wav", "missing.wav"};
  for (const std::string& name : bad) {
    SCOPED_TRACE(name);
    beeps_ = 0;
    complaints_.clear();
    player_.Play(folder_ / name, SoundKind::kOther);
    EXPECT_EQ(beeps_, 1);
    EXPECT_THAT(complaints_, ElementsAre(HasSubstr(name + ": cannot be played: ")));
    EXPECT_FALSE(player_.holdsDevice());
  }
}

TEST_F(SdlSoundPlayerTest, BeepsWhenThereIsNoSoundCard) {
  ::setenv("SDL_AUDIODRIVER", "nothing-of-that-name", 1);
  player_.Play(kOwnSound, SoundKind::kWave);
  EXPECT_EQ(beeps_, 1);
  EXPECT_THAT(complaints_, ElementsAre(HasSubstr("cannot be played: ")));
  EXPECT_FALSE(player_.holdsDevice());
}

TEST_F(SdlSoundPlayerTest, BeepsWithoutTheLibraryOrWithAnotherInItsPlace) {
  for (const std::string library : {"libnot_there.so.0", "libm.so.6"}) {
    SCOPED_TRACE(library);
    int beeps = 0;
    std::vector<std::string> complaints;
    SdlSoundPlayer player([&] { ++beeps; },
                          [&](const std::string& line) { complaints.push_back(line); }, library);
    for (int i = 1; i <= 2; ++i) {
      player.Play("/a/bell.wav", SoundKind::kOther);
      EXPECT_EQ(beeps, i);
    }
    EXPECT_THAT(complaints, Each(AllOf(HasSubstr("/a/bell.wav: cannot be played: "),
                                       HasSubstr(library.substr(0, 4)))));
    EXPECT_EQ(complaints.size(), 2U);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_FALSE(player.holdsDevice());
    player.Rest();
    player.Stop();
  }
}

TEST_F(SdlSoundPlayerTest, BeepsOnRequestWithoutADevice) {
  player_.Beep("why");
  EXPECT_EQ(beeps_, 1);
  EXPECT_THAT(complaints_, ElementsAre("why"));
  EXPECT_FALSE(player_.holdsDevice());
}

// Where the system has no beep, as on Wayland.
TEST_F(SdlSoundPlayerTest, SoundsAToneOfItsOwnInPlaceOfAMissingBeep) {
  const auto complain = [this](const std::string& line) { complaints_.push_back(line); };
  for (const bool plays : {true, false}) {
    complaints_.clear();
    SdlSoundPlayer player({}, complain);
    if (plays) {
      player.Play(folder_ / "missing.wav", SoundKind::kWave);
    } else {
      player.Beep("why");
    }
    EXPECT_EQ(complaints_.size(), 1U);
    EXPECT_TRUE(player.holdsDevice());
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (player.isPlaying() && std::chrono::steady_clock::now() < limit) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    player.Rest();
    EXPECT_FALSE(player.holdsDevice());
    const Samples heard = Heard(recording());
    EXPECT_NEAR(static_cast<double>(heard.size()), kRate * 0.3, kRate / 50.0);
    EXPECT_GT(Loudness(heard), 6'000);
    EXPECT_LT(Loudness(heard), 10'000);
    EXPECT_GT(ShareOf(880, heard), 0.7);
    EXPECT_LT(ShareOf(440, heard), 0.05);
  }
}

TEST_F(SdlSoundPlayerTest, SaysSoWhenThereIsNeitherABeepNorATone) {
  ::setenv("SDL_AUDIODRIVER", "nothing-of-that-name", 1);
  const auto complain = [this](const std::string& line) { complaints_.push_back(line); };
  for (const char* const library : {"libSDL2_mixer-2.0.so.0", "libnot_there.so.0"}) {
    complaints_.clear();
    SdlSoundPlayer player({}, complain, library);
    player.Play(kOwnSound, SoundKind::kWave);
    EXPECT_THAT(complaints_,
                ElementsAre(HasSubstr("cannot be played: "), HasSubstr("no beep either: ")));
    EXPECT_FALSE(player.holdsDevice());
  }
}

TEST_F(SdlSoundPlayerTest, LeavesTheSignalsToTheProgram) {
  WriteWave(folder_ / "short.wav", Samples(kRate / 10, 500));
  player_.Play(folder_ / "short.wav", SoundKind::kWave);
  ASSERT_TRUE(player_.holdsDevice());
  for (const int signal : {SIGINT, SIGTERM}) {
    struct sigaction action {};
    ASSERT_EQ(::sigaction(signal, nullptr, &action), 0);
    EXPECT_EQ(action.sa_handler, SIG_DFL) << signal;
  }
}

}  // namespace
}  // namespace tidewarden
