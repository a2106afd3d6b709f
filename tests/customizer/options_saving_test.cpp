// Saving: everything or nothing, and only what the user has changed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/ini_settings_store.h"
#include "core/settings_keys.h"
#ifndef _WIN32
#include "platform/posix/xdg_autostart.h"
#endif
#include "tests/customizer/options_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(OptionsSaving, NothingIsStoredBeforeIt) {
  OptionsDesk desk;
  desk.Tick("UseSkin", false);
  desk.Type("FontSize", "14");
  desk.session().SetStartsWithComputer(true);
  static_cast<void>(desk.session().preview());
  static_cast<void>(desk.session().skin());
  desk.session().PlaySound();
  EXPECT_TRUE(desk.session().hasChanges());
  EXPECT_EQ(desk.settings.writes, 0);
  EXPECT_EQ(desk.settings.entries.size(), 1U) << "the path that the desk has set";
  EXPECT_EQ(desk.autostart.changes, 0);
}

TEST(OptionsSaving, OnlyWhatHasBeenChangedIsWritten) {
  OptionsDesk desk;
  desk.Set("Settings", "FontSize", "10");
  desk.Tick("UseSkin", false);
  // The reminder program runs beside and stores another size.
  static_cast<void>(desk.session().preview());
  desk.Set("Settings", "FontSize", "18");
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_EQ(desk.settings.writes, 2) << "the option and the word for the reminder program";
  EXPECT_EQ(desk.settings.At("Options", "UseSkin"), "False");
  EXPECT_EQ(desk.settings.At("Settings", "FontSize"), "18");
  EXPECT_EQ(desk.Text("FontSize"), "18") << "and is shown from now on";
  EXPECT_FALSE(desk.session().hasChanges());
}

TEST(OptionsSaving, WhatIsChangedBackIsNotWritten) {
  OptionsDesk desk;
  desk.Set("Options", "UseSkin", "True");
  desk.Tick("UseSkin", false);
  desk.Tick("UseSkin", true);
  desk.session().SetStartsWithComputer(true);
  desk.session().SetStartsWithComputer(false);
  EXPECT_FALSE(desk.session().hasChanges());
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_EQ(desk.settings.writes, 0);
  EXPECT_EQ(desk.settings.At("Customizer", "JustExited"), "(missing)");
}

TEST(OptionsSaving, OneWrongValueKeepsAllOthersOut) {
  OptionsDesk desk;
  desk.Tick("UseSkin", false);
  desk.session().SetStartsWithComputer(true);
  desk.Type("AlarmPath", "/home/ann/none.wav");
  desk.Type("LevelsOfBackup", "12");
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kRefused);
  EXPECT_EQ(desk.settings.writes, 0);
  EXPECT_EQ(desk.autostart.changes, 0);
  EXPECT_EQ(desk.session().firstRefused(), IndexOfOption("AlarmPath")) << "in their order";
  EXPECT_TRUE(desk.Note("AlarmPath").refuses);
  EXPECT_TRUE(desk.Note("LevelsOfBackup").refuses);
  EXPECT_THAT(desk.messages.shown, IsEmpty()) << "it is told beside the fields";

  desk.Type("AlarmPath", kSoundPath);
  desk.Type("LevelsOfBackup", "2");
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_EQ(desk.settings.At("Options", "LevelsOfBackup"), "2");
  EXPECT_EQ(desk.settings.At("Options", "UseSkin"), "False");
  EXPECT_TRUE(desk.autostart.on);
}

// Takes a number of writes and then no more.
class FillingStore : public MemorySettingsStore {
 public:
  int room = 1000;
  Status Write(std::string_view section, std::string_view name, std::string_view value) override {
    if (room == 0) return Status(StatusKind::kNoSpace);
    --room;
    return MemorySettingsStore::Write(section, name, value);
  }
};

TEST(OptionsSaving, AFailureLeavesNothingHalfAndIsTold) {
  for (int room = 0; room < 3; ++room) {
    SCOPED_TRACE(room);
    OptionsDesk desk;
    FillingStore store;
    static_cast<void>(store.Write("Options", "UseSkin", "True").ok());
    CustomizerPorts ports{store,      desk.files,    desk.examples,  desk.clock,    desk.formats,
                          desk.sound, desk.messages, desk.autostart, desk.reminder, desk.folders};
    OptionsSession session(ports);
    session.SetOn(IndexOfOption("UseSkin"), false);
    session.SetText(IndexOfOption("FontSize"), "14");
    session.SetText(IndexOfOption("LevelsOfBackup"), "3");
    session.SetStartsWithComputer(true);
    store.room = room;
    EXPECT_EQ(session.Save(), SaveOutcome::kFailed);
    store.room = 1000;
    EXPECT_THAT(desk.messages.shown, ElementsAre("Nothing has been saved: the disk is full."));
    EXPECT_EQ(store.At("Settings", "FontSize"), "(missing)");
    EXPECT_EQ(store.At("Options", "LevelsOfBackup"), "(missing)");
    EXPECT_EQ(desk.autostart.changes, 0);
    EXPECT_EQ(store.At("Customizer", "JustExited"), "(missing)");
    EXPECT_TRUE(session.hasChanges()) << "what the user has chosen is kept";
    // A disk with room again.
    EXPECT_EQ(session.Save(), SaveOutcome::kSaved);
    EXPECT_EQ(store.At("Settings", "FontSize"), "14");
    EXPECT_TRUE(desk.autostart.on);
  }
}

