// The sound port without a sound.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "alarm/sound_player.h"

namespace tidewarden {

class MemorySoundPlayer : public SoundPlayer {
 public:
  // "wave PATH", "media PATH", "beep REASON", "stop"; a Rest leaves no trace.
  std::vector<std::string> calls;
  int rests = 0;
  // Why Play fails, and who is told, as by a player of the system; empty when it plays.
  std::string problem;
  std::function<void(const std::string&)> complain;
  std::vector<std::string> endings{"wav", "ogg"};

  void Play(const std::string& path, SoundKind kind) override {
    calls.push_back((kind == SoundKind::kWave ? "wave " : "media ") + path);
    if (!problem.empty() && complain) complain(problem);
  }
  void Beep(const std::string& reason) override { calls.push_back("beep " + reason); }
  void Stop() override { calls.emplace_back("stop"); }
  void Rest() override { ++rests; }
  [[nodiscard]] std::vector<std::string> Endings() const override { return endings; }
};

}  // namespace tidewarden
