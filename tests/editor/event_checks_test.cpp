// Every check before saving, with the exact text and buttons of its message.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/editor/edit_desk.h"
#include "tests/editor/entry_cases.h"

namespace tidewarden {
namespace {

using test::Accepted;
using test::AcceptedEntries;
using test::BadFutureYear;
using test::DayFirst;
using test::EditDesk;
using test::kAdvance;
using test::kCommas;
using test::kLeapDay;
using test::kNoTitle;
using test::MonthFirst;
using test::Refusal;
using test::Refusals;
using test::YearFirst;

TEST(EventChecks, ARefusedEntryStaysOpenAndNothingIsWritten) {
  for (const Refusal& c : Refusals()) {
    SCOPED_TRACE(c.name);
    EditDesk desk("12.24,Eve,7,yearly\r\n");
    desk.format = c.format;
    desk.Open();
    desk.Enter(c.kind, c.date, c.title, c.advance, c.kind == 4 ? c.count : "");
    static_cast<void>(desk.session().TakeFocus());
    desk.session().Save();
    ASSERT_EQ(desk.messages.boxes.size(), 1U);
    EXPECT_EQ(desk.messages.boxes[0].text, c.message);
    EXPECT_EQ(desk.messages.boxes[0].buttons, MessageButtons::kOk);
    EXPECT_EQ(desk.messages.boxes[0].icon, MessageIcon::kNone);
    EXPECT_EQ(desk.session().TakeFocus(), c.focus);
    EXPECT_TRUE(desk.session().isEntryUnderWay());
    EXPECT_EQ(desk.session().entry().txtDateInput.text, c.date);
    EXPECT_EQ(desk.session().entry().txtAdvanceInput.text, c.message == kAdvance ? "" : c.advance);
    EXPECT_EQ(desk.file(), "12.24,Eve,7,yearly\r\n");
    EXPECT_EQ(desk.files.CountCalls("commit"), 0);
  }
}

TEST(EventChecks, AnAcceptedEntryBecomesALineOfTheFile) {
  for (const Accepted& c : AcceptedEntries()) {
    SCOPED_TRACE(c.line + " from " + c.date);
    EditDesk desk;
    desk.format = c.format;
    desk.Open();
    desk.session().Add();
    // A longer date than the kind takes comes from another kind.
    desk.session().OccursPicked(7);
    desk.session().DateInputTyped(c.date);
    desk.session().OccursPicked(c.kind);
    desk.session().EventInputTyped(c.title);
    desk.session().AdvanceInputTyped(c.advance);
    desk.session().EveryInputTyped(c.count);
    desk.session().Save();
    EXPECT_EQ(desk.messages.shown, c.messages);
    EXPECT_FALSE(desk.session().isEntryUnderWay());
    EXPECT_EQ(test::WithSmallKinds(desk.file(), c.kind), c.line + "\r\n");
    ASSERT_EQ(desk.session().List1().size(), 2U) << "the event is listed beside today";
  }
}

TEST(EventChecks, TheLeapDayCanBeGivenUp) {
  for (const auto& [format, date] : std::vector<std::pair<RegionalDateFormat, std::string>>{
           {MonthFirst(), "2.29"}, {DayFirst(), "29.02"}, {YearFirst(), "29-02"}}) {
    SCOPED_TRACE(date);
    EditDesk desk;
    desk.format = format;
    desk.Open();
    desk.Enter(0, date, "Leap");
    desk.messages.answer = MessageAnswer::kCancel;
    desk.session().Save();
    ASSERT_EQ(desk.messages.boxes.size(), 1U);
    EXPECT_EQ(desk.messages.boxes[0].text, kLeapDay);
    EXPECT_EQ(desk.messages.boxes[0].buttons, MessageButtons::kOkCancel);
    EXPECT_EQ(desk.messages.boxes[0].icon, MessageIcon::kNone);
    EXPECT_TRUE(desk.session().isEntryUnderWay());
    EXPECT_EQ(desk.file(), "");
  }
}

TEST(EventChecks, ADayThatTheYearOfACountLacksIsNoDate) {
  EditDesk desk;
  desk.format = DayFirst();
  desk.Open();
  desk.Enter(7, "29.02.2015", "Leap");
  desk.session().Save();
  EXPECT_EQ(desk.messages.shown, (std::vector<std::string>{kLeapDay, BadFutureYear("dd.mm.yyyy")}));
  EXPECT_EQ(desk.file(), "");
}

TEST(EventChecks, CommasGoOnlyWhenTheUserAgrees) {
  EditDesk desk;
  desk.Open();
  desk.Enter(0, "12.25", "Bob, Ann, and all");
  desk.messages.answer = MessageAnswer::kCancel;
  desk.session().Save();
  ASSERT_EQ(desk.messages.boxes.size(), 1U);
  EXPECT_EQ(desk.messages.boxes[0].text, kCommas);
  EXPECT_EQ(desk.messages.boxes[0].buttons, MessageButtons::kOkCancel);
  EXPECT_EQ(desk.messages.boxes[0].icon, MessageIcon::kExclamation);
  EXPECT_EQ(desk.session().entry().txtEventInput.text, "Bob, Ann, and all");
  EXPECT_EQ(desk.session().TakeFocus(), EditorFocus::kEventInput);
  desk.messages.answer = MessageAnswer::kOk;
  desk.session().Save();
  EXPECT_EQ(desk.file(), "12.25,Bob Ann and all,7,yearly\r\n");
}

TEST(EventChecks, ATitleOfCommasOnlyIsNone) {
  EditDesk desk;
  desk.Open();
  desk.Enter(0, "12.25", " ,,, ");
  desk.session().Save();
  EXPECT_EQ(desk.messages.shown, (std::vector<std::string>{kCommas, kNoTitle}));
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_EQ(desk.file(), "");
}

std::string FarAway(const std::string& count, const std::string& plural) {
  return "Your event occurring every " + count + " day" + plural +
         " will not have its first occurrence for over 300 days.\n"
         "\n"
         "If your intention was to track a more immediate upcoming event, make sure you enter\n"
         "this event's date as the next upcoming and not the date that has just passed.\n"
         "\n"
         "Click \"OK\" to keep the date as entered.\n"
         "Click \"Cancel\" to change to a more immediate upcoming date.";
}

TEST(EventChecks, AFarFirstOccurrenceIsWarnedOfOncePerOpening) {
  EditDesk desk;
  desk.Open();
  desk.Enter(4, "12.01", "Ferns", "3", "10");
  desk.session().Save();
  ASSERT_EQ(desk.messages.boxes.size(), 1U);
  EXPECT_EQ(desk.messages.boxes[0].text, FarAway("10", "s"));
  EXPECT_EQ(desk.messages.boxes[0].buttons, MessageButtons::kOkCancel);
  EXPECT_EQ(desk.messages.boxes[0].icon, MessageIcon::kExclamation);
  EXPECT_EQ(desk.file(), "12.01,Ferns,3,10-2015\r\n");
  desk.Enter(4, "12.02", "Moss", "3", "10");
  desk.session().Save();
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
  desk.session().Closed(std::nullopt, EditorClosing::kReturnToReminders);
  desk.Open();
  desk.Enter(4, "12.03", "Ivy", "1", "10");
  desk.session().Save();
  ASSERT_EQ(desk.messages.boxes.size(), 2U);
  EXPECT_EQ(desk.messages.boxes[1].text, FarAway("10", " "));
}

TEST(EventChecks, TheWarningConcernsOneTo65DaysBack) {
  // 22 December 2014.
  for (const auto& [date, warned] : std::vector<std::pair<std::string, bool>>{{"12.22", false},
                                                                              {"12.21", true},
                                                                              {"10.18", true},
                                                                              {"10.17", false},
                                                                              {"12.23", false}}) {
    EditDesk desk;
    desk.Open();
    desk.Enter(4, date, "Ferns", "3", "10");
    desk.session().Save();
    EXPECT_EQ(desk.messages.boxes.size(), warned ? 1U : 0U) << date;
  }
  EditDesk others;
  others.Open();
  others.Enter(3, "12.01", "Once");
  others.session().Save();
  EXPECT_TRUE(others.messages.boxes.empty());
}

// 29 February 2015 does not exist, so that it does not lie back however near its place is.
TEST(EventChecks, TheWarningIsSkippedForADayThatTheYearLacks) {
  struct Case {
    CivilDate today;
    std::string date;
    std::vector<std::string> asked;  // first words of each box
    std::string line;
  };
  const std::string leapDay = "This event will only occur on leap years.";
  const std::string farAway = "Your event occurring every 10 days";
  for (const Case& c : std::vector<Case>{
           {test::On(2015, 3, 10), "2.29", {leapDay}, "02.29,Fern,7,10-2016\r\n"},
           {test::On(2015, 3, 10), "2.28", {farAway}, "02.28,Fern,7,10-2016\r\n"},
           {test::On(2016, 3, 10), "2.29", {leapDay, farAway}, "02.29,Fern,7,10-2020\r\n"},
           {test::On(2015, 2, 20), "2.29", {leapDay}, "02.29,Fern,7,10-2016\r\n"}}) {
    SCOPED_TRACE(c.date);
    EditDesk desk;
    desk.clock.now.date = c.today;
    desk.Open();
    desk.Enter(4, c.date, "Fern", "7", "10");
    desk.session().Save();
    ASSERT_EQ(desk.messages.shown.size(), c.asked.size());
    for (std::size_t i = 0; i < c.asked.size(); ++i) {
      EXPECT_TRUE(desk.messages.shown[i].starts_with(c.asked[i])) << desk.messages.shown[i];
    }
    EXPECT_EQ(desk.file(), c.line);
  }
}

// Easter is on 20 April in 2014 and on 5 April in 2015.
TEST(EventChecks, AFeastGivesTheYearOfKindsThatHaveOne) {
  struct Case {
    CivilDate today;
    int kind;
    std::string code;
    bool asked;
  };
  const auto before = test::On(2014, 4, 10);
  const auto onTheDay = test::On(2014, 4, 20);
  const auto after = test::On(2014, 5, 1);
  const auto longAfter = test::On(2014, 7, 1);
  for (const Case& c : std::vector<Case>{{before, 3, "one2014", false},
                                         {before, 4, "10-2014", false},
                                         {before, 5, "tdo2014", false},
                                         {onTheDay, 4, "10-2014", false},
                                         {onTheDay, 5, "tdo2014", false},
                                         {after, 3, "one2015", false},
                                         {after, 4, "10-2015", true},
                                         {after, 5, "tdo2015", false},
                                         {longAfter, 4, "10-2015", false}}) {
    for (const RegionalDateFormat& format : {MonthFirst(), DayFirst(), YearFirst()}) {
      SCOPED_TRACE(c.code);
      EditDesk desk;
      desk.format = format;
      desk.clock.now.date = c.today;
      desk.Open();
      desk.Enter(c.kind, "_estr", "Easter eggs", "7", "10");
      desk.session().Save();
      EXPECT_EQ(desk.messages.shown.size(), c.asked ? 1U : 0U);
      EXPECT_EQ(desk.file(), "_estr,Easter eggs,7," + c.code + "\r\n");
      ASSERT_TRUE(desk.Select("Easter eggs"));
    }
  }
}

TEST(EventChecks, GoingBackFromTheWarningKeepsTheEntryAndItsShortenedCount) {
  EditDesk desk;
  desk.Open();
  desk.Enter(4, "12.01", "Ferns", "3", "150");
  desk.messages.answer = MessageAnswer::kCancel;
  desk.session().Save();
  EXPECT_EQ(desk.messages.shown, std::vector<std::string>{FarAway("150", "s")});
  EXPECT_EQ(desk.session().TakeFocus(), EditorFocus::kDateInput);
  EXPECT_EQ(desk.session().entry().txtEveryInput.text, "50");
  EXPECT_EQ(desk.file(), "");
  desk.session().Save();
  EXPECT_EQ(desk.file(), "12.01,Ferns,3,50-2015\r\n");
}

TEST(EventChecks, ALineThatTheFileCannotHoldIsNotWritten) {
  EditDesk desk("12.24,Eve,7,yearly\r\n");
  desk.clock.now.date = test::On(1999, 6, 1);
  desk.Open();
  desk.Enter(3, "6.2", "Once");
  desk.session().Save();
  EXPECT_EQ(desk.messages.shown,
            std::vector<std::string>{
                "Invalid Year Entered.\n\nPlease enter a valid year using mm/dd/yyyy format."});
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_EQ(desk.file(), "12.24,Eve,7,yearly\r\n");
}

}  // namespace
}  // namespace tidewarden
