// The window's life and its list, as the session holds them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "dates/text.h"
#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::DayFirst;
using test::EditDesk;
using test::kEventsPath;
using test::On;
using test::YearFirst;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kPick = "Please select which event you would like to edit!";
const std::string kNotToday = "Today is not an event which you can edit!";

const std::string kFamily =
    "12.24,Eve,1,yearly\r\n"
    "no event at all\r\n"
    "12.25,Christmas Day,7,yearly\r\n"
    "\r\n"
    "_estr,Easter Sunday,14,yearly\r\n"
    "01.26,Australia Day,7,dp-1788\r\n";

TEST(EditSession, OpeningShowsTheEventsInOrderWithTheirLines) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  EXPECT_THAT(
      desk.List(),
      ElementsAre("_estr Easter Sunday                          14 days  yearly",
                  "01.26 Australia Day                          (always) dp-1788", "12.22  <TODAY>",
                  "12.24 Eve                                    1 day    yearly",
                  "12.25 Christmas Day                          7 days   yearly"));
  EXPECT_THAT(session.EditorLineMap(), ElementsAre(4, 5, 99999, 0, 2));
  EXPECT_EQ(session.selectedRow(), 0);
  EXPECT_TRUE(session.isListEnabled());
  EXPECT_EQ(session.caption(), "Events Editor - Tidewarden v1.0");
  EXPECT_TRUE(session.wantsSkin());
  EXPECT_THAT(desk.messages.shown, IsEmpty());
  EXPECT_EQ(desk.files.CountCalls("commit"), 0);
}

TEST(EditSession, TheDefaultsOfTheSettingsAreStored) {
  EditDesk desk;
  desk.Open();
  for (const auto& [name, value] : std::vector<std::pair<std::string, std::string>>{
           {"LevelsOfBackup", "0"},
           {"ShowPopularObservancesArrow", "True"},
           {"ShowDateExample", "True"},
           {"UseSkin", "True"},
           {"ListTodayWithEvents", "True"},
           {"CapitalizeTodaysEvents", "True"},
           {"RememberLastAdvanceNoticeValue", "(missing)"}}) {
    EXPECT_EQ(desk.settings.At("Options", name), value);
  }
}

TEST(EditSession, TheTodayRowFollowsTheSettings) {
  EditDesk small(kFamily);
  small.Set("CapitalizeTodaysEvents", "False");
  small.format = YearFirst();
  small.Open();
  EXPECT_EQ(small.List()[2], "22.12  <Today>");
  EditDesk none(kFamily);
  none.Set("ListTodayWithEvents", "FALSE");
  none.Open();
  EXPECT_THAT(none.session().EditorLineMap(), ElementsAre(4, 5, 0, 2));
}

TEST(EditSession, AnEventThatNamesTodayIsStillAnEvent) {
  EditDesk desk("12.22, <TODAY>,1,yearly\r\n01.01,X<TODAY> sale,1,yearly\r\n");
  desk.Open();
  EXPECT_THAT(desk.session().EditorLineMap(), ElementsAre(1, 99999, 0));
}

TEST(EditSession, EveryGlyphOfTheDonationButtonComesUp) {
  EditDesk desk;
  EditSession& session = desk.Open();
  std::set<std::string> seen;
  for (int i = 0; i < 1000; ++i) {
    session.Add();
    session.Cancel();
    ASSERT_EQ(session.cmdDonate().caption.size(), 1U);
    ASSERT_TRUE(session.cmdDonate().caption >= "0" && session.cmdDonate().caption <= "=");
    seen.insert(session.cmdDonate().caption);
  }
  EXPECT_EQ(seen.size(), 14U);
}

TEST(EditSession, AMissingFileIsToldOfAndCreated) {
  EditDesk desk;
  desk.files.files.clear();
  desk.Open();
  EXPECT_THAT(
      desk.messages.shown,
      ElementsAre("\"" + kEventsPath + "\" does not exist.\n\n" +
                  "Tidewarden will now start from scratch with a new " + kEventsPath + " file."));
  EXPECT_EQ(desk.file(), "");
  EXPECT_THAT(desk.List(), ElementsAre("12.22  <TODAY>"));
}