TEST(OptionsSaving, AnEntryThatCannotBeMadeIsToldAndLeavesTheSettingsSaved) {
  OptionsDesk desk;
  desk.Tick("UseSkin", false);
  desk.session().SetStartsWithComputer(true);
  desk.autostart.failure = StatusKind::kNoPermission;
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kFailed);
  EXPECT_THAT(desk.messages.shown,
              ElementsAre("The start with the computer cannot be changed: permission denied.\n\n"
                          "Everything else has been saved."));
  EXPECT_EQ(desk.settings.At("Options", "UseSkin"), "False");
  EXPECT_EQ(desk.settings.At("Customizer", "JustExited"), "saved");
  EXPECT_TRUE(desk.session().startsWithComputer()) << "what the user has chosen is kept";
  EXPECT_TRUE(desk.session().hasChanges());
  desk.autostart.failure = StatusKind::kOk;
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_TRUE(desk.autostart.on);
}

#ifndef _WIN32
// Nothing could bring back what an entry has said besides.
TEST(OptionsSaving, AFailureLeavesTheEntryOfTheDesktopByteForByte) {
  const std::string path = "/home/ann/.config/autostart/tidewarden.desktop";
  const std::string on =
      "# mine\n[Desktop Entry]\nType=Application\nName=Dates\nName[de]=Tage\n"
      "Exec=/opt/tidewarden/tidewarden --file /d.txt\nX-Delay=20\n";
  for (const std::string& entry : {on, on + "Hidden=true\n"}) {
    OptionsDesk desk;
    desk.files.files[path] = entry;
    XdgAutostart autostart(desk.files, "/home/ann/.config", kProgram + "/tidewarden");
    FillingStore store;
    store.room = 0;
    CustomizerPorts ports{store,      desk.files,    desk.examples, desk.clock,    desk.formats,
                          desk.sound, desk.messages, autostart,     desk.reminder, desk.folders};
    OptionsSession session(ports);
    EXPECT_EQ(session.startsWithComputer(), entry == on);
    session.SetStartsWithComputer(entry != on);
    session.SetOn(IndexOfOption("UseSkin"), false);
    EXPECT_EQ(session.Save(), SaveOutcome::kFailed);
    EXPECT_EQ(desk.files.files[path], entry);
    store.room = 1000;
    EXPECT_EQ(session.Save(), SaveOutcome::kSaved);
    EXPECT_EQ(autostart.IsOn(), entry != on);
  }
}
#endif

// In a file all changes are one replacement.
TEST(OptionsSaving, TheSettingsFileIsReplacedOnce) {
  OptionsDesk desk;
  desk.files.files["/s.ini"] = "; mine\n[Options]\nUseSkin=True\nStrange=1\n";
  IniSettingsStore store(desk.files, "/s.ini");
  CustomizerPorts ports{store,      desk.files,    desk.examples,  desk.clock,    desk.formats,
                        desk.sound, desk.messages, desk.autostart, desk.reminder, desk.folders};
  OptionsSession session(ports);
  session.SetOn(IndexOfOption("UseSkin"), false);
  session.SetText(IndexOfOption("FontSize"), "14");
  session.SetText(IndexOfOption("TitlebarText"), "My days");
  EXPECT_EQ(session.Save(), SaveOutcome::kSaved);
  EXPECT_EQ(desk.files.CountCalls("commit"), 1);
  EXPECT_EQ(desk.files.files["/s.ini"],
            "; mine\n[Options]\nUseSkin=False\nStrange=1\nTitlebarText=My days\n"
            "[Settings]\nFontSize=14\n[Customizer]\nJustExited=saved\n");
}

TEST(OptionsSaving, ColoursOfAnOlderSettingAreShownAndGiveWay) {
  OptionsDesk desk;
  desk.Set("Options", "ReminderListBackColor", "Green");
  desk.Set("Options", "ReminderListColors", "violet");
  EXPECT_EQ(desk.Text("ReminderListColors"), "pale green") << "as the reminder would read it";
  EXPECT_EQ(desk.settings.At("Options", "ReminderListBackColor"), "Green") << "and not yet mended";
  desk.Type("ReminderListColors", "blue");
  EXPECT_EQ(desk.session().preview().colours, ColoursOf("blue"));
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  SplitMixNumbers random;
  EXPECT_EQ(ApplyListColors(desk.settings, random, desk.clock.now), ColoursOf("blue"));
}

TEST(OptionsSaving, OwnColoursBeginWithTheOnesThatAreShown) {
  OptionsDesk desk;
  EXPECT_EQ(desk.session().OwnColours(), ListColours());
  desk.session().UseOwnColours();
  EXPECT_EQ(desk.Text("ReminderListColors"), "000000,99FF99");
  desk.session().SetOwnColours({255, 0, 16}, {1, 2, 3});
  EXPECT_EQ(desk.Text("ReminderListColors"), "FF0010,010203");
  EXPECT_EQ(desk.session().OwnColours(), (ListColours{Colour{255, 0, 16}, Colour{1, 2, 3}}));
  desk.Type("ReminderListColors", "system");
  EXPECT_EQ(desk.session().OwnColours(), ListColours());
  desk.session().UseOwnColours();
  EXPECT_EQ(desk.Text("ReminderListColors"), "000000,FFFFFF");
}

TEST(OptionsAutostart, IsReadFromItsPlaceEachTime) {
  OptionsDesk desk;
  EXPECT_FALSE(desk.session().startsWithComputer());
  desk.autostart.on = true;  // by somebody else
  desk.session().LookAtAutostart();
  EXPECT_TRUE(desk.session().startsWithComputer());
  EXPECT_FALSE(desk.session().hasChanges());
  desk.session().SetStartsWithComputer(false);
  desk.session().LookAtAutostart();
  EXPECT_FALSE(desk.session().startsWithComputer()) << "the user's choice stays";
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_FALSE(desk.autostart.on);
}

}  // namespace
}  // namespace tidewarden::test
