// What surrounds the list: a missing or unreadable file, the end of the program when nothing is
// in range, the clock, and what a build starts afresh.
#include "reminder/list_builder.h"

#include <gmock/gmock.h>

#include "dates/regional_text.h"
#include "tests/reminder/builder_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const ExpectedRow kTodayRow{0, "12/22/2014   <TODAY>"};

// --- A missing file.

TEST(MissingFile, IsToldAndCreated) {
  Desk desk;
  EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
  EXPECT_THAT(desk.messages.shown, ElementsAre("\"/home/ann/dates.txt\" does not exist.\n"
                                               "\n"
                                               "Tidewarden will now start from scratch with a new "
                                               "/home/ann/dates.txt file."));
  EXPECT_EQ(desk.file(), "");
  EXPECT_THAT(desk.Listed(), ElementsAre(kTodayRow));
  EXPECT_EQ(desk.builder().dateLabel(), "12/22/2014");
  EXPECT_TRUE(desk.builder().readStatus().ok());
}

TEST(MissingFile, IsToldOnce) {
  Desk desk;
  desk.Build();
  desk.Build();
  EXPECT_EQ(desk.messages.shown.size(), 1);
}

TEST(MissingFile, IsToldAgainWhileItCannotBeCreated) {
  Desk desk;
  desk.files.writeFailures[kEventsPath] = StatusKind::kNoPermission;
  desk.Build();
  desk.Build();
  EXPECT_EQ(desk.messages.shown.size(), 2);
  EXPECT_EQ(desk.files.files.count(kEventsPath), 0);
  EXPECT_THAT(desk.Listed(), ElementsAre(kTodayRow));
  EXPECT_EQ(desk.builder().readStatus().kind(), StatusKind::kNotFound);
  EXPECT_EQ(desk.builder().writeStatus().kind(), StatusKind::kNoPermission);
  EXPECT_TRUE(desk.builder().couldNotCreate());
  desk.files.writeFailures.clear();
  desk.Build();
  EXPECT_TRUE(desk.builder().readStatus().ok());
  EXPECT_FALSE(desk.builder().couldNotCreate());
}

// The box of a list that is built at midnight stands until the morning.
TEST(MissingFile, ThatComesWhileTheBoxStandsIsRead) {
  const std::string content = "12.22,Dentist 15:30,0,yearly\n12.21,Gone,7,one2014\n";
  for (const StatusKind kind : {StatusKind::kOk, StatusKind::kNoPermission}) {
    Desk desk;
    if (kind != StatusKind::kOk) desk.files.writeFailures[kEventsPath] = kind;
    desk.messages.whileOpen = [&] { desk.files.files[kEventsPath] = content; };
    EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
    EXPECT_EQ(desk.messages.shown.size(), 1);
    EXPECT_EQ(desk.List().size(), 2);
    EXPECT_TRUE(desk.builder().anyEventsInRange());
    EXPECT_TRUE(desk.builder().alarms().hasAlarmsToday());
    EXPECT_TRUE(desk.builder().readStatus().ok());
    EXPECT_EQ(desk.builder().writeStatus().kind(), kind);
    EXPECT_EQ(desk.file(), content) << "it is tidied in the next build";
  }
}

TEST(MissingFile, ThatCannotBeReadAfterTheBoxIsNotTakenForEmpty) {
  Desk desk;
  desk.messages.whileOpen = [&] { desk.files.failures[kEventsPath] = StatusKind::kInputOutput; };
  EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
  EXPECT_THAT(desk.Listed(), ElementsAre(kTodayRow));
  EXPECT_EQ(desk.builder().readStatus().kind(), StatusKind::kInputOutput);
}

TEST(MissingFile, IsLeftMissingByAReaderAndBesideAnEditor) {
  for (const FileAccess access : {FileAccess::kReadOnly, FileAccess::kShared}) {
    Desk desk;
    desk.access = access;
    EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
    EXPECT_EQ(desk.builder().readStatus().kind(), StatusKind::kNotFound);
    EXPECT_EQ(desk.files.files.count(kEventsPath), 0);
    EXPECT_EQ(desk.FileChanges(), 0);
    EXPECT_THAT(desk.messages.shown, IsEmpty());
    EXPECT_THAT(desk.Listed(), ElementsAre(kTodayRow));
  }
}

