// What the guide says, held against the program: links, pictures, settings, dates of feasts, times
// in titles.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "customizer/options.h"
#include "dates/feasts.h"
#include "dates/time_of_day.h"
#include "dates/year_marker.h"
#include "editor/observances.h"
#include "guide/man_page.h"
#include "guide/markdown.h"
#include "tests/guide/repository_guide.h"
#include "tests/support/source_folder.h"

namespace tidewarden::test {
namespace {

namespace fs = std::filesystem;

// Where the file of a topic lies.
fs::path FolderOf(const GuideTopic& topic) {
  for (const char* const folder : {"docs/guide", "docs", "examples"}) {
    if (fs::exists(SourceFolder() / folder / (topic.name + ".md"))) return SourceFolder() / folder;
  }
  return SourceFolder() / "examples";
}

// All inline texts of a page.
std::vector<std::string> TextsOf(const std::string& markdown) {
  std::vector<std::string> texts;
  for (const Block& block : ReadMarkdown(markdown)) {
    if (block.kind == BlockKind::kCode) continue;
    texts.push_back(block.text);
    for (const auto& row : block.rows) texts.insert(texts.end(), row.begin(), row.end());
  }
  return texts;
}

// The rows of all tables of a topic whose heads are these, without the heads.
std::vector<std::vector<std::string>> RowsUnder(const std::string& topicName,
                                                const std::vector<std::string>& heads) {
  std::vector<std::vector<std::string>> rows;
  const auto place = RepositoryGuide().Locate(topicName);
  EXPECT_TRUE(place.has_value()) << topicName;
  for (const Block& block : ReadMarkdown(RepositoryGuide().topics()[place->topic].markdown)) {
    if (block.kind != BlockKind::kTable || block.rows.front() != heads) continue;
    rows.insert(rows.end(), block.rows.begin() + 1, block.rows.end());
  }
  return rows;
}

TEST(GuideText, HasEveryTopic) {
  std::set<std::string> names;
  for (const GuideTopic& topic : RepositoryGuide().topics()) names.insert(topic.name);
  for (const auto& file : fs::directory_iterator(SourceFolder() / "docs/guide")) {
    if (file.path().extension() != ".md") continue;
    EXPECT_TRUE(names.contains(file.path().stem().string())) << file.path();
  }
  EXPECT_TRUE(names.contains("events-file"));
  EXPECT_TRUE(names.contains("dates"));
  EXPECT_GE(names.size(), 16U);
}

TEST(GuideText, HasNoLinkToNowhereAndNoMissingPicture) {
  int links = 0;
  int pictures = 0;
  for (std::size_t i = 0; i < RepositoryGuide().topics().size(); ++i) {
    const GuideTopic& topic = RepositoryGuide().topics()[i];
    for (const std::string& text : TextsOf(topic.markdown)) {
      for (const Span& span : ReadSpans(text)) {
        if (span.kind == SpanKind::kLink) {
          EXPECT_TRUE(RepositoryGuide().Locate(span.target, i))
              << topic.name << ": " << span.target;
          // In the repository, too, where it is a file beside the page.
          const std::string file = span.target.substr(0, span.target.find('#'));
          EXPECT_TRUE(file.empty() || fs::exists(FolderOf(topic) / file)) << span.target;
          ++links;
        }
        if (span.kind == SpanKind::kPicture) {
          EXPECT_TRUE(fs::exists(FolderOf(topic) / span.target)) << topic.name << span.target;
          EXPECT_FALSE(span.text.empty()) << span.target;
          ++pictures;
        }
      }
    }
  }
  EXPECT_GT(links, 60);
  EXPECT_GE(pictures, 5);
}

TEST(GuideText, IsBuiltIntoTheProgramWhole) {
  const std::string list = ReadGuideFile("guide.qrc");
  for (const GuideTopic& topic : RepositoryGuide().topics()) {
    const std::string file = topic.name + (topic.name == "dates" ? ".txt" : ".md");
    EXPECT_TRUE(list.find(">" + file + "</file>") != std::string::npos ||
                list.find("alias=\"" + file + "\"") != std::string::npos)
        << file;
    for (const std::string& text : TextsOf(topic.markdown)) {
      for (const Span& span : ReadSpans(text)) {
        if (span.kind != SpanKind::kPicture) continue;
        const std::string name = fs::path(span.target).filename().string();
        EXPECT_NE(list.find("alias=\"" + name + "\""), std::string::npos) << name;
      }
    }
  }
}

// The names and defaults in the code's table of settings.
std::map<std::string, std::string> SettingsOfTheCode() {
  std::ifstream file(SourceFolder() / "core/settings_keys.h");
  std::ostringstream text;
  text << file.rdbuf();
  static const std::regex setting(R"re(\{\s*"([^"]+)"\s*,\s*"([^"]*)")re");
  std::map<std::string, std::string> settings;
  const std::string content = text.str();
  for (std::sregex_iterator it(content.begin(), content.end(), setting), end; it != end; ++it) {
    settings[(*it)[1]] = (*it)[2];
  }
  return settings;
}

TEST(OptionsPage, DescribesEverySettingWithItsDefault) {
  std::map<std::string, std::string> described;
  for (const auto& row : RowsUnder("options", {"Setting", "Default", "What it does"})) {
    ASSERT_EQ(row.size(), 3U);
    EXPECT_TRUE(
        described.emplace(PlainText(std::string_view(row[0])), PlainText(std::string_view(row[1])))
            .second)
        << row[0];
    EXPECT_FALSE(row[2].empty()) << row[0];
  }
  const auto settings = SettingsOfTheCode();
  EXPECT_GE(settings.size(), 45U);
  for (const auto& [name, standard] : settings) {
    // A family of settings with a number behind each has a row for each.
    const std::string key = described.contains(name) ? name : name + "0";
    ASSERT_TRUE(described.contains(key)) << name;
    if (!standard.empty()) {
      EXPECT_EQ(described.at(key), standard) << name;
    }
  }
}

// Page by page, under the headings of the window and by its labels.
TEST(OptionsPage, CallsEveryOptionAsTheWindowDoes) {
  const auto place = RepositoryGuide().Locate("options");
  ASSERT_TRUE(place.has_value());
  std::map<std::string, std::string> headings;
  std::map<std::string, std::string> texts;
  std::vector<std::string> names;
  std::string heading;
  for (const Block& block : ReadMarkdown(RepositoryGuide().topics()[place->topic].markdown)) {
    if (block.kind == BlockKind::kHeading) heading = block.text;
    if (block.kind != BlockKind::kTable || block.rows.front().front() != "Setting") continue;
    for (auto row = block.rows.begin() + 1; row != block.rows.end(); ++row) {
      const std::string name = PlainText(std::string_view(row->front()));
      names.push_back(name);
      headings[name] = heading;
      texts[name] = PlainText(std::string_view(row->back()));
    }
  }
  auto next = names.begin();
  for (const Option& option : AllOptions()) {
    std::string name(option.setting.key);
    if (!texts.contains(name) && name.starts_with("Options/")) name.erase(0, 8);
    ASSERT_TRUE(texts.contains(name)) << name;
    EXPECT_THAT(texts[name], ::testing::StartsWith(std::string(option.label) + ". "));
    EXPECT_EQ(headings[name], AllPages()[static_cast<std::size_t>(option.page)].heading) << name;
    // In the window's order; what the programs remember by themselves comes last.
    ASSERT_NE(next, names.end()) << name;
    EXPECT_EQ(*next++, name);
  }
}

// The sources of the manual pages by the pages' names, "tidewarden(1)".
std::map<std::string, std::string> ManualSources() {
  std::map<std::string, std::string> sources;
  for (const auto& entry : fs::directory_iterator(SourceFolder() / "docs/man")) {
    const fs::path name = entry.path().stem();
    std::ifstream file(entry.path(), std::ios::binary);
    sources[name.stem().string() + "(" + name.extension().string().substr(1) + ")"] = {
        std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  return sources;
}

std::string ManualPage(const std::string& source) {
  return PutIncludesIn(source, [](std::string_view name) {
    return ReadGuideFile(fs::path(name).filename().string());
  });
}

// What a reader of a manual page is sent to has to be on one of them.
TEST(ManualPages, HaveWhateverTheyPointTo) {
  const auto sources = ManualSources();
  EXPECT_EQ(sources.size(), 6U);
  ManPlaces places;
  for (const auto& [page, source] : sources) places.Add(page, source);
  int elsewhere = 0;
  for (const auto& [page, source] : sources) {
    for (const std::string& text : TextsOf(ManualPage(source))) {
      for (const Span& span : ReadSpans(text)) {
        // The example is a file, whose place stands beside the link.
        if (span.kind != SpanKind::kLink || span.target.ends_with("dates.txt")) continue;
        const std::string place = places.PageOf(span.target, page);
        EXPECT_NE(place, "") << page << ": " << span.target;
        elsewhere += place == page ? 0 : 1;
      }
    }
  }
  EXPECT_GT(elsewhere, 10);
}

// Their tables are lists, and their sections are those of several pages of the guide.
TEST(ManualPages, DoNotSpeakOfPlacesThatTheyLack) {
  static const std::regex places(
      R"(this table|tables below|(first|second|last) (column|row|section)|this guide)");
  for (const auto& [page, source] : ManualSources()) {
    for (const std::string& text : TextsOf(ManualPage(source))) {
      EXPECT_FALSE(std::regex_search(text, places)) << page << ": " << text;
    }
  }
}

TEST(SettingsManualPage, DescribesEverySetting) {
  const std::string page = ManualPage(ManualSources().at("tidewarden-settings(5)"));
  std::set<std::string> terms;
  for (const Block& block : ReadMarkdown(page)) {
    if (block.kind != BlockKind::kTable) continue;
    for (const auto& row : block.rows) terms.insert(PlainText(std::string_view(row.front())));
  }
  for (const auto& [name, standard] : SettingsOfTheCode()) {
    EXPECT_TRUE(terms.contains(name) || terms.contains(name + "0")) << name;
  }
  EXPECT_EQ(page.find(kMissingInclude), std::string::npos);
}

constexpr std::array<const char*, 12> kMonths{"January",   "February", "March",    "April",
                                              "May",       "June",     "July",     "August",
                                              "September", "October",  "November", "December"};

// "10 February" of a year.
CivilDate DateOf(const std::string& text, int year) {
  const std::size_t blank = text.find(' ');
  const auto month = std::find(kMonths.begin(), kMonths.end(), text.substr(blank + 1));
  EXPECT_NE(month, kMonths.end()) << text;
  return MakeDate(year, static_cast<int>(month - kMonths.begin()) + 1,
                  std::stoi(text.substr(0, blank)));
}

TEST(FeastsPage, GivesTheDatesThatTheProgramWorksOut) {
  int feasts = 0;
  for (const auto& heads : std::vector<std::vector<std::string>>{
           {"Code", "Feast", "Days from Easter Sunday", "In 2027"},
           {"Code", "Feast", "In 2027"},
           {"Code", "Feast", "Hebrew date", "In 2027"},
           {"Code", "Feast", "Rule", "In 2027"}}) {
    for (const auto& row : RowsUnder("feasts", heads)) {
      for (const Span& code : ReadSpans(row.front())) {
        if (code.kind != SpanKind::kCode) continue;
        ASSERT_TRUE(IsFeastCode(code.text)) << code.text;
        EXPECT_EQ(FeastDate(ReadFeast(code.text), 2027), DateOf(row.back(), 2027)) << code.text;
        ++feasts;
      }
    }
  }
  EXPECT_EQ(feasts, 9 + 3 + 9 + 1);
}

TEST(FeastsPage, CountsTheDaysFromEasterAsTheProgramDoes) {
  for (const auto& row :
       RowsUnder("feasts", {"Code", "Feast", "Days from Easter Sunday", "In 2027"})) {
    const int days = std::atoi(row[2].c_str());
    const int sign = row[2].ends_with("before") ? -1 : 1;
    EXPECT_EQ(ReadFeast(ReadSpans(row[0]).front().text).easterOffset, sign * days) << row[0];
  }
}

TEST(AlarmsPage, ReadsTimesAsTheProgramDoes) {
  static const std::regex time("([0-9]+):([0-9]{2})");
  const auto rows = RowsUnder("alarms", {"Title", "Time"});
  for (const auto& row : rows) {
    std::smatch match;
    const int expected = std::regex_match(row[1], match, time)
                             ? std::stoi(match[1]) * 100 + std::stoi(match[2])
                             : kNoTimeOfDay;
    EXPECT_TRUE(expected != kNoTimeOfDay || row[1].starts_with("none")) << row[1];
    EXPECT_EQ(ConvertToFourDigitTime(PlainText(std::string_view(row[0]))), expected) << row[0];
  }
  EXPECT_GE(rows.size(), 9U);
}

TEST(EventsPage, CountsAnniversariesAsTheProgramDoes) {
  const auto rows = RowsUnder("events", {"Title in the file", "Shown for its date in 2027"});
  for (const auto& row : rows) {
    std::string title = PlainText(std::string_view(row[0]));
    ApplyYearMarker(title, 7, 2027);
    EXPECT_EQ(title, row[1]);
  }
  EXPECT_GE(rows.size(), 3U);
}

TEST(EditorPage, KnowsHowManyObservancesThereAre) {
  EXPECT_NE(ReadGuideFile("editor.md").find(std::to_string(kObservances) + " well-known days"),
            std::string::npos);
}

}  // namespace
}  // namespace tidewarden::test
