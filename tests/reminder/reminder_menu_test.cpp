// The popup menu of the reminder list: what it offers on each row, and what its items do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "reminder/reminder_session.h"
#include "tests/reminder/session_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kChristmas = "12.25,Christmas,14,yearly\r\n";
const std::string kRent = "12.20,Pay rent,7,tdo2014\r\n";

// The items as letters: H hide, the line below it -, E edit, D delete, the line below it _.
std::string Items(const PopupMenu& menu) {
  std::string items;
  if (menu.mnuHideThis) items += 'H';
  if (menu.mnuLine0) items += '-';
  if (menu.mnuEditEvent) items += 'E';
  if (menu.mnuDeleteEvent) items += 'D';
  if (menu.mnuLine1) items += '_';
  return items;
}

const std::string kAll = "H-ED_";
const std::string kNoHide = "ED_";

// ---- What is offered.

TEST(Menu, OffersWhatFitsTheRow) {
  SessionDesk desk(kChristmas + kRent +
                   "12.22,Mom's Birthday,7,yearly\r\n"
                   "06.01,Sober,0,dp-2001\r\n"
                   "01.01,Retire,0,df-2030\r\n"
                   "12.22,Wedding,0,dp-2014\r\n"
                   "12.22,Visit (past),0,yearly\r\n"
                   "12.22,Seen (FUTURE),0,yearly\r\n"
                   "12.22,Lunch 1:00pm,0,yearly\r\n"
                   "12.24,Odd  <Today,9,yearly\r\n"
                   "12.24,Even <today,9,yearly\r\n"
                   "12.21,The past) is gone,9,tdo2014\r\n");
  desk.Start();
  const std::vector<std::pair<std::string, std::string>> cases{
      {"12/22/2014   <TODAY>", ""},
      {"Christmas (Thursday, 3 days)", kAll},
      {"MOM'S BIRTHDAY", kAll},
      {"Pay rent (2 DAYS OVERDUE!!!)", kAll},
      {"Sober (4952 days past)", kNoHide},
      {"days future)", kNoHide},
      {"IS TODAY)", kAll},
      {"VISIT (PAST)", kNoHide},
      {"SEEN (FUTURE)", kNoHide},
      {" passed)", kAll},
      {"Odd  <Today", ""},
      {"Even <today", kAll},
      {"The past) is gone", kAll},
  };
  EXPECT_EQ(desk.session.List1().size(), cases.size());
  for (const auto& [row, items] : cases) {
    SCOPED_TRACE(row);
    EXPECT_EQ(Items(desk.MenuOn(row)), items);
    EXPECT_EQ(desk.session.selectedRow(), desk.RowWith(row));
  }
}

TEST(Menu, BesideTheRowsItOffersNothingAndSelectsNothing) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.session.SelectRow(1);
  EXPECT_EQ(Items(desk.session.OpenMenu(ReminderSession::kNoRow)), "");
  EXPECT_EQ(desk.session.selectedRow(), ReminderSession::kNoRow);
  EXPECT_EQ(Items(desk.session.OpenMenu(99)), "");
}

TEST(Menu, WhatIsNotOfferedDoesNothing) {
  struct Case {
    std::string name;
    std::string row;  // empty for none
    bool edits;
    bool deletes;
  };
  const std::vector<Case> cases{{"no row", "", false, false},
                                {"today's line", "<TODAY>", false, false},
                                {"like today's line", "Odd  <Today", false, false},
                                {"a counter", "Sober", true, true}};
  const std::string events =
      "\r\n12.24,Odd  <Today,9,yearly\r\n06.01,Sober,0,dp-2001\r\n" + kChristmas;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    SessionDesk desk(events);
    desk.Start();
    desk.MenuOn("Christmas");
    desk.session.OpenMenu(c.row.empty() ? ReminderSession::kNoRow : desk.RowWith(c.row));
    EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
    EXPECT_EQ(desk.file(), events);
    EXPECT_EQ(desk.session.EditEvent(desk.here),
              c.edits ? WindowChange::kHide : WindowChange::kNone);
    EXPECT_EQ(desk.editor.requests.size(), c.edits ? 1U : 0U);
    EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
    EXPECT_EQ(desk.file() == events, !c.deletes);
    EXPECT_THAT(desk.messages.boxes, IsEmpty());
  }
}

TEST(Menu, BeforeItWasEverOpenedItsItemsDoNothing) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.session.SelectRow(1);
  EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_EQ(desk.session.EditEvent(desk.here), WindowChange::kNone);
  EXPECT_EQ(desk.file(), kChristmas);
  EXPECT_THAT(desk.log, IsEmpty());
}