TEST(EditSession, ButtonsCarryTheirTexts) {
  EditDesk desk;
  EditSession& session = desk.Open();
  EXPECT_EQ(session.cmdAdd().caption, "&ADD");
  EXPECT_EQ(session.cmdAdd().tooltip, "Add a New Event (Alt + A)");
  EXPECT_EQ(session.cmdEdit().caption, "&EDIT");
  EXPECT_EQ(session.cmdEdit().tooltip, "Edit an Existing Event (Alt + E)");
  EXPECT_EQ(session.cmdClose().caption, "&CLOSE");
  EXPECT_EQ(session.cmdClose().tooltip, "Return to Reminders (Alt + C)");
  EXPECT_EQ(session.cmdHelp().caption, "Help (F1)");
  EXPECT_EQ(session.cmdPrint().tooltip, "Send to Web Browser for Printing (Alt + P)");
  EXPECT_EQ(session.cmdOptions().tooltip, "Options (Alt + O)");
  EXPECT_EQ(session.cmdDonate().tooltip, "Simple $10 Donation (Alt + D)");
  EXPECT_EQ(session.entry().cmdDelete.tooltip, "Delete this Event");
  EXPECT_EQ(kEditorHeader.size(), 109U);
  EXPECT_EQ(kEditorHeader, " Date:   Event:" + std::string(76, ' ') + "Advance:   Occurs:");
}

TEST(EditSession, AnEntryTakesTheButtonsAndTheListAway) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  const auto idle = [&] {
    for (const ButtonState* const button :
         {&session.cmdHelp(), &session.cmdPrint(), &session.cmdOptions(), &session.cmdClose(),
          &session.cmdDonate(), &session.cmdAdd(), &session.cmdEdit()}) {
      if (button->enabled != session.cmdHelp().enabled || button->visible != button->enabled) {
        return std::string("mixed");
      }
    }
    return std::string(session.cmdHelp().enabled && session.isListEnabled() ? "idle" : "entry");
  };
  EXPECT_EQ(idle(), "idle");
  session.RowSelected(3);
  session.Edit();
  EXPECT_EQ(idle(), "entry");
  EXPECT_EQ(session.selectedRow(), -1);
  EXPECT_EQ(session.TakeFocus(), EditorFocus::kEventInput);
  EXPECT_EQ(session.TakeFocus(), EditorFocus::kNone);
  session.RowSelected(1);
  EXPECT_EQ(session.selectedRow(), -1);
  session.EscapeReleased();
  EXPECT_EQ(idle(), "idle");
  EXPECT_EQ(session.selectedRow(), 3);
  EXPECT_EQ(session.TakeFocus(), EditorFocus::kList1);
  session.Add();
  EXPECT_EQ(idle(), "entry");
  session.Cancel();
  EXPECT_EQ(session.selectedRow(), 0);
}

TEST(EditSession, TheDonationButtonNeedsAPage) {
  EditDesk desk;
  EditSession session(EditPorts{desk.settings, desk.files, desk.clock, desk.messages}, {},
                      desk.format, EditorSetup{kEventsPath, test::kRescueFolder, 1, 0, 0});
  static_cast<void>(session.Load({{0, 0, 28800, 16200}}));
  session.Shown();
  EXPECT_FALSE(session.cmdDonate().visible);
  EXPECT_FALSE(session.cmdDonate().enabled);
  EXPECT_TRUE(session.cmdPrint().visible);
  session.Donate();
  session.Print();
}

TEST(EditSession, OptionsSaveThePlaceOfANormalWindowBeforeTheProgramEnds) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  const std::string heightBefore = desk.settings.At("Edit", "Height");
  session.Options(std::nullopt);
  EXPECT_THAT(desk.hooksRun, ElementsAre("options"));
  EXPECT_EQ(desk.settings.At("Edit", "Left"), "-1");
  EXPECT_EQ(desk.settings.At("Edit", "Height"), heightBefore);

  desk.onOptions = [&] { EXPECT_EQ(desk.settings.At("Edit", "Height"), "6000"); };
  session.Options(EditorPlace{300, 450, 6000});
  EXPECT_THAT(desk.hooksRun, ElementsAre("options", "options"));
  EXPECT_EQ(desk.settings.At("Edit", "Left"), "300");
  EXPECT_EQ(desk.settings.At("Edit", "Top"), "450");
}

