// Saving and deleting: the part of the session that changes the events file.
#include <algorithm>
#include <utility>

#include "core/event_line.h"
#include "core/settings_keys.h"
#include "core/text_encoding.h"
#include "dates/text.h"
#include "editor/edit_session.h"
#include "editor/event_checks.h"
#include "editor/event_list.h"
#include "editor/events_writer.h"

namespace tidewarden {

void EditSession::Save() {
  if (!isEntryUnderWay()) return;
  const CivilDate today = ports_.clock.Now().date;
  const std::string typedCount = entry_.row().txtEveryInput.text;
  EventChecks checks(entry_, ports_.messages, format_, today, warned_);
  auto event = checks.Run();
  focus_ = checks.focus();
  // The editor may have been closed under a message box.
  if (!event || !isEntryUnderWay()) return;
  const bool isEdit = entry_.mode() == EntryMode::kEdit;
  if (!WriteChange({std::move(event->row), isEdit}, today)) {
    // The checks have shortened a count of 100 days and more; the next try starts from all of it.
    entry_.ReplaceEvery(typedCount);
    return;
  }
  modGetSetSaveSet::Save(ports_.settings, settings::kRememberLastAdvanceNoticeValue,
                         entry_.row().txtAdvanceInput.text);
  modGetSetSaveSet::Save(ports_.settings, settings::kRememberLastOccursIndex,
                         std::to_string(entry_.occursIndex()));
  FindEventRowByTitle(event->title);
  Cancel();
}

void EditSession::Delete() {
  if (entry_.mode() != EntryMode::kEdit) return;
  const std::string title(Trim(Characters(SelectedRowText_, 7, 44)));
  const MessageAnswer answer =
      ports_.messages.Show("Are you sure you want to delete the event \"" + title + "\"???",
                           MessageButtons::kYesNo, MessageIcon::kNone);
  if (!isEntryUnderWay()) return;
  if (answer == MessageAnswer::kYes &&
      !WriteChange({std::nullopt, true}, ports_.clock.Now().date)) {
    return;
  }
  Cancel();
}

// The row that is being edited, among rows that may have been read afresh.
std::optional<std::size_t> EditSession::FindSelectedRow(const std::vector<EventRow>& rows) const {
  const auto isSelected = [&](const EventRow& row) { return row.text == SelectedRowText_; };
  const auto tag = static_cast<std::size_t>(List1Tag_.value_or(0));
  if (tag < rows.size() && isSelected(rows[tag])) return tag;
  const auto found = std::find_if(rows.begin(), rows.end(), isSelected);
  if (found == rows.end()) return std::nullopt;
  return static_cast<std::size_t>(found - rows.begin());
}

// Applies a change to the file as it now is. False when it could not be written; everything is
// then as it was.
bool EditSession::WriteChange(Change change, CivilDate today) {
  constexpr int kMostTries = 3;
  for (int i = 1;; ++i) {
    FileState file;
    if (!ReadForChange(file, today)) return false;
    const std::vector<EventRow>& rows = file.unchanged ? List1_ : file.fresh.rows;
    if (change.removesSelected) change.removed = FindSelectedRow(rows);
    // Somebody else has deleted the event already.
    if (change.removesSelected && !change.removed && !change.added) {
      FillAfterWriting(std::string(file.content), today);
      return true;
    }
    RowsToWrite events{rows, change.removed};
    if (change.added) {
      events.added = &*change.added;
      events.place = PlaceFor(rows, *change.added);
    }
    std::string content = ContentAfter(file, events);
    const RescueNeed rescue = file.unchanged ? rescue_ : file.fresh.rescue;
    const int levels = LevelsOfBackup(ports_.settings);
    const std::string& path = setup_.eventsFilePath;
    const EventsChange written{file.content, content, rescue, file.exists};
    const WriteResult result =
        WriteEventsFile(ports_.files, path, setup_.rescueFolder, levels, written);
    if (result.status.ok()) {
      ShowWritten(change, file.unchanged, std::move(content), today);
      return true;
    }
    // A file that somebody else has changed meanwhile gets the change once more.
    const auto before = file.exists ? std::optional<std::string_view>(file.content) : std::nullopt;
    const bool outdated = result.status.kind() == StatusKind::kBusy &&
                          !CheckUntouched(ports_.files, path, before).ok();
    if (outdated && i < kMostTries) continue;
    // With backups the user is not told; the entry that stays open says it.
    if (levels == 0) ShowWriteFailure(result.path, result.status);
    return false;
  }
}

std::string EditSession::ContentAfter(const FileState& file, const RowsToWrite& events) const {
  if (file.unchanged && asWritten_) {
    auto spliced = SplicedContent(events, format_, file.content);
    if (spliced) return std::move(*spliced);
  }
  return EventsFileContent(events, format_, file.content);
}

// Reads the file that a change is to be applied to. False when that cannot be, as the user has then
// been told.
bool EditSession::ReadForChange(FileState& file, CivilDate today) {
  // Mostly the file is as it was, and need not be read into memory once more.
  Likeness likeness = Likeness::kSame;
  Status status = SettleEventsFile();
  if (status.ok()) {
    status = CompareFile(ports_.files, setup_.eventsFilePath, content_, likeness);
  }
  if (status.ok() && likeness == Likeness::kOther) {
    status = ReadFile(ports_.files, setup_.eventsFilePath, file.read);
    // Whoever has emptied the file may not have meant to.
    if (status.ok() && file.read.empty() && !RescueContent()) return false;
  }
  // A file that has vanished is written again with all that was in it.
  file.exists = status.kind() != StatusKind::kNotFound;
  if (!file.exists) {
    likeness = Likeness::kSame;
    status = Status();
  }
  const bool isSame = likeness == Likeness::kSame;
  file.content = isSame ? content_ : file.read;
  // The same line may be an event in one year and none in another.
  file.unchanged = readStatus_.ok() && isSame && yearRead_ == YearOf(today);
  if (status.ok() && !file.unchanged) {
    status = ReadEventList(file.content, format_, today, TodayRowWanted(), {}, file.fresh);
  }
  if (status.ok()) return true;
  readStatus_ = std::move(status);
  ShowReadFailure();
  return false;
}

// Shows a change that has been written.
void EditSession::ShowWritten(const Change& change, bool unchanged, std::string content,
                              CivilDate today) {
  if (unchanged && settled_) {
    ChangeEventList(change, std::move(content), today);
  } else {
    FillAfterWriting(std::move(content), today);
  }
}

// Shows what reading the file again would show, without reading it: all rows but the changed one
// are as they were, and their lines follow each other.
void EditSession::ChangeEventList(const Change& change, std::string content, CivilDate today) {
  std::optional<EventRow> added;
  if (change.added) {
    const std::string line = EventLineOf(change.added->text, format_);
    const auto event = ParseEventLine(line, format_, YearOf(today));
    added = event ? MakeRow(*event, 0, format_) : *change.added;
  }
  RowRange moved = ReplaceRow(List1_, change.removed, std::move(added));
  const bool todayMoved = ReplaceTodayRow(today);
  // Only in such a file do the lines follow each other like the rows.
  if (todayMoved || !asWritten_) moved = {0, List1_.size()};
  EditorLineMap_.resize(List1_.size());
  long number = 0;
  for (std::size_t i = moved.begin; i > 0 && number == 0; --i) {
    if (!List1_[i - 1].isToday) number = List1_[i - 1].line + 1;
  }
  for (std::size_t i = moved.begin; i < moved.end; ++i) {
    EventRow& row = List1_[i];
    if (!row.isToday) row.line = number++;
    EditorLineMap_[i] = row.isToday ? kTodayRowLine : row.line;
  }
  ++listVersion_;
  content_ = std::move(content);
  asWritten_ = asWritten_ || DetectEncoding(content_) == TextEncoding::kUtf8;
  rescue_ = RescueNeed::kNone;
  wantedLine_ = -1;
}

// Brings the TODAY row up to date. False when it is so already.
bool EditSession::ReplaceTodayRow(CivilDate today) {
  std::optional<EventRow> wanted;
  if (const auto letters = TodayRowWanted()) wanted = MakeTodayRow(today, *letters, format_);
  if (wanted) {
    const std::size_t place = PlaceFor(List1_, *wanted);
    const bool isShown = place < List1_.size() && List1_[place].isToday;
    if (isShown && List1_[place].text == wanted->text) return false;
  }
  const auto shown =
      std::find_if(List1_.begin(), List1_.end(), [](const EventRow& row) { return row.isToday; });
  if (shown == List1_.end() && !wanted) return false;
  std::optional<std::size_t> old;
  if (shown != List1_.end()) old = static_cast<std::size_t>(shown - List1_.begin());
  ReplaceRow(List1_, old, std::move(wanted));
  return true;
}

void EditSession::FillAfterWriting(std::string content, CivilDate today) {
  readStatus_ = Status();
  FillEventList(std::move(content), today);
}

void EditSession::FindEventRowByTitle(std::string_view title) {
  const auto found = std::find_if(List1_.begin(), List1_.end(), [&](const EventRow& row) {
    const std::string_view text = row.text;
    // Most dates are of as many bytes as characters, and all rows are looked at here.
    const bool isPlain = text.size() >= kTitleColumn && text[kTitleColumn - 2] == ' ' &&
                         IsAscii(text.substr(0, kTitleColumn - 2));
    const std::string_view rest =
        isPlain ? text.substr(kTitleColumn - 1) : WithoutFirstCharacters(text, kTitleColumn - 1);
    return rest.starts_with(title);
  });
  List1Tag_ = static_cast<int>(found - List1_.begin());
}

}  // namespace tidewarden
