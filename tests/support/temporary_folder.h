// A folder that is there for one test, what stands in it, and files by their paths.
#pragma once

#include <sys/types.h>

#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tidewarden::test {

// Everything about a file that a program could have changed, except the time of its last reading.
struct FileState {
  unsigned mode = 0;  // kind and permissions; on Windows the attributes
  unsigned owner = 0;
  unsigned long long identity = 0;
  long long size = 0;
  long long modified = 0;  // nanoseconds
  long long changed = 0;   // nanoseconds
  std::string content;     // of a regular file of up to a million bytes; the target of a link
  bool operator==(const FileState&) const = default;
};

void PrintTo(const FileState& state, std::ostream* out);

// A folder that is gone, with all it holds, when the object is. Every user may look into it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::string& path() const { return path_; }

  // The full path of a name in the folder.
  [[nodiscard]] std::string operator/(std::string_view name) const;

  // Writes a file, with the folders above it. The file is old: its time stamp lies years back.
  void Write(std::string_view name, std::string_view content) const;

  // The whole content. Throws for a file that is not there.
  [[nodiscard]] std::string Read(std::string_view name) const;

  [[nodiscard]] bool Exists(std::string_view name) const;
  [[nodiscard]] mode_t Permissions(std::string_view name) const;
  void SetPermissions(std::string_view name, mode_t mode) const;
  void MakeFolder(std::string_view name, mode_t mode = 0755) const;

  // Everything in the folder and below, by name relative to it; the folder itself is ".".
  [[nodiscard]] std::map<std::string, FileState> Look() const;

 private:
  std::string path_;
};

// Works for a path outside a test's folder too, such as a device.
[[nodiscard]] FileState LookAt(const std::string& path);

// The bytes of a file; "(unreadable)" when there are none to be had.
[[nodiscard]] std::string BytesOf(const std::string& path);
// Throws when the file cannot be written.
void WriteBytes(const std::string& path, std::string_view bytes);

// Permission bits of what a path leads to; 0 when it leads nowhere.
[[nodiscard]] mode_t ModeOf(const std::string& path);

// The names in a folder, sorted, those that begin with a dot included.
[[nodiscard]] std::vector<std::string> NamesIn(const std::string& folder);

}  // namespace tidewarden::test
