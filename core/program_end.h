// Port: the sudden end of this process.
#pragma once

namespace tidewarden {

class ProgramEnd {
 public:
  virtual ~ProgramEnd() = default;

  // Ends the process with an exit code, at once: no window is closed, no question is asked, nothing
  // that is still waiting is done. What the system would keep beyond the process, such as an icon
  // in the notification area, is to be released before. Returns in tests only.
  virtual void EndAtOnce(int exitCode) = 0;
};

}  // namespace tidewarden
