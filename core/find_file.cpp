#include "core/find_file.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "dates/text.h"

namespace tidewarden {
namespace {

class Search {
 public:
  Search(FileSystem& files, std::string& found) : files_(files), found_(found) {}

  // True when `rest` names a file below `folder`, which is empty or ends in "/".
  bool Below(const std::string& folder, std::string_view rest) {
    const std::size_t slash = rest.find('/');
    if (slash == 0) return Below(folder + "/", rest.substr(1));
    const std::string_view name = rest.substr(0, slash);
    const std::vector<std::string> candidates = Candidates(folder, name);
    return std::any_of(candidates.begin(), candidates.end(), [&](const std::string& candidate) {
      const std::string path = folder + candidate;
      if (slash != std::string_view::npos) return Below(path + "/", rest.substr(slash + 1));
      if (!TryToRead(files_, path).ok()) return false;
      found_ = path;
      return true;
    });
  }

  // Reads the beginning: only that tells a file from a folder or a pipe.
  static Status TryToRead(FileSystem& files, const std::string& path) {
    return files.Read(path, [](std::string_view) { return false; });
  }

 private:
  // The entries of a folder that the name may mean; the name itself when there are none, because
  // some folders show less than they hold.
  std::vector<std::string> Candidates(const std::string& folder, std::string_view name) {
    std::vector<std::string> names;
    const bool isStep = name == "." || name == "..";
    if (!isStep && listings_ < kMostListings) {
      ++listings_;
      // A folder that cannot be listed may still let its entries be opened.
      static_cast<void>(files_.ListNames(folder.empty() ? "." : folder, names));
    }
    std::erase_if(names, [&](const std::string& entry) { return !EqualIgnoringCase(entry, name); });
    if (names.empty()) names.emplace_back(name);
    std::sort(names.begin(), names.end());
    return names;
  }

  // More are needed only where many folders differ in nothing but letter case.
  static constexpr int kMostListings = 200;

  FileSystem& files_;
  std::string& found_;
  int listings_ = 0;
};

}  // namespace

Status FindFileInAnyCase(FileSystem& files, const std::string& path, std::string& found) {
  found = path;
  Status status = Search::TryToRead(files, path);
  if (status.ok() || !Search(files, found).Below("", path)) return status;
  return {};
}

}  // namespace tidewarden