TEST(Menu, OffersNoChangeWhileTheEditorHasAnEntryUnderWay) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.editor.loaded = true;
  EXPECT_EQ(Items(desk.MenuOn("Christmas")), kAll);
  desk.editor.entryUnderWay = true;
  // Begun while the menu was open.
  EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_EQ(Items(desk.MenuOn("Christmas")), "E_");
  EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_EQ(desk.file(), kChristmas);
  // An entry of an editor that is not loaded is none.
  desk.editor.loaded = false;
  EXPECT_EQ(Items(desk.MenuOn("Christmas")), kAll);
}

// ---- Hiding.

TEST(Hide, AppendsOneMarkAndTheEventIsGoneAtOnce) {
  SessionDesk desk("hello\r\n\r\n" + kChristmas + "12.26,Boxing Day,14,yearly");
  desk.Start();
  desk.MenuOn("Christmas");
  EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
  EXPECT_EQ(desk.file(),
            "hello\r\n\r\n12.25,Christmas,14,yearly*\r\n12.26,Boxing Day,14,yearly\r\n");
  EXPECT_EQ(desk.RowWith("Christmas"), ReminderSession::kNoRow);
  EXPECT_NE(desk.RowWith("Boxing Day"), ReminderSession::kNoRow);
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_EQ(desk.session.selectedRow(), ReminderSession::kNoRow);
  // Only once for each menu.
  EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
  EXPECT_EQ(desk.session.builds(), 2);
  // And until the occurrence is over.
  static_cast<void>(desk.TickAt(2014, 12, 26, 0, 0));
  EXPECT_EQ(desk.file(),
            "hello\r\n\r\n12.25,Christmas,14,yearly\r\n12.26,Boxing Day,14,yearly\r\n");
}

TEST(Hide, AnOverdueTaskKeepsOneMarkAndStaysListed) {
  SessionDesk desk(kRent);
  desk.Start();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Items(desk.MenuOn("Pay rent")), kAll);
    EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
    EXPECT_EQ(desk.file(), "12.20,Pay rent,7,tdo2014*\r\n");
    EXPECT_NE(desk.RowWith("Pay rent (2 DAYS OVERDUE!!!)"), ReminderSession::kNoRow);
  }
  EXPECT_EQ(desk.files.CountCalls("stage"), 1);
}

// ---- Deleting.

TEST(Delete, AsksNothingAndKeepsEveryOtherLine) {
  SessionDesk desk("\r\nhello\n" + kChristmas + "12.26,Boxing Day,14,yearly");
  desk.Start();
  desk.MenuOn("Christmas");
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_EQ(desk.file(), "\r\nhello\r\n12.26,Boxing Day,14,yearly\r\n");
  EXPECT_THAT(desk.messages.boxes, IsEmpty());
  EXPECT_THAT(desk.List(),
              ElementsAre("12/22/2014   <TODAY>", "12/26/2014 Boxing Day (Friday, 4 days)"));
}

TEST(Delete, TheLastEventLeavesTodaysLine) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.MenuOn("Christmas");
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_EQ(desk.file(), "");
  EXPECT_THAT(desk.List(), ElementsAre("12/22/2014   <TODAY>"));
}

TEST(Delete, MayEndTheProgram) {
  SessionDesk desk(kChristmas);
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.Start();
  desk.MenuOn("Christmas");
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kEnd);
}

TEST(Delete, ALoadedEditorSeesTheFileAsItIsNow) {
  for (const bool hides : {true, false}) {
    SessionDesk desk(kChristmas);
    desk.Start();
    desk.editor.loaded = true;
    desk.MenuOn("Christmas");
    EXPECT_EQ(hides ? desk.session.HideThis() : desk.session.DeleteThis(), WindowChange::kNone);
    EXPECT_EQ(desk.editor.reloads, 1);
    EXPECT_EQ(desk.session.builds(), 2);
  }
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.MenuOn("Christmas");
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_EQ(desk.editor.reloads, 0) << "none is loaded";
}

// ---- A file that has changed since the list was built.

struct StaleCase {
  std::string name;
  std::string now;
  std::string hidden;   // after hiding Christmas
  std::string deleted;  // after deleting it
};

