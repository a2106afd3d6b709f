#include "reminder/events_cleanup.h"

#include <unordered_set>

#include "core/events_file.h"
#include "dates/event_fields.h"
#include "dates/text.h"

namespace tidewarden {

bool IsOverOneTimeLine(std::string_view rawLine, CivilDate today) {
  constexpr std::size_t kTailLength = 7;  // "one" and a year
  if (rawLine.size() < kTailLength) return false;
  const std::string_view tail = rawLine.substr(rawLine.size() - kTailLength);
  const int year = DigitsValue(tail.substr(3));
  if (!tail.starts_with("one") || year < 0) return false;
  DateField field;
  if (ReadDateField(FirstCharacters(rawLine, 5), field) != DateFieldFault::kNone) return false;
  if (field.isFeast || field.month < 1 || field.day < 1) return false;
  const CivilDate date = MakeDate(year, field.month, field.day);
  return IsRealDate(date) && date < today;
}

Status RemovePastOneTimeEvents(FileSystem& files, const std::string& path, CivilDate today,
                               std::vector<long>& removed) {
  removed.clear();
  Status status = RewriteEventsFile(files, path, [&](std::size_t number, std::string_view rawLine) {
    if (!IsOverOneTimeLine(rawLine, today)) return LineChange::kKeep;
    removed.push_back(static_cast<long>(number));
    return LineChange::kRemove;
  });
  if (!status.ok()) removed.clear();
  return status;
}

Status UnhideEvents(FileSystem& files, const std::string& path,
                    const std::vector<std::string_view>& hideList) {
  const std::unordered_set<std::string_view> hidden(hideList.begin(), hideList.end());
  return RewriteEventsFile(files, path, [&](std::size_t /*number*/, std::string_view rawLine) {
    return hidden.contains(rawLine) ? LineChange::kDropLastCharacter : LineChange::kKeep;
  });
}

}  // namespace tidewarden