TEST(MissingFile, DoesNotEndTheProgram) {
  Desk desk;
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
  EXPECT_THAT(desk.Listed(), ElementsAre(kTodayRow));
  // The file is there now, and still there is nothing in range.
  EXPECT_EQ(desk.Build(), BuildOutcome::kEnd);
}

TEST(MissingFile, StillRemovesTheObsoleteSetting) {
  Desk desk;
  desk.Set("Options", "ShowTodaysDateWithReminders", "True");
  desk.Build();
  EXPECT_EQ(desk.settings.At("Options", "ShowTodaysDateWithReminders"), "(missing)");
}

// --- A file that is there and cannot be read.

class UnreadableFile : public ::testing::TestWithParam<StatusKind> {};

TEST_P(UnreadableFile, GivesNoEventsAndIsNotTouched) {
  Desk desk("12.21,Gone,7,one2014\n");
  desk.files.failures[kEventsPath] = GetParam();
  EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
  EXPECT_THAT(desk.Listed(), ElementsAre(kTodayRow));
  EXPECT_EQ(desk.builder().readStatus().kind(), GetParam());
  EXPECT_EQ(desk.file(), "12.21,Gone,7,one2014\n");
  EXPECT_EQ(desk.FileChanges(), 0);
  EXPECT_THAT(desk.messages.shown, IsEmpty());
}

TEST_P(UnreadableFile, DoesNotEndTheProgram) {
  Desk desk("");
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.files.failures[kEventsPath] = GetParam();
  EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
}

TEST_P(UnreadableFile, IsForgottenOnceItCanBeRead) {
  Desk desk("12.24,A,7,yearly\n");
  desk.files.failures[kEventsPath] = GetParam();
  desk.Build();
  desk.files.failures.clear();
  desk.Build();
  EXPECT_TRUE(desk.builder().readStatus().ok());
  EXPECT_THAT(desk.Listed(),
              ElementsAre(kTodayRow, ExpectedRow{0, "12/24/2014 A (Wednesday, 2 days)"}));
}

TEST_P(UnreadableFile, LeavesNothingOfTheListBefore) {
  Desk desk("12.22,A 15:00,7,yearly\n");
  desk.Build();
  ASSERT_EQ(desk.List().size(), 2);
  desk.files.failures[kEventsPath] = GetParam();
  desk.Build();
  EXPECT_THAT(desk.Listed(), ElementsAre(kTodayRow));
  EXPECT_FALSE(desk.builder().anyEventsInRange());
  EXPECT_FALSE(desk.builder().alarms().hasAlarmsToday());
}

INSTANTIATE_TEST_SUITE_P(Reasons, UnreadableFile,
                         ::testing::Values(StatusKind::kNoPermission, StatusKind::kIsFolder,
                                           StatusKind::kNotAFile, StatusKind::kInputOutput,
                                           StatusKind::kTooLarge, StatusKind::kBusy));

TEST(UnreadableText, IsNotTouchedEither) {
  const std::string utf16(
      "\xFF\xFE"
      "1\0"
      "2\0",
      6);
  Desk desk(utf16);
  desk.Build();
  EXPECT_EQ(desk.builder().readStatus().kind(), StatusKind::kNotText);
  EXPECT_EQ(desk.file(), utf16);
  EXPECT_THAT(desk.Listed(), ElementsAre(kTodayRow));
}

// --- Nothing in range.

TEST(NothingInRange, EndsTheProgram) {
  Desk desk("12.30,Far,7,yearly\n12.21,Gone,7,one2014\n12.30,Hidden,7,yearly*\n");
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.Set("Options", "ShowTodaysDateWithReminders", "True");
  const std::string before = desk.file();
  EXPECT_EQ(desk.Build(), BuildOutcome::kEnd);
  EXPECT_THAT(desk.List(), IsEmpty());
  EXPECT_THAT(desk.builder().ReminderLineMap(), IsEmpty());
  EXPECT_THAT(desk.builder().rows(), IsEmpty());
  EXPECT_EQ(desk.file(), before);
  EXPECT_EQ(desk.FileChanges(), 0);
  // No later step runs.
  EXPECT_EQ(desk.settings.At("Options", "ShowTodaysDateWithReminders"), "True");
}

