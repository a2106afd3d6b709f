// Events files that nobody meant to write. Each gives a clear message or a right list, in the end
// at all, and stays as it is.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr char kToday[] = "12/22/2014   <TODAY>\n";
const std::string kEvent = "12.24,A,7,yearly\n";
const std::string kList = std::string(kToday) + "12/24/2014 A (Wednesday, 2 days)\n";

// --- Files whose content is strange.

struct StrangeFile {
  std::string name;
  std::string content;
  std::string list;
};

void PrintTo(const StrangeFile& strangeFile, std::ostream* out) {
  *out << strangeFile.name;
}

class StrangeEvents : public ::testing::TestWithParam<StrangeFile> {};

TEST_P(StrangeEvents, GiveARightListAndStayAsTheyAre) {
  Terminal terminal;
  terminal.folder.Write("dates.txt", GetParam().content);
  terminal.WriteSettings();
  const auto before = terminal.folder.Look();
  EXPECT_EQ(terminal.RunOnTheDay("list", {"--file", "dates.txt"}),
            (Outcome{0, GetParam().list, ""}));
  EXPECT_EQ(terminal.RunOnTheDay("list", {"--file", "dates.txt", "--update"}),
            (Outcome{0, GetParam().list, ""}));
  const Outcome json = terminal.RunOnTheDay("list", {"--file", "dates.txt", "--json"});
  std::string texts;
  for (const auto& item : nlohmann::json::parse(json.out)) {
    texts += item.at("text").get<std::string>() + "\n";
  }
  EXPECT_EQ(texts, GetParam().list);
  const Outcome check = terminal.RunOnTheDay("check", {"--file", "dates.txt", "--json"});
  EXPECT_LE(check.exitCode, 1);
  EXPECT_TRUE(nlohmann::json::accept(check.out));
  EXPECT_EQ(terminal.folder.Look(), before);
}

