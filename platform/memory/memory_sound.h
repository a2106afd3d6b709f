// The sound port without a sound.
#pragma once

#include <string>
#include <vector>

#include "alarm/sound_player.h"

namespace tidewarden {

class MemorySoundPlayer : public SoundPlayer {
 public:
  // "wave PATH", "media PATH", "beep REASON", "stop"; a Rest leaves no trace.
  std::vector<std::string> calls;
  int rests = 0;

  void Play(const std::string& path, SoundKind kind) override {
    calls.push_back((kind == SoundKind::kWave ? "wave " : "media ") + path);
  }
  void Beep(const std::string& reason) override { calls.push_back("beep " + reason); }
  void Stop() override { calls.emplace_back("stop"); }
  void Rest() override { ++rests; }
};

}  // namespace tidewarden