TEST(StaleLines, TheChosenEventIsMeantWhereverItIsAndNoOther) {
  const std::string boxing = "12.26,Boxing Day,14,yearly\r\n";
  const std::string hidden = "12.25,Christmas,14,yearly*\r\n";
  const std::vector<StaleCase> cases{
      {"unchanged", kChristmas + boxing, hidden + boxing, boxing},
      {"a line came before it", boxing + kChristmas + boxing, boxing + hidden + boxing,
       boxing + boxing},
      {"it came twice, and once in its place", kChristmas + boxing + kChristmas,
       hidden + boxing + kChristmas, boxing + kChristmas},
      {"it came twice elsewhere", boxing + kChristmas + kChristmas,
       boxing + kChristmas + kChristmas, boxing + kChristmas + kChristmas},
      {"it is gone", boxing, boxing, boxing},
      {"it reads otherwise", "12.25,christmas,14,yearly\r\n" + boxing,
       "12.25,christmas,14,yearly\r\n" + boxing, "12.25,christmas,14,yearly\r\n" + boxing},
      {"it has a blank at its end", "12.25,Christmas,14,yearly \r\n",
       "12.25,Christmas,14,yearly \r\n", "12.25,Christmas,14,yearly \r\n"},
      {"the file is empty", "", "", ""},
  };
  for (const StaleCase& c : cases) {
    for (const bool hides : {true, false}) {
      SCOPED_TRACE(c.name + (hides ? ", hidden" : ", deleted"));
      SessionDesk desk(kChristmas + "12.26,Boxing Day,14,yearly\r\n");
      desk.Start();
      desk.MenuOn("Christmas");
      desk.files.files[kSessionPath] = c.now;
      EXPECT_EQ(hides ? desk.session.HideThis() : desk.session.DeleteThis(), WindowChange::kNone);
      EXPECT_EQ(desk.file(), hides ? c.hidden : c.deleted);
      EXPECT_EQ(desk.session.builds(), 2) << "the list is built anew in every case";
      EXPECT_THAT(desk.messages.boxes, IsEmpty());
    }
  }
}

TEST(StaleLines, ARebuildUnderTheOpenMenuDoesNotChangeWhatIsMeant) {
  SessionDesk desk("12.23,Early,7,yearly\r\n" + kChristmas + "12.24,Eve,7,yearly\r\n");
  desk.Start();
  desk.MenuOn("Eve");
  static_cast<void>(desk.TickAt(2014, 12, 24, 0, 0));
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_EQ(desk.file(), "12.23,Early,7,yearly\r\n" + kChristmas);
}

