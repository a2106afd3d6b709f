// What the buttons for help, options and the order page ask of the desktop.
#include "editor/launchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_shell.h"

namespace tidewarden {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ProgramFolders Windows(const std::string& program) {
  return {program, "C:\\Users\\Ann\\Tideward", PathStyle::kWindows};
}

ProgramFolders Posix(const std::string& program) {
  return {program, "/home/ann/.local/share/Tideward", PathStyle::kPosix};
}

ShellRequest Started(const std::string& target, const std::string& folder) {
  return {ShellTarget::kProgram, target, "", folder, 1};
}

struct PathCase {
  ProgramFolders folders;
  std::string help;
  std::string options;
};

const std::vector<PathCase>& Paths() {
  static const std::vector<PathCase> paths{
      {Windows("C:\\Tidewarden"), "C:\\Tidewarden\\twdocs.exe", "C:\\Tidewarden\\custom~1.exe"},
      {Windows("C:\\"), "C:\\twdocs.exe", "C:\\\\custom~1.exe"},
      // A network folder loses a backslash for the help program, and for it alone.
      {Windows("\\\\server\\share"), "\\server\\share\\twdocs.exe",
       "\\\\server\\share\\custom~1.exe"},
      {Windows("C:\\a\\\\\\b"), "C:\\a\\\\b\\twdocs.exe", "C:\\a\\\\\\b\\custom~1.exe"},
      {Posix("/opt/tidewarden"), "/opt/tidewarden/twdocs", "/opt/tidewarden/customizer"},
      {Posix("/"), "/twdocs", "/customizer"},
      {Posix("/opt/b\\\\s"), "/opt/b\\\\s/twdocs", "/opt/b\\\\s/customizer"},
  };
  return paths;
}

TEST(Launchers, HelpIsOneRequestForTheProgramBesideThisOne) {
  for (const PathCase& c : Paths()) {
    MemoryShell shell;
    StartHelp(shell, c.folders);
    const std::string folder = c.folders.style == PathStyle::kWindows ? "C:\\" : "/";
    EXPECT_THAT(shell.requests, ElementsAre(Started(c.help, folder)));
  }
}

TEST(Launchers, OptionsAreStartedThenAllIsReleasedThenTheProgramEnds) {
  for (const PathCase& c : Paths()) {
    MemoryFileSystem files;
    files.files[c.options] = "";
    MemoryShell shell;
    MemoryProgramEnd end;
    std::vector<std::string> order;
    end.ending = [&] { order.push_back("end after " + std::to_string(shell.requests.size())); };
    const auto release = [&] {
      order.push_back("release after " + std::to_string(shell.requests.size()));
    };
    ChangeToOptions({files, shell, end, release}, c.folders);
    const std::string folder = c.folders.style == PathStyle::kWindows ? "C:\\" : "/";
    EXPECT_THAT(shell.requests, ElementsAre(Started(c.options, folder)));
    EXPECT_THAT(order, ElementsAre("release after 1", "end after 1"));
    EXPECT_EQ(end.exitCode, 0);
  }
}

TEST(Launchers, WithoutAShortNameTheOptionsProgramIsStartedByItsLongOne) {
  MemoryFileSystem files;
  EXPECT_EQ(OptionsProgram(files, Windows("D:\\Tw")), "D:\\Tw\\customizer.exe");
  files.files["D:\\Tw\\custom~1.exe"] = "";
  EXPECT_EQ(OptionsProgram(files, Windows("D:\\Tw")), "D:\\Tw\\custom~1.exe");
  // What cannot be looked at may be there.
  files.failures["D:\\Tw\\custom~1.exe"] = StatusKind::kNoPermission;
  EXPECT_EQ(OptionsProgram(files, Windows("D:\\Tw")), "D:\\Tw\\custom~1.exe");
}

TEST(Launchers, OptionsEndTheProgramAlsoWhenThereIsNothingToStartOrRelease) {
  MemoryFileSystem files;
  MemoryShell shell;
  MemoryProgramEnd end;
  ChangeToOptions({files, shell, end, {}}, Posix("/opt/tidewarden"));
  EXPECT_EQ(end.exitCode, 0);
}

TEST(Launchers, TheOrderPageIsOpenedAsAWebPage) {
  MemoryShell shell;
  OpenOrderPage(shell, "https://example.org/order?a=1&b=2", PathStyle::kWindows);
  OpenOrderPage(shell, "https://example.org", PathStyle::kPosix);
  EXPECT_THAT(shell.requests,
              ElementsAre(ShellRequest{ShellTarget::kWebPage, "https://example.org/order?a=1&b=2",
                                       "", "C:\\", 1},
                          ShellRequest{ShellTarget::kWebPage, "https://example.org", "", "/", 1}));
}

TEST(Launchers, OnlyASecureAddressIsAnOrderPage) {
  MemoryShell shell;
  for (const std::string address :
       {"", "https://", "http://example.org", "HTTPS://example.org", "file:///etc/passwd",
        "https://a b", "https://a\nb", "/opt/page.htm", "example.org", " https://example.org"}) {
    EXPECT_FALSE(IsOrderPage(address)) << address;
    OpenOrderPage(shell, address, PathStyle::kPosix);
  }
  EXPECT_THAT(shell.requests, IsEmpty());
  EXPECT_TRUE(IsOrderPage("https://example.org/#x"));
}

}  // namespace
}  // namespace tidewarden
