// Every kind of occurrence and every observance, entered, saved, read back and dated, in every
// regional order.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "core/event_line.h"
#include "dates/event_date_rules.h"
#include "dates/regional_text.h"
#include "dates/text.h"
#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::AllLayouts;
using test::EditDesk;
using test::On;

// All tests stand on Monday, 22 December 2014.
constexpr int kMonth = 3;
constexpr int kDay = 7;

// The date of the one event of a file.
std::string DateOf(const std::string& file, const RegionalDateFormat& format) {
  const CivilDate today = On(2014, 12, 22);
  const auto event = ParseEventLine(file.substr(0, file.find('\r')), format, 2014);
  if (!event) return "(rejected) " + file;
  const auto date = NextOccurrence(event->dateField, event->occurs, today);
  return date ? IsoDate(*date) : "(no date)";
}

CivilDate OnWeekday(int year, int month, unsigned weekday, unsigned ordinal) {
  using namespace std::chrono;
  const auto inMonth = std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)};
  return ordinal == 5 ? CivilDate{sys_days{inMonth / std::chrono::weekday{weekday}[last]}}
                      : CivilDate{sys_days{inMonth / std::chrono::weekday{weekday}[ordinal]}};
}

// What is typed into the date box for a kind, and the date on which the event then falls.
std::pair<std::string, std::string> Typed(int kind, const RegionalDateFormat& format) {
  const std::string plain = format.IsMonthFirst() ? "3/7" : "7.3";
  const auto full = [&](const std::string& year) {
    if (format.IsYearFirst()) return year + "-3-7";
    return plain + (format.IsMonthFirst() ? "/" : ".") + year;
  };
  if (kind == kMonthlyKind) return {"7", "2015-01-07"};
  if (kind == kDaysPastKind) return {full("2010"), "2010-03-07"};
  if (kind == kDaysFutureKind) return {full("2020"), "2020-03-07"};
  if (kind < kFirstWeekdayKind) return {plain, "2015-03-07"};
  if (kind == kOccurrenceKinds - 1) return {"3", "2015-03-31"};
  const auto place = static_cast<unsigned>(kind - kFirstWeekdayKind);
  return {"3", IsoDate(OnWeekday(2015, kMonth, place % 7, place / 7 + 1))};
}

TEST(YearOfEvents, EveryKindIsEnteredSavedReadBackAndDated) {
  static_assert(kMonth == 3 && kDay == 7);
  for (const auto& layout : AllLayouts()) {
    for (int kind = 0; kind < kOccurrenceKinds; ++kind) {
      SCOPED_TRACE(layout.name + " " + OccurrenceItems()[static_cast<std::size_t>(kind)]);
      EditDesk desk;
      desk.format = layout.format;
      EditSession& session = desk.Open();
      const auto [typed, date] = Typed(kind, layout.format);
      // More days than lie between today and 7 March, so that the count begins there.
      desk.Enter(kind, typed, "Some event", "14", "110");
      session.Save();
      ASSERT_FALSE(session.isEntryUnderWay());
      EXPECT_TRUE(desk.messages.shown.empty());
      const std::string saved = desk.file();
      EXPECT_EQ(DateOf(saved, layout.format), date);

      // Opened again, the entry says the same, and saved unchanged it is the same event.
      EditDesk later(saved);
      later.format = layout.format;
      later.Open();
      ASSERT_TRUE(later.Select("Some event"));
      later.session().Edit();
      const EntryRow& entry = later.session().entry();
      EXPECT_EQ(entry.cmbOccursInput.index, kind);
      EXPECT_EQ(entry.txtEventInput.text, "Some event");
      EXPECT_EQ(entry.txtAdvanceInput.text, IsCounterKind(kind) ? "0" : "14");
      EXPECT_EQ(entry.txtEveryInput.text, kind == kEveryKind ? "110" : "");
      later.session().Save();
      EXPECT_TRUE(later.messages.shown.empty());
      EXPECT_EQ(ToLower(later.file()), ToLower(saved));
    }
  }
}

TEST(YearOfEvents, EveryWeekdayKindCanBeForEveryMonth) {
  for (const auto& layout : AllLayouts()) {
    for (int kind = kFirstWeekdayKind; kind < kOccurrenceKinds; ++kind) {
      EditDesk desk;
      desk.format = layout.format;
      EditSession& session = desk.Open();
      desk.Enter(kind, "", "Some event");
      session.EveryMonthClicked(true);
      session.Save();
      const auto place = static_cast<unsigned>(kind - kFirstWeekdayKind);
      CivilDate expected = On(2014, 12, 31);
      if (kind < kOccurrenceKinds - 1) {
        expected = OnWeekday(2014, 12, place % 7, place / 7 + 1);
        if (expected < On(2014, 12, 22)) expected = OnWeekday(2015, 1, place % 7, place / 7 + 1);
      }
      EXPECT_EQ(DateOf(desk.file(), layout.format), IsoDate(expected)) << desk.file();
    }
  }
}

