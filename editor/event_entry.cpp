#include "editor/event_entry.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "core/text_encoding.h"
#include "dates/text.h"
#include "editor/event_rows.h"
#include "editor/occurrence_codes.h"

namespace tidewarden {
namespace {

constexpr int kPartialDateLength = 5;
constexpr int kFullDateLength = 10;
constexpr int kHalfDateLength = 2;
constexpr int kNumberLength = 3;
constexpr std::string_view kEveryMonth = "xx";

std::vector<std::string_view> CharactersOf(std::string_view text) {
  std::vector<std::string_view> characters;
  while (!text.empty()) {
    characters.push_back(FirstCharacters(text, 1));
    text.remove_prefix(characters.back().size());
  }
  return characters;
}

std::string Joined(const std::vector<std::string_view>& characters, std::size_t from,
                   std::size_t to) {
  std::string text;
  for (std::size_t i = from; i < to; ++i) text += characters[i];
  return text;
}

// What is in a box after typing: what was put in is cut so that the text fits, and a text that was
// too long already may only become shorter.
std::string WithinLimit(std::string_view before, std::string_view after, int maxLength) {
  const auto old = CharactersOf(before);
  const auto typed = CharactersOf(after);
  const auto limit = static_cast<std::size_t>(maxLength);
  if (typed.size() <= std::max(limit, std::min(old.size(), typed.size())))
    return std::string(after);
  std::size_t front = 0;
  while (front < old.size() && old[front] == typed[front]) ++front;
  std::size_t back = 0;
  while (back < old.size() - front &&
         old[old.size() - back - 1] == typed[typed.size() - back - 1]) {
    ++back;
  }
  const std::size_t kept = front + back;
  const std::size_t room = limit > kept ? limit - kept : 0;
  return Joined(typed, 0, front + room) + Joined(typed, typed.size() - back, typed.size());
}

bool IsEveryMonth(std::string_view text) {
  return EqualIgnoringCase(text, kEveryMonth);
}

// Where a name stands in a text, in characters; letter case ignored.
std::optional<std::size_t> FindIgnoringCase(const std::vector<std::string_view>& text,
                                            std::string_view name) {
  const std::size_t length = CountCharacters(name);
  for (std::size_t i = 0; length > 0 && i + length <= text.size(); ++i) {
    if (EqualIgnoringCase(Joined(text, i, i + length), name)) return i;
  }
  return std::nullopt;
}

void Show(LabelState& label, bool on) {
  label.visible = on;
}

template <typename Control>
void ShowAndEnable(Control& control, bool on) {
  control.visible = on;
  control.enabled = on;
}

}  // namespace

std::string CleanText(std::string_view text) {
  constexpr char32_t kBeyondUnicode = 0x110000;
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const char first = text.front();
    const char32_t c = TakeCharacter(text);
    const bool isControl = c < 0x20 || c == 0x7F || c == 0x85 || c == 0x2028 || c == 0x2029;
    if (c >= kBeyondUnicode) {
      out += DecodeWindows1252({&first, 1});
    } else {
      AppendCharacter(out, isControl ? U' ' : c);
    }
  }
  return out;
}

EventEntry::EventEntry(RegionalDateFormat format) : format_(std::move(format)) {
  row_.txtEventInput.maxLength = static_cast<int>(kTitleLength);
  row_.txtDateInput.maxLength = kPartialDateLength;
  row_.txtAdvanceInput.maxLength = kNumberLength;
  row_.txtEveryInput.maxLength = kNumberLength;
  row_.chkEveryMonth.caption = "every month";
  row_.lblEvent.caption = "Event:";
  row_.lblDate.caption = "Date:";
  row_.lblAdvance.caption = "Advance:";
  row_.lblOccurs.caption = "Occurs:";
  row_.lblEvery.caption = "every";
  row_.lblDays.caption = "days";
  row_.lblPopularObservances.caption = "<-- popular observances";
  row_.cmdSave = {"S", "Save New Event (Alt + S)", false, false};
  row_.cmdCancel = {"C", "Cancel Adding a New Event (Esc)", false, false};
  row_.cmdDelete = {"X", "Delete this Event", false, false};
  row_.datePlace = PlaceDateInput(kPartialDateLength);
}

