#include "reminder/event_actions.h"

#include "core/events_file.h"

namespace tidewarden {
namespace {

// The event's line in a file with these bytes, if it can be told.
std::optional<long> FindIn(std::string_view content, const ListedEvent& event) {
  long equal = 0;
  long last = 0;
  bool inPlace = false;
  VisitRawLines(content, [&](std::size_t number, std::string_view rawLine) {
    if (rawLine != event.rawLine) return;
    ++equal;
    last = static_cast<long>(number);
    inPlace = inPlace || last == event.line;
  });
  if (inPlace) return event.line;
  return equal == 1 ? std::optional(last) : std::nullopt;
}

Status Change(FileSystem& files, const std::string& path, const std::string& rescueFolder,
              const ListedEvent& event, LineChange change) {
  std::optional<long> line;
  return RewriteEventsFile(
      files, path, rescueFolder,
      [&](std::size_t number, std::string_view /*rawLine*/) {
        return line && static_cast<long>(number) == *line ? change : LineChange::kKeep;
      },
      [&](std::string_view content) { line = FindIn(content, event); });
}

}  // namespace

std::optional<long> FindEvent(FileSystem& files, const std::string& path,
                              const ListedEvent& event) {
  std::string content;
  return ReadFile(files, path, content).ok() ? FindIn(content, event) : std::nullopt;
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