TEST(NothingInRange, DoesNotEndTheProgramWhileShiftIsDown) {
  Desk desk("12.30,Far,7,yearly\n12.21,Gone,7,one2014\n");
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.shiftKey.down = true;
  EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
  EXPECT_THAT(desk.Listed(), ElementsAre(kTodayRow));
  EXPECT_EQ(desk.file(), "12.30,Far,7,yearly\r\n");
}

TEST(NothingInRange, ShiftIsAskedAtEachBuild) {
  Desk desk("12.30,Far,7,yearly\n");
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.shiftKey.down = true;
  EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
  desk.shiftKey.down = false;
  EXPECT_EQ(desk.Build(), BuildOutcome::kEnd);
}

TEST(NothingInRange, ClearsTheAlarmsAndTheListBefore) {
  Desk desk("12.22,Dentist 15:30,0,yearly\n");
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
  EXPECT_TRUE(desk.builder().alarms().hasAlarmsToday());
  desk.SetNow(2014, 12, 23);
  EXPECT_EQ(desk.Build(), BuildOutcome::kEnd);
  EXPECT_THAT(desk.List(), IsEmpty());
  EXPECT_FALSE(desk.builder().alarms().hasAlarmsToday());
}

TEST(InRange, IsAnyRowButTheTodayLine) {
  const struct {
    std::string name;
    std::string file;
    bool inRange;
  } cases[] = {
      {"nothing", "", false},
      {"too far away", "12.30,X,7,yearly\n", false},
      {"hidden", "12.24,X,7,yearly*\n", false},
      {"hidden today", "12.22,X,7,yearly*\n", false},
      {"past one-time", "12.21,X,7,one2014\n", false},
      {"rejected", "hello\n", false},
      {"upcoming", "12.29,X,7,yearly\n", true},
      {"today", "12.22,X,0,yearly\n", true},
      {"overdue", "12.21,X,0,tdo2014\n", true},
      {"hidden overdue", "12.21,X,0,tdo2014*\n", true},
      {"count-up", "12.21,X,0,dp-2001\n", true},
      {"countdown", "12.21,X,0,df-2999\n", true},
      {"hidden countdown", "12.21,X,0,df-2999*\n", true},
      {"counter without a date", "02.30,X,0,df-2999\n", false},
  };
  for (const auto& [name, file, inRange] : cases) {
    SCOPED_TRACE(name);
    for (const char* listToday : {"True", "False"}) {
      Desk desk(file);
      desk.Set("Options", "ListTodayWithEvents", listToday);
      desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
      EXPECT_EQ(desk.Build(), inRange ? BuildOutcome::kShow : BuildOutcome::kEnd);
    }
    Desk desk(file);
    desk.Build();
    EXPECT_EQ(desk.builder().anyEventsInRange(), inRange);
  }
}

// --- Hidden events whose mark has served and could not be taken off.

const std::string kBins = "12.22,Bins,2,07-2014";
const std::string kHiddenBins = kBins + "*";

TEST(HiddenMark, ThatCannotBeTakenOffKeepsNoEventBack) {
  Desk desk(kHiddenBins + "\n");
  desk.SetNow(2014, 12, 26);
  desk.files.commitFailures[kEventsPath] = StatusKind::kNoSpace;
  desk.Build();
  desk.SetNow(2014, 12, 28);
  desk.Build();
  EXPECT_EQ(desk.List().back(), "12/29/2014 Bins (Monday, 1 day)");
  EXPECT_EQ(desk.builder().rows().back().rawLine, kHiddenBins);
  EXPECT_EQ(desk.builder().writeStatus().kind(), StatusKind::kNoSpace);
  desk.files.commitFailures.clear();
  desk.Build();
  EXPECT_EQ(desk.List().back(), "12/29/2014 Bins (Monday, 1 day)");
  EXPECT_EQ(desk.builder().rows().back().rawLine, kBins);
  EXPECT_EQ(desk.file(), kBins + "\r\n");
  EXPECT_TRUE(desk.builder().writeStatus().ok());
}

