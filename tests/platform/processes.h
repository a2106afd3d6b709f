// Files, folders and processes for the tests of the POSIX adapters.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tidewarden::test {

// A folder that is gone, with all it holds, when the object is.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::string operator/(std::string_view name) const;

 private:
  std::string path_;
};

// The bytes of a file; "(unreadable)" when there are none to be had.
[[nodiscard]] std::string BytesOf(const std::string& path);
void WriteBytes(const std::string& path, std::string_view bytes);

// Permission bits of what a path leads to; 0 when it leads nowhere.
[[nodiscard]] mode_t ModeOf(const std::string& path);

// The names in a folder, sorted, those that begin with a dot included.
[[nodiscard]] std::vector<std::string> NamesIn(const std::string& folder);

// Runs `body` in a process of its own and gives back what it returned, or how the process ended
// when it did not return. A process that hangs is ended after a minute.
[[nodiscard]] std::string InChild(const std::function<std::string()>& body);

// The same without the rights of root: the child becomes the user "nobody", who is given `folder`
// first. Where the tests run as an ordinary user the child stays that user. A child that cannot
// give up its rights returns a complaint.
[[nodiscard]] std::string InUnprivilegedChild(const std::string& folder,
                                              const std::function<std::string()>& body);

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