void EventEntry::StartAdd(std::string_view date, std::string_view advance, int occursIndex) {
  mode_ = EntryMode::kAdd;
  row_.txtEventInput.text.clear();
  row_.txtDateInput.text = date;
  row_.chkEveryMonth.checked = false;
  row_.txtAdvanceInput.text = advance;
  row_.txtEveryInput.text.clear();
  row_.cmbPopular.index = -1;
  row_.cmdCancel.tooltip = "Cancel Adding a New Event (Esc)";
  row_.cmdSave.tooltip = "Save New Event (Alt + S)";
  SetEntryMode(true);
  SelectOccurs(occursIndex);
}

void EventEntry::StartEdit(std::string_view listedRow) {
  mode_ = EntryMode::kEdit;
  row_.cmdDelete.enabled = true;
  const std::string_view code = Trim(Characters(listedRow, 54, 61));
  row_.cmdCancel.tooltip = "Cancel Editing this Event (Esc)";
  row_.cmdSave.tooltip = "Save Changes to this Event (Alt + S)";
  SetEntryMode(true);
  SetOccursFromCode(code);
  row_.txtEventInput.text = Trim(Characters(listedRow, 7, 44));
  row_.txtAdvanceInput.text.clear();
  AppendNumber(row_.txtAdvanceInput.text,
               static_cast<int>(LeadingNumber(Characters(listedRow, 45, 53))));
  row_.txtEveryInput.text.clear();
  if (occursIndex() == kEveryKind && OccursIndexOf(code) == kEveryKind) {
    AppendNumber(row_.txtEveryInput.text, EveryCountOf(code));
  }
  FillDateInput(listedRow);
}

void EventEntry::End() {
  row_.cmdDelete.enabled = false;
  mode_ = EntryMode::kIdle;
  SetEntryMode(false);
}

void EventEntry::SetEntryMode(bool on) {
  const bool adding = on && mode_ == EntryMode::kAdd;
  Show(row_.lblEvent, on);
  Show(row_.lblDate, on);
  Show(row_.lblOccurs, on);
  row_.cmdDelete.visible = on;
  ShowAndEnable(row_.cmdSave, on);
  ShowAndEnable(row_.cmdCancel, on);
  ShowAndEnable(row_.txtEventInput, on);
  ShowAndEnable(row_.txtDateInput, on);
  ShowAndEnable(row_.cmbOccursInput, on);
  ShowAndEnable(row_.cmbPopular, adding);
  Show(row_.lblPopularObservances, adding && hints_.popularArrow);
  Show(row_.lblDateExample, on && hints_.dateExample);
  ShowOccursInputs();
}

// The inputs that belong to some kinds only.
void EventEntry::ShowOccursInputs() {
  const bool on = mode_ != EntryMode::kIdle;
  const bool every = on && occursIndex() == kEveryKind;
  ShowAndEnable(row_.txtEveryInput, every);
  ShowAndEnable(row_.lblEvery, every);
  ShowAndEnable(row_.lblDays, every);
  ShowAndEnable(row_.chkEveryMonth, on && occursIndex() >= kFirstWeekdayKind);
  const bool noticed = on && !IsCounterKind(occursIndex());
  row_.txtAdvanceInput.visible = on;
  row_.txtAdvanceInput.enabled = noticed;
  row_.lblAdvance.visible = on;
  row_.lblAdvance.enabled = noticed;
}

void EventEntry::SelectOccurs(int index) {
  if (index < 0 || index >= kOccurrenceKinds) return;
  row_.cmbOccursInput.index = index;
  LayoutDateInput();
}

void EventEntry::LayoutDateInput() {
  const int index = occursIndex();
  row_.lblDate.caption = "Date:";
  row_.txtDateInput.maxLength = kPartialDateLength;
  row_.lblDateExample.caption = format_.DateEntryExample;
  if (index == kMonthlyKind) {
    row_.lblDate.caption = "Day:";
    row_.txtDateInput.maxLength = kHalfDateLength;
    row_.lblDateExample.caption.clear();
  } else if (IsCounterKind(index)) {
    row_.txtDateInput.maxLength = kFullDateLength;
    row_.lblDateExample.caption.clear();
  } else if (index >= kFirstWeekdayKind) {
    row_.lblDate.caption = "Month:";
    row_.txtDateInput.maxLength = kHalfDateLength;
    row_.lblDateExample.caption = format_.MonthEntryExample;
    row_.chkEveryMonth.checked = IsEveryMonth(row_.txtDateInput.text);
  }
  row_.datePlace = PlaceDateInput(row_.txtDateInput.maxLength);
  ShowOccursInputs();
}

