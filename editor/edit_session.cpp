#include "editor/edit_session.h"

#include <algorithm>
#include <utility>

#include "core/events_file.h"
#include "core/settings_keys.h"
#include "dates/text.h"
#include "editor/event_list.h"
#include "editor/events_writer.h"
#include "editor/observances.h"

namespace tidewarden {

using modGetSetSaveSet::Get;
using modGetSetSaveSet::isNotFalse;
using modGetSetSaveSet::isTrue;

namespace {

constexpr int kDonateGlyphs = 14;  // "0" to "="

// The whole part of a remembered number; a text without one gives 0.
int WholeNumber(std::string_view text) {
  constexpr double kMost = 1e6;
  return static_cast<int>(std::clamp(LeadingNumber(text), -kMost, kMost));
}

void Run(const std::function<void()>& hook) {
  if (hook) hook();
}

}  // namespace

EditSession::EditSession(EditPorts ports, EditorHooks hooks, RegionalDateFormat format,
                         EditorSetup setup)
    : ports_(ports),
      hooks_(std::move(hooks)),
      format_(std::move(format)),
      setup_(std::move(setup)),
      entry_(format_),
      cmdAdd_{"&ADD", "Add a New Event (Alt + A)"},
      cmdEdit_{"&EDIT", "Edit an Existing Event (Alt + E)"},
      cmdClose_{"&CLOSE", "Return to Reminders (Alt + C)"},
      cmdHelp_{"Help (F1)", ""},
      cmdPrint_{"P", "Send to Web Browser for Printing (Alt + P)"},
      cmdOptions_{"O", "Options (Alt + O)"},
      cmdDonate_{"0", "Simple $10 Donation (Alt + D)"} {
  observances_ = PopularObservances(format_);
}

// --- Opening and closing.

void EditSession::Request(long requestedEditLine, std::string rawLine, bool requestedAdd) {
  RequestedEditLine_ = requestedEditLine;
  requestedRawLine_ = std::move(rawLine);
  RequestedAdd_ = requestedAdd;
  if (!isShown_) return;
  if (isEntryUnderWay()) {
    RequestedEditLine_ = -1;
    RequestedAdd_ = false;
  } else {
    Reload();
    CarryOutRequest();
  }
}

WindowArea EditSession::Load(const std::vector<WindowArea>& screens) {
  const LocalTime now = ports_.clock.Now();
  isLoaded_ = true;
  warned_ = false;
  entry_ = EventEntry(format_);
  // The window is shown before the events are read, and shows none of an earlier opening.
  List1_.clear();
  EditorLineMap_.clear();
  ++listVersion_;
  content_.clear();
  List1Tag_.reset();
  SelectedRowText_.clear();
  random_ = setup_.seed + static_cast<std::uint64_t>(DayCount{now.date}.time_since_epoch().count());
  random_ = random_ * 86'400 + static_cast<std::uint64_t>(now.FourDigit() * 60 + now.second);
  DrawDonateGlyph();
  const WindowArea place = LoadEditorPlacement(ports_.settings, screens);
  static_cast<void>(LevelsOfBackup(ports_.settings));
  EntryHints hints;
  hints.popularArrow = isTrue(Get(ports_.settings, settings::kShowPopularObservancesArrow));
  hints.dateExample = isTrue(Get(ports_.settings, settings::kShowDateExample));
  entry_.SetHints(hints);
  caption_ = "Events Editor - Tidewarden v" + std::to_string(setup_.majorVersion) + "." +
             std::to_string(setup_.minorVersion);
  wantsSkin_ = isNotFalse(Get(ports_.settings, settings::kUseSkin));
  SetEntryMode(false);
  return place;
}

void EditSession::Shown() {
  isShown_ = true;
  RemoveLeftovers(ports_.files, setup_.eventsFilePath, setup_.rescueFolder);
  LoadEventLines(ports_.clock.Now().date);
  EnableEventList(true);
  CarryOutRequest();
}

void EditSession::CarryOutRequest() {
  if (RequestedEditLine_ > -1) SelectRequestedEvent();
  if (RequestedAdd_) Add();
}

void EditSession::Closed(const std::optional<EditorPlace>& place, EditorClosing why) {
  isLoaded_ = false;
  isShown_ = false;
  if (place) SaveEditorPlacement(ports_.settings, *place);
  if (isEntryUnderWay()) entry_.End();
  if (why == EditorClosing::kReturnToReminders) Run(hooks_.showReminder);
}

void EditSession::LeftNormalState() const {
  Run(hooks_.showReminder);
}

void EditSession::Restored() {
  Run(hooks_.hideReminder);
  Reload();
}

void EditSession::Reload() {
  if (!isShown_ || isEntryUnderWay()) return;
  LoadEventLines(ports_.clock.Now().date);
  selectedRow_ = std::min(selectedRow_, static_cast<int>(List1_.size()) - 1);
}

// --- The list.

// What an interrupted save has left is settled before the file is read.
Status EditSession::SettleEventsFile() {
  unreadPath_ = setup_.eventsFilePath;
  WriteResult settled = SettleInterruptedSave(ports_.files, ports_.messages, setup_.eventsFilePath,
                                              setup_.rescueFolder);
  if (!settled.status.ok()) unreadPath_ = std::move(settled.path);
  return std::move(settled.status);
}

Status EditSession::ReadEventsFile(std::string& content) {
  Status settled = SettleEventsFile();
  return settled.ok() ? ReadFile(ports_.files, setup_.eventsFilePath, content) : settled;
}

void EditSession::LoadEventLines(CivilDate today) {
  std::string content;
  readStatus_ = ReadEventsFile(content);
  if (readStatus_.kind() == StatusKind::kNotFound) {
    // Without a file there are no events; a save tries to make it once more.
    readStatus_ = Status();
    static_cast<void>(RescueContent());
    const Status created =
        CreateNewEventsFile(ports_.files, ports_.messages, setup_.eventsFilePath);
    if (!created.ok()) ShowWriteFailure(setup_.eventsFilePath, created);
  }
  FillEventList(std::move(content), today);
  if (!readStatus_.ok()) ShowReadFailure();
}

// Puts what was last read into the rescue copy, because the file has nothing of it any more. False
// when that fails, as the user has then been told.
bool EditSession::RescueContent() {
  if (content_.empty()) return true;
  const WriteResult copied =
      MakeRescueCopy(ports_.files, setup_.eventsFilePath, setup_.rescueFolder, content_);
  if (!copied.status.ok()) ShowWriteFailure(copied.path, copied.status);
  return copied.status.ok();
}

void EditSession::FillEventList(std::string content, CivilDate today) {
  const auto todayRow = TodayRowWanted();
  EventList list;
  Status status = ReadEventList(content, format_, today, todayRow,
                                {RequestedEditLine_, requestedRawLine_}, list);
  if (readStatus_.ok() && !status.ok()) {
    readStatus_ = std::move(status);
    status = ReadEventList({}, format_, today, todayRow, {}, list);
    content.clear();
  }
  content_ = std::move(content);
  yearRead_ = YearOf(today);
  rescue_ = list.rescue;
  wantedLine_ = list.wantedLine;
  settled_ = list.settled;
  asWritten_ = list.asWritten;
  List1_ = std::move(list.rows);
  NumberRows();
}

void EditSession::NumberRows() {
  EditorLineMap_.clear();
  EditorLineMap_.reserve(List1_.size());
  for (const EventRow& row : List1_)
    EditorLineMap_.push_back(row.isToday ? kTodayRowLine : row.line);
  ++listVersion_;
}

std::optional<TodayCase> EditSession::TodayRowWanted() const {
  const bool capitals = isNotFalse(Get(ports_.settings, settings::kCapitalizeTodaysEvents));
  if (!isNotFalse(Get(ports_.settings, settings::kListTodayWithEvents))) return std::nullopt;
  return capitals ? TodayCase::kCapitals : TodayCase::kSmall;
}

void EditSession::EnableEventList(bool enable) {
  isListEnabled_ = enable;
  if (!enable) {
    selectedRow_ = -1;
    return;
  }
  const int rows = static_cast<int>(List1_.size());
  selectedRow_ = std::min(List1Tag_.value_or(0), rows - 1);
  List1Tag_.reset();
  focus_ = EditorFocus::kList1;
}

void EditSession::SelectRequestedEvent() {
  for (std::size_t i = 0; i < List1_.size(); ++i) {
    if (List1_[i].isToday || wantedLine_ < 0 || List1_[i].line != wantedLine_) continue;
    selectedRow_ = static_cast<int>(i);
    RequestedEditLine_ = -1;
    Edit();
    return;
  }
}

bool EditSession::IsEditableSelection() {
  const auto refuse = [&](const char* text) {
    ports_.messages.Show(text, MessageButtons::kOk, MessageIcon::kNone);
    if (isListEnabled_) focus_ = EditorFocus::kList1;
    return false;
  };
  if (selectedRow_ < 0) return refuse("Please select which event you would like to edit!");
  const std::string& text = List1_[static_cast<std::size_t>(selectedRow_)].text;
  if (Characters(text, 8, 14) == "<TODAY>") {
    return refuse("Today is not an event which you can edit!");
  }
  return true;
}

void EditSession::RowSelected(int row) {
  if (isListEnabled_ && row >= 0 && row < static_cast<int>(List1_.size())) selectedRow_ = row;
}

void EditSession::ListEnterPressed() {
  if (selectedRow_ >= 0) Edit();
}

void EditSession::ListDeleteReleased() {
  if (selectedRow_ >= 0) PopupDelete();
}

bool EditSession::RowRightPressed(int row) {
  if (!isListEnabled_) return false;
  selectedRow_ = row >= 0 && row < static_cast<int>(List1_.size()) ? row : -1;
  return true;
}

void EditSession::PopupDelete() {
  if (isEntryUnderWay()) return;
  SelectedRowText_ =
      selectedRow_ < 0 ? std::string() : List1_[static_cast<std::size_t>(selectedRow_)].text;
  if (!IsEditableSelection()) return;
  Edit();
  Delete();
}

void EditSession::PopupCancel() {
  if (!isEntryUnderWay()) EnableEventList(true);
}

// --- Starting and ending an entry.

void EditSession::SetEntryMode(bool on) {
  EnableEventList(!on);
  cmdHelp_.enabled = !on;
  for (ButtonState* const button :
       {&cmdHelp_, &cmdPrint_, &cmdOptions_, &cmdClose_, &cmdDonate_, &cmdAdd_, &cmdEdit_}) {
    button->enabled = cmdHelp_.enabled;
    button->visible = cmdHelp_.enabled;
  }
  // Without a page to open there is nothing to press.
  if (!hooks_.donate) cmdDonate_.enabled = cmdDonate_.visible = false;
}

void EditSession::Add() {
  if (isEntryUnderWay()) return;
  SelectedRowText_.clear();
  std::string date;
  if (RequestedAdd_) {
    const CivilDate today = ports_.clock.Now().date;
    date = ShownDate(MonthOf(today), DayOf(today), format_);
    RequestedAdd_ = false;
  }
  std::string advance;
  const int days = WholeNumber(Get(ports_.settings, settings::kRememberLastAdvanceNoticeValue));
  const bool keepsAdvance = isTrue(Get(ports_.settings, settings::kRememberLastAdvanceNotice));
  if (keepsAdvance && days >= 1 && days <= 365) AppendNumber(advance, days);
  const int index = WholeNumber(Get(ports_.settings, settings::kRememberLastOccursIndex));
  const bool keepsOccurs = isTrue(Get(ports_.settings, settings::kRememberLastOccurs));
  const bool valid = keepsOccurs && index >= 0 && index < kOccurrenceKinds;
  SetEntryMode(true);
  entry_.StartAdd(date, advance, valid ? index : kYearlyKind);
  focus_ = EditorFocus::kEventInput;
}

void EditSession::Edit() {
  if (isEntryUnderWay() || !IsEditableSelection()) return;
  List1Tag_ = selectedRow_;
  SelectedRowText_ = List1_[static_cast<std::size_t>(selectedRow_)].text;
  SetEntryMode(true);
  entry_.StartEdit(SelectedRowText_);
  focus_ = EditorFocus::kEventInput;
}

void EditSession::Cancel() {
  if (!isEntryUnderWay()) return;
  DrawDonateGlyph();
  entry_.End();
  SetEntryMode(false);
}

void EditSession::EscapeReleased() {
  Cancel();
}

void EditSession::DrawDonateGlyph() {
  // The generator of Steele, Lea and Flood, "Fast Splittable Pseudorandom Number Generators",
  // OOPSLA 2014 (SplitMix64).
  random_ += 0x9E3779B97F4A7C15;
  std::uint64_t mixed = random_;
  mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EB;
  mixed ^= mixed >> 31U;
  cmdDonate_.caption = std::string(1, static_cast<char>('0' + mixed % kDonateGlyphs));
}

void EditSession::ShowReadFailure() {
  ports_.messages.Show("Tidewarden could not read the events file:\n" + unreadPath_ + "\n" +
                           DescribeStatus(readStatus_),
                       MessageButtons::kOk, MessageIcon::kNone);
}

void EditSession::ShowWriteFailure(const std::string& path, const Status& status) {
  ports_.messages.Show(
      "Tidewarden could not save the events file:\n" + path + "\n" + DescribeStatus(status),
      MessageButtons::kOk, MessageIcon::kNone);
}

// --- What other parts of the program do.

void EditSession::Print() const {
  if (hooks_.print) hooks_.print(List1_);
}
void EditSession::Help() const {
  Run(hooks_.help);
}
void EditSession::Options(const std::optional<EditorPlace>& place) const {
  if (isEntryUnderWay()) return;
  if (place) SaveEditorPlacement(ports_.settings, *place);
  Run(hooks_.options);
}
void EditSession::Donate() const {
  Run(hooks_.donate);
}

void EditSession::HiddenSave() {
  if (entry().cmdSave.enabled) Save();
}
void EditSession::HiddenPrint() const {
  if (cmdPrint_.enabled) Print();
}
void EditSession::HiddenOptions(const std::optional<EditorPlace>& place) const {
  if (cmdOptions_.enabled) Options(place);
}
void EditSession::HiddenDonate() const {
  if (cmdDonate_.enabled) Donate();
}

// --- The entry row.

void EditSession::EventInputTyped(std::string_view text) {
  if (isEntryUnderWay()) entry_.EventInputTyped(text);
}
void EditSession::DateInputTyped(std::string_view text) {
  if (isEntryUnderWay()) entry_.DateInputTyped(text);
}
void EditSession::AdvanceInputTyped(std::string_view text) {
  if (isEntryUnderWay()) entry_.AdvanceInputTyped(text);
}
void EditSession::EveryInputTyped(std::string_view text) {
  if (isEntryUnderWay()) entry_.EveryInputTyped(text);
}
KeyUse EditSession::DateInputKey(std::string_view character) {
  return isEntryUnderWay() ? entry_.DateInputKey(character) : KeyUse::kPassOn;
}
void EditSession::DateInputLeft() {
  if (isEntryUnderWay()) entry_.DateInputLeft();
}
void EditSession::EveryMonthClicked(bool checked) {
  if (isEntryUnderWay()) entry_.EveryMonthClicked(checked);
}
void EditSession::OccursPicked(int index) {
  if (isEntryUnderWay()) entry_.SelectOccurs(index);
}

void EditSession::PopularPicked(int index) {
  const bool known = index >= 0 && index < static_cast<int>(observances_.size());
  if (entry_.mode() != EntryMode::kAdd || !known) return;
  entry_.PopularPicked(index, ReadObservance(observances_[static_cast<std::size_t>(index)]));
  focus_ = EditorFocus::kAdvanceInput;
}

EditorFocus EditSession::TakeFocus() {
  return std::exchange(focus_, EditorFocus::kNone);
}

}  // namespace tidewarden
