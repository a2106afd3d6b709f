// The two changes that building the list makes to the events file: when they fail, when they are
// not made, and what the rows then say.
#include <gmock/gmock.h>

#include "core/line_splitter.h"
#include "reminder/events_cleanup.h"
#include "tests/reminder/builder_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kPastAndTwoMore[] =
    "12.21,Gone,7,one2014\n"
    "12.23,A,7,yearly\n"
    "06.01,Back,7,yearly*\n"
    "12.24,B,7,yearly\n";

TEST(OneTimeCleanUp, KnowsItsLines) {
  const CivilDate today = On(2014, 12, 22);
  const struct {
    std::string line;
    bool isOver;
  } cases[] = {
      {"12.21,X,7,one2014", true},
      {"12.22,X,7,one2014", false},
      {"12.23,X,7,one2014", false},
      {"12.23,X,7,one2013", true},
      {"01.01,X,7,one2015", false},
      {"12.21,X,7,one1999", true},
      {"12.21 anything but an event one2014", true},
      {"12.21one2014", true},
      {"12.21,X,7,ONE2014", false},
      {"12.21,X,7,One2014", false},
      {"12.21,X,7,one2014*", false},
      {"12.21,X,7,one2014 ", false},
      {"12.21,X,7,tdo2014", false},
      {"12.21,X,7,one201x", false},
      {"12.21,X,7,one-201", false},
      {"02.29,X,7,one2014", false},
      {"02.29,X,7,one2012", true},
      {"04.31,X,7,one2014", false},
      {"00.10,X,7,one2014", false},
      {"13.10,X,7,one2014", false},
      {"1a.10,X,7,one2014", false},
      {"xx.10,X,7,one2014", false},
      {"10.xx,X,7,one2014", false},
      {"_estr,X,7,one2014", false},
      {"e+001,X,7,one2014", false},
      {"eastr,X,7,one2014", false},
      {"one2014", false},
      {"e2014", false},
      {"", false},
      {std::string("12.21,\0,7,one2014", 17), true},
      {"12.21,Caf\xE9,7,one2014", true},
      {"12\xE9"
       "21,X,7,one2014",
       true},
  };
  for (const auto& [line, isOver] : cases) {
    SCOPED_TRACE(line);
    EXPECT_EQ(IsOverOneTimeLine(line, today), isOver);
  }
}

TEST(OneTimeCleanUp, TellsTheRemovedLines) {
  MemoryFileSystem files;
  files.files["f"] =
      "12.21,A,7,one2014\nx\n12.20,B,7,one2014\r\n12.23,C,7,one2014\r01.01,D,7,one2014";
  std::vector<long> removed{99};
  ASSERT_TRUE(RemovePastOneTimeEvents(files, "f", "data", On(2014, 12, 22), removed).ok());
  EXPECT_THAT(removed, ElementsAre(0, 2, 4));
  EXPECT_EQ(files.files["f"], "x\r\n12.23,C,7,one2014\r\n");
}

TEST(OneTimeCleanUp, TellsOfNoLineAfterAFailure) {
  MemoryFileSystem files;
  files.files["f"] = "12.21,A,7,one2014\n";
  files.commitFailures["f"] = StatusKind::kNoSpace;
  std::vector<long> removed{99};
  EXPECT_EQ(RemovePastOneTimeEvents(files, "f", "data", On(2014, 12, 22), removed).kind(),
            StatusKind::kNoSpace);
  EXPECT_THAT(removed, IsEmpty());
  EXPECT_EQ(files.files["f"], "12.21,A,7,one2014\n");
}

TEST(UnhideStep, TakesTheMarkFromEqualLinesOnly) {
  MemoryFileSystem files;
  files.files["f"] = "a*\nA*\na\na*\r\na* \n*\n";
  ASSERT_TRUE(UnhideEvents(files, "f", "data", {"a*"}).ok());
  EXPECT_EQ(files.files["f"], "a\r\nA*\r\na\r\na\r\na* \r\n*\r\n");
}