void EventEntry::SetOccursFromCode(std::string_view code) {
  SelectOccurs(OccursIndexOf(code).value_or(std::max(occursIndex(), kYearlyKind)));
}

void EventEntry::FillDateInput(std::string_view listedRow) {
  const std::string_view first = Characters(listedRow, 1, 2);
  const std::string_view second = Characters(listedRow, 4, 5);
  const std::string_view month = format_.IsMonthFirst() ? first : second;
  const std::string_view day = format_.IsMonthFirst() ? second : first;
  std::string& text = row_.txtDateInput.text;
  if (row_.lblDate.caption == "Day:") {
    text = day;
  } else if (row_.lblDate.caption == "Month:") {
    text = month;
    row_.chkEveryMonth.checked = text == kEveryMonth;
  } else {
    text = FirstCharacters(listedRow, kDateLength);
  }
  const std::string_view year = LastCharacters(listedRow, 4);
  if (!IsCounterKind(occursIndex()) || !IsDigits(year)) return;
  if (!format_.IsYearFirst()) {
    text.append(".").append(year);
  } else if (IsRowFeast(text)) {
    text.insert(0, std::string(year).append("."));
  } else {
    // Year, month, day: three parts are read in this order, unlike the row's two.
    text = std::string(year).append(".").append(month).append(".").append(day);
  }
}

void EventEntry::EventInputTyped(std::string_view text) {
  TextBoxState& box = row_.txtEventInput;
  box.text = WithinLimit(box.text, CleanText(text), box.maxLength);
}

void EventEntry::DateInputTyped(std::string_view text) {
  TextBoxState& box = row_.txtDateInput;
  box.text = WithinLimit(box.text, CleanText(text), box.maxLength);
}

void EventEntry::AdvanceInputTyped(std::string_view text) {
  TextBoxState& box = row_.txtAdvanceInput;
  box.text = WithinLimit(box.text, CleanText(text), box.maxLength);
}

void EventEntry::EveryInputTyped(std::string_view text) {
  TextBoxState& box = row_.txtEveryInput;
  box.text = WithinLimit(box.text, CleanText(text), box.maxLength);
}

KeyUse EventEntry::DateInputKey(std::string_view character) {
  std::string& text = row_.txtDateInput.text;
  const bool twoLetters = CountCharacters(text) == 2 && !IsDigits(text);
  if (row_.lblDate.caption == "Month:" && twoLetters) {
    const std::string name = text + std::string(character);
    for (std::size_t month = 1; month <= 12; ++month) {
      if (!FindIgnoringCase(CharactersOf(format_.MonthNames[month]), name)) continue;
      text = std::to_string(month);
      return KeyUse::kConsumed;
    }
    return KeyUse::kPassOn;
  }
  ReplaceMonthName();
  return KeyUse::kPassOn;
}

void EventEntry::DateInputLeft() {
  ReplaceMonthName();
}

void EventEntry::ReplaceMonthName() {
  TextBoxState& box = row_.txtDateInput;
  const auto characters = CharactersOf(box.text);
  if (characters.size() < 3 || box.maxLength != kPartialDateLength) return;
  for (std::size_t month = 1; month <= 12; ++month) {
    const std::string& name = format_.MonthNames[month];
    const auto at = FindIgnoringCase(characters, name);
    if (!at) continue;
    std::string text = Joined(characters, 0, *at);
    if (!format_.IsMonthFirst()) text += '.';
    text += std::to_string(month);
    if (format_.IsMonthFirst()) text += '.';
    box.text = text + Joined(characters, *at + CountCharacters(name), characters.size());
    return;
  }
}

void EventEntry::EveryMonthClicked(bool checked) {
  row_.chkEveryMonth.checked = checked;
  std::string& text = row_.txtDateInput.text;
  if (checked) {
    text = kEveryMonth;
  } else if (IsEveryMonth(text)) {
    text.clear();
  }
}

void EventEntry::PopularPicked(int index, const Observance& observance) {
  row_.cmbPopular.index = index;
  SetOccursFromCode(observance.occurs);
  const bool monthOnly = row_.txtDateInput.maxLength <= kHalfDateLength;
  const std::string_view month = format_.IsMonthFirst() ? FirstCharacters(observance.date, 2)
                                                        : LastCharacters(observance.date, 2);
  row_.txtDateInput.text = monthOnly ? std::string(month) : observance.date;
  row_.txtEventInput.text = observance.title;
  row_.chkEveryMonth.checked = false;
  Show(row_.lblDateExample, false);
}

}  // namespace tidewarden