TEST(EditSession, OptionsDoNotEndTheProgramOverAnEntry) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.Add();
  session.EventInputTyped("Half a title");
  session.Options(EditorPlace{300, 450, 6000});
  session.HiddenOptions(EditorPlace{300, 450, 6000});
  EXPECT_THAT(desk.hooksRun, IsEmpty());
  EXPECT_EQ(desk.settings.At("Edit", "Left"), "-1");
  EXPECT_EQ(session.entry().txtEventInput.text, "Half a title");
}

TEST(EditSession, HiddenButtonsWorkOnlyWhileTheirTwinsDo) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.HiddenPrint();
  session.HiddenOptions(std::nullopt);
  session.HiddenDonate();
  session.HiddenSave();
  EXPECT_THAT(desk.hooksRun, ElementsAre("print", "options", "donate"));
  desk.hooksRun.clear();
  desk.Enter(0, "12.26", "Boxing Day");
  session.HiddenPrint();
  session.HiddenOptions(std::nullopt);
  session.HiddenDonate();
  EXPECT_THAT(desk.hooksRun, IsEmpty());
  session.Help();
  EXPECT_THAT(desk.hooksRun, ElementsAre("help"));
  session.HiddenSave();
  EXPECT_FALSE(session.isEntryUnderWay());
  EXPECT_THAT(desk.file(), ::testing::HasSubstr("12.26,Boxing Day,7,yearly\r\n"));
}

TEST(EditSession, TodayAndNothingCannotBeEdited) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.RowSelected(2);
  session.RowDoubleClicked();
  EXPECT_THAT(desk.messages.shown, ElementsAre(kNotToday));
  EXPECT_EQ(session.TakeFocus(), EditorFocus::kList1);
  EXPECT_FALSE(session.isEntryUnderWay());
  EXPECT_TRUE(session.RowRightPressed(-1));
  session.PopupEdit();
  session.PopupDelete();
  EXPECT_THAT(desk.messages.shown, ElementsAre(kNotToday, kPick, kPick));
  // Keys need a row.
  session.ListEnterPressed();
  session.ListDeleteReleased();
  EXPECT_EQ(desk.messages.shown.size(), 3U);
  session.PopupCancel();
  EXPECT_EQ(session.selectedRow(), 0);
}

TEST(EditSession, AnEmptyListHasNothingToEdit) {
  EditDesk desk;
  desk.Set("ListTodayWithEvents", "False");
  EditSession& session = desk.Open();
  EXPECT_EQ(session.selectedRow(), -1);
  session.RowDoubleClicked();
  EXPECT_THAT(desk.messages.shown, ElementsAre(kPick));
}

TEST(EditSession, TheFirstRowIsEditedLikeAnyOther) {
  EditDesk desk("01.01,New Year,1,yearly\r\n12.25,Christmas,7,yearly\r\n");
  EditSession& session = desk.Open();
  session.RowDoubleClicked();
  EXPECT_EQ(session.entryMode(), EntryMode::kEdit);
  EXPECT_EQ(session.entry().txtEventInput.text, "New Year");
  EXPECT_EQ(session.SelectedRowText(), session.List1()[0].text);
  session.EventInputTyped("New Year's Day");
  session.Save();
  EXPECT_EQ(desk.file(), "01.01,New Year's Day,1,yearly\r\n12.25,Christmas,7,yearly\r\n");
}

TEST(EditSession, TheRowsKeysAndMenuReachEditAndDelete) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.RowSelected(4);
  session.ListEnterPressed();
  EXPECT_EQ(session.entry().txtEventInput.text, "Christmas Day");
  EXPECT_FALSE(session.RowRightPressed(0)) << "a disabled list has no menu";
  session.Cancel();
  EXPECT_TRUE(session.RowRightPressed(3));
  session.PopupEdit();
  EXPECT_EQ(session.entry().txtEventInput.text, "Eve");
  session.Cancel();
  desk.messages.answer = MessageAnswer::kNo;
  session.RowSelected(3);
  session.ListDeleteReleased();
  EXPECT_THAT(desk.messages.shown,
              ElementsAre("Are you sure you want to delete the event \"Eve\"???"));
}

