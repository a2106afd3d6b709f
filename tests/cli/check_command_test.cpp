// "check": what it finds, where, and how it says so.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

struct Found {
  int line = 0;
  int column = 0;
  std::string finding;
  bool operator==(const Found&) const = default;
};

void PrintTo(const Found& found, std::ostream* out) {
  *out << found.line << ":" << found.column << " " << found.finding;
}

// What "check --json" finds in a file, on 22 December 2014.
std::vector<Found> Check(const std::string& file, const std::string& today = "2014-12-22") {
  Terminal terminal;
  terminal.folder.Write("dates.txt", file);
  const auto before = terminal.folder.Look();
  const Outcome outcome =
      terminal.Run({"check", "--json", "--file", "dates.txt", "--today", today});
  EXPECT_EQ(terminal.folder.Look(), before);
  EXPECT_EQ(outcome.err, "");
  std::vector<Found> all;
  for (const auto& item : nlohmann::json::parse(outcome.out)) {
    EXPECT_EQ(item.size(), 6);
    EXPECT_EQ(item.at("file"), "dates.txt");
    EXPECT_FALSE(item.at("reason").get<std::string>().empty());
    EXPECT_FALSE(item.at("hint").get<std::string>().empty());
    all.push_back({item.at("line").get<int>(), item.at("column").get<int>(),
                   item.at("finding").get<std::string>()});
  }
  EXPECT_EQ(outcome.exitCode, all.empty() ? 0 : 1);
  return all;
}

// A "^" in each line stands before the character at which the fault begins.
TEST(RejectedLine, IsFoundWhereItsFaultBegins) {
  const char* const lines[] = {
      "06.12,Dinner, with Nora,7^,yearly",
      "12,25,Christmas,7^,yearly",
      "1,.25,Christmas,7^,yearly",
      "06.12,Dinner,7,yearly^,",
      "06.12,Dinner,yearly^",
      "hello^",
      "^6.12,Dinner,7,yearly",
      "^006.12,Dinner,7,yearly",
      "^,Dinner,7,yearly",
      "^25.12,Christmas,7,yearly",
      "^00.10,X,7,yearly",
      "^XX.15,Rent,3,monthly",
      "^_east,Easter,7,yearly",
      "^e+000,Easter,7,yearly",
      "^e+366,Easter,7,yearly",
      "01.^32,Dinner,7,yearly",
      "01.^00,Dinner,7,yearly",
      "06.12,Dinner,^400,yearly",
      "06.12,Dinner,^365.4,yearly",
      "06.12,Dinner,^-1,yearly",
      "06.12,Dinner,7,^annually",
      "06.12,Dinner,7,  ^annually  ",
      "06.12,Dinner,7,^",
      "06.12,Bins,1,^7-2026",
      "06.12,Filter,7,^120-2026",
      "06.12,Bins,1,^14-26",
      "01.xx,Meeting,7,^5th Mon",
      "01.xx,Meeting,7,^1st day",
      "01.xx,Meeting,7,^Last Mon",
      "06.12,Reunion,7,^one1999",
      "06.12,Tax,7,^tdo1999",
      "06.12,Holiday,0,^dp-2015",
      "06.12,Dinner,7,^yearly* ",
      "06.12,Dinner,7,^yearly**",
      "06.12,Zoë's Ünïcode,7,^annually",
      "06.12,\xF0\x9F\x8E\x84,7,^annually",
  };
  std::string file;
  std::vector<Found> expected;
  for (const std::string line : lines) {
    const std::size_t mark = line.find('^');
    // Characters, not bytes: continuation bytes do not count.
    int column = 1;
    for (std::size_t i = 0; i < mark; ++i) {
      if ((static_cast<unsigned char>(line[i]) & 0xC0U) != 0x80U) ++column;
    }
    expected.push_back({static_cast<int>(expected.size()) + 1, column, "rejected"});
    file += line.substr(0, mark) + line.substr(mark + 1) + "\n";
  }
  EXPECT_THAT(Check(file), ElementsAreArray(expected));
}

