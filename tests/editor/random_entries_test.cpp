// Whatever is typed, an entry ends in an event that reads back the same or in a message, and no
// other event is lost or changed.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "core/event_line.h"
#include "dates/text.h"
#include "editor/event_entry.h"
#include "editor/event_list.h"
#include "tests/editor/edit_desk.h"
#include "tests/editor/expected_line.h"

namespace tidewarden {
namespace {

using test::AllLayouts;
using test::EditDesk;
using test::ExpectedLine;
using test::kEventsPath;
using test::NumberIn;

constexpr int kEntries = 100'000;

const std::string kOthers =
    "_estr,Easter Sunday,14,yearly\r\n"
    "01.26,<1788> Australia Day,0,dp-1788\r\n"
    "02.29,Leap,365,yearly\r\n"
    "05.xx,Mother's Day,7,2nd sun\r\n"
    "06.01,Water the ferns,3,20~2014\r\n"
    "12.22,X<TODAY> 9:30 am,1,tdo2014\r\n"
    "e+039,Ascension,7,yearly\r\n"
    "xx.15,Miete für Café 日本 😀,3,monthly\r\n";

class Typist {
 public:
  explicit Typist(unsigned seed) : random_(seed) {}

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  std::string Text(const std::vector<std::string>& pieces, int most) {
    std::string text;
    for (int i = Below(most + 1); i > 0; --i) {
      text += pieces[static_cast<std::size_t>(Below(static_cast<int>(pieces.size())))];
    }
    return text;
  }

  std::string Title() {
    static const std::vector<std::string> pieces{
        "a",  "Z",  " ",    ",",    "<1788>",       "<TODAY>", "  <today>", "9:30",
        "\n", "\r", "\t",   "*",    "\"",           "&",       "ß",         "é",
        "日", "😀",  "\xE9", "\x01", "\xC2\x85",     "\\",      "%",         "yearly",
        "1",  "-",  "~",    "'",    "\xEF\xBB\xBF", "=",       "<b>"};
    if (Below(3) == 0) return "Bob " + std::to_string(Below(100));
    return Text(pieces, 45);
  }

  std::string Date() {
    static const std::vector<std::string> pieces{
        "0", "1",   "2",   "3",     "9",     "12",   "31",   ".", "-",  "/", " ", "x",
        "X", "dec", "e+0", "_estr", "e-046", "2014", "2020", ",", "\n", "é", "+", "*"};
    switch (Below(4)) {
      case 0:
        return Text(pieces, 6);
      case 1:
        return std::to_string(Below(33));
      case 2:
        return std::to_string(Below(33)) + "./-"[Below(3)] + std::to_string(Below(33));
      default:
        return std::to_string(Below(14)) + "." + std::to_string(Below(33)) + "." +
               std::to_string(1990 + Below(50));
    }
  }

  // The kinds of the first half have boxes of their own and come as often as all weekdays.
  int Kind() { return Below(2) == 0 ? Below(kFirstWeekdayKind) : Below(kOccurrenceKinds); }

  std::string Number(int limit) {
    static const std::vector<std::string> pieces{"0", "1", "9", "-", "+", ".", " ", "a", "e", "日"};
    return Below(3) == 0 ? Text(pieces, 5) : std::to_string(Below(limit));
  }

