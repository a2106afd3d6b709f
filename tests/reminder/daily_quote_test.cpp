// The daily quote: which quotes a file holds, when one shows, and which.
#include "reminder/daily_quote.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "dates/text.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_random_numbers.h"
#include "tests/support/layouts.h"
#include "tests/support/source_folder.h"

namespace tidewarden {
namespace {

using test::On;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kFile[] = "/opt/Tidewarden/Quotes/Inspiration.txt";
const LocalTime kNow{On(2014, 12, 22), 14, 25, 7};
constexpr double kAlmostOne = 1 - 0x1.0p-53;

struct Desk {
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryRandomNumbers random;
  DailyQuote quote{
      settings, files, random, {"/opt/Tidewarden", "/home/ann/data", PathStyle::kPosix}};

  Desk() { Set("ShowDailyQuotes", "True"); }
  explicit Desk(std::string content) : Desk() { files.files[kFile] = std::move(content); }

  void Set(const char* name, const char* value) {
    EXPECT_TRUE(settings.Write("Options", name, value).ok());
  }
  // The quote that a random number picks in a list build.
  std::string Loaded(double r) {
    random.draws = {r};
    quote.LoadDailyQuote(kNow);
    return quote.text();
  }
  std::string Clicked(double r) {
    random.draws = {r};
    quote.ShowAnother();
    return quote.text();
  }
};

void ExpectHidden(const DailyQuote& quote) {
  EXPECT_FALSE(quote.visible());
  EXPECT_EQ(quote.reserveTwips(), 0);
}

TEST(DailyQuote, IsHiddenBeforeItIsLoaded) {
  Desk desk("One\n");
  ExpectHidden(desk.quote);
  EXPECT_EQ(desk.quote.quoteLastIndex(), -1);
  desk.quote.ShowAnother();
  ExpectHidden(desk.quote);
  EXPECT_EQ(desk.random.drawn, 0);
}

TEST(DailyQuote, ShowsAQuoteBelowTheList) {
  Desk desk("One\r\n");
  desk.quote.LoadDailyQuote(kNow);
  EXPECT_TRUE(desk.quote.visible());
  EXPECT_EQ(desk.quote.reserveTwips(), 1515);
  EXPECT_EQ(desk.quote.text(), "One");
}

TEST(DailyQuote, IsOnOnlyWhenTheSettingReadsTrue) {
  const struct {
    const char* value;
    bool visible;
  } cases[] = {{"True", true}, {"true", true},  {"TRUE", true}, {"False", false},
               {"1", false},   {"yes", false},  {"-1", false},  {" true", false},
               {"", false},    {"True ", false}};
  for (const auto& [value, visible] : cases) {
    Desk desk("One\n");
    desk.Set("ShowDailyQuotes", value);
    desk.quote.LoadDailyQuote(kNow);
    EXPECT_EQ(desk.quote.visible(), visible) << '"' << value << '"';
    EXPECT_EQ(desk.files.calls.empty(), !visible) << "no file is looked at in vain";
  }
}

TEST(DailyQuote, StoresBothDefaultsOnTheFirstRead) {
  Desk desk;
  desk.settings.entries.clear();
  desk.quote.LoadDailyQuote(kNow);
  EXPECT_EQ(desk.settings.At("Options", "QuotesPath"), kFile);
  EXPECT_EQ(desk.settings.At("Options", "ShowDailyQuotes"), "False");
  ExpectHidden(desk.quote);
}

TEST(DailyQuote, FindsTheFileAlthoughItsPathIsReadInLowerCase) {
  Desk desk("One\n");
  desk.Set("QuotesPath", kFile);
  EXPECT_EQ(desk.Loaded(0), "One");
  desk.files.files["/opt/tidewarden/quotes/inspiration.txt"] = "Lower\n";
  EXPECT_EQ(desk.Loaded(0), "Lower") << "a file at the path as it is read comes first";
  desk.Set("QuotesPath", "/Home/Ann/Words.TXT");
  desk.files.files["/home/ann/words.txt"] = "Hers\n";
  EXPECT_EQ(desk.Loaded(0), "Hers");
}

TEST(DailyQuote, APathThatIsNotFullStartsAtTheProgramsFolder) {
  const struct {
    const char* stored;
    const char* file;
  } cases[] = {
      {"Words.txt", "/opt/Tidewarden/Words.txt"},
      {"\\Words.txt", "/opt/Tidewarden/Words.txt"},
      {"\\Quotes\\Words.txt", "/opt/Tidewarden/Quotes/Words.txt"},
      {"Quotes/Words.txt", "/opt/Tidewarden/Quotes/Words.txt"},
      {"Quotes\\Words.txt", "/opt/Tidewarden/Quotes/Words.txt"},
      {"/home/ann/Words.txt", "/home/ann/Words.txt"},
  };
  for (const auto& [stored, file] : cases) {
    SCOPED_TRACE(stored);
    Desk desk;
    desk.Set("QuotesPath", stored);
    // What lies beside whatever the program was started from is not meant.
    desk.files.files["Words.txt"] = desk.files.files["words.txt"] = "Other\n";
    desk.files.files["/Words.txt"] = desk.files.files["/words.txt"] = "Other\n";
    desk.quote.LoadDailyQuote(kNow);
    ExpectHidden(desk.quote);
    desk.files.files[file] = "Mine\n";
    EXPECT_EQ(desk.Loaded(0), "Mine");
  }
}

TEST(DailyQuote, OnWindowsThePathHasBackslashesAndLowerCase) {
  Desk desk;
  DailyQuote quote(desk.settings, desk.files, desk.random,
                   {"C:\\Tidewarden", "C:\\Data", PathStyle::kWindows});
  desk.files.files["c:\\tidewarden\\quotes\\inspiration.txt"] = "One\n";
  quote.LoadDailyQuote(kNow);
  EXPECT_EQ(desk.settings.At("Options", "QuotesPath"), "C:\\Tidewarden\\Quotes\\Inspiration.txt");
  EXPECT_EQ(quote.text(), "One");
  desk.files.files = {{"words.txt", "Other\n"}, {"\\words.txt", "Other\n"}};
  for (const char* const stored : {"words.txt", "\\words.txt"}) {
    desk.Set("QuotesPath", stored);
    desk.files.files.erase("C:\\Tidewarden\\words.txt");
    quote.LoadDailyQuote(kNow);
    ExpectHidden(quote);
    desk.files.files["C:\\Tidewarden\\words.txt"] = "Mine\n";
    quote.LoadDailyQuote(kNow);
    EXPECT_EQ(quote.text(), "Mine");
  }
}

TEST(DailyQuote, IsHiddenWithoutAFileThatCanBeRead) {
  Desk missing;
  missing.quote.LoadDailyQuote(kNow);
  ExpectHidden(missing.quote);
  for (const StatusKind kind : {StatusKind::kIsFolder, StatusKind::kNotAFile,
                                StatusKind::kNoPermission, StatusKind::kInputOutput}) {
    Desk desk("One\n");
    desk.Set("QuotesPath", "/words");
    desk.files.files["/words"] = "One\n";
    desk.files.failures["/words"] = kind;
    desk.quote.LoadDailyQuote(kNow);
    ExpectHidden(desk.quote);
  }
}

TEST(DailyQuote, IsHiddenWhenTheFileHoldsNone) {
  for (const std::string content :
       {"", "\r\n\r\n", "// header\n//\n", "\xEF\xBB\xBF", "\xEF\xBB\xBF// header"}) {
    Desk desk(content);
    desk.quote.LoadDailyQuote(kNow);
    ExpectHidden(desk.quote);
    EXPECT_EQ(desk.quote.quoteLastIndex(), -1);
    EXPECT_THAT(desk.quote.quotes(), IsEmpty());
    desk.quote.ShowAnother();
    ExpectHidden(desk.quote);
  }
}

TEST(DailyQuote, HidesAgainWhenItIsTurnedOffOrItsFileIsGone) {
  Desk desk("One\n");
  desk.quote.LoadDailyQuote(kNow);
  EXPECT_TRUE(desk.quote.visible());
  desk.Set("ShowDailyQuotes", "False");
  desk.quote.LoadDailyQuote(kNow);
  ExpectHidden(desk.quote);
  desk.Set("ShowDailyQuotes", "True");
  desk.quote.LoadDailyQuote(kNow);
  EXPECT_TRUE(desk.quote.visible());
  desk.files.files.clear();
  desk.quote.LoadDailyQuote(kNow);
  ExpectHidden(desk.quote);
}

TEST(DailyQuote, CountsTheLinesThatAreNotEmptyAndNoComment) {
  Desk desk("// header\r\n\r\nOne\nTwo\r  \n // x\n//\n/ one slash\nLast");
  desk.quote.LoadDailyQuote(kNow);
  EXPECT_THAT(desk.quote.quotes(), ElementsAre("One", "Two", "  ", " // x", "/ one slash", "Last"));
  EXPECT_EQ(desk.quote.quoteLastIndex(), 5);
}

TEST(DailyQuote, TheNotSignBreaksTheLineInEitherEncoding) {
  for (const std::string content : {"First\u00ACline two¬\nKäse\n",
                                    "\xEF\xBB\xBF"
                                    "First\u00ACline two\u00AC\nKäse\n",
                                    "First\xACline two\xAC\nK\xE4se\n"}) {
    Desk desk(content);
    desk.quote.LoadDailyQuote(kNow);
    EXPECT_THAT(desk.quote.quotes(), ElementsAre("First\r\nline two\r\n", "Käse"));
  }
}

TEST(DailyQuote, OneQuoteIsAlwaysShown) {
  Desk desk("Only\n");
  for (const double r : {0.0, 0.5, kAlmostOne}) {
    EXPECT_EQ(desk.Loaded(r), "Only");
    EXPECT_EQ(desk.Clicked(r), "Only");
  }
}

TEST(DailyQuote, TheLastOfSeveralIsNeverShown) {
  Desk desk("// header\nFirst¬line two\nSecond\n");
  for (const double r : {0.0, 0.25, 0.5, 0.75, kAlmostOne}) {
    EXPECT_EQ(desk.Loaded(r), "First\r\nline two");
    EXPECT_EQ(desk.Clicked(r), "First\r\nline two");
  }
}

TEST(DailyQuote, DropsTheFractionOfTheIndex) {
  Desk desk("0\n1\n2\n3\n4\n");
  const struct {
    double r;
    const char* quote;
  } cases[] = {{0, "0"},   {0.2499, "0"}, {0.25, "1"}, {0.4999, "1"},
               {0.5, "2"}, {0.7499, "2"}, {0.75, "3"}, {kAlmostOne, "3"}};
  for (const auto& [r, quote] : cases) {
    EXPECT_EQ(desk.Loaded(r), quote) << r;
    EXPECT_EQ(desk.Clicked(r), quote) << r;
  }
}

TEST(DailyQuote, IsSeededByTheTimeOfDayAndNotByAClick) {
  Desk desk("0\n1\n2\n");
  desk.quote.LoadDailyQuote(kNow);
  EXPECT_THAT(desk.random.seeds, ElementsAre(14 * 3600 + 25 * 60 + 7));
  EXPECT_EQ(desk.random.drawn, 1);
  desk.quote.ShowAnother();
  EXPECT_EQ(desk.random.drawn, 2);
  desk.quote.LoadDailyQuote({On(2014, 12, 23), 0, 0, 1});
  EXPECT_THAT(desk.random.seeds, ElementsAre(14 * 3600 + 25 * 60 + 7, 1));
}

TEST(DailyQuote, OverADayShowsEveryQuoteButTheLast) {
  MemorySettingsStore settings;
  EXPECT_TRUE(settings.Write("Options", "ShowDailyQuotes", "True").ok());
  MemoryFileSystem files;
  files.files[kFile] = "0\n1\n2\n3\n4\n";
  SplitMixNumbers random;
  DailyQuote quote(settings, files, random, {"/opt/Tidewarden", "/data", PathStyle::kPosix});
  std::set<std::string> byBuilding;
  std::set<std::string> byClicking;
  for (int minute = 0; minute < 60; ++minute) {
    quote.LoadDailyQuote({On(2014, 12, 22), 14, minute, 0});
    byBuilding.insert(quote.text());
  }
  for (int click = 0; click < 60; ++click) {
    quote.ShowAnother();
    byClicking.insert(quote.text());
  }
  EXPECT_THAT(byBuilding, ElementsAre("0", "1", "2", "3"));
  EXPECT_THAT(byClicking, ElementsAre("0", "1", "2", "3"));
}

TEST(DailyQuote, ReadsTheFileAfreshOnEveryBuild) {
  Desk desk("Old\n");
  EXPECT_EQ(desk.Loaded(0), "Old");
  desk.files.files[kFile] = "New\n";
  EXPECT_EQ(desk.Clicked(0), "Old");
  EXPECT_EQ(desk.Loaded(0), "New");
}

TEST(DailyQuote, StopsAtTheLastNumberOfAQuote) {
  std::string content;
  for (int i = 0; i < 32'770; ++i) content += std::to_string(i) + "\n";
  Desk desk(content);
  desk.quote.LoadDailyQuote(kNow);
  EXPECT_EQ(desk.quote.quoteLastIndex(), 32'767);
  EXPECT_EQ(desk.quote.quotes().back(), "32767");
  EXPECT_EQ(desk.Loaded(kAlmostOne), "32766");
}

TEST(DailyQuote, LeavesAHugeFileAlone) {
  constexpr std::size_t kMost = std::size_t{4} * 1024 * 1024;
  Desk desk(std::string(kMost - 1, 'x') + "\n");
  desk.quote.LoadDailyQuote(kNow);
  EXPECT_TRUE(desk.quote.visible());
  desk.files.files[kFile] += "x";
  desk.quote.LoadDailyQuote(kNow);
  ExpectHidden(desk.quote);
}

TEST(DailyQuote, TakesNoUtf16) {
  using namespace std::string_literals;
  Desk desk("\xFF\xFEO\0n\0e\0\n\0"s);
  desk.quote.LoadDailyQuote(kNow);
  ExpectHidden(desk.quote);
  EXPECT_EQ(desk.quote.quoteLastIndex(), -1);
}

TEST(DailyQuote, KeepsMarkupAsItWasWritten) {
  Desk desk("<b>Be kind</b> & <i>rest</i>\n");
  EXPECT_EQ(desk.Loaded(0), "<b>Be kind</b> & <i>rest</i>");
}

// The file that comes with the program.
TEST(ShippedQuotes, AreManyShortAndAllDifferent) {
  std::ifstream in(test::SourceFolder() / "Quotes" / "Inspiration.txt", std::ios::binary);
  Desk desk(std::string(std::istreambuf_iterator<char>(in), {}));
  EXPECT_TRUE(desk.files.files[kFile].starts_with("//")) << "it explains itself";
  desk.quote.LoadDailyQuote(kNow);
  EXPECT_GE(desk.quote.quotes().size(), 150U);
  std::set<std::string> seen;
  int broken = 0;
  for (const std::string& quote : desk.quote.quotes()) {
    EXPECT_TRUE(seen.insert(ToLower(quote)).second) << "twice: " << quote;
    EXPECT_TRUE(IsValidUtf8(quote)) << quote;
    EXPECT_EQ(Trim(quote), quote) << "blanks at an end: " << quote;
    // Three or four lines of the smallest window.
    EXPECT_LE(CountCharacters(quote), 120U) << quote;
    EXPECT_LE(std::count(quote.begin(), quote.end(), '\n'), 2) << quote;
    EXPECT_TRUE(quote.ends_with('.') || quote.ends_with('?') || quote.ends_with('!')) << quote;
    if (quote.find('\n') != std::string::npos) ++broken;
  }
  EXPECT_GE(broken, 5) << "some show what a line break is for";
}

}  // namespace
}  // namespace tidewarden