TEST(HiddenMark, ThatCouldNotBeReadForAWhileIsNotForgotten) {
  Desk desk(kHiddenBins + "\n");
  desk.access = FileAccess::kShared;
  desk.SetNow(2014, 12, 26);
  desk.Build();
  desk.files.failures[kEventsPath] = StatusKind::kInputOutput;
  desk.Build();
  desk.files.failures.clear();
  desk.SetNow(2014, 12, 28);
  desk.Build();
  EXPECT_EQ(desk.List().size(), 2U);
}

TEST(HiddenMark, OfAFileThatCameBehindTheBoxHasServedToo) {
  Desk desk;
  desk.SetNow(2014, 12, 26);
  desk.messages.whileOpen = [&] { desk.files.files[kEventsPath] = kHiddenBins + "\n"; };
  desk.Build();
  desk.SetNow(2014, 12, 28);
  desk.Build();
  EXPECT_EQ(desk.List().size(), 2U);
  EXPECT_EQ(desk.file(), kBins + "\r\n");
}

TEST(HiddenMark, ThatIsSetAnewAfterItHasGoneHides) {
  Desk desk(kHiddenBins + "\n");
  desk.access = FileAccess::kShared;
  desk.SetNow(2014, 12, 26);
  desk.Build();
  desk.SetNow(2014, 12, 28);
  desk.Build();
  EXPECT_EQ(desk.List().size(), 2U);
  desk.files.files[kEventsPath] = kBins + "\n";
  desk.Build();
  EXPECT_EQ(desk.List().size(), 2U);
  desk.files.files[kEventsPath] = kHiddenBins + "\n";
  desk.Build();
  EXPECT_EQ(desk.List().size(), 1U);
}

TEST(HiddenMark, ThatTheUserSetsAnewHides) {
  for (const std::string& line : {kHiddenBins, kBins}) {
    Desk desk(kHiddenBins + "\n");
    desk.access = FileAccess::kShared;
    desk.SetNow(2014, 12, 26);
    desk.Build();
    desk.SetNow(2014, 12, 28);
    desk.builder().EventHidden(line);
    desk.Build();
    EXPECT_THAT(desk.List(), ElementsAre("12/28/2014   <TODAY>"));
    EXPECT_EQ(desk.file(), kHiddenBins + "\n");
  }
}

// An overdue task is listed in spite of its mark, which goes all the same.
TEST(HiddenMark, OfATaskThatHasBecomeOverdueMeanwhileGoes) {
  const std::string task = "12.24,Rent,1,tdo2014";
  Desk desk(task + "*\n");
  desk.access = FileAccess::kShared;
  desk.Build();
  desk.SetNow(2014, 12, 26);
  desk.access = FileAccess::kUpdate;
  desk.Build();
  EXPECT_EQ(desk.file(), task + "\r\n");
  EXPECT_EQ(desk.builder().rows().front().rawLine, task);
}

// --- The clock.

TEST(Clock, IsReadOnceForEachBuild) {
  Desk desk(
      "12.21,Gone,7,one2014\n"
      "12.31,Eve,7,yearly\n"
      "01.01,Year,7,yearly\n"
      "12.31,Last 23:59,7,yearly\n"
      "06.01,Since,0,dp-2014\n"
      "12.31,One,7,one2014\n");
  desk.SetNow(2014, 12, 31, 23, 59);
  desk.clock.later = {{On(2015, 1, 1), 0, 0, 0}, {On(2015, 1, 1), 0, 0, 1}};
  desk.Build();
  EXPECT_EQ(desk.clock.readings, 1);
  EXPECT_THAT(desk.Listed(), ElementsAre(ExpectedRow{3, "06/01/2014 Since (213 days past)"},
                                         ExpectedRow{0, "12/31/2014   <TODAY>"},
                                         ExpectedRow{2, "12/31/2014 Today is LAST 23:59 (0:00)"},
                                         ExpectedRow{0, "12/31/2014 Today is EVE"},
                                         ExpectedRow{4, "12/31/2014 Today is ONE"},
                                         ExpectedRow{1, "01/01/2015 Year (Thursday, 1 day)"}));
}

// --- What a build starts afresh.

