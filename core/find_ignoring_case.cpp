#include "core/find_ignoring_case.h"

#include <algorithm>
#include <vector>

#include "dates/text.h"

namespace tidewarden {
namespace {

// Walks down from the folder `found` ("" for the one the program runs in, else with a "/" at its
// end) along the names of `rest`. True when something exists there; `found` is then its path.
bool Descend(FileSystem& files, std::string& found, std::string_view rest) {
  const std::size_t start = rest.find_first_not_of('/');
  if (start == std::string_view::npos) {
    FileStamp stamp;
    return files.GetStamp(found, stamp).ok();
  }
  rest.remove_prefix(start);
  const std::string_view wanted = rest.substr(0, rest.find('/'));
  rest.remove_prefix(wanted.size());
  const std::string_view separator = rest.empty() ? "" : "/";

  std::vector<std::string> names;
  const bool isRelative = wanted == "." || wanted == "..";
  if (isRelative || !files.ListNames(found.empty() ? "." : found, names).ok()) {
    names.assign(1, std::string(wanted));
  }
  const std::string folder = found;
  return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
    if (!EqualIgnoringCase(name, wanted)) return false;
    found = folder;
    found.append(name).append(separator);
    return Descend(files, found, rest);
  });
}

}  // namespace

std::string FindIgnoringCase(FileSystem& files, std::string_view path, PathStyle style) {
  std::string asItStands(path);
  if (style == PathStyle::kWindows) return asItStands;
  std::replace(asItStands.begin(), asItStands.end(), '\\', '/');
  FileStamp stamp;
  if (files.GetStamp(asItStands, stamp).kind() != StatusKind::kNotFound) return asItStands;
  std::string found = asItStands.starts_with('/') ? "/" : "";
  return Descend(files, found, asItStands) ? found : asItStands;
}

}  // namespace tidewarden