TEST(UnhideStep, WritesNothingWithoutAnEqualLine) {
  MemoryFileSystem files;
  files.files["f"] = "a\nb*\n";
  ASSERT_TRUE(UnhideEvents(files, "f", "data", {"a*"}).ok());
  EXPECT_EQ(files.files["f"], "a\nb*\n");
  EXPECT_EQ(files.CountCalls("stage"), 0);
}

struct WriteFailure {
  std::string name;
  StatusKind whenStaging = StatusKind::kOk;
  StatusKind whenCommitting = StatusKind::kOk;
  [[nodiscard]] StatusKind kind() const {
    return whenStaging != StatusKind::kOk ? whenStaging : whenCommitting;
  }
};

void PrintTo(const WriteFailure& writeFailure, std::ostream* out) {
  *out << writeFailure.name;
}

class FailedRewrite : public ::testing::TestWithParam<WriteFailure> {
 protected:
  void Fail(Desk& desk) {
    if (GetParam().whenStaging != StatusKind::kOk) {
      desk.files.writeFailures[kEventsPath] = GetParam().whenStaging;
    }
    if (GetParam().whenCommitting != StatusKind::kOk) {
      desk.files.commitFailures[kEventsPath] = GetParam().whenCommitting;
    }
  }
};

TEST_P(FailedRewrite, LeavesTheFileWholeAndTheListComplete) {
  Desk desk(kPastAndTwoMore);
  Fail(desk);
  EXPECT_EQ(desk.Build(), BuildOutcome::kShow);
  EXPECT_EQ(desk.file(), kPastAndTwoMore);
  // The numbers of the file as it is: nothing was removed.
  EXPECT_THAT(desk.Listed(), ElementsAre(ExpectedRow{0, "12/22/2014   <TODAY>"},
                                         ExpectedRow{1, "12/23/2014 A (Tuesday, 1 day)"},
                                         ExpectedRow{3, "12/24/2014 B (Wednesday, 2 days)"}));
  EXPECT_TRUE(desk.builder().readStatus().ok());
  EXPECT_EQ(desk.builder().writeStatus().kind(), GetParam().kind());
  EXPECT_THAT(desk.messages.shown, IsEmpty());
}

TEST_P(FailedRewrite, IsTriedAgainAtTheNextBuild) {
  Desk desk(kPastAndTwoMore);
  Fail(desk);
  desk.Build();
  desk.files.writeFailures.clear();
  desk.files.commitFailures.clear();
  desk.Build();
  EXPECT_TRUE(desk.builder().writeStatus().ok());
  EXPECT_EQ(desk.file(), "12.23,A,7,yearly\r\n06.01,Back,7,yearly\r\n12.24,B,7,yearly\r\n");
  EXPECT_THAT(desk.builder().ReminderLineMap(), ElementsAre(0, 0, 2));
}

TEST_P(FailedRewrite, IsToldForTheUnhideStepAlone) {
  Desk desk("06.01,Back,7,yearly*\n");
  Fail(desk);
  desk.Build();
  EXPECT_EQ(desk.file(), "06.01,Back,7,yearly*\n");
  EXPECT_EQ(desk.builder().writeStatus().kind(), GetParam().kind());
}

TEST_P(FailedRewrite, DoesNotMatterWhileNothingIsToBeWritten) {
  Desk desk("12.23,A,7,yearly\n12.21,Hidden,7,one2014*\n");
  Fail(desk);
  desk.Build();
  EXPECT_TRUE(desk.builder().writeStatus().ok());
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, FailedRewrite,
    ::testing::Values(WriteFailure{"Permission", StatusKind::kNoPermission, StatusKind::kOk},
                      WriteFailure{"ReadOnlyDisk", StatusKind::kReadOnly, StatusKind::kOk},
                      WriteFailure{"FullDisk", StatusKind::kNoSpace, StatusKind::kOk},
                      WriteFailure{"Busy", StatusKind::kBusy, StatusKind::kOk},
                      WriteFailure{"Rename", StatusKind::kOk, StatusKind::kInputOutput}),
    [](const auto& suite) { return suite.param.name; });

