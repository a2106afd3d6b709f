// Every check before saving, with the exact text and buttons of its message.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::DayFirst;
using test::EditDesk;
using test::LayoutOf;
using test::MonthFirst;
using test::TwoDigitYearFirst;
using test::YearFirst;

const std::string kNoTitle = "You need to enter a title for the event before you can save it.";
const std::string kCommas =
    "Tidewarden's file format uses commas to separate the fields.\n"
    "Because of this, you cannot use commas in your Event Titles.\n"
    "\n"
    "Would you like to have the commas in your Event Title removed automatically?";
const std::string kAdvance =
    "Please pick an advance notice for this event from 0 - 365 days.\n"
    "\n"
    "(Zero will only show on the day of, 365 will show all year long.)";
const std::string kCount =
    "For an event that occurs \"every -\" so many days, please pick a value from \"every 1 day\" "
    "to \"every 199 days.\"";
const std::string kMonth = "You need to enter a proper month for this event.";
const std::string kDay = "You need to enter a proper day for this event.";
const std::string kShortMonths =
    "NOTE: A monthly event with a day higher than 28 won't occur every month,\n"
    "there is a \"Last Day\" occurrence you can use, however.";
const std::string kLeapDay =
    "This event will only occur on leap years.\n"
    "\n"
    "You can also create a \"Las Day\" occurrence for Feb\n"
    "which will give you a Feb 29 event on leap years\n"
    "and a Feb 28 event on non-leap years.\n"
    "\n"
    "Click OK to continue creating this event or click Cancel to cancel.";

std::string OneSeparator(const std::string& what) {
  return "Please use a single separator like . - or / to separate the " + what + " of this event.";
}
std::string TwoSeparators(const std::string& pattern) {
  return "Please use two separators like . - or / to provide a valid " + pattern +
         " for this event.";
}
std::string BadMonth(const std::string& pattern) {
  return "Invalid Month Entered.\n\nMonths can only range from 1 to 12.\n\n"
         "Please enter a valid month using " +
         pattern + " format.";
}
std::string BadDay(const std::string& detail, const std::string& pattern) {
  return "Invalid Day Entered.\n\n" + detail + "\n\nPlease enter a valid day using " + pattern +
         " format.";
}
std::string BadPastYear(const std::string& pattern) {
  return "Invalid Year Entered.\n\nFor a forward count from a past date,\n"
         "you must enter a year between 0 and the current year.\n\n"
         "Please enter a valid year using " +
         pattern + " format.";
}
std::string BadFutureYear(const std::string& pattern) {
  return "Invalid Year Entered.\n\nFor a countdown to a future date,\n"
         "you must enter the current year or a future year.\n\n"
         "Please enter a valid year using " +
         pattern + " format.";
}

// An entry that is refused: its message, and where the focus goes.
struct Refusal {
  std::string name;
  RegionalDateFormat format;
  int kind;
  std::string date;
  std::string message;
  EditorFocus focus = EditorFocus::kNone;
  std::string title = "Bob";
  std::string advance = "7";
  std::string count = "14";
};