TEST(StaleLines, LinesThatTheBuildItselfRemovedAreCountedOut) {
  SessionDesk desk("12.21,Gone,7,one2014\r\n" + kChristmas + kChristmas);
  desk.Start();
  EXPECT_EQ(desk.file(), kChristmas + kChristmas);
  desk.session.OpenMenu(2);
  EXPECT_EQ(desk.session.EditEvent(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.request(), std::pair(1L, false));
}

// ---- A file that cannot be changed.

TEST(FailedChanges, AreToldAndLeaveTheFileWhole) {
  for (const bool hides : {true, false}) {
    for (const bool committing : {true, false}) {
      SessionDesk desk(kChristmas);
      desk.Start();
      auto& failures = committing ? desk.files.commitFailures : desk.files.writeFailures;
      failures[kSessionPath] = StatusKind::kNoSpace;
      desk.MenuOn("Christmas");
      EXPECT_EQ(hides ? desk.session.HideThis() : desk.session.DeleteThis(), WindowChange::kNone);
      EXPECT_EQ(desk.messages.boxes,
                (std::vector<LoggedMessages::Box>{
                    {"The events file could not be changed:\n/home/ann/dates.txt",
                     MessageButtons::kOk, MessageIcon::kExclamation}}));
      EXPECT_EQ(desk.file(), kChristmas);
      EXPECT_EQ(desk.session.builds(), 2);
      EXPECT_NE(desk.RowWith("Christmas"), ReminderSession::kNoRow);
    }
  }
}

// Another program adds an event each time that a change waits for the disk.
void AddMeanwhile(SessionDesk& desk, int times) {
  desk.files.onStaged = [&desk, times](const std::string& path) mutable {
    if (path == kSessionPath && times-- > 0) {
      desk.files.files[path].insert(0, "12.23,Early " + std::to_string(times) + ",7,yearly\r\n");
    }
  };
}

TEST(FailedChanges, WhatAnotherProgramWritesMeanwhileIsKept) {
  const std::string early = "12.23,Early 0,7,yearly\r\n12.23,Early 1,7,yearly\r\n";
  for (const bool hides : {true, false}) {
    SessionDesk desk(kChristmas);
    desk.Start();
    AddMeanwhile(desk, 2);
    desk.MenuOn("Christmas");
    EXPECT_EQ(hides ? desk.session.HideThis() : desk.session.DeleteThis(), WindowChange::kNone);
    EXPECT_EQ(desk.file(),
              hides ? early + std::string(kChristmas).insert(kChristmas.size() - 2, "*") : early);
    EXPECT_THAT(desk.messages.Texts(), IsEmpty());
    EXPECT_NE(desk.RowWith("Early 0"), ReminderSession::kNoRow);
    EXPECT_NE(desk.RowWith("Early 1"), ReminderSession::kNoRow);
    EXPECT_EQ(desk.RowWith("Christmas"), ReminderSession::kNoRow);
  }
}

TEST(FailedChanges, OfAFileThatAnotherProgramChangesEachTimeAreTold) {
  const std::string early =
      "12.23,Early 0,7,yearly\r\n12.23,Early 1,7,yearly\r\n12.23,Early 2,7,yearly\r\n";
  for (const bool hides : {true, false}) {
    SessionDesk desk(kChristmas);
    desk.Start();
    AddMeanwhile(desk, 3);
    desk.MenuOn("Christmas");
    EXPECT_EQ(hides ? desk.session.HideThis() : desk.session.DeleteThis(), WindowChange::kNone);
    EXPECT_EQ(desk.file(), early + kChristmas);
    EXPECT_THAT(desk.messages.Texts(),
                ElementsAre("The events file could not be changed:\n/home/ann/dates.txt"));
    EXPECT_NE(desk.RowWith("Early 2"), ReminderSession::kNoRow);
    EXPECT_NE(desk.RowWith("Christmas"), ReminderSession::kNoRow);
  }
}

TEST(FailedChanges, OfAFileThatIsTidiedShowNoMessage) {
  const std::string tidied = "12.21,Gone,7,one2014\r\n06.01,Back,7,yearly*\r\n" + kChristmas;
  SessionDesk desk(tidied);
  AddMeanwhile(desk, 6);
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_TRUE(desk.file().ends_with(tidied));
  EXPECT_NE(desk.file().find("Early 0"), std::string::npos);
  EXPECT_THAT(desk.messages.Texts(), IsEmpty());
  EXPECT_NE(desk.RowWith("Christmas"), ReminderSession::kNoRow);

  SessionDesk once(tidied);
  AddMeanwhile(once, 1);
  EXPECT_EQ(once.Load(), WindowChange::kNone);
  EXPECT_EQ(once.file(), "12.23,Early 0,7,yearly\r\n06.01,Back,7,yearly\r\n" + kChristmas);
}

TEST(FailedChanges, AFileThatCannotBeReadIsNotWritten) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.MenuOn("Christmas");
  desk.files.failures[kSessionPath] = StatusKind::kInputOutput;
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_THAT(desk.messages.Texts(),
              ElementsAre("The events file could not be changed:\n/home/ann/dates.txt"));
  EXPECT_EQ(desk.files.CountCalls("stage"), 0);
  EXPECT_EQ(desk.file(), kChristmas);
  EXPECT_EQ(desk.complaints.size(), 1U);
}

TEST(FailedChanges, OfAVanishedFileTheRebuildTells) {
  for (const bool hides : {true, false}) {
    SessionDesk desk(kChristmas);
    desk.Start();
    desk.MenuOn("Christmas");
    desk.files.files.clear();
    EXPECT_EQ(hides ? desk.session.HideThis() : desk.session.DeleteThis(), WindowChange::kNone);
    EXPECT_THAT(desk.messages.Texts(),
                ElementsAre("\"/home/ann/dates.txt\" does not exist.\n\nTidewarden will now start "
                            "from scratch with a new /home/ann/dates.txt file."));
    EXPECT_THAT(desk.Logged("stage"), IsEmpty());
    EXPECT_EQ(desk.file(), "");
  }
}

// ---- The size of the text.

TEST(TextSize, HasFiveStepsAndLeavesListAndSelectionAlone) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.session.SelectRow(1);
  const std::vector<int> sizes{8, 10, 12, 14, 18};
  for (int item = 0; item < 5; ++item) {
    const int size = sizes[static_cast<std::size_t>(item)];
    desk.session.SetTextSize(item);
    EXPECT_EQ(desk.Stored("FontSize"), std::to_string(size));
    EXPECT_EQ(desk.session.listFont().size, size);
  }
  EXPECT_EQ(desk.session.builds(), 1);
  EXPECT_EQ(desk.session.selectedRow(), 1);
}

}  // namespace
}  // namespace tidewarden::test