std::vector<StrangeFile> StrangeFiles() {
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte) everyByte.push_back(static_cast<char>(byte));
  return {
      {"Empty", "", kToday},
      {"OneLineFeed", "\n", kToday},
      {"OneCarriageReturn", "\r", kToday},
      {"OneZero", std::string(1, '\0'), kToday},
      {"OneComma", ",", kToday},
      {"OneStar", "*", kToday},
      {"ThreeCommas", ",,,", kToday},
      {"ThreeCommasHidden", ",,,*", kToday},
      {"Zeros", std::string(100'000, '\0') + "\n" + kEvent, kList},
      {"ZeroInATitle", std::string("12.24,A\0B,7,yearly\n", 19),
       kToday + std::string("12/24/2014 A\0B (Wednesday, 2 days)\n", 35)},
      {"ZeroInOtherFields", std::string("12.2\0,A,7,yearly\n12.24,A,7,yearly\0\n", 35) + kEvent,
       kList},
      {"LoneCarriageReturns", "x\r12.24,A,7,yearly\r\ry\r", kList},
      {"CarriageReturnBeforeCarriageReturnLineFeed", "12.24,A,7,yearly\r\r\n", kList},
      {"LineFeedBeforeCarriageReturn", "12.24,A,7,yearly\n\rx", kList},
      {"VerticalTabsAndFormFeeds", "\v\f\n12.24,A,7,yearly\n\x1A", kList},
      {"EveryByte", everyByte + "\n" + kEvent, kList},
      {"BrokenUtf8", "12.24,A,7,yearly\n\xC3\n\xE2\x82\n\xF8\x88\x80\x80\x80\n\xED\xA0\x80\n",
       kList},
      {"BrokenUtf8InATitle", "12.24,\xC3\x28\xA0,7,yearly\n",
       kToday + std::string("12/24/2014 \xC3\x83(\xC2\xA0 (Wednesday, 2 days)\n")},
      {"OverlongUtf8InATitle", "12.24,\xC0\xAF,7,yearly\n",
       kToday + std::string("12/24/2014 \xC3\x80\xC2\xAF (Wednesday, 2 days)\n")},
      {"Windows1252", "12.24,Caf\xE9 \x80 \x93q\x94,7,yearly\n",
       kToday + std::string("12/24/2014 Café € “q” (Wednesday, 2 days)\n")},
      {"Windows1252Holes", "12.24,\x81\x8D\x8F\x90\x9D,7,yearly\n",
       kToday + std::string("12/24/2014 \xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D (Wednesday, 2 "
                            "days)\n")},
      {"ByteOrderMark", "\xEF\xBB\xBF" + kEvent, kList},
      {"ByteOrderMarkInWindows1252",
       "\xEF\xBB\xBF"
       "12.25,Christmas,14,yearly\r\n12.24,N\xE9o,7,yearly\r\n",
       kToday + std::string("12/24/2014 Néo (Wednesday, 2 days)\n"
                            "12/25/2014 Christmas (Thursday, 3 days)\n")},
      {"ByteOrderMarkAlone", "\xEF\xBB\xBF", kToday},
      {"ByteOrderMarkTwice", "\xEF\xBB\xBF\xEF\xBB\xBF" + kEvent, kToday},
      {"ByteOrderMarkInside", kEvent + "\xEF\xBB\xBF" + kEvent, kList},
      {"HalfAByteOrderMark", "\xEF\xBB", kToday},
      {"EscapeSequenceInATitle", "12.24,\x1B[31mred,7,yearly\n",
       kToday + std::string("12/24/2014 \x1B[31mred (Wednesday, 2 days)\n")},
      {"PercentSigns", "12.24,%s%n%1$s,7,yearly\n",
       kToday + std::string("12/24/2014 %s%n%1$s (Wednesday, 2 days)\n")},
      {"HugeNumbers",
       "12.24,A,99999999999999999999999,yearly\n12.24,A,1e999,yearly\n"
       "12.24,B,7,one99999999999999999999\n12.24,C,7,99999999-9999999\n" +
           kEvent,
       kToday + std::string("12/24/2014 A (Wednesday, 2 days)\n")},
      {"Markers", "12.24,<<<<>>>><99999><-001><1>,7,yearly\n",
       kToday + std::string("12/24/2014 <<<<>>>><99999><-001><1> (Wednesday, 2 days)\n")},
      {"Colons", "12.24,:::::::::,7,yearly\n",
       kToday + std::string("12/24/2014 ::::::::: (Wednesday, 2 days)\n")},
  };
}

INSTANTIATE_TEST_SUITE_P(Contents, StrangeEvents, ::testing::ValuesIn(StrangeFiles()),
                         [](const auto& suite) { return suite.param.name; });

// --- Files that are too much.

class HugeEvents : public ::testing::Test {
 protected:
  // Writes `count` times `piece`, then `end`.
  void Write(const std::string& piece, std::size_t count, const std::string& end) {
    std::string block;
    while (block.size() < std::size_t{1} << 20U) block += piece;
    std::ofstream out(terminal_.folder / "dates.txt", std::ios::binary);
    std::size_t left = count * piece.size();
    while (left > 0) {
      const std::size_t size = std::min(left, block.size() / piece.size() * piece.size());
      out.write(block.data(), static_cast<std::streamsize>(size));
      left -= size;
    }
    out << end;
    ASSERT_TRUE(out.flush());
  }

  Outcome Run(const std::string& command, const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments{"--file", "dates.txt"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const FileState before = LookAt(terminal_.folder / "dates.txt");
    Outcome outcome = terminal_.RunOnTheDay(command, arguments);
    EXPECT_EQ(LookAt(terminal_.folder / "dates.txt"), before);
    return outcome;
  }

  Terminal terminal_;
};

constexpr std::size_t kHundredMillion = 100'000'000;

TEST_F(HugeEvents, InOneLineOfAHundredMegabytes) {
  Write("x", kHundredMillion, "\n" + kEvent);
  EXPECT_EQ(Run("list"), (Outcome{0, kList, ""}));
  const Outcome check = Run("check");
  EXPECT_EQ(check.exitCode, 1);
  EXPECT_THAT(check.out, StartsWith("dates.txt:1:100000001: rejected: "));
  EXPECT_LT(check.out.size(), 1000);
}

TEST_F(HugeEvents, InAHundredMegabytesOfZeros) {
  std::ofstream(terminal_.folder / "dates.txt", std::ios::binary) << "";
  std::filesystem::resize_file(terminal_.folder / "dates.txt", kHundredMillion);
  EXPECT_EQ(Run("list"), (Outcome{0, kToday, ""}));
}

TEST_F(HugeEvents, InAMillionRejectedLines) {
  Write("not an event, really\n", 1'000'000, kEvent);
  EXPECT_EQ(Run("list"), (Outcome{0, kList, ""}));
  EXPECT_EQ(Run("list", {"--update"}), (Outcome{0, kList, ""}));
  const Outcome json = Run("list", {"--json"});
  EXPECT_EQ(nlohmann::json::parse(json.out).at(1).at("line"), 1'000'000);
}

TEST_F(HugeEvents, InAMillionRejectedLinesThatAreChecked) {
  Write("x\n", 1'000'000, kEvent);
  const Outcome outcome = Run("check");
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 1'000'000);
  EXPECT_THAT(outcome.out.substr(0, 100), StartsWith("dates.txt:1:2: rejected: "));
  EXPECT_THAT(outcome.out.substr(outcome.out.size() - 200),
              HasSubstr("\ndates.txt:1000000:2: rejected: "));
  EXPECT_EQ(outcome.err, "tidewarden-cli: dates.txt: 1000000 rejected lines, 0 warnings\n");
}

TEST_F(HugeEvents, InAMillionCarriageReturns) {
  Write("\r", 1'000'000, kEvent);
  EXPECT_EQ(Run("list"), (Outcome{0, kList, ""}));
}

}  // namespace
}  // namespace tidewarden::test