TEST(BothRewrites, AreMadeInOneBuild) {
  Desk desk(kPastAndTwoMore);
  desk.Build();
  EXPECT_EQ(desk.file(), "12.23,A,7,yearly\r\n06.01,Back,7,yearly\r\n12.24,B,7,yearly\r\n");
  EXPECT_THAT(desk.Listed(), ElementsAre(ExpectedRow{0, "12/22/2014   <TODAY>"},
                                         ExpectedRow{0, "12/23/2014 A (Tuesday, 1 day)"},
                                         ExpectedRow{2, "12/24/2014 B (Wednesday, 2 days)"}));
}

TEST(BothRewrites, AreNotMadeWhereNothingChanges) {
  Desk desk(
      "12.21,Hidden past,7,one2014*\n"
      "12.21,Capitals,7,ONE2014\n"
      "12.25,Hidden,14,yearly*\n"
      "\n"
      "hello\n");
  desk.Build();
  EXPECT_EQ(desk.FileChanges(), 0);
}

// Line numbers are those of the file as it now is, and the raw lines are still the right ones.
TEST(BothRewrites, LeaveEachRowWithTheLineItCameFrom) {
  std::string file;
  for (int i = 0; i < 300; ++i) {
    file += i % 3 == 0   ? "12.21,Gone,7,one2014\n"
            : i % 3 == 1 ? "06.01,Back " + std::to_string(i) + ",7,yearly*\n"
                         : "12.24,Event " + std::to_string(i) + ",7,yearly\n";
  }
  Desk desk(file);
  desk.Build();
  std::vector<std::string> lines;
  LineSplitter splitter;
  splitter.Take(desk.file(), [&](std::string_view line) { lines.emplace_back(line); });
  ASSERT_EQ(lines.size(), 200);
  ASSERT_EQ(desk.builder().rows().size(), 101);
  for (const ReminderRow& row : desk.builder().rows()) {
    if (row.kind == RowKind::kTodayLine) continue;
    SCOPED_TRACE(row.title);
    ASSERT_LT(row.line, 200);
    EXPECT_EQ(lines[static_cast<std::size_t>(row.line)], row.rawLine);
    EXPECT_EQ(row.rawLine, "12.24," + std::string(row.title) + ",7,yearly");
  }
}

TEST(LineNumbers, MayHaveSixDigits) {
  std::string file(100'000, '\n');
  file += "12.24,Deep,7,yearly\n12.21,Gone,7,one2014\n12.24,Deep,7,yearly\n";
  Desk desk(file);
  desk.Build();
  EXPECT_THAT(desk.builder().ReminderLineMap(), ElementsAre(0, 100'000, 100'001));
}

TEST(RawLines, AreAsReadWhateverTheEncoding) {
  Desk desk("12.24,Caf\xE9,7,yearly\r\n12.25, x ,7, Yearly \n");
  desk.Build();
  const auto& rows = desk.builder().rows();
  ASSERT_EQ(rows.size(), 3);
  EXPECT_EQ(rows[1].rawLine, "12.24,Caf\xE9,7,yearly");
  EXPECT_EQ(rows[2].rawLine, "12.25, x ,7, Yearly ");
}

TEST(RawLines, StayGoodAfterTheFileWasRewritten) {
  Desk desk(kPastAndTwoMore);
  desk.Build();
  desk.files.files.clear();
  const auto& rows = desk.builder().rows();
  ASSERT_EQ(rows.size(), 3);
  EXPECT_EQ(rows[1].rawLine, "12.23,A,7,yearly");
  EXPECT_EQ(rows[2].rawLine, "12.24,B,7,yearly");
}

}  // namespace
}  // namespace tidewarden::test
