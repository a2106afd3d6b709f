// The entry that starts the reminder program at login, on a real disk.
#include "platform/posix/xdg_autostart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/posix/posix_file_system.h"
#include "platform/system.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden {
namespace {

using test::InUnprivilegedChild;
using test::ScopedVariable;
using test::TemporaryFolder;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr char kEntry[] = "autostart/tidewarden.desktop";
constexpr char kProgram[] = "/opt/tidewarden/tidewarden";

struct ExecCase {
  std::string argument;
  std::string text;  // quoted as an Exec line wants it, then escaped like any text
};

const std::vector<ExecCase>& ExecCases() {
  static const std::vector<ExecCase> cases{
      {"/usr/bin/tidewarden", "/usr/bin/tidewarden"},
      {"/home/ann/my programs/tidewarden", R"("/home/ann/my programs/tidewarden")"},
      {"/a\"b/t", R"("/a\\"b/t")"},
      {"/a$b/t", R"("/a\\$b/t")"},
      {"/a`b/t", R"("/a\\`b/t")"},
      {R"(/a\b/t)", R"("/a\\\\b/t")"},
      {"/100%/t", "/100%%/t"},
      {"/50% off/t", R"("/50%% off/t")"},
      {"/it's/t", R"("/it's/t")"},
      {"/a;b&c/t", R"("/a;b&c/t")"},
      {"/Käse/t", "/Käse/t"},
      {"/a\nb/t", R"("/a\nb/t")"},
      {"/a\tb/t", R"("/a\tb/t")"},
  };
  return cases;
}

TEST(DesktopEntry, APathIsQuotedAsAnExecLineNeedsIt) {
  for (const ExecCase& c : ExecCases()) {
    EXPECT_EQ(desktop_entry::ExecArgument(c.argument), c.text);
    EXPECT_THAT(desktop_entry::ArgumentsOfExec(c.text), ElementsAre(c.argument));
  }
}

TEST(DesktopEntry, AnExecLineIsReadIntoItsArguments) {
  using desktop_entry::ArgumentsOfExec;
  EXPECT_THAT(ArgumentsOfExec("env LANG=C  \"/my path/t\" --x %U"),
              ElementsAre("env", "LANG=C", "/my path/t", "--x", "%U"));
  EXPECT_THAT(ArgumentsOfExec(""), ElementsAre());
  EXPECT_THAT(ArgumentsOfExec("\"open"), ElementsAre("open"));
  EXPECT_THAT(ArgumentsOfExec("\"\" a"), ElementsAre("", "a"));
}

TEST(DesktopEntry, KeysAreThoseOfItsOwnGroup) {
  const std::string text =
      "# comment\n[Desktop Entry]\nName = One\nHidden=true\n\n[Desktop Action x]\nName=Two\n";
  EXPECT_EQ(desktop_entry::ValueOf(text, "Name"), "One");
  EXPECT_EQ(desktop_entry::ValueOf(text, "Hidden"), "true");
  EXPECT_EQ(desktop_entry::ValueOf(text, "Exec"), "");
  EXPECT_EQ(desktop_entry::WithoutKey(text, "Hidden"),
            "# comment\n[Desktop Entry]\nName = One\n\n[Desktop Action x]\nName=Two\n");
  EXPECT_EQ(desktop_entry::WithKey("[Desktop Entry]\nExec=a\nName=b\n", "Exec", "c"),
            "[Desktop Entry]\nExec=c\nName=b\n");
  EXPECT_EQ(desktop_entry::WithKey("[Desktop Entry]", "Exec", "c"), "[Desktop Entry]\nExec=c\n");
  EXPECT_EQ(desktop_entry::WithKey("oops", "Exec", "c"), "oops\n[Desktop Entry]\nExec=c\n");
}

class Autostarts : public ::testing::Test {
 protected:
  PosixFileSystem files_;
  TemporaryFolder folder_;
  XdgAutostart autostart_{files_, folder_.path(), kProgram};
};

TEST_F(Autostarts, IsOffUntilItIsSwitchedOn) {
  EXPECT_FALSE(autostart_.IsOn());
  EXPECT_FALSE(folder_.Exists("autostart")) << "looking makes nothing";
  EXPECT_TRUE(autostart_.Set(true).ok());
  EXPECT_TRUE(autostart_.IsOn());
  EXPECT_EQ(folder_.Read(kEntry),
            "[Desktop Entry]\nExec=/opt/tidewarden/tidewarden\nType=Application\nVersion=1.4\n"
            "Name=Tidewarden\nComment=Shows which of your dates are coming up\nIcon=tidewarden\n"
            "Terminal=false\n");
  EXPECT_TRUE(autostart_.Set(false).ok());
  EXPECT_FALSE(autostart_.IsOn());
  EXPECT_FALSE(folder_.Exists(kEntry));
  EXPECT_THAT(test::NamesIn(folder_ / "autostart"), ElementsAre());
}

TEST_F(Autostarts, AnotherLookSeesWhatOthersHaveDone) {
  ASSERT_TRUE(autostart_.Set(true).ok());
  ASSERT_EQ(::unlink((folder_ / kEntry).c_str()), 0);
  EXPECT_FALSE(autostart_.IsOn());
}

struct EntryCase {
  std::string text;
  bool on;
};

TEST_F(Autostarts, AnEntryThatTheDesktopPassesOverIsOff) {
  const std::string exec = "Exec=/opt/tidewarden/tidewarden\n";
  for (const EntryCase& c : std::vector<EntryCase>{
           {"[Desktop Entry]\n" + exec, true},
           {"[Desktop Entry]\r\nExec=/opt/tidewarden/tidewarden\r\n", true},
           {"[Desktop Entry]\n" + exec + "Hidden=false\nX-GNOME-Autostart-enabled=true\n", true},
           {"[Desktop Entry]\n" + exec + "Hidden=true\n", false},
           {"[Desktop Entry]\nX-GNOME-Autostart-enabled=false\n" + exec, false},
           {"[Desktop Entry]\n[Other]\n" + exec, false},
           {"[Desktop Entry]\n" + exec + "[Other]\nHidden=true\n", true},
           {"[Desktop Entry]\nExec=tidewarden\n", true},
           {"[Desktop Entry]\nExec=env LANG=de \"/opt/tidewarden/tidewarden\"\n", true},
           {"[Desktop Entry]\nExec=/elsewhere/tidewarden\n", false},
           {"[Desktop Entry]\nExec=/opt/tidewarden/tidewarden-cli\n", false},
           {"[Desktop Entry]\n", false},
           {"", false}}) {
    folder_.Write(kEntry, c.text);
    EXPECT_EQ(autostart_.IsOn(), c.on) << c.text;
    // Switching it on works from everywhere, and only once.
    EXPECT_TRUE(autostart_.Set(true).ok());
    EXPECT_TRUE(autostart_.IsOn()) << c.text;
    const std::string on = folder_.Read(kEntry);
    if (c.on) {
      EXPECT_EQ(on, c.text) << "an entry that is on is left alone";
    }
    EXPECT_TRUE(autostart_.Set(false).ok());
    EXPECT_FALSE(autostart_.IsOn());
  }
}

TEST_F(Autostarts, WhatElseAnEntrySaysIsKept) {
  folder_.Write(kEntry,
                "# mine\n[Desktop Entry]\nName=Dates\nExec=/old/tidewarden --file x\n"
                "TryExec=/old/tidewarden\nHidden=true\nX-GNOME-Autostart-Delay=20\n[Other]\na=1\n");
  ASSERT_TRUE(autostart_.Set(true).ok());
  EXPECT_EQ(folder_.Read(kEntry),
            "# mine\n[Desktop Entry]\nType=Application\nExec=/opt/tidewarden/tidewarden\n"
            "Name=Dates\nX-GNOME-Autostart-Delay=20\n[Other]\na=1\n");
  folder_.Write(kEntry,
                "[Desktop Entry]\nType=Application\nName=Dates\n"
                "Exec=env LANG=de tidewarden\nHidden=true\n");
  ASSERT_TRUE(autostart_.Set(true).ok());
  EXPECT_THAT(folder_.Read(kEntry), HasSubstr("Exec=env LANG=de tidewarden\n"));
}

TEST_F(Autostarts, AFailureIsToldAndLeavesThingsAsTheyWere) {
  folder_.MakeFolder("autostart");
  const std::string outcome = InUnprivilegedChild(folder_.path(), [this] {
    folder_.SetPermissions("autostart", 0500);
    const Status status = autostart_.Set(true);
    return DescribeStatus(status) + (autostart_.IsOn() ? ", on" : ", off");
  });
  EXPECT_EQ(outcome, "permission denied, off");
  EXPECT_THAT(test::NamesIn(folder_ / "autostart"), ElementsAre());
}

TEST_F(Autostarts, TheSystemsOneLiesInTheUsersConfiguration) {
  const ScopedVariable config("XDG_CONFIG_HOME", folder_.path().c_str());
  const auto autostart = MakeAutostart(files_);
  ASSERT_TRUE(autostart->Set(true).ok());
  EXPECT_THAT(folder_.Read(kEntry), HasSubstr("Exec=" + ReminderProgram() + "\n"));
  EXPECT_TRUE(ReminderProgram().ends_with("/tidewarden"));
  EXPECT_TRUE(ReminderProgram().starts_with(SystemFolders().program + "/"));
}

}  // namespace
}  // namespace tidewarden
