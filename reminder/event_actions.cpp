#include "reminder/event_actions.h"

#include "core/events_file.h"

namespace tidewarden {
namespace {

// `found` receives the event's line, if there is one.
Status Find(FileSystem& files, const std::string& path, const ListedEvent& event,
            std::optional<long>& found) {
  long equal = 0;
  long last = 0;
  bool inPlace = false;
  // Nothing is changed, so nothing has to be kept.
  Status status =
      RewriteEventsFile(files, path, {}, [&](std::size_t number, std::string_view rawLine) {
        if (rawLine == event.rawLine) {
          ++equal;
          last = static_cast<long>(number);
          inPlace = inPlace || last == event.line;
        }
        return LineChange::kKeep;
      });
  if (status.ok() && inPlace) {
    found = event.line;
  } else if (status.ok() && equal == 1) {
    found = last;
  }
  return status;
}

Status Change(FileSystem& files, const std::string& path, const std::string& rescueFolder,
              const ListedEvent& event, LineChange change) {
  std::optional<long> line;
  Status status = Find(files, path, event, line);
  if (!status.ok() || !line) return status;
  return RewriteEventsFile(
      files, path, rescueFolder, [&](std::size_t number, std::string_view rawLine) {
        const bool isIt = static_cast<long>(number) == *line && rawLine == event.rawLine;
        return isIt ? change : LineChange::kKeep;
      });
}

}  // namespace

std::optional<long> FindEvent(FileSystem& files, const std::string& path,
                              const ListedEvent& event) {
  std::optional<long> line;
  const Status status = Find(files, path, event, line);
  return status.ok() ? line : std::nullopt;
}

Status HideEvent(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                 const ListedEvent& event) {
  // A second mark would make the line unreadable.
  if (event.rawLine.ends_with('*')) return {};
  return Change(files, path, rescueFolder, event, LineChange::kAppendHiddenMark);
}

Status DeleteEvent(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                   const ListedEvent& event) {
  return Change(files, path, rescueFolder, event, LineChange::kRemove);
}

}  // namespace tidewarden
