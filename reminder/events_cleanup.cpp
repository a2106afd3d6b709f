#include "reminder/events_cleanup.h"

#include <unordered_set>

#include "core/events_file.h"

namespace tidewarden {

Status RemovePastOneTimeEvents(FileSystem& files, const std::string& path,
                               const std::string& rescueFolder, CivilDate today,
                               std::vector<long>& removed) {
  Status status = RewriteEventsFile(
      files, path, rescueFolder,
      [&](std::size_t number, std::string_view rawLine) {
        if (!IsOverOneTimeLine(rawLine, today)) return LineChange::kKeep;
        removed.push_back(static_cast<long>(number));
        return LineChange::kRemove;
      },
      [&](std::string_view /*content*/) { removed.clear(); });
  if (!status.ok()) removed.clear();
  return status;
}

Status UnhideEvents(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                    const std::vector<std::string_view>& hideList) {
  const std::unordered_set<std::string_view> hidden(hideList.begin(), hideList.end());
  return RewriteEventsFile(
      files, path, rescueFolder, [&](std::size_t /*number*/, std::string_view rawLine) {
        return hidden.contains(rawLine) ? LineChange::kDropLastCharacter : LineChange::kKeep;
      });
}

}  // namespace tidewarden
