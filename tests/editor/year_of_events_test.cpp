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
#include "tests/editor/expected_dates.h"

namespace tidewarden {
namespace {

using test::AllLayouts;
using test::DateOf;
using test::DatesOfObservances;
using test::EditDesk;
using test::On;
using test::OnWeekday;
using test::Typed;

TEST(YearOfEvents, EveryKindIsEnteredSavedReadBackAndDated) {
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
