// Writing the page and asking for it to be shown.
#include "editor/page_printer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dates/regional_text.h"
#include "editor/print_page.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_shell.h"
#include "tests/editor/edit_desk.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kPage = "/shared/print.htm";
const std::string kUnfinished = kPage + ".unfinished";
const std::string kOwnPage = "/own/print.htm";

class Printing : public ::testing::Test {
 protected:
  MemorySettingsStore settings_;
  MemoryFileSystem files_;
  PatternRegionalFormats names_{"MM/dd/yyyy"};
  MemoryMessageBox messages_;
  MemoryShell shell_;
  PageFolders folders_{"/shared", "/own", PathStyle::kPosix};
  std::vector<EventRow> rows_ = OneRow();

  void Print() {
    PrintEvents({settings_, files_, names_, messages_, shell_}, rows_, MonthFirst(), folders_);
  }

  static std::vector<EventRow> OneRow() {
    EventRow row;
    row.text = RowText("12.25", "Christmas Day", "7 days", "yearly");
    return {row};
  }

  [[nodiscard]] std::string Expected() const {
    return PrintPage(rows_, MonthFirst(), names_, PageOptions());
  }

  static ShellRequest Opened(const std::string& path, const std::string& folder = "/") {
    return {ShellTarget::kDocument, path, "", folder, 1};
  }
};

TEST_F(Printing, WritesThePageAndOpensIt) {
  Print();
  EXPECT_EQ(files_.files.at(kPage), Expected());
  EXPECT_EQ(files_.files.size(), 1U);
  EXPECT_THAT(shell_.requests, ElementsAre(Opened(kPage)));
  EXPECT_THAT(messages_.shown, IsEmpty());
}

TEST_F(Printing, UsesTheFormOfPathsOfTheSystem) {
  folders_ = {"C:\\ProgramData", "C:\\Users\\Ann\\Tideward", PathStyle::kWindows};
  Print();
  EXPECT_EQ(files_.files.count("C:\\ProgramData\\print.htm"), 1U);
  EXPECT_THAT(shell_.requests, ElementsAre(Opened("C:\\ProgramData\\print.htm", "C:\\")));
}

TEST_F(Printing, GivesThePageItsNameOnlyWhenItIsComplete) {
  files_.files[kPage] = "an older page";
  Print();
  EXPECT_THAT(files_.calls,
              ElementsAre("remove " + kUnfinished, "create " + kUnfinished, "stage " + kUnfinished,
                          "commit " + kUnfinished, "rename " + kUnfinished + " " + kPage));
  EXPECT_EQ(files_.files.at(kPage), Expected());
}

TEST_F(Printing, ReadsTheSettingsEachTime) {
  Print();
  ASSERT_TRUE(settings_.Write("Printing", "ShowTableBorder", "True").ok());
  Print();
  EXPECT_THAT(files_.files.at(kPage), HasSubstr("border=\"1\""));
  EXPECT_EQ(shell_.requests.size(), 2U);
}

TEST_F(Printing, GoesToTheUsersOwnFolderWhereTheOtherOneRefuses) {
  files_.files[kPage] = "somebody else's page";
  files_.renameFailures[kUnfinished] = StatusKind::kNoPermission;
  Print();
  EXPECT_EQ(files_.files.at(kPage), "somebody else's page");
  EXPECT_EQ(files_.files.count(kUnfinished), 0U);
  EXPECT_EQ(files_.files.at(kOwnPage), Expected());
  EXPECT_THAT(shell_.requests, ElementsAre(Opened(kOwnPage)));
  EXPECT_THAT(messages_.shown, IsEmpty());
}

TEST_F(Printing, TellsWhyThereIsNoPageAndOpensNone) {
  folders_.ownData = folders_.common;
  files_.files[kPage] = "an older page";
  files_.failures[kUnfinished] = StatusKind::kNoSpace;
  Print();
  EXPECT_THAT(messages_.shown,
              ElementsAre("Tidewarden could not write the page:\n" + kPage + "\nthe disk is full"));
  EXPECT_EQ(messages_.boxes.front().buttons, MessageButtons::kOk);
  EXPECT_EQ(messages_.boxes.front().icon, MessageIcon::kNone);
  EXPECT_THAT(shell_.requests, IsEmpty());
  EXPECT_EQ(files_.files.at(kPage), "an older page");
}

TEST_F(Printing, TellsOfTheLastFolderWhenBothRefuse) {
  files_.writeFailures[kUnfinished] = StatusKind::kReadOnly;
  files_.commitFailures[kOwnPage + ".unfinished"] = StatusKind::kNoPermission;
  Print();
  EXPECT_THAT(messages_.shown, ElementsAre("Tidewarden could not write the page:\n" + kOwnPage +
                                           "\npermission denied"));
  EXPECT_THAT(shell_.requests, IsEmpty());
}

TEST(EditorPrinting, HandsOverTheRowsAsTheyAreListedAndLeavesTheEventsAlone) {
  const std::string events = "12.25,Christmas Day,7,yearly\r\n_estr,Easter Sunday,14,yearly\r\n";
  EditDesk desk(events);
  desk.Open().Print();
  std::vector<std::string> texts;
  for (const EventRow& row : desk.printed) texts.push_back(row.text);
  EXPECT_EQ(texts, desk.List());
  EXPECT_EQ(texts.size(), 3U);
  EXPECT_EQ(desk.file(), events);
}

}  // namespace
}  // namespace tidewarden::test
