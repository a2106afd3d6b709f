// Processes of their own, other users and the environment, for tests of what runs in a system.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

namespace tidewarden::test {

// Runs `body` in a process of its own and gives back what it returned, or how the process ended
// when it did not return. A process that hangs is ended after a minute.
[[nodiscard]] std::string InChild(const std::function<std::string()>& body);

// The same without the rights of root: the child becomes the user "nobody", who is given `folder`
// first. Where the tests run as an ordinary user the child stays that user. A child that cannot
// give up its rights returns a complaint.
[[nodiscard]] std::string InUnprivilegedChild(const std::string& folder,
                                              const std::function<std::string()>& body);

// Gives a folder and all that is in it to the user "nobody", when the test runs as root. Throws
// when that fails.
void GiveAway(const std::string& folder);

// Makes this process one of the user "nobody", for good, when it runs as root. False when it could
// not or when the rights of root could be had back.
[[nodiscard]] bool GiveUpRights();

// A started process, which runs `body` and then ends.
[[nodiscard]] pid_t StartChild(const std::function<void()>& body);
// Waits for a child; 0 when it ended by itself and well.
int WaitFor(pid_t child);

// Sets an environment variable, or removes it for nullptr, until the object is gone.
class ScopedVariable {
 public:
  ScopedVariable(std::string name, const char* value);
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;
  ~ScopedVariable();

 private:
  std::string name_;
  bool wasSet_ = false;
  std::string before_;
};

}  // namespace tidewarden::test