TEST(RejectedLine, IsNumberedAmongAllLines) {
  EXPECT_THAT(Check("12.24,A,7,yearly\r\n12.25,B,7,yearly\rx\n\n12.26,C,7,yearly\ny"),
              ElementsAre(Found{3, 2, "rejected"}, Found{6, 2, "rejected"}));
}

TEST(RejectedLine, IsCountedWithoutTheByteOrderMark) {
  EXPECT_THAT(Check("\xEF\xBB\xBF"
                    "6.12,Dinner,7,yearly\n"),
              ElementsAre(Found{1, 1, "rejected"}));
  EXPECT_THAT(Check("\xEF\xBB\xBF"
                    "12.24,Dinner,7,yearly\n"),
              IsEmpty());
}

TEST(RejectedLine, IsCountedInCharactersOfWindows1252) {
  EXPECT_THAT(Check("06.12,Caf\xE9 \x80,7,annually\n"), ElementsAre(Found{1, 16, "rejected"}));
}

TEST(SoundLines, AreNotMentioned) {
  EXPECT_THAT(Check("12.25,Christmas,14,yearly\n"
                    "12.22,Today,0,one2014\n"
                    "12.23,Tomorrow,0,one2014\n"
                    "12.21,Task,0,tdo2014\n"
                    "02.29,Leap,0,yearly\n"
                    "02.29,Quarter,0,quarter\n"
                    "xx.31,Month,0,monthly\n"
                    "xx.xx,Weekday,0,Las Fri\n"
                    "01.xx,Weekday,0,3rd Mon\n"
                    "02.xx,Day,0,Las Day\n"
                    "_estr,Easter,0,yearly\n"
                    "_HANU,Hanukkah,0,yearly\n"
                    "_vict,Victoria,0,yearly\n"
                    "e-046,Ashes,0,yearly\n"
                    "01.01,Pills,0,01-2014\n"
                    "01.01,Filter,0,20~2014\n"
                    "06.01,Up,0,dp-2014\n"
                    "06.01,Down,x,df-2999\n"
                    "06.01,Old,0,dp-0000\n"),
              IsEmpty());
}

TEST(OneTimeEvent, IsReportedWhenItIsOver) {
  EXPECT_THAT(Check("12.21,Over,7,one2014\n"
                    "12.22,Today,7,one2014\n"
                    "12.21,Hidden,7,one2014*\n"
                    "12.21,CAPITALS,7,ONE2014\n"
                    "12.21,Task,7,tdo2014\n"),
              ElementsAre(Found{1, 1, "past-one-time"}, Found{3, 1, "past-one-time"},
                          Found{4, 1, "past-one-time"}));
}

TEST(Duplicate, IsTheSameDateTitleAndRule) {
  EXPECT_THAT(Check("12.25,Christmas,14,yearly\n"
                    "12.25,christmas,3,Yearly\n"
                    "12.25,Christmas Eve,14,yearly\n"
                    "12.24,Christmas,14,yearly\n"
                    "12.25,Christmas,14,monthly\n"
                    "12.25,Christmas,14,yearly\n"),
              ElementsAre(Found{2, 1, "duplicate"}, Found{6, 1, "duplicate"}));
}

TEST(ImpossibleDate, IsReported) {
  EXPECT_THAT(Check("02.30,A,7,yearly\n"
                    "04.31,B,7,yearly\n"
                    "02.30,C,7,one2015\n"
                    "02.29,D,7,one2015\n"
                    "02.29,E,7,dp-2001\n"
                    "1a.05,F,7,yearly\n"
                    "01.xx,G,7,yearly\n"
                    "xx.xx,H,7,monthly\n"
                    "02.30,I,7,14-2014\n"
                    "_estr,J,7,dp-2001\n"
                    "02.29,fine,7,yearly\n"
                    "02.29,fine,7,one2016\n"),
              ElementsAre(Found{1, 1, "never-comes"}, Found{2, 1, "never-comes"},
                          Found{3, 1, "never-comes"}, Found{4, 1, "never-comes"},
                          Found{5, 1, "never-comes"}, Found{6, 1, "never-comes"},
                          Found{7, 1, "never-comes"}, Found{8, 1, "never-comes"},
                          Found{9, 1, "never-comes"}, Found{10, 1, "never-comes"}));
}