std::vector<Refusal> Refusals() {
  const auto none = EditorFocus::kNone;
  const auto dateBox = EditorFocus::kDateInput;
  const std::string least = "A value of at least 1 must be entered for your day.";
  return {
      {"no title", MonthFirst(), 0, "12.25", kNoTitle, EditorFocus::kEventInput, ""},
      {"blanks", MonthFirst(), 0, "12.25", kNoTitle, EditorFocus::kEventInput, "   "},
      {"line ends", MonthFirst(), 0, "12.25", kNoTitle, EditorFocus::kEventInput, "\r\n"},
      {"366", MonthFirst(), 0, "12.25", kAdvance, EditorFocus::kAdvanceInput, "Bob", "366"},
      {"-1", MonthFirst(), 0, "12.25", kAdvance, EditorFocus::kAdvanceInput, "Bob", "-1"},
      {"count 0", MonthFirst(), 4, "12.25", kCount, none, "Bob", "7", "0"},
      {"count 200", MonthFirst(), 4, "12.25", kCount, none, "Bob", "7", "200"},
      {"count words", MonthFirst(), 4, "12.25", kCount, none, "Bob", "7", "abc"},
      {"count small", MonthFirst(), 4, "12.25", kCount, none, "Bob", "7", ".9"},
      {"month 0", MonthFirst(), 8, "0", kMonth},
      {"month 13", MonthFirst(), 8, "13", kMonth},
      {"month none", DayFirst(), 43, "", kMonth},
      {"month name", DayFirst(), 43, "de", kMonth},
      {"day 0", MonthFirst(), 2, "0", kDay},
      {"day 32", MonthFirst(), 2, "32", kDay},
      {"day xx", DayFirst(), 2, "xx", kDay},
      {"separator", MonthFirst(), 0, "1225", OneSeparator("month from the day"), dateBox},
      {"separator day", DayFirst(), 0, "2512", OneSeparator("day from the month"), dateBox},
      {"separator year", YearFirst(), 0, "2512", OneSeparator("day from the month"), dateBox},
      {"blank", MonthFirst(), 0, "15 03", OneSeparator("month from the day"), dateBox},
      {"month name", MonthFirst(), 0, "dec31", OneSeparator("month from the day"), dateBox},
      {"short offset", MonthFirst(), 0, "e+39", OneSeparator("month from the day"), dateBox},
      {"comma offset", MonthFirst(), 0, "e+5,1", OneSeparator("month from the day"), dateBox},
      {"past 1", MonthFirst(), 6, "12.25", TwoSeparators("mm/dd/yyyy"), dateBox},
      {"past 3", DayFirst(), 6, "1.1.20.14", TwoSeparators("dd.mm.yyyy"), dateBox},
      {"future 1", YearFirst(), 7, "12-25", TwoSeparators("yyyy-mm-dd"), dateBox},
      {"future two digits", TwoDigitYearFirst(), 7, "12", TwoSeparators("yy/mm/dd"), dateBox},
      {"month 13 date", MonthFirst(), 0, "13.01", BadMonth("mm/dd")},
      {"month 0 date", DayFirst(), 0, "01.0", BadMonth("dd.mm")},
      {"month 0 year", YearFirst(), 0, "01.13", BadMonth("dd-mm")},
      {"xx date", DayFirst(), 0, "xx.xx", BadMonth("dd.mm")},
      {"three short parts", MonthFirst(), 6, "1.1.5", BadMonth("mm/dd")},
      {"day 0 date", MonthFirst(), 0, "1.0", BadDay(least, "mm/dd")},
      {"day none", MonthFirst(), 0, "1.", BadDay(least, "mm/dd")},
      {"Jan 32", MonthFirst(), 0, "1.32", BadDay("Jan only has 31 days.", "mm/dd")},
      {"Apr 31", MonthFirst(), 0, "4/31", BadDay("Apr only has 30 days.", "mm/dd")},
      {"Feb 30", DayFirst(), 0, "30.02", BadDay("Feb only has 28 days.", "dd.mm")},
      {"Nov 31", YearFirst(), 0, "31.11", BadDay("Nov only has 30 days.", "dd-mm")},
      {"past next year", MonthFirst(), 6, "1/1/2015", BadPastYear("mm/dd/yyyy")},
      {"past no year", DayFirst(), 6, "26.01.x", BadPastYear("dd.mm.yyyy")},
      {"past five digits", DayFirst(), 6, "1.01.20140", BadPastYear("dd.mm.yyyy")},
      {"past feast", DayFirst(), 6, "_estr", BadPastYear("dd.mm.yyyy")},
      {"future last year", MonthFirst(), 7, "12.31.2013", BadFutureYear("mm/dd/yyyy")},
      {"future two-digit", YearFirst(), 7, "88.12.31", BadFutureYear("yyyy-mm-dd")},
      {"future feast", TwoDigitYearFirst(), 7, "_rosh", BadFutureYear("yy/mm/dd")},
  };
}

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

// An entry that is saved, and its line in the file.
struct Accepted {
  RegionalDateFormat format;
  int kind;
  std::string date;
  std::string line;
  std::string title = "Bob";
  std::string advance = "7";
  std::string count = "14";
  std::vector<std::string> messages{};
};

