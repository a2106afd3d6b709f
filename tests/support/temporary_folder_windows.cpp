
#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_handles.h"
#include "platform/windows/windows_text.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden::test {
namespace {

namespace fs = std::filesystem;

constexpr FILETIME kLongAgo{0xDC0A8000, 0x01C0735E};  // early in 2001
constexpr long long kContentLimit = 1'000'000;

[[noreturn]] void Fail(const std::string& what) {
  throw std::runtime_error(what + ": error " + std::to_string(::GetLastError()));
}

std::optional<std::string> ReadWhole(const std::string& path) {
  std::ifstream in(fs::path(WidePath(path)), std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

FileHandle Open(const std::string& path, DWORD access) {
  FileHandle file =
      OpenPatiently(WidePath(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT);
  if (!file.ok()) Fail(path);
  return file;
}

long long Joined(DWORD high, DWORD low) {
  return static_cast<long long>(std::uint64_t{high} << 32U | low);
}

}  // namespace

void PrintTo(const FileState& state, std::ostream* out) {
  *out << std::hex << state.mode << std::dec << " index " << state.identity << ", " << state.size
       << " bytes, modified " << state.modified << ": \"" << state.content.substr(0, 1000) << "\"";
}

FileState LookAt(const std::string& path) {
  const FileHandle file = Open(path, FILE_READ_ATTRIBUTES);
  BY_HANDLE_FILE_INFORMATION info{};
  if (::GetFileInformationByHandle(file.get(), &info) == 0) Fail(path);
  FileState state;
  state.mode = info.dwFileAttributes;
  state.identity = static_cast<unsigned long long>(Joined(info.nFileIndexHigh, info.nFileIndexLow));
  state.size = Joined(info.nFileSizeHigh, info.nFileSizeLow);
  state.modified = Joined(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime);
  state.changed = state.modified;
  const bool isFile = (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  if (isFile && state.size <= kContentLimit) state.content = BytesOf(path);
  return state;
}

TemporaryFolder::TemporaryFolder() {
  // Numbers of processes come back, and a run that was ended may have left its folder.
  static std::atomic<unsigned long long> number{::GetTickCount64() * 1000};
  fs::path folder;
  do {
    folder = fs::temp_directory_path() / ("tidewarden-test-" + std::to_string(number++));
  } while (!fs::create_directory(folder));
  path_ = Narrow(fs::canonical(folder).wstring());
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  const fs::path folder(L"\\\\?\\" + Wide(path_));
  for (auto entry = fs::recursive_directory_iterator(folder, ignored);
       entry != fs::recursive_directory_iterator(); entry.increment(ignored)) {
    // What is write-protected cannot be removed.
    ::SetFileAttributesW(entry->path().c_str(), FILE_ATTRIBUTE_NORMAL);
  }
  fs::remove_all(folder, ignored);
}

std::string TemporaryFolder::operator/(std::string_view name) const {
  std::string path = path_ + "\\" + std::string(name);
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

void TemporaryFolder::Write(std::string_view name, std::string_view content) const {
  const std::string path = *this / name;
  fs::create_directories(FolderOf(WidePath(path)));
  WriteBytes(path, content);
  if (::SetFileTime(Open(path, FILE_WRITE_ATTRIBUTES).get(), nullptr, nullptr, &kLongAgo) == 0) {
    Fail(path);
  }
}

std::string TemporaryFolder::Read(std::string_view name) const {
  auto content = ReadWhole(*this / name);
  if (!content) throw std::runtime_error(*this / name + " cannot be read");
  return *std::move(content);
}

bool TemporaryFolder::Exists(std::string_view name) const {
  return ::GetFileAttributesW(WidePath(*this / name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

mode_t TemporaryFolder::Permissions(std::string_view name) const {
  return ModeOf(*this / name);
}

void TemporaryFolder::SetPermissions(std::string_view name, mode_t mode) const {
  // All that there is besides access lists: whether the file is write-protected.
  const DWORD attributes = (mode & 0200U) != 0 ? FILE_ATTRIBUTE_NORMAL : FILE_ATTRIBUTE_READONLY;
  if (::SetFileAttributesW(WidePath(*this / name).c_str(), attributes) == 0) {
    Fail(std::string(name));
  }
}

void TemporaryFolder::MakeFolder(std::string_view name, mode_t /*mode*/) const {
  fs::create_directories(fs::path(WidePath(*this / name)));
}

std::map<std::string, FileState> TemporaryFolder::Look() const {
  std::map<std::string, FileState> states;
  const fs::path folder(WidePath(path_));
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = Narrow(entry.path().lexically_relative(folder).wstring());
    states[name] = LookAt(*this / name);
  }
  return states;
}

std::string BytesOf(const std::string& path) {
  return ReadWhole(path).value_or("(unreadable)");
}

void WriteBytes(const std::string& path, std::string_view bytes) {
  std::ofstream file(fs::path(WidePath(path)), std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error(path + " cannot be written");
}

mode_t ModeOf(const std::string& path) {
  const DWORD attributes = ::GetFileAttributesW(WidePath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return 0;
  return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? 0444 : 0666;
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(fs::path(WidePath(folder)))) {
    names.push_back(Narrow(entry.path().filename().wstring()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace tidewarden::test
