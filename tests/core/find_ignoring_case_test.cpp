#include "core/find_ignoring_case.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/memory/memory_ports.h"

namespace tidewarden {
namespace {

TEST(FindIgnoringCase, FindsFilesByAPathInAnyLetterCase) {
  const struct {
    const char* why;
    std::vector<const char*> files;
    const char* path;
    const char* found;
  } cases[] = {
      {"as it stands", {"/opt/a.txt", "/opt/A.txt"}, "/opt/a.txt", "/opt/a.txt"},
      {"a name in capitals", {"/opt/Quotes/A.txt"}, "/opt/quotes/a.txt", "/opt/Quotes/A.txt"},
      {"every name in capitals", {"/Opt/QUOTES/A.TXT"}, "/opt/quotes/a.txt", "/Opt/QUOTES/A.TXT"},
      {"capitals asked for", {"/opt/quotes/a.txt"}, "/OPT/Quotes/A.TXT", "/opt/quotes/a.txt"},
      {"letters beyond ASCII", {"/opt/Übung/É.txt"}, "/opt/übung/é.txt", "/opt/Übung/É.txt"},
      {"backslashes", {"/opt/Quotes/A.txt"}, "\\opt\\quotes\\a.txt", "/opt/Quotes/A.txt"},
      {"backslashes as it stands", {"/opt/a.txt"}, "/opt\\a.txt", "/opt/a.txt"},
      {"the first in code-point order", {"/B/x", "/b/X", "/b/y"}, "/b/x", "/B/x"},
      {"past a folder without the file", {"/A/other", "/a/X"}, "/a/x", "/a/X"},
      {"doubled separators", {"/Opt/A"}, "/opt//a", "/Opt/A"},
      {"nowhere", {"/opt/b.txt"}, "/opt/a.txt", "/opt/a.txt"},
      {"nowhere, with backslashes", {"/opt/b.txt"}, "\\opt\\a.txt", "/opt/a.txt"},
      {"a name that only begins alike", {"/Opt/ab"}, "/opt/a", "/opt/a"},
      {"empty", {"/opt/a.txt"}, "", ""},
  };
  for (const auto& [why, names, path, found] : cases) {
    MemoryFileSystem files;
    for (const char* const name : names) files.files[name] = "";
    EXPECT_EQ(FindIgnoringCase(files, path, PathStyle::kPosix), found) << why;
  }
}

TEST(FindIgnoringCase, PassesThroughFoldersThatCannotBeListed) {
  MemoryFileSystem files;
  files.files["/home/ann/Quotes/A.txt"] = "";
  files.failures["/home/"] = StatusKind::kNoPermission;
  EXPECT_EQ(FindIgnoringCase(files, "/Home/ann/quotes/a.txt", PathStyle::kPosix),
            "/home/ann/Quotes/A.txt");
  EXPECT_EQ(FindIgnoringCase(files, "/Home/ANN/quotes/a.txt", PathStyle::kPosix),
            "/Home/ANN/quotes/a.txt");
}

TEST(FindIgnoringCase, LeavesAPathThatIsInTheWayAsItStands) {
  MemoryFileSystem files;
  files.files["/opt/A.txt"] = "";
  files.failures["/opt/a.txt"] = StatusKind::kNoPermission;
  EXPECT_EQ(FindIgnoringCase(files, "/opt/a.txt", PathStyle::kPosix), "/opt/a.txt");
}

TEST(FindIgnoringCase, LeavesLetterCaseToWindows) {
  MemoryFileSystem files;
  files.files["C:\\A.txt"] = "";
  EXPECT_EQ(FindIgnoringCase(files, "c:\\a.txt", PathStyle::kWindows), "c:\\a.txt");
  EXPECT_EQ(files.CountCalls("list"), 0);
}

}  // namespace
}  // namespace tidewarden