TEST(Rebuild, ForgetsTheListBefore) {
  Desk desk("12.22,Dentist 15:30,0,yearly\n12.22,Call 15:45,0,yearly\n");
  desk.Build();
  EXPECT_EQ(desk.builder().alarms().alarmCount(), 1);
  desk.files.files[kEventsPath] = "12.22,Tea 16:00,0,yearly\n";
  desk.Build();
  EXPECT_THAT(desk.builder().alarms().alarmTitles(), ElementsAre("Tea 16:00"));
  EXPECT_THAT(desk.builder().alarms().alarmTimes(), ElementsAre(1600));
  EXPECT_THAT(desk.List(),
              ElementsAre("12/22/2014   <TODAY>", "12/22/2014 Today is TEA 16:00 (1:35 to go)"));
  desk.SetNow(2014, 12, 23);
  desk.Build();
  EXPECT_EQ(desk.builder().alarms().alarmCount(), -1);
  EXPECT_THAT(desk.List(), ElementsAre("12/23/2014   <TODAY>"));
  EXPECT_EQ(desk.builder().dateLabel(), "12/23/2014");
}

TEST(Rebuild, ForgetsAFailureBefore) {
  Desk desk("12.21,Gone,7,one2014\n");
  desk.files.writeFailures[kEventsPath] = StatusKind::kNoSpace;
  desk.Build();
  EXPECT_FALSE(desk.builder().writeStatus().ok());
  desk.files.files[kEventsPath] = "12.24,A,7,yearly\n";
  desk.Build();
  EXPECT_TRUE(desk.builder().writeStatus().ok());
}

TEST(Rebuild, RunsTheCountdownOn) {
  Desk desk("12.22,Dentist 15:30,0,yearly\n");
  desk.SetNow(2014, 12, 22, 15, 25);
  desk.Build();
  EXPECT_EQ(desk.List().back(), "12/22/2014 Today is DENTIST 15:30 (0:05 to go)");
  desk.SetNow(2014, 12, 22, 15, 30);
  desk.Build();
  EXPECT_EQ(desk.List().back(), "12/22/2014 Today is DENTIST 15:30 (0:00)");
}

// --- The alarms as the list gives them.

TEST(AlarmsOfTheList, HaveTheTitleWithItsMarkerAppliedInItsOwnLetters) {
  Desk desk("12.22,<1788> Call Zoë 9:00,0,yearly\n12.22,Dentist 3:30pm,0,yearly\n");
  desk.Build();
  const AlarmSchedule& alarms = desk.builder().alarms();
  EXPECT_THAT(alarms.alarmTitles(), ElementsAre("226th Call Zoë 9:00", "Dentist 3:30pm"));
  EXPECT_THAT(alarms.alarmTimes(), ElementsAre(900, 1530));
  EXPECT_THAT(alarms.alarmDates(), ElementsAre(On(2014, 12, 22), On(2014, 12, 22)));
  EXPECT_THAT(alarms.alarmItemIndexes(), ElementsAre(1, 2));
  EXPECT_THAT(alarms.alarmItemTexts(), ElementsAre("12/22/2014 Today is 226TH CALL ZOË 9:00",
                                                   "12/22/2014 Today is DENTIST 3:30PM"));
}

// The list shows today's titles in capitals, and these do not all map back.
TEST(AlarmsOfTheList, CountDownWhateverTheCapitalsOfTheirTitle) {
  Desk desk("12.22,Γιατρός 15:00,0,yearly\n12.22,ılık 15:30,0,yearly\n");
  desk.Build();
  EXPECT_THAT(desk.List(),
              ElementsAre("12/22/2014   <TODAY>", "12/22/2014 Today is ΓΙΑΤΡΌΣ 15:00 (0:35 to go)",
                          "12/22/2014 Today is ILIK 15:30 (1:05 to go)"));
}

TEST(AlarmsOfTheList, AreTodaysShownEventsOnly) {
  Desk desk(
      "12.23,Tomorrow 9:00,7,yearly\n"
      "12.21,Task 9:00,7,tdo2014\n"
      "12.22,Hidden 9:00,7,yearly*\n"
      "12.22,Count 9:00,0,dp-2014\n"
      "12.22,No time,0,yearly\n"
      "12.22,Task today 9:00,7,tdo2014\n");
  desk.Build();
  EXPECT_THAT(desk.builder().alarms().alarmTitles(), ElementsAre("Task today 9:00"));
}

