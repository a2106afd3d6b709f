// Closing, the word that is left for the reminder program, the way back to it, and the sound.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/memory/memory_notification_area.h"
#include "platform/memory/memory_reminder.h"
#include "reminder/reminder_session.h"
#include "tests/customizer/options_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

std::string Word(OptionsDesk& desk) {
  return desk.settings.At("Customizer", "JustExited");
}

// Starts the reminder program on the same settings, while another copy runs or not; what it says.
std::vector<std::string> StartReminder(OptionsDesk& desk, bool anotherRuns) {
  MemoryMessageBox messages;
  MemoryShiftKey shiftKey;
  MemoryPreviousInstance instance;
  instance.anotherRuns = anotherRuns;
  MemoryNotificationArea area;
  MemoryRandomNumbers random;
  MemoryEditorWindow editor;
  AlarmSession alarms({desk.settings, desk.files, desk.sound, messages}, desk.folders);
  ReminderSession session({desk.settings, desk.files, desk.clock, messages, shiftKey, desk.formats,
                           instance, area, random, editor, alarms, desk.folders});
  const WindowChange change =
      session.Load({{0, 0, 28800, 16200}, {{0, 0, 28800, 16200}}, true}, kEventsPath);
  EXPECT_EQ(change == WindowChange::kEnd, anotherRuns);
  return messages.shown;
}

TEST(OptionsClosing, AfterSavingTheReminderAsksToBeStartedAnewOnce) {
  OptionsDesk desk;
  desk.Tick("UseSkin", false);
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
  EXPECT_EQ(Word(desk), "true");
  EXPECT_THAT(
      StartReminder(desk, true),
      ElementsAre("Please close and then restart the Tidewarden for your changes to take effect."));
  EXPECT_EQ(Word(desk), "(missing)");
  EXPECT_THAT(StartReminder(desk, true), ElementsAre("The Tidewarden is already running."));
}

// The copy that runs at the end has read what was saved before it started.
TEST(OptionsClosing, AReminderThatStartedAfterTheSaveIsLeftInPeace) {
  for (const bool ranAtTheSave : {false, true}) {
    OptionsDesk desk;
    desk.reminder.anotherRuns = ranAtTheSave;
    desk.Tick("UseSkin", false);
    EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
    EXPECT_THAT(StartReminder(desk, false), IsEmpty());
    desk.reminder.anotherRuns = true;
    EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved) << "nothing to save";
    EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
    EXPECT_EQ(Word(desk), "(missing)");
    EXPECT_THAT(StartReminder(desk, true), ElementsAre("The Tidewarden is already running."));
  }
}

TEST(OptionsClosing, AReminderThatStartedBetweenTwoSavesHearsOfTheSecond) {
  OptionsDesk desk;
  desk.Tick("UseSkin", false);
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_THAT(StartReminder(desk, false), IsEmpty());
  desk.reminder.anotherRuns = true;
  desk.Tick("FontBold", true);
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
  EXPECT_EQ(Word(desk), "true");
}

// The hint to restart comes when the options have been closed, not before.
TEST(OptionsClosing, WhileTheOptionsAreOpenASecondStartIsASecondStart) {
  OptionsDesk desk;
  desk.reminder.anotherRuns = true;
  desk.Tick("UseSkin", false);
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  for (int start = 0; start < 2; ++start) {
    EXPECT_THAT(StartReminder(desk, true), ElementsAre("The Tidewarden is already running."));
  }
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
  EXPECT_EQ(Word(desk), "true");
}

TEST(OptionsClosing, WhatWasSavedBeforeTheOptionsWereKilledIsStillNews) {
  OptionsDesk desk;
  desk.reminder.anotherRuns = true;
  desk.Tick("UseSkin", false);
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  desk.Reopen();
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
  EXPECT_EQ(Word(desk), "true");
}

TEST(OptionsClosing, WithoutAChangeTheReminderThatRunsIsLeftInPeace) {
  for (const char* const heard : {"", "false", "perhaps"}) {
    OptionsDesk desk;
    if (*heard != '\0') desk.Set("Customizer", "JustExited", heard);
    desk.reminder.anotherRuns = true;
    EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
    EXPECT_EQ(Word(desk), "(missing)") << heard;
    for (int start = 0; start < 2; ++start) {
      EXPECT_THAT(StartReminder(desk, true), ElementsAre("The Tidewarden is already running."));
    }
    EXPECT_EQ(desk.reminder.claims, 0);
  }
}

TEST(OptionsClosing, WithoutAChangeAndWithoutAReminderTheWordIsFalse) {
  OptionsDesk desk;
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
  EXPECT_EQ(Word(desk), "false");
  EXPECT_EQ(desk.reminder.claims, 0) << "a start at the same moment must not be refused";
}

TEST(OptionsClosing, AReminderThatRunsHearsOfWhatWasSaved) {
  OptionsDesk desk;
  desk.reminder.anotherRuns = true;
  desk.Tick("UseSkin", false);
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
  EXPECT_EQ(Word(desk), "true");
}

TEST(OptionsClosing, TheOnlyCopyStartsWithoutAWordAndForgetsIt) {
  for (const bool saves : {false, true}) {
    OptionsDesk desk;
    desk.Tick("UseSkin", !saves);
    EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
    EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
    EXPECT_THAT(StartReminder(desk, false), IsEmpty());
    EXPECT_EQ(Word(desk), "(missing)");
  }
}

TEST(OptionsClosing, WordThatNobodyHasHeardYetStillHolds) {
  OptionsDesk desk;
  desk.Set("Customizer", "JustExited", "True");
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
  EXPECT_EQ(Word(desk), "true");
}

