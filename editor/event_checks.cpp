#include "editor/event_checks.h"

#include <algorithm>
#include <utility>

#include "core/event_line.h"
#include "dates/event_fields.h"
#include "dates/feasts.h"
#include "dates/text.h"
#include "editor/occurrence_codes.h"

namespace tidewarden {
namespace {

constexpr int kMostAdvanceDays = 365;
constexpr int kMostEveryDays = 199;
constexpr int kDaysInEveryMonth = 28;
constexpr int kFebruary = 2;
constexpr int kLeapDay = 29;
// The next occurrence of a day that lies 1 to 65 days back is more than 300 days away.
constexpr int kWarnedDaysBack = 65;

int LongestMonth(int month) {
  constexpr int kLeapYear = 2000;
  return LastDayOfMonth(kLeapYear, month);
}

// True for a feast that falls on a day. The file may hold one that does not ("e+0.5").
bool IsDatedFeast(std::string_view date) {
  DateField field;
  return IsRowFeast(date) && ReadDateField(date, field) == DateFieldFault::kNone &&
         field.feast.family != Feast::Family::kNone;
}

std::string Replaced(std::string_view text, std::string_view anyOf, std::string_view by) {
  std::string out;
  for (const char c : text) {
    if (anyOf.find(c) == std::string_view::npos) {
      out.push_back(c);
    } else {
      out += by;
    }
  }
  return out;
}

}  // namespace

EventChecks::EventChecks(EventEntry& entry, MessageBox& messages, const RegionalDateFormat& format,
                         CivilDate today, bool& warned)
    : entry_(entry), messages_(messages), format_(format), today_(today), warned_(warned) {}

std::optional<CheckedEvent> EventChecks::Run() {
  if (!CheckTitle() || !CheckAdvance() || !CheckDayCount() || !CheckEventDate()) {
    return std::nullopt;
  }
  const auto code = BuildOccursCode();
  if (!code) return std::nullopt;
  CheckedEvent event = MakeEvent(*code);
  // What the reader of the file would pass over must not be written. The years 2000 to 2999, in
  // which one-time events and tasks can be written, are the only way to get here.
  if (!ParseEventLine(EventLineOf(event.row.text, format_), format_, YearOf(today_))) {
    ShowInvalidDateMessage("Year", "");
    return std::nullopt;
  }
  return event;
}

void EventChecks::Tell(const std::string& text) {
  messages_.Show(text, MessageButtons::kOk, MessageIcon::kNone);
}

bool EventChecks::CheckTitle() {
  const auto isEmpty = [&] { return Trim(entry_.row().txtEventInput.text).empty(); };
  const auto refuse = [&] {
    Tell("You need to enter a title for the event before you can save it.");
    focus_ = EditorFocus::kEventInput;
    return false;
  };
  if (isEmpty()) return refuse();
  const std::string& title = entry_.row().txtEventInput.text;
  if (title.find(',') == std::string::npos) return true;
  if (AskRemoveCommas() != MessageAnswer::kOk) {
    focus_ = EditorFocus::kEventInput;
    return false;
  }
  entry_.ReplaceTitle(Replaced(title, ",", ""));
  return isEmpty() ? refuse() : true;
}

MessageAnswer EventChecks::AskRemoveCommas() {
  return messages_.Show(
      "Tidewarden's file format uses commas to separate the fields.\n"
      "Because of this, you cannot use commas in your Event Titles.\n\n"
      "Would you like to have the commas in your Event Title removed automatically?",
      MessageButtons::kOkCancel, MessageIcon::kExclamation);
}

bool EventChecks::CheckAdvance() {
  const TextBoxState& box = entry_.row().txtAdvanceInput;
  if (!box.enabled) return true;
  const double days = LeadingNumber(box.text);
  if (days >= 0 && days <= kMostAdvanceDays) return true;
  Tell(
      "Please pick an advance notice for this event from 0 - 365 days.\n\n"
      "(Zero will only show on the day of, 365 will show all year long.)");
  entry_.ClearAdvance();
  focus_ = EditorFocus::kAdvanceInput;
  return false;
}

bool EventChecks::CheckDayCount() {
  if (entry_.occursIndex() != kEveryKind) return true;
  const double days = LeadingNumber(entry_.row().txtEveryInput.text);
  if (days >= 1 && days <= kMostEveryDays) return true;
  Tell(
      "For an event that occurs \"every -\" so many days, please pick a value from "
      "\"every 1 day\" to \"every 199 days.\"");
  return false;
}

bool EventChecks::CheckEventDate() {
  const std::string& label = entry_.row().lblDate.caption;
  if (label == "Month:") return CheckMonthOnly();
  if (label == "Day:") return CheckDayOnly();
  return CheckMonthAndDay();
}

bool EventChecks::CheckMonthOnly() {
  date_ = WorkingDate();
  if (entry_.row().chkEveryMonth.checked) return true;
  const std::string_view month = FirstCharacters(entry_.row().txtDateInput.text, 2);
  if (EqualIgnoringCase(month, "xx")) return true;
  const double value = LeadingNumber(month);
  if (value < 1 || value > 12) {
    Tell("You need to enter a proper month for this event.");
    return false;
  }
  date_.month = static_cast<int>(value);
  return true;
}

bool EventChecks::CheckDayOnly() {
  date_ = WorkingDate();
  const double value = LeadingNumber(FirstCharacters(entry_.row().txtDateInput.text, 2));
  if (value < 1 || value > 31) {
    Tell("You need to enter a proper day for this event.");
    return false;
  }
  date_.day = static_cast<int>(value);
  if (date_.day > kDaysInEveryMonth) {
    Tell(
        "NOTE: A monthly event with a day higher than 28 won't occur every month,\n"
        "there is a \"Last Day\" occurrence you can use, however.");
  }
  return true;
}

bool EventChecks::CheckMonthAndDay() {
  date_ = WorkingDate();
  const std::string& typed = entry_.row().txtDateInput.text;
  if (IsDatedFeast(typed)) {
    date_.feast = typed;
    // A feast has no year to count from.
    return !IsCounterKind(entry_.occursIndex()) || CheckYear("");
  }
  const std::string date = Replaced(typed, "-/", ".");
  if (!CheckDateSeparators(date)) return false;
  date_.month = ExtractMonth(date, format_);
  date_.day = ExtractDay(date, format_);
  if (date_.month < 1 || date_.month > 12) {
    ShowInvalidDateMessage("Month", "");
    return false;
  }
  if (date_.day < 1) {
    ShowInvalidDateMessage("Day", "A value of at least 1 must be entered for your day.");
    return false;
  }
  return CheckLengthOfMonth() && CheckYear(date);
}

bool EventChecks::CheckDateSeparators(std::string_view date) {
  const auto separators = std::count(date.begin(), date.end(), '.');
  const bool counter = IsCounterKind(entry_.occursIndex());
  if (counter ? separators == 2 : separators >= 1) return true;
  if (counter) {
    Tell("Please use two separators like . - or / to provide a valid " + format_.DisplayDateFormat +
         " for this event.");
  } else {
    Tell("Please use a single separator like . - or / to separate the " +
         std::string(format_.IsMonthFirst() ? "month from the day" : "day from the month") +
         " of this event.");
  }
  focus_ = EditorFocus::kDateInput;
  return false;
}

bool EventChecks::CheckLengthOfMonth() {
  const int longest = LongestMonth(date_.month);
  const std::string& name = format_.MonthNames[static_cast<std::size_t>(date_.month)];
  if (date_.day > longest) {
    const int told = date_.month == kFebruary ? kDaysInEveryMonth : longest;
    ShowInvalidDateMessage("Day", name + " only has " + std::to_string(told) + " days.");
    return false;
  }
  if (date_.month != kFebruary || date_.day != kLeapDay) return true;
  const MessageAnswer answer = messages_.Show(
      "This event will only occur on leap years.\n\nYou can also create a \"Las Day\" occurrence "
      "for " +
          name + "\nwhich will give you a " + name + " 29 event on leap years\nand a " + name +
          " 28 event on non-leap years.\n\n"
          "Click OK to continue creating this event or click Cancel to cancel.",
      MessageButtons::kOkCancel, MessageIcon::kNone);
  return answer == MessageAnswer::kOk;
}

// The year of a count from a past date or to a future one. A text that is no full date has none.
bool EventChecks::CheckYear(std::string_view date) {
  const int kind = entry_.occursIndex();
  if (!IsCounterKind(kind)) return true;
  const int current = YearOf(today_);
  const bool isDate = !NormalizeDateText(date, format_, current).empty();
  date_.year = ExtractYear(date, format_, current);
  const bool past = kind == kDaysPastKind;
  if (isDate && (past ? date_.year <= current : date_.year >= current)) return true;
  ShowInvalidDateMessage("Year", past ? "For a forward count from a past date,\n"
                                        "you must enter a year between 0 and the current year."
                                      : "For a countdown to a future date,\n"
                                        "you must enter the current year or a future year.");
  return false;
}

void EventChecks::ShowInvalidDateMessage(std::string_view part, std::string_view detail) {
  if (part == "Month") detail = "Months can only range from 1 to 12.";
  std::string text = "Invalid ";
  text.append(part).append(" Entered.\n");
  if (!detail.empty()) text.append("\n").append(detail).append("\n");
  const std::string pattern =
      part == "Year" ? format_.DisplayDateFormat
                     : Replaced(EditorDatePatternOf(format_), ".", format_.DateSeparator);
  text.append("\nPlease enter a valid ").append(ToLower(part)).append(" using ");
  Tell(text.append(pattern).append(" format."));
}

// The event's day in the current year; nothing when that year does not have it.
std::optional<CivilDate> EventChecks::DateInCurrentYear() const {
  const int current = YearOf(today_);
  if (!date_.feast.empty()) return FeastDate(ReadFeast(date_.feast), current);
  const CivilDate date = MakeDate(current, date_.month, date_.day);
  return IsRealDate(date) ? std::optional(date) : std::nullopt;
}

std::optional<std::string> EventChecks::BuildOccursCode() {
  const int kind = entry_.occursIndex();
  if (IsCounterKind(kind)) return CodeWithYear(kind, date_.year);
  if (kind != kOneTimeKind && kind != kTilDoneKind && kind != kEveryKind) {
    return OccurrenceItems()[static_cast<std::size_t>(kind)];
  }
  const auto thisYear = DateInCurrentYear();
  int year = YearOf(today_);
  if (date_.feast.empty()) {
    year = YearOfNext(date_.month, date_.day, today_);
  } else if (thisYear && *thisYear < today_) {
    ++year;
  }
  if (kind != kEveryKind) return CodeWithYear(kind, year);

  const std::string typedCount = entry_.row().txtEveryInput.text;
  const int days = static_cast<int>(LeadingNumber(typedCount));
  std::string code = EveryCode(days, year);
  // From 100 on the box itself loses its hundred.
  if (days >= 100) entry_.ReplaceEvery(code.substr(0, 2));
  const int daysBack = thisYear ? DaysBetween(*thisYear, today_) : 0;
  const bool farAway = daysBack >= 1 && daysBack <= kWarnedDaysBack;
  if (farAway && !warned_ && !GoesOnAfterWarning(typedCount)) return std::nullopt;
  return code;
}

bool EventChecks::GoesOnAfterWarning(std::string_view typedCount) {
  warned_ = true;
  const bool plural = LeadingNumber(entry_.row().txtAdvanceInput.text) > 1;
  std::string text = "Your event occurring every ";
  text.append(typedCount).append(" day").append(plural ? "s" : " ");
  text +=
      " will not have its first occurrence for over 300 days.\n\n"
      "If your intention was to track a more immediate upcoming event, make sure you enter\n"
      "this event's date as the next upcoming and not the date that has just passed.\n\n"
      "Click \"OK\" to keep the date as entered.\n"
      "Click \"Cancel\" to change to a more immediate upcoming date.";
  if (messages_.Show(text, MessageButtons::kOkCancel, MessageIcon::kExclamation) ==
      MessageAnswer::kOk) {
    return true;
  }
  focus_ = EditorFocus::kDateInput;
  return false;
}

CheckedEvent EventChecks::MakeEvent(const std::string& code) const {
  CheckedEvent event;
  const std::string clean = CleanText(entry_.row().txtEventInput.text);
  event.title = Trim(FirstCharacters(Trim(clean), kTitleLength));
  const bool feast = !date_.feast.empty();
  event.row.key = feast ? date_.feast : StoredDate(date_.month, date_.day);
  const std::string shown = feast ? date_.feast : ShownDate(date_.month, date_.day, format_);
  const int advance = static_cast<int>(LeadingNumber(entry_.row().txtAdvanceInput.text));
  event.row.text =
      RowText(shown, event.title, AdvanceText(advance, IsCounterKind(entry_.occursIndex())), code);
  event.row.line = 0;
  return event;
}

}  // namespace tidewarden