// A hidden event comes back on the first day that finds it further away than its notice. On the
// day after an occurrence the next one is a day closer than the full interval.
TEST(HiddenForEver, IsReported) {
  EXPECT_THAT(Check("12.25,A,365,yearly*\n"
                    "xx.15,B,31,monthly*\n"
                    "xx.15,C,30,monthly*\n"
                    "01.01,D,7,07-2014*\n"
                    "01.01,E,6,07-2014*\n"
                    "01.01,F,0,01-2014*\n"
                    "12.24,G,7,one2014*\n"
                    "12.25,fine,364,yearly*\n"
                    "xx.15,fine,29,monthly*\n"
                    "01.01,fine,5,07-2014*\n"
                    "12.30,fine,7,one2014*\n"
                    "06.01,fine,0,dp-2014*\n"),
              ElementsAre(Found{1, 1, "never-unhidden"}, Found{2, 1, "never-unhidden"},
                          Found{3, 1, "never-unhidden"}, Found{4, 1, "never-unhidden"},
                          Found{5, 1, "never-unhidden"}, Found{6, 1, "never-unhidden"},
                          Found{7, 1, "never-unhidden"}));
}

TEST(Today, DecidesWhatIsOverAndWhatIsInTheFuture) {
  const std::string file = "06.01,A,7,one2015\n06.01,B,7,dp-2015\n";
  EXPECT_THAT(Check(file, "2014-12-31"), ElementsAre(Found{2, 11, "rejected"}));
  EXPECT_THAT(Check(file, "2015-06-01"), IsEmpty());
  EXPECT_THAT(Check(file, "2015-06-02"), ElementsAre(Found{1, 1, "past-one-time"}));
}

TEST(CheckText, TellsFileLineColumnReasonAndHint) {
  Terminal terminal;
  terminal.folder.Write("my dates.txt",
                        "12.25,Christmas,14,yearly\n"
                        "06.12,Dinner,400,yearly\n"
                        "02.30,Never,7,yearly\n");
  const Outcome outcome =
      terminal.Run({"check", "--file", "my dates.txt", "--today", "2014-12-22"});
  EXPECT_EQ(outcome.exitCode, 1);
  std::vector<std::string> lines;
  std::istringstream in(outcome.out);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  ASSERT_EQ(lines.size(), 2);
  EXPECT_THAT(lines[0], StartsWith("my dates.txt:2:14: rejected: "));
  EXPECT_THAT(lines[0], HasSubstr("0 to 365"));
  EXPECT_THAT(lines[1], StartsWith("my dates.txt:3:1: warning: "));
  // The summary is no data.
  EXPECT_EQ(outcome.err, "tidewarden-cli: my dates.txt: 1 rejected line, 1 warning\n");
}

TEST(CheckText, IsEmptyForASoundFile) {
  for (const char* file : {"", "12.25,Christmas,14,yearly\n"}) {
    Terminal terminal;
    terminal.folder.Write("dates.txt", file);
    const Outcome outcome = terminal.Run({"check", "--file", "dates.txt"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "tidewarden-cli: dates.txt: 0 rejected lines, 0 warnings\n");
  }
}

TEST(CheckJson, IsAnEmptyArrayForASoundFile) {
  Terminal terminal;
  terminal.folder.Write("dates.txt", "12.25,Christmas,14,yearly\n");
  EXPECT_EQ(terminal.Run({"check", "--json", "--file", "dates.txt"}), (Outcome{0, "[]\n", ""}));
}

TEST(CheckedLayouts, DoNotChangeWhatIsFound) {
  for (const char* layout : {"MM/dd/yyyy", "dd.MM.yyyy", "yyyy-MM-dd", "yy/MM/dd"}) {
    SCOPED_TRACE(layout);
    Terminal terminal;
    terminal.folder.Write("dates.txt", "25.12,A,7,yearly\n12.25,B,7,yearly\n");
    const Outcome outcome = terminal.Run({"check", "--file", "dates.txt", "--short-date", layout});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.out, StartsWith("dates.txt:1:1: rejected: "));
  }
}

}  // namespace
}  // namespace tidewarden::test