TEST(OptionsClosing, AFurtherSaveDoesNotTakeItBack) {
  OptionsDesk desk;
  desk.Set("Customizer", "JustExited", "True");
  desk.reminder.anotherRuns = true;
  desk.Tick("UseSkin", false);
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_THAT(
      StartReminder(desk, true),
      ElementsAre("Please close and then restart the Tidewarden for your changes to take effect."));
}

TEST(OptionsClosing, TheEntryOfTheDesktopIsNoReasonToRestart) {
  OptionsDesk desk;
  desk.session().SetStartsWithComputer(true);
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
  EXPECT_EQ(Word(desk), "false");
}

TEST(OptionsClosing, ByHandAsksAboutChangesThatWouldBeLost) {
  const std::string question = "Your changes have not been saved.\n\nClose without saving?";
  OptionsDesk desk;
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kByHand)) << "nothing to ask about";
  EXPECT_THAT(desk.messages.shown, IsEmpty());
  desk.Type("FontSize", "14");
  desk.messages.answer = MessageAnswer::kNo;
  EXPECT_FALSE(desk.session().Close(OptionsClosing::kByHand));
  EXPECT_THAT(desk.messages.shown, ElementsAre(question));
  EXPECT_EQ(desk.messages.boxes.front().buttons, MessageButtons::kYesNo);
  desk.messages.answer = MessageAnswer::kYes;
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kByHand));
  EXPECT_EQ(desk.settings.At("Settings", "FontSize"), "(missing)");
}

TEST(OptionsClosing, CancelAndALogoutAskNothingAndChangeNothing) {
  for (const OptionsClosing why : {OptionsClosing::kDone, OptionsClosing::kLoginSessionEnds}) {
    OptionsDesk desk;
    desk.Type("FontSize", "14");
    EXPECT_TRUE(desk.session().Close(why));
    EXPECT_THAT(desk.messages.shown, IsEmpty());
    EXPECT_EQ(desk.settings.At("Settings", "FontSize"), "(missing)");
    EXPECT_EQ(desk.settings.writes, 1) << "the word";
  }
}

TEST(OptionsReturn, SavesLeavesWordAndStartsTheReminder) {
  OptionsDesk desk;
  desk.Type("FontSize", "14");
  std::string wordAtStart;
  desk.session().StartReminder = [&] {
    wordAtStart = Word(desk);
    return true;
  };
  EXPECT_TRUE(desk.session().ReturnToReminder());
  EXPECT_EQ(wordAtStart, "true");
  EXPECT_EQ(desk.settings.At("Settings", "FontSize"), "14");
}

TEST(OptionsReturn, AReminderThatRunsAlreadyIsPointedOut) {
  OptionsDesk desk;
  desk.reminder.anotherRuns = true;
  int starts = 0;
  desk.session().StartReminder = [&] { return ++starts > 0; };
  EXPECT_TRUE(desk.session().ReturnToReminder());
  EXPECT_EQ(starts, 0);
  EXPECT_THAT(desk.messages.shown, ElementsAre(StartsWith("Tidewarden is running already.")));
  EXPECT_EQ(Word(desk), "(missing)");
}

TEST(OptionsReturn, AReminderThatRunsIsToldOfAChangeByASecondStart) {
  OptionsDesk desk;
  desk.reminder.anotherRuns = true;
  desk.Tick("UseSkin", false);
  std::string wordAtStart;
  desk.session().StartReminder = [&] {
    wordAtStart = Word(desk);
    return true;
  };
  EXPECT_TRUE(desk.session().ReturnToReminder());
  EXPECT_EQ(wordAtStart, "true");
  EXPECT_THAT(desk.messages.shown, IsEmpty());
}

TEST(OptionsReturn, AWrongValueKeepsTheUserHere) {
  OptionsDesk desk;
  desk.Type("FontSize", "1400");
  int starts = 0;
  desk.session().StartReminder = [&] { return ++starts > 0; };
  EXPECT_FALSE(desk.session().ReturnToReminder());
  EXPECT_EQ(starts, 0);
  EXPECT_EQ(Word(desk), "(missing)");
}

TEST(OptionsReturn, AReminderThatDoesNotStartIsTold) {
  OptionsDesk desk;
  desk.session().StartReminder = [] { return false; };
  EXPECT_FALSE(desk.session().ReturnToReminder());
  EXPECT_THAT(desk.messages.shown, ElementsAre("The reminder program could not be started."));
}

TEST(OptionsSound, IsTheOneThatIsTyped) {
  OptionsDesk desk;
  desk.files.files["/home/ann/Bell.ogg"] = "OggS";
  desk.session().PlaySound();
  desk.Type("AlarmPath", "/home/ann/Bell.ogg");
  desk.session().PlaySound();
  desk.session().StopSound();
  EXPECT_THAT(desk.sound.calls,
              ElementsAre("wave " + kSoundPath, "media /home/ann/Bell.ogg", "stop"));
  EXPECT_EQ(desk.settings.writes, 0);
}

TEST(OptionsSound, AFileThatIsNotThereBeepsAndIsTold) {
  OptionsDesk desk;
  desk.Type("AlarmPath", "/home/ann/none.wav");
  desk.session().PlaySound();
  EXPECT_THAT(desk.sound.calls, ElementsAre(StartsWith("beep /home/ann/none.wav: ")));
  EXPECT_EQ(desk.Note("AlarmPath").text, "There is no file /home/ann/none.wav.");
}

TEST(OptionsSound, EndsWithTheWindow) {
  OptionsDesk desk;
  desk.session().PlaySound();
  EXPECT_TRUE(desk.session().Close(OptionsClosing::kDone));
  EXPECT_EQ(desk.sound.calls.back(), "stop");
}

}  // namespace
}  // namespace tidewarden::test
