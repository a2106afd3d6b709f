// Whatever is typed, an entry ends in an event that reads back the same or in a message, and no
// other event is lost or changed.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "core/event_line.h"
#include "dates/feasts.h"
#include "dates/text.h"
#include "editor/event_entry.h"
#include "editor/event_list.h"
#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::AllLayouts;
using test::EditDesk;
using test::kEventsPath;

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

std::string Expected(std::string title) {
  title = CleanText(title);
  title.erase(std::remove(title.begin(), title.end(), ','), title.end());
  return std::string(Trim(title));
}

struct Outcome {
  int saved = 0;
  int refused = 0;
};

// Checks the one line by which the file differs from the other events.
void CheckSaved(const EditDesk& desk, const std::vector<std::string>& others,
                const std::string& file, const EntryRow& entry) {
  std::vector<std::string> added;
  const auto lines = LinesOf(file);
  std::set_difference(lines.begin(), lines.end(), others.begin(), others.end(),
                      std::back_inserter(added));
  ASSERT_EQ(lines.size(), others.size() + 1) << file;
  ASSERT_EQ(added.size(), 1U) << file;
  const auto event = ParseEventLine(added[0], desk.format, 2014);
  ASSERT_TRUE(event) << added[0];
  EXPECT_EQ(event->EventTitle, Expected(entry.txtEventInput.text));
  EXPECT_EQ(OccursIndexOf(event->EventOccurs), entry.cmbOccursInput.index) << added[0];
  const int advance = static_cast<int>(LeadingNumber(entry.txtAdvanceInput.text));
  EXPECT_EQ(event->EventAdvance, IsCounterKind(entry.cmbOccursInput.index) ? 0 : advance);
  EXPECT_FALSE(event->EventHidden);
  if (IsFeastCode(entry.txtDateInput.text)) {
    EXPECT_TRUE(event->dateField.isFeast || entry.txtDateInput.maxLength == 2) << added[0];
  } else if (entry.lblDate.caption == "Date:") {
    std::string typed = entry.txtDateInput.text;
    std::replace(typed.begin(), typed.end(), '-', '.');
    std::replace(typed.begin(), typed.end(), '/', '.');
    EXPECT_EQ(event->dateField.month, ExtractMonth(typed, desk.format)) << added[0];
    EXPECT_EQ(event->dateField.day, ExtractDay(typed, desk.format)) << added[0];
  }
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
  if (typist.Below(4) != 0) session.OccursPicked(typist.Below(kOccurrenceKinds));
  if (typist.Below(8) != 0) session.DateInputTyped(typist.Date());
  if (typist.Below(4) == 0) session.OccursPicked(typist.Below(kOccurrenceKinds + 2) - 1);
  if (typist.Below(8) != 0) session.EventInputTyped(typist.Title());
  session.AdvanceInputTyped(typist.Number(400));
  session.EveryInputTyped(typist.Number(220));
  if (typist.Below(6) == 0) static_cast<void>(session.DateInputKey("c"));
  if (typist.Below(6) == 0) session.DateInputLeft();
  if (typist.Below(6) == 0) session.EveryMonthClicked(typist.Below(2) == 0);
  const EntryRow before = session.entry();
  session.Save();
  if (session.isEntryUnderWay()) {
    ++outcome.refused;
    EXPECT_FALSE(desk.messages.boxes.empty()) << "a refusal says why";
    EXPECT_EQ(desk.file(), kOthers);
    EXPECT_EQ(session.entry().txtDateInput.text, before.txtDateInput.text);
    session.Cancel();
  } else {
    ++outcome.saved;
    CheckSaved(desk, others, desk.file(), before);
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
  RecordProperty("saved", outcome.saved);
  RecordProperty("refused", outcome.refused);
  std::cout << outcome.saved << " entries saved, " << outcome.refused << " refused\n";
}

}  // namespace
}  // namespace tidewarden
