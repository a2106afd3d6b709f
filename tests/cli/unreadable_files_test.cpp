// Things that are no readable events file. Each gives a clear message and stays as it is.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

struct NotAFile {
  std::string name;
  std::string path;
  std::string message;
};

void PrintTo(const NotAFile& notAFile, std::ostream* out) {
  *out << notAFile.name;
}

class UnreadableEvents : public ::testing::TestWithParam<NotAFile> {};

// ASCII text in UTF-16 with its mark.
std::string Utf16(std::string_view text, bool bigEndian) {
  std::string out = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : text) out.append({bigEndian ? '\0' : c, bigEndian ? c : '\0'});
  return out;
}

TEST_P(UnreadableEvents, EndInExitCodeThreeAndStayAsTheyAre) {
  constexpr char kOver[] = "12.21,Gone,7,one2014\r\n12.24,A,7,yearly\r\n";
  Terminal terminal;
  const TemporaryFolder& folder = terminal.folder;
  terminal.WriteSettings();
  folder.MakeFolder("folder");
  ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
  std::filesystem::create_symlink("fifo", folder / "link to fifo");
  std::filesystem::create_symlink("folder", folder / "link to folder");
  std::filesystem::create_symlink("circle", folder / "circle");
  folder.Write("closed.txt", kOver);
  folder.Write("locked/dates.txt", kOver);
  folder.Write("utf16 little.txt", Utf16(kOver, false));
  folder.Write("utf16 big.txt", Utf16(kOver, true));
  folder.Write("utf16 line.txt", Utf16("12.21,Gone,7,one2014", false));
  folder.Write("utf16 blank.txt", Utf16(std::string("\r\n") + kOver, false));
  terminal.BecomeOrdinaryUser();
  folder.SetPermissions("closed.txt", 0);
  folder.SetPermissions("locked", 0);

  const auto before = folder.Look();
  for (const auto& arguments : std::vector<std::vector<std::string>>{
           {"list"}, {"list", "--json"}, {"list", "--update"}, {"check"}, {"check", "--json"}}) {
    SCOPED_TRACE(::testing::PrintToString(arguments));
    std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
    rest.insert(rest.end(), {"--file", GetParam().path});
    const Outcome outcome = terminal.RunOnTheDay(arguments[0], rest);
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, StartsWith("tidewarden-cli: " + GetParam().path + ": "));
    EXPECT_THAT(outcome.err, HasSubstr(GetParam().message));
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1);
  }
  EXPECT_EQ(folder.Look(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, UnreadableEvents,
    ::testing::Values(NotAFile{"Folder", "folder", "folder"},
                      NotAFile{"LinkToFolder", "link to folder", "folder"},
                      NotAFile{"Fifo", "fifo", "not a regular file"},
                      NotAFile{"LinkToFifo", "link to fifo", "not a regular file"},
                      NotAFile{"Null", "/dev/null", "not a regular file"},
                      NotAFile{"Zero", "/dev/zero", "not a regular file"},
                      NotAFile{"Full", "/dev/full", "not a regular file"},
                      NotAFile{"Closed", "closed.txt", "permission denied"},
                      NotAFile{"InALockedFolder", "locked/dates.txt", "permission denied"},
                      NotAFile{"Circle", "circle", "symbolic links"},
                      NotAFile{"Utf16LittleEndian", "utf16 little.txt", "UTF-16"},
                      NotAFile{"Utf16BigEndian", "utf16 big.txt", "UTF-16"},
                      NotAFile{"Utf16WithoutLineEnd", "utf16 line.txt", "UTF-16"},
                      NotAFile{"Utf16AfterABlankLine", "utf16 blank.txt", "UTF-16"}),
    [](const auto& suite) { return suite.param.name; });

}  // namespace
}  // namespace tidewarden::test