TEST(EventChecks, AnAcceptedEntryBecomesALineOfTheFile) {
  for (const Accepted& c : std::vector<Accepted>{
           {MonthFirst(), 0, "12.25", "12.25,Bob,365,yearly", "Bob", "365"},
           {MonthFirst(), 0, "12.25", "12.25,Bob,0,yearly", "Bob", "0"},
           {MonthFirst(), 0, "12.25", "12.25,Bob,0,yearly", "Bob", "abc"},
           {MonthFirst(), 0, "12.25", "12.25,Bob,0,yearly", "Bob", ""},
           {MonthFirst(), 0, "12.25", "12.25,Bob,3,yearly", "Bob", "3.7"},
           {MonthFirst(), 0, "1.5", "01.05,Bob,7,yearly"},
           {MonthFirst(), 1, "1/5", "01.05,Bob,7,quarter"},
           {DayFirst(), 0, "15/03", "03.15,Bob,7,yearly"},
           {DayFirst(), 0, "15-03", "03.15,Bob,7,yearly"},
           {DayFirst(), 0, "26.01", "01.26,Bob,7,yearly"},
           {YearFirst(), 0, "26-01", "01.26,Bob,7,yearly"},
           {MonthFirst(), 0, "_estr", "_estr,Bob,7,yearly"},
           {DayFirst(), 0, "E-046", "E-046,Bob,7,yearly"},
           {MonthFirst(), 2, "31", "xx.31,Bob,7,monthly", "Bob", "7", "", {kShortMonths}},
           {MonthFirst(), 2, "29", "xx.29,Bob,7,monthly", "Bob", "7", "", {kShortMonths}},
           {YearFirst(), 2, "28", "xx.28,Bob,7,monthly"},
           {DayFirst(), 2, "1", "xx.01,Bob,7,monthly"},
           {MonthFirst(), 23, "1", "01.xx,Bob,7,3rd mon"},
           {DayFirst(), 43, "12", "12.xx,Bob,7,las day"},
           {MonthFirst(), 36, "xx", "xx.xx,Bob,7,las sun"},
           {DayFirst(), 36, "XX", "xx.xx,Bob,7,las sun"},
           // 22 December 2014: a day that has passed belongs to the next year.
           {MonthFirst(), 3, "12.21", "12.21,Bob,7,one2015"},
           {MonthFirst(), 3, "12.22", "12.22,Bob,7,one2014"},
           {DayFirst(), 5, "21.12", "12.21,Bob,7,tdo2015"},
           {MonthFirst(), 3, "_estr", "_estr,Bob,7,one2015"},
           {MonthFirst(), 4, "12.31", "12.31,Bob,7,99-2014", "Bob", "7", "99"},
           {MonthFirst(), 4, "12.31", "12.31,Bob,7,07-2014", "Bob", "7", "7"},
           {MonthFirst(), 4, "12.31", "12.31,Bob,7,01-2014", "Bob", "7", "1.5"},
           {MonthFirst(), 4, "12.31", "12.31,Bob,7,00~2014", "Bob", "7", "100"},
           {MonthFirst(), 4, "12.31", "12.31,Bob,7,99~2014", "Bob", "7", "199"},
           {MonthFirst(), 3, "2.29", "02.29,Bob,7,one2016", "Bob", "7", "", {kLeapDay}},
           {MonthFirst(), 0, "2.29", "02.29,Bob,7,yearly", "Bob", "7", "", {kLeapDay}},
           {MonthFirst(), 6, "1/26/1788", "01.26,Bob,0,dp-1788"},
           {DayFirst(), 6, "26.01.88", "01.26,Bob,0,dp-1988"},
           {DayFirst(), 6, "26.01.0000", "01.26,Bob,0,dp-0000"},
           {DayFirst(), 6, "26.01.00", "01.26,Bob,0,dp-2000"},
           {YearFirst(), 6, "2010-03-05", "03.05,Bob,0,dp-2010"},
           {MonthFirst(), 6, "12.31.2014", "12.31,Bob,0,dp-2014"},
           {MonthFirst(), 7, "1.1.2014", "01.01,Bob,0,df-2014"},
           {TwoDigitYearFirst(), 7, "20/12/31", "12.31,Bob,0,df-2020"},
           {MonthFirst(), 0, "12.25", "12.25,A B,7,yearly", "A\nB"},
           {MonthFirst(), 0, "12.25", "12.25,<TODAY>,7,yearly", " <TODAY> "},
           {MonthFirst(), 0, "12.25.2014", "12.25,Bob,7,yearly"},
           {LayoutOf("dd MM yyyy"), 0, "25.12", "12.25,Bob,7,yearly"}}) {
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
    // A new item keeps its capitals until the next save.
    std::string file = desk.file();
    for (const std::string word : {"Mon", "Sun", "Las", "Day"}) {
      if (c.kind < 8) break;
      for (auto at = file.find(word); at != std::string::npos; at = file.find(word)) {
        file[at] = static_cast<char>(file[at] - 'A' + 'a');
      }
    }
    EXPECT_EQ(file, c.line + "\r\n");
    ASSERT_EQ(desk.session().List1().size(), 2U) << "the event is listed beside today";
  }
}

TEST(EventChecks, TheLeapDayCanBeGivenUp) {
  EditDesk desk;
  desk.Open();
  desk.Enter(0, "2.29", "Leap");
  desk.messages.answer = MessageAnswer::kCancel;
  desk.session().Save();
  ASSERT_EQ(desk.messages.boxes.size(), 1U);
  EXPECT_EQ(desk.messages.boxes[0].text, kLeapDay);
  EXPECT_EQ(desk.messages.boxes[0].buttons, MessageButtons::kOkCancel);
  EXPECT_EQ(desk.messages.boxes[0].icon, MessageIcon::kNone);
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_EQ(desk.file(), "");
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