TEST(EditSession, ARequestedEventIsOpenedAtOnce) {
  EditDesk desk(kFamily);
  desk.session().Request(2, "12.25,Christmas Day,7,yearly", false);
  EditSession& session = desk.Open();
  EXPECT_EQ(session.entryMode(), EntryMode::kEdit);
  EXPECT_EQ(session.entry().txtEventInput.text, "Christmas Day");
  EXPECT_EQ(session.RequestedEditLine(), -1);
}

TEST(EditSession, ARequestFollowsItsLineWhenTheFileHasChanged) {
  struct Case {
    std::string file;
    std::string opened;
  };
  const std::string wanted = "12.25,Christmas Day,7,yearly";
  for (const Case& c : std::vector<Case>{{"01.01,New,1,yearly\n" + wanted + "\n", "Christmas Day"},
                                         {wanted + "\n01.01,New,1,yearly\n", "Christmas Day"},
                                         {wanted + "\n01.01,New,1,yearly\n" + wanted + "\n", ""},
                                         {"01.01,New,1,yearly\n12.26,Other,1,yearly\n", ""}}) {
    EditDesk desk(c.file);
    desk.session().Request(1, wanted, false);
    EditSession& session = desk.Open();
    EXPECT_EQ(session.entry().txtEventInput.text, c.opened) << c.file;
    EXPECT_EQ(session.RequestedEditLine(), c.opened.empty() ? 1 : -1);
  }
}

TEST(EditSession, ARequestWithoutALineTextGoesByTheNumber) {
  EditDesk desk(kFamily);
  desk.session().Request(0, "", false);
  EXPECT_EQ(desk.Open().entry().txtEventInput.text, "Eve");
  EditDesk none(kFamily);
  none.session().Request(1, "", false);
  EXPECT_FALSE(none.Open().isEntryUnderWay()) << "the line is no event";
  EXPECT_EQ(none.session().RequestedEditLine(), 1);
}

TEST(EditSession, ARequestedAddStartsWithTodaysDate) {
  for (const auto& [format, date] : std::vector<std::pair<RegionalDateFormat, std::string>>{
           {test::MonthFirst(), "12.22"}, {DayFirst(), "22.12"}, {YearFirst(), "22.12"}}) {
    EditDesk desk(kFamily);
    desk.format = format;
    desk.session().Request(-1, "", true);
    EditSession& session = desk.Open();
    EXPECT_EQ(session.entryMode(), EntryMode::kAdd);
    EXPECT_EQ(session.entry().txtDateInput.text, date);
    EXPECT_FALSE(session.RequestedAdd());
    session.Cancel();
    session.Add();
    EXPECT_EQ(session.entry().txtDateInput.text, "");
  }
}

TEST(EditSession, ARequestToAnOpenEditorWaitsForNoEntry) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  desk.files.files[kEventsPath] = "12.26,Boxing Day,7,yearly\r\n";
  session.Request(0, "12.26,Boxing Day,7,yearly", false);
  EXPECT_EQ(session.entry().txtEventInput.text, "Boxing Day");
  session.EventInputTyped("Half typed");
  session.Request(-1, "", true);
  EXPECT_EQ(session.entry().txtEventInput.text, "Half typed");
  EXPECT_EQ(session.entryMode(), EntryMode::kEdit);
  EXPECT_FALSE(session.RequestedAdd());
  session.Request(0, "", false);
  EXPECT_EQ(session.RequestedEditLine(), -1);
}

TEST(EditSession, ARequestToAnOpenEditorLeavesTheSelectionUnlessItNamesAnEvent) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.RowSelected(3);
  session.Request(-1, "", false);
  EXPECT_EQ(session.selectedRow(), 3);
  EXPECT_EQ(session.TakeFocus(), EditorFocus::kNone);
  session.Request(99, "12.31,No such event,7,yearly", false);
  EXPECT_EQ(session.selectedRow(), 3);
  EXPECT_FALSE(session.isEntryUnderWay());
  desk.files.files[kEventsPath] = "12.26,Boxing Day,7,yearly\r\n";
  session.Request(-1, "", false);
  EXPECT_EQ(desk.List().size(), 2U) << "the file as it is now";
  EXPECT_EQ(session.selectedRow(), 1) << "the last row, as there is no fourth one any more";
  session.Request(-1, "", true);
  EXPECT_EQ(session.entryMode(), EntryMode::kAdd);
  EXPECT_EQ(session.entry().txtDateInput.text, "12.22");
}