// A countdown is not mistaken for a counter, whose rows are told by their ends.
TEST(AlarmsOfTheList, DoNotEndLikeACounter) {
  Desk desk("12.22,A 9:00,0,yearly\n12.22,B 14:25,0,yearly\n12.22,C 15:00,0,yearly\n");
  desk.Build();
  for (const std::string& row : desk.List()) {
    SCOPED_TRACE(row);
    EXPECT_FALSE(row.ends_with("past)"));
    EXPECT_FALSE(row.ends_with("future)"));
  }
  EXPECT_TRUE(desk.List().at(1).ends_with(" passed)"));
  EXPECT_TRUE(desk.List().at(3).ends_with(" to go)"));
}

// --- What is known of each row.

TEST(Rows, TellWhatTheyShow) {
  Desk desk(
      "06.01,Sober,0,dp-2001\n"
      "12.20,Pay rent,7,tdo2014\n"
      "12.22,<1788> Dentist 3:30pm,0,yearly\n"
      "12.25,Christmas,14,yearly\n");
  desk.Build();
  const auto& rows = desk.builder().rows();
  ASSERT_EQ(rows.size(), 5);
  const struct {
    RowKind kind;
    CivilDate date;
    int days;
    int time;
    std::string title;
    std::string text;
  } expected[] = {
      {RowKind::kCounter, On(2001, 6, 1), -4952, 2460, "Sober",
       "06/01/2001 Sober (4952 days past)"},
      {RowKind::kOverdue, On(2014, 12, 20), -2, 2460, "Pay rent",
       "12/20/2014 Pay rent (2 DAYS OVERDUE!!!)"},
      {RowKind::kTodayLine, On(2014, 12, 22), 0, 0, "", "12/22/2014   <TODAY>"},
      {RowKind::kToday, On(2014, 12, 22), 0, 1530, "226th Dentist 3:30pm",
       "12/22/2014 Today is 226TH DENTIST 3:30PM"},
      {RowKind::kUpcoming, On(2014, 12, 25), 3, 2460, "Christmas",
       "12/25/2014 Christmas (Thursday, 3 days)"},
  };
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(expected[i].text);
    EXPECT_EQ(rows[i].kind, expected[i].kind);
    EXPECT_EQ(rows[i].date, expected[i].date);
    EXPECT_EQ(rows[i].daysToGo, expected[i].days);
    EXPECT_EQ(rows[i].timeOfDay, expected[i].time);
    EXPECT_EQ(rows[i].title, expected[i].title);
    EXPECT_EQ(desk.List()[i],
              expected[i].text + (rows[i].timeOfDay == 1530 ? " (1:05 to go)" : ""));
  }
}

// --- Names in another language.

TEST(NamesOfTheUsersLanguage, StandInTheRows) {
  CalendarNames german = EnglishCalendarNames();
  german.monthAbbreviations = {"Jan", "Feb", "Mär", "Apr", "Mai", "Jun",
                               "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
  german.weekdays = {"Sonntag",    "Montag",  "Dienstag", "Mittwoch",
                     "Donnerstag", "Freitag", "Samstag"};
  const PatternRegionalFormats formats("dd.MM.yyyy", german);
  Desk desk("12.25,Weihnachten,14,yearly\n03.01,März,365,yearly\n");
  desk.format = *DetectRegionalDateFormat(formats.ShortDate(kProbeDate), formats);
  desk.Set("Options", "SpellOutReminderMonths", "True");
  desk.Set("Options", "ShowDayOfWeek", "True");
  desk.Build();
  EXPECT_THAT(desk.List(), ElementsAre("22 Dez 2014   <TODAY is Montag>",
                                       "25 Dez 2014 Weihnachten (Donnerstag, 3 days)",
                                       "01 Mär 2015 März (69 days)"));
  EXPECT_EQ(desk.builder().dateLabel(), "22 Dez 2014");
}

}  // namespace
}  // namespace tidewarden::test
