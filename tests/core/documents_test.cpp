// What users are told to write, read by the program: the example file, and the event lines in the
// documents.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "core/event_line.h"
#include "tests/support/layouts.h"
#include "tests/support/source_folder.h"

namespace tidewarden::test {
namespace {

constexpr int kCurrentYear = 2026;

std::vector<std::string> LinesOf(const std::string& name) {
  std::ifstream file(SourceFolder() / name, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

bool IsEvent(const std::string& line) {
  return ParseEventLine(line, MonthFirst(), kCurrentYear).has_value();
}

// The texts between backticks.
std::vector<std::string> CodeIn(const std::string& line) {
  static const std::regex code("`([^`]+)`");
  std::vector<std::string> texts;
  for (std::sregex_iterator it(line.begin(), line.end(), code), end; it != end; ++it) {
    texts.push_back((*it)[1]);
  }
  return texts;
}

bool LooksLikeAnEvent(const std::string& text) {
  return std::count(text.begin(), text.end(), ',') == 3 && text.find("…") == std::string::npos;
}

TEST(ExampleFile, HasEventsOfEveryKind) {
  const std::vector<std::string> lines = LinesOf("examples/dates.txt");
  std::set<OccursKind> kinds;
  int hidden = 0;
  int feasts = 0;
  int wild = 0;
  int timed = 0;
  int marked = 0;
  for (const std::string& line : lines) {
    const auto event = ParseEventLine(line, MonthFirst(), kCurrentYear);
    ASSERT_TRUE(event.has_value()) << line;
    kinds.insert(event->occurs.kind);
    hidden += event->EventHidden ? 1 : 0;
    feasts += event->dateField.isFeast ? 1 : 0;
    wild += event->EventDateAsStored.starts_with("xx") ? 1 : 0;
    timed += event->EventTitle.find(':') != std::string_view::npos ? 1 : 0;
    marked += event->EventTitle.find('<') != std::string_view::npos ? 1 : 0;
  }
  EXPECT_GE(lines.size(), 60U);
  for (const std::string occurs :
       {"yearly", "quarter", "monthly", "one2026", "tdo2026", "14-2026", "20~2026", "dp-2014",
        "df-2027", "4th thu", "las mon", "las day"}) {
    Occurs expected;
    ASSERT_EQ(ReadOccurs(occurs, kCurrentYear, expected), OccursFault::kNone);
    EXPECT_TRUE(kinds.contains(expected.kind)) << occurs;
  }
  for (const int count : {hidden, feasts, wild, timed, marked}) EXPECT_GT(count, 0);
}

TEST(EventsFileDocument, ShowsEventsThatAreAcceptedAndLinesThatAreNot) {
  bool rejects = false;
  int accepted = 0;
  int rejected = 0;
  for (const std::string& line : LinesOf("docs/events-file.md")) {
    if (line.starts_with("## ")) rejects = line == "## Lines that are rejected";
    std::vector<std::string> texts = CodeIn(line);
    if (rejects && line.starts_with("| `")) {
      ASSERT_GE(texts.size(), 2U) << line;
      EXPECT_FALSE(IsEvent(texts.front())) << line;
      ++rejected;
      texts.erase(texts.begin());
    }
    for (const std::string& text : texts) {
      if (!LooksLikeAnEvent(text)) continue;
      EXPECT_TRUE(IsEvent(text)) << line;
      ++accepted;
    }
  }
  EXPECT_GT(accepted, 30);
  EXPECT_GT(rejected, 15);
}

TEST(GuidePages, ShowEventsThatAreAccepted) {
  int accepted = 0;
  for (const auto& page : std::filesystem::directory_iterator(SourceFolder() / "docs/guide")) {
    if (page.path().extension() != ".md") continue;
    const std::string name = page.path().filename().string();
    bool inCode = false;
    for (const std::string& line : LinesOf("docs/guide/" + name)) {
      if (line.starts_with("```")) inCode = !inCode;
      std::vector<std::string> texts = inCode ? std::vector<std::string>{line} : CodeIn(line);
      const std::size_t quote = std::min(line.find('"'), line.size());
      if (inCode && line.starts_with("$ ")) {
        texts = {line.substr(quote, line.find('"', quote + 1) - quote).erase(0, 1)};
      } else if (inCode && line.find(": ") != std::string::npos) {
        texts.clear();  // a finding, not an event
      }
      for (const std::string& text : texts) {
        if (!LooksLikeAnEvent(text)) continue;
        EXPECT_TRUE(IsEvent(text)) << name << ": " << line;
        ++accepted;
      }
    }
  }
  EXPECT_GE(accepted, 25);
}

TEST(Readme, ShowsEventsThatAreAccepted) {
  int accepted = 0;
  for (const std::string& line : LinesOf("README.md")) {
    if (!LooksLikeAnEvent(line) || line.find(' ') == 0 || line.find('`') != std::string::npos ||
        line.size() > 60 || line.find(". ") != std::string::npos) {
      continue;
    }
    EXPECT_TRUE(IsEvent(line)) << line;
    ++accepted;
  }
  EXPECT_GE(accepted, 7);
}

}  // namespace
}  // namespace tidewarden::test