TEST(EditSession, ReloadingReadsTheFileUnlessAnEntryIsUnderWay) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.RowSelected(4);
  desk.files.files[kEventsPath] = "12.26,Boxing Day,7,yearly\r\n";
  const auto version = session.listVersion();
  session.Reload();
  EXPECT_EQ(desk.List().size(), 2U);
  EXPECT_EQ(session.selectedRow(), 1);
  EXPECT_NE(session.listVersion(), version);
  session.Add();
  desk.files.files[kEventsPath] = kFamily;
  session.Reload();
  EXPECT_EQ(desk.List().size(), 2U);
}

TEST(EditSession, ClosingSavesThePlaceAndBringsTheRemindersBack) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  EXPECT_TRUE(session.isLoaded());
  desk.Enter(0, "12.26", "Half typed");
  session.Closed(EditorPlace{300, 450, 6000}, EditorClosing::kReturnToReminders);
  EXPECT_FALSE(session.isLoaded());
  EXPECT_FALSE(session.isEntryUnderWay());
  EXPECT_EQ(desk.settings.At("Edit", "Left"), "300");
  EXPECT_EQ(desk.settings.At("Edit", "Top"), "450");
  EXPECT_EQ(desk.settings.At("Edit", "Height"), "6000");
  EXPECT_THAT(desk.hooksRun, ElementsAre("reminder"));
  EXPECT_EQ(desk.file(), kFamily);
}

TEST(EditSession, ClosingWithTheProgramShowsNoReminders) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.Closed(EditorPlace{300, 450, 6000}, EditorClosing::kProgramEnds);
  EXPECT_THAT(desk.hooksRun, IsEmpty());
  EXPECT_EQ(desk.settings.At("Edit", "Left"), "300");
}

TEST(EditSession, OutsideTheNormalStateNoPlaceIsSavedAndTheEntryStays) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  desk.Enter(0, "12.26", "Half typed");
  session.LeftNormalState();
  EXPECT_THAT(desk.hooksRun, ElementsAre("reminder"));
  EXPECT_EQ(session.entry().txtEventInput.text, "Half typed");
  session.Closed(std::nullopt, EditorClosing::kReturnToReminders);
  EXPECT_EQ(desk.settings.At("Edit", "Left"), "-1");
}

TEST(EditSession, ANewOpeningStartsFromAnEmptyList) {
  EditDesk desk(kFamily);
  EditSession& session = desk.Open();
  session.RowSelected(2);
  session.Closed(std::nullopt, EditorClosing::kReturnToReminders);
  static_cast<void>(session.Load({{0, 0, 28800, 16200}}));
  EXPECT_THAT(desk.List(), IsEmpty());
  EXPECT_EQ(session.selectedRow(), -1);
  session.Shown();
  EXPECT_EQ(desk.List().size(), 5U);
  EXPECT_EQ(session.selectedRow(), 0);
}

TEST(EditSession, TheClockIsReadOncePerSave) {
  class Jumping : public Clock {
   public:
    mutable int readings = 0;
    [[nodiscard]] LocalTime Now() const override {
      return {readings++ == 0 ? On(2014, 12, 31) : On(2015, 1, 1), 23, 59, 59};
    }
  };
  EditDesk desk;
  const Jumping clock;
  EditSession session({desk.settings, desk.files, clock, desk.messages}, {}, desk.format,
                      {kEventsPath, test::kRescueFolder, 1, 0, 0});
  static_cast<void>(session.Load({{0, 0, 28800, 16200}}));
  session.Shown();
  session.Add();
  session.OccursPicked(3);
  session.EventInputTyped("Once");
  session.DateInputTyped("12.31");
  clock.readings = 0;
  session.Save();
  EXPECT_EQ(clock.readings, 1);
  EXPECT_EQ(desk.file(), "12.31,Once,0,one2014\r\n");
}

}  // namespace
}  // namespace tidewarden