 private:
  std::mt19937 random_;
};

std::vector<std::string> LinesOf(const std::string& file) {
  std::vector<std::string> lines;
  std::size_t begin = 0;
  for (std::size_t end = file.find("\r\n"); end != std::string::npos;
       end = file.find("\r\n", begin)) {
    lines.push_back(file.substr(begin, end - begin));
    begin = end + 2;
  }
  if (begin != file.size()) lines.emplace_back("(no line end)");
  std::sort(lines.begin(), lines.end());
  return lines;
}

struct Outcome {
  int saved = 0;
  int refused = 0;
  int odd = 0;  // saved with a date that is not made of plain numbers
  std::array<int, kOccurrenceKinds> kinds{};
};

// Checks the one line by which the file differs from the other events.
void CheckSaved(const EditDesk& desk, const std::vector<std::string>& others, const EntryRow& entry,
                Outcome& outcome) {
  std::vector<std::string> added;
  const auto lines = LinesOf(desk.file());
  std::set_difference(lines.begin(), lines.end(), others.begin(), others.end(),
                      std::back_inserter(added));
  ASSERT_EQ(lines.size(), others.size() + 1) << desk.file();
  // An event that is like another one is there twice.
  ASSERT_EQ(added.size(), 1U) << desk.file();
  const auto event = ParseEventLine(added[0], desk.format, 2014);
  ASSERT_TRUE(event) << added[0];
  EXPECT_FALSE(event->EventHidden);
  const int kind = entry.cmbOccursInput.index;
  EXPECT_EQ(OccursIndexOf(event->EventOccurs), kind) << added[0];
  const auto expected = ExpectedLine(entry, desk.format, desk.clock.now.date);
  if (expected) {
    const std::size_t occurs = added[0].rfind(',');
    EXPECT_EQ(added[0].substr(0, occurs) + ToLower(added[0].substr(occurs)), *expected);
    ++outcome.kinds[static_cast<std::size_t>(kind)];
  } else {
    // What else passes for a date is read by the same functions as in the checks.
    std::string typed = entry.txtDateInput.text;
    std::replace(typed.begin(), typed.end(), '-', '.');
    std::replace(typed.begin(), typed.end(), '/', '.');
    EXPECT_EQ(event->dateField.month, ExtractMonth(typed, desk.format)) << added[0];
    EXPECT_EQ(event->dateField.day, ExtractDay(typed, desk.format)) << added[0];
    ++outcome.odd;
  }
}

// What a refusal may have changed in the entry row.
void CheckRefused(const EntryRow& before, const EntryRow& after,
                  const std::vector<std::string>& shown) {
  ASSERT_FALSE(shown.empty()) << "a refusal says why";
  static const std::vector<std::string> known{
      "You need to enter a title", "Tidewarden's file format uses", "Please pick an advance notice",
      "For an event that occurs",  "You need to enter a proper",    "NOTE: A monthly event",
      "Please use two separators", "Please use a single separator", "Invalid Month Entered.",
      "Invalid Day Entered.",      "Invalid Year Entered.",         "This event will only occur on",
      "Your event occurring every"};
  for (const std::string& text : shown) {
    EXPECT_TRUE(std::any_of(known.begin(), known.end(), [&](const std::string& start) {
      return text.starts_with(start);
    })) << text;
  }
  EXPECT_EQ(after.txtDateInput.text, before.txtDateInput.text);
  std::string withoutCommas = before.txtEventInput.text;
  std::erase(withoutCommas, ',');
  const std::string& title = after.txtEventInput.text;
  EXPECT_TRUE(title == before.txtEventInput.text || title == withoutCommas) << title;
  const bool badAdvance = shown.back().starts_with("Please pick an advance notice");
  EXPECT_EQ(after.txtAdvanceInput.text, badAdvance ? "" : before.txtAdvanceInput.text);
  const std::string& count = before.txtEveryInput.text;
  const bool hundreds = after.cmbOccursInput.index == kEveryKind && NumberIn(count) >= 100;
  EXPECT_TRUE(after.txtEveryInput.text == count || hundreds) << count;
  EXPECT_EQ(after.cmbOccursInput.index, before.cmbOccursInput.index);
}

// The list is what reading the file gives.
void CheckList(EditDesk& desk) {
  EventList list;
  ASSERT_TRUE(
      ReadEventList(desk.file(), desk.format, desk.clock.now.date, TodayCase::kCapitals, {}, list)
          .ok());
  const auto& rows = desk.session().List1();
  ASSERT_EQ(rows.size(), list.rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].text, list.rows[i].text);
    EXPECT_EQ(rows[i].key, list.rows[i].key);
    EXPECT_EQ(rows[i].isToday, list.rows[i].isToday);
    EXPECT_EQ(desk.session().EditorLineMap()[i],
              rows[i].isToday ? kTodayRowLine : list.rows[i].line);
  }
}

