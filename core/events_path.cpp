#include "core/events_path.h"

#include <algorithm>

#include "core/settings_keys.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::string_view kFileName = "dates.txt";
constexpr std::string_view kEnding = ".txt";
// In bytes. File systems take names of 255, and an ending is still to come.
constexpr std::size_t kLongestStem = 180;
constexpr std::string_view kNetwork = "\\\\";

const std::string& EventsFolder(FileSystem& files, const ProgramFolders& folders) {
  FileStamp stamp;
  const bool usable =
      files.CanCreateIn(folders.program) ||
      files.GetStamp(JoinPath(folders.program, kFileName, folders.style), stamp).ok();
  return usable ? folders.program : folders.userData;
}

// True for a file somewhere below a folder on the network, by the texts alone.
bool IsBelowNetworkFolder(std::string_view path, std::string_view folder) {
  return folder.starts_with(kNetwork) && path.size() > folder.size() &&
         path[folder.size()] == '\\' && EqualIgnoringCase(path.substr(0, folder.size()), folder);
}

// A path on the network or with a drive; one with a "/" in front is taken as it is, too.
bool IsFullOnWindows(std::string_view path) {
  return path.starts_with(kNetwork) || path.starts_with('/') || path.substr(0, 2).ends_with(':');
}

}  // namespace

std::string JoinPath(std::string_view folder, std::string_view name, PathStyle style) {
  const char separator = style == PathStyle::kPosix ? '/' : '\\';
  std::string path(folder);
  if (!path.ends_with(separator)) path.push_back(separator);
  path += name;
  return path;
}

std::string_view WithoutEnding(std::string_view path) {
  const std::size_t length = CountCharacters(path);
  return FirstCharacters(path, length < kEnding.size() ? 0 : length - kEnding.size());
}

std::string NamedAfter(const std::string& rescueFolder, const std::string& path,
                       std::string_view ending) {
  const std::size_t separator = path.find_last_of("/\\");
  const std::string name = separator == std::string::npos ? path : path.substr(separator + 1);
  const char joint = rescueFolder.find('\\') == std::string::npos ? '/' : '\\';
  std::string_view stem = WithoutEnding(name);
  while (stem.size() > kLongestStem) stem = FirstCharacters(stem, CountCharacters(stem) - 1);
  return (rescueFolder + joint).append(stem).append(ending);
}

std::string ResolveEventsPath(std::string_view stored, std::string_view folder, PathStyle style) {
  if (style == PathStyle::kPosix && stored.starts_with('/')) return std::string(stored);
  const bool fromFolder = stored.starts_with('\\');
  const bool bare = stored.find_first_of("\\/") == std::string_view::npos;
  std::string text(stored);
  if (style == PathStyle::kPosix) std::replace(text.begin(), text.end(), '\\', '/');
  if (fromFolder) return std::string(folder) + text;
  return bare ? JoinPath(folder, text, style) : text;
}

std::string FromProgramFolder(std::string_view stored, const ProgramFolders& folders) {
  // A current directory is whatever the program was started from.
  if (folders.style == PathStyle::kWindows) {
    if (IsFullOnWindows(stored)) return std::string(stored);
    if (stored.starts_with('\\')) stored.remove_prefix(1);
    return JoinPath(folders.program, stored, folders.style);
  }
  const std::string path = ResolveEventsPath(stored, folders.program, folders.style);
  return path.starts_with('/') ? path : JoinPath(folders.program, path, folders.style);
}

std::string LocateEventsFile(SettingsStore& settings, FileSystem& files,
                             const ProgramFolders& folders) {
  const std::string& folder = EventsFolder(files, folders);
  std::string stored =
      modGetSetSaveSet::Get(settings, settings::kPath, JoinPath(folder, kFileName, folders.style));
  if (ToLower(LastCharacters(stored, kEnding.size())) != kEnding) {
    stored += kEnding;
    modGetSetSaveSet::Save(settings, settings::kPath, stored);
  }
  if (folders.style == PathStyle::kPosix) return ResolveEventsPath(stored, folder, folders.style);
  // The default of a program or a user whose folders are on the network is a full path.
  if (IsBelowNetworkFolder(stored, folders.program) ||
      IsBelowNetworkFolder(stored, folders.userData)) {
    return stored;
  }
  return ResolveEventsPath(stored, folders.program, folders.style);
}

}  // namespace tidewarden