// The first dates from 22 December 2014 on, in the order of the box. Weekday rules are counted
// here; the feasts of 2015 are those of the published calendars.
std::vector<std::string> DatesOfObservances() {
  enum { kSun, kMon, kTue, kWed, kThu, kFri, kSat };
  const auto nth = [](int month, unsigned weekday, unsigned ordinal) {
    return IsoDate(OnWeekday(2015, month, weekday, ordinal));
  };
  constexpr unsigned kLast = 5;
  return {"2015-01-01",    "2015-01-25",        "2015-01-26",        nth(1, kMon, 3),
          "2015-02-02",    "2015-02-14",        nth(2, kMon, 3),     "2015-03-17",
          "2015-04-01",    "2015-04-15",        "2015-04-22",        "2015-04-23",
          "2015-04-25",    "2015-05-01",        "2015-05-05",        nth(5, kSat, 3),
          nth(5, kMon, 1), nth(5, kMon, kLast), nth(5, kSun, 2),     nth(5, kMon, kLast),
          "2015-06-14",    nth(6, kSun, 3),     "2015-07-01",        "2015-07-04",
          "2015-07-15",    nth(8, kMon, 1),     nth(8, kMon, kLast), nth(9, kMon, 1),
          "2015-10-31",    nth(10, kMon, 2),    nth(10, kMon, 2),    "2015-11-05",
          "2015-11-11",    "2015-11-11",        "2015-11-30",        nth(11, kThu, 4),
          "2014-12-25",    "2014-12-26",        "2014-12-26",        "2014-12-31",
          "2015-04-05",    "2015-02-18",        "2015-03-15",        "2015-03-29",
          "2015-04-03",    "2015-05-14",        "2015-05-24",        "2015-06-04",
          "2015-09-14",    "2015-09-23",        "2015-09-28",        "2015-10-05",
          "2015-10-06",    "2015-12-07",        "2015-03-05",        "2015-04-04",
          "2015-05-24",    "2015-05-18"};
}

TEST(YearOfEvents, EveryObservanceIsPickedSavedAndDated) {
  const std::vector<std::string> dates = DatesOfObservances();
  ASSERT_EQ(dates.size(), 58U);
  for (const auto& layout : AllLayouts()) {
    for (int i = 0; i < 58; ++i) {
      EditDesk desk;
      desk.format = layout.format;
      EditSession& session = desk.Open();
      SCOPED_TRACE(session.observances()[static_cast<std::size_t>(i)]);
      session.Add();
      session.PopularPicked(i);
      const std::string title = session.entry().txtEventInput.text;
      EXPECT_EQ(title.find('('), std::string::npos);
      session.AdvanceInputTyped("14");
      session.Save();
      EXPECT_TRUE(desk.messages.shown.empty());
      ASSERT_FALSE(session.isEntryUnderWay());
      EXPECT_EQ(DateOf(desk.file(), layout.format), dates[static_cast<std::size_t>(i)]);
      EXPECT_NE(desk.file().find("," + title + ",14,"), std::string::npos) << desk.file();
    }
  }
}

// A few years with one family: every event is entered once, and none is ever lost.
TEST(YearOfEvents, ALifeOfAFileKeepsEveryEvent) {
  EditDesk desk;
  desk.files.files.clear();
  desk.Set("LevelsOfBackup", "2");
  desk.format = test::DayFirst();
  EditSession& session = desk.Open();
  for (int i = 0; i < 58; ++i) {
    session.Add();
    session.PopularPicked(i);
    session.Save();
    ASSERT_FALSE(session.isEntryUnderWay());
    // A row for each event and one for today.
    ASSERT_EQ(session.List1().size(), static_cast<std::size_t>(i) + 2);
  }
  for (const int year : {2015, 2016, 2017}) {
    desk.clock.now.date = On(year, 2, 28);
    session.Reload();
    ASSERT_TRUE(desk.Select("Halloween"));
    session.Edit();
    session.EventInputTyped("Halloween " + std::to_string(year));
    session.Save();
    ASSERT_TRUE(desk.Select("Halloween " + std::to_string(year)));
    EXPECT_EQ(session.List1().size(), 59U);
  }
  desk.messages.answer = MessageAnswer::kYes;
  for (std::size_t left = 58; left > 0; --left) {
    session.RowSelected(session.List1()[0].isToday ? 1 : 0);
    session.ListDeleteReleased();
    ASSERT_EQ(session.List1().size(), left);
  }
  EXPECT_EQ(desk.file(), "");
}

}  // namespace
}  // namespace tidewarden