void EnterOne(Typist& typist, EditDesk& desk, Outcome& outcome) {
  EditSession& session = desk.session();
  std::vector<std::string> others = LinesOf(kOthers);
  const int row = typist.Below(2 * static_cast<int>(session.List1().size()));
  session.RowSelected(row);
  // An edit that cannot start is an Add.
  if (row < static_cast<int>(session.List1().size())) session.Edit();
  if (session.isEntryUnderWay()) {
    const std::string line = EventLineOf(session.SelectedRowText(), desk.format);
    others.erase(std::find(others.begin(), others.end(), line));
  } else {
    session.Add();
  }
  desk.messages.boxes.clear();
  desk.messages.shown.clear();
  desk.messages.answer = typist.Below(4) == 0 ? MessageAnswer::kCancel : MessageAnswer::kOk;
  if (typist.Below(8) == 0) session.PopularPicked(typist.Below(60) - 1);
  if (typist.Below(4) != 0) session.OccursPicked(typist.Kind());
  session.DateInputTyped(typist.Date());
  if (typist.Below(4) == 0) session.OccursPicked(typist.Below(kOccurrenceKinds + 2) - 1);
  session.EventInputTyped(typist.Title());
  session.AdvanceInputTyped(typist.Number(400));
  session.EveryInputTyped(typist.Number(220));
  if (typist.Below(6) == 0) static_cast<void>(session.DateInputKey("c"));
  if (typist.Below(6) == 0) session.DateInputLeft();
  if (typist.Below(6) == 0) session.EveryMonthClicked(typist.Below(2) == 0);
  const EntryRow before = session.entry();
  session.Save();
  if (session.isEntryUnderWay()) {
    ++outcome.refused;
    EXPECT_EQ(desk.file(), kOthers);
    CheckRefused(before, session.entry(), desk.messages.shown);
    session.Cancel();
  } else {
    ++outcome.saved;
    CheckSaved(desk, others, before, outcome);
    CheckList(desk);
    desk.files.files[kEventsPath] = kOthers;
    session.Reload();
  }
}

TEST(RandomEntries, EndInAnEventOrAMessageAndHarmNoOther) {
  Outcome outcome;
  unsigned seed = 2014;
  for (const auto& layout : AllLayouts()) {
    Typist typist(seed++);
    EditDesk desk(kOthers);
    desk.format = layout.format;
    desk.Open();
    const int share = kEntries / static_cast<int>(AllLayouts().size());
    for (int i = 0; i < share; ++i) {
      EnterOne(typist, desk, outcome);
      // The fake remembers every call.
      desk.files.calls.clear();
      if (::testing::Test::HasFailure()) FAIL() << layout.name << ", entry " << i;
    }
  }
  EXPECT_EQ(outcome.saved + outcome.refused, kEntries);
  EXPECT_GT(outcome.saved, kEntries / 10);
  EXPECT_GT(outcome.refused, kEntries / 10);
  EXPECT_LT(outcome.odd, outcome.saved / 50);
  for (int kind = 0; kind < kOccurrenceKinds; ++kind) {
    EXPECT_GT(outcome.kinds[static_cast<std::size_t>(kind)], 100) << kind;
  }
  RecordProperty("saved", outcome.saved);
  RecordProperty("refused", outcome.refused);
  std::cout << outcome.saved << " entries saved, " << outcome.refused << " refused, " << outcome.odd
            << " with an odd date\n";
}

}  // namespace
}  // namespace tidewarden
