// Port: the sound of an alarm.
//
// Nothing here waits for a sound to end. What goes wrong is told on standard error, never in a
// message box.
#pragma once

#include <string>
#include <vector>

namespace tidewarden {

// Systems may play the two by different means.
enum class SoundKind {
  kWave,   // the name ends in ".wav", in any letter case
  kOther,  // any other name: ogg, mp3, flac, ...
};

class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;

  // Starts to play a file, in place of what is playing. A file that cannot be played gives the
  // beep.
  virtual void Play(const std::string& path, SoundKind kind) = 0;

  // The system's exclamation sound. `reason` says why it takes the place of a file.
  virtual void Beep(const std::string& reason) = 0;

  // Ends what is playing.
  virtual void Stop() = 0;

  // Called at every tick of the minute timer, so that a player that has come to its end can give
  // back what it holds of the system.
  virtual void Rest() = 0;

  // The kinds of file that every computer of this system plays, by the ends of their names without
  // the point, to be told to the user. More of them may play on some computers.
  [[nodiscard]] virtual std::vector<std::string> Endings() const = 0;
};

}  // namespace tidewarden
