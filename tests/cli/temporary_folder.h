// A folder that is there for one test, and what stands in it.
#pragma once

#include <sys/stat.h>

#include <map>
#include <ostream>
#include <string>
#include <string_view>

namespace tidewarden::test {

// Everything about a file that a program could have changed, except the time of its last reading.
struct FileState {
  mode_t mode = 0;  // kind and permissions
  uid_t owner = 0;
  ino_t identity = 0;
  long long size = 0;
  long long modified = 0;  // nanoseconds
  long long changed = 0;   // nanoseconds
  std::string content;     // of a regular file of up to a million bytes; the target of a link
  bool operator==(const FileState&) const = default;
};

void PrintTo(const FileState& state, std::ostream* out);

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

// A path that does not belong to a test's folder, such as a device.
[[nodiscard]] FileState LookAt(const std::string& path);

}  // namespace tidewarden::test
