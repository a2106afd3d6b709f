#include "tests/support/temporary_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <utility>

namespace tidewarden::test {
namespace {

constexpr long long kNanoseconds = 1'000'000'000;
constexpr std::time_t kLongAgo = 978'307'200;  // 2001-01-01
constexpr long long kContentLimit = 1'000'000;

[[noreturn]] void Fail(const std::string& what) {
  throw std::runtime_error(what + ": " + std::strerror(errno));
}

std::optional<std::string> ReadWhole(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace

void PrintTo(const FileState& state, std::ostream* out) {
  *out << std::oct << state.mode << std::dec << " inode " << state.identity << ", " << state.size
       << " bytes, modified " << state.modified << ": \"" << state.content.substr(0, 1000) << "\"";
}

FileState LookAt(const std::string& path) {
  struct stat info {};
  if (::lstat(path.c_str(), &info) != 0) Fail(path);
  FileState state;
  state.mode = info.st_mode;
  state.owner = info.st_uid;
  state.identity = info.st_ino;
  state.size = info.st_size;
  state.modified = info.st_mtim.tv_sec * kNanoseconds + info.st_mtim.tv_nsec;
  state.changed = info.st_ctim.tv_sec * kNanoseconds + info.st_ctim.tv_nsec;
  const bool readable = ::access(path.c_str(), R_OK) == 0;
  if (S_ISREG(info.st_mode) && info.st_size <= kContentLimit && readable) {
    state.content = BytesOf(path);
  }
  if (S_ISLNK(info.st_mode)) state.content = std::filesystem::read_symlink(path);
  return state;
}

TemporaryFolder::TemporaryFolder() {
  std::string name = std::filesystem::temp_directory_path() / "tidewarden-test-XXXXXX";
  if (::mkdtemp(name.data()) == nullptr) Fail(name);
  // Tests run the program as another user too.
  if (::chmod(name.c_str(), 0755) != 0) Fail(name);
  path_ = std::filesystem::canonical(name);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(path_, ignored)) {
    if (entry.is_directory(ignored) && !entry.is_symlink(ignored)) {
      ::chmod(entry.path().c_str(), 0700);
    }
  }
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::operator/(std::string_view name) const {
  return path_ + "/" + std::string(name);
}

void TemporaryFolder::Write(std::string_view name, std::string_view content) const {
  const std::string path = *this / name;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  WriteBytes(path, content);
  const timespec times[2] = {{kLongAgo, 0}, {kLongAgo, 0}};
  if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0) Fail(path);
}

std::string TemporaryFolder::Read(std::string_view name) const {
  auto content = ReadWhole(*this / name);
  if (!content) throw std::runtime_error(*this / name + " cannot be read");
  return *std::move(content);
}

bool TemporaryFolder::Exists(std::string_view name) const {
  struct stat info {};
  return ::lstat((*this / name).c_str(), &info) == 0;
}

mode_t TemporaryFolder::Permissions(std::string_view name) const {
  if (!Exists(name)) Fail(std::string(name));
  return ModeOf(*this / name);
}

void TemporaryFolder::SetPermissions(std::string_view name, mode_t mode) const {
  if (::chmod((*this / name).c_str(), mode) != 0) Fail(std::string(name));
}

void TemporaryFolder::MakeFolder(std::string_view name, mode_t mode) const {
  std::filesystem::create_directories(*this / name);
  SetPermissions(name, mode);
}

std::map<std::string, FileState> TemporaryFolder::Look() const {
  std::map<std::string, FileState> states;
  states["."] = LookAt(path_);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(
           path_, std::filesystem::directory_options::skip_permission_denied)) {
    states[entry.path().lexically_relative(path_)] = LookAt(entry.path());
  }
  return states;
}

std::string BytesOf(const std::string& path) {
  return ReadWhole(path).value_or("(unreadable)");
}

void WriteBytes(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error(path + " cannot be written");
}

mode_t ModeOf(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 ? info.st_mode & 07777U : 0U;
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace tidewarden::test
