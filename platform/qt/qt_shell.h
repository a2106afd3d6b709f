// The desktop's shell through Qt, and the sudden end of the process.
#pragma once

#include "core/program_end.h"
#include "core/shell.h"

namespace tidewarden {

// Documents and web pages go to the desktop's service for URLs, a document as a "file:" URL. A
// program is started directly, in a session of its own, without a command interpreter and without
// a search for its name. `parameters` and `show` mean nothing here.
class QtShell : public Shell {
 public:
  void Execute(const ShellRequest& request) override;
};

class ProcessEnd : public ProgramEnd {
 public:
  void EndAtOnce(int exitCode) override;
};

}  // namespace tidewarden
