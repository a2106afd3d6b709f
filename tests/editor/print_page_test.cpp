// The page that is printed, against the pages in tests/data/pages and rule by rule.
#include "editor/print_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "dates/regional_text.h"
#include "editor/event_list.h"
#include "editor/html_text.h"
#include "platform/memory/memory_ports.h"
#include "tests/editor/page_cases.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

// Not in the unnamed namespace: GoogleTest looks for it beside the type.
void PrintTo(const PageCase& c, std::ostream* out) {
  *out << c.name;
}

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kHeadingStart = "    <td colspan=\"4\">";
const std::string kHeadingEnd = "</td>\r\n";
const std::string kSpacer = "&nbsp;";

// The texts of the rows that are headings or spacers, in their order.
std::vector<std::string> HeadingsOf(const std::string& page) {
  std::vector<std::string> headings;
  for (std::size_t at = page.find(kHeadingStart); at != std::string::npos;
       at = page.find(kHeadingStart, at)) {
    at += kHeadingStart.size();
    headings.push_back(page.substr(at, page.find(kHeadingEnd, at) - at));
  }
  return headings;
}

std::size_t Count(const std::string& page, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = page.find(text); at != std::string::npos; at = page.find(text, at + 1)) {
    ++count;
  }
  return count;
}

std::vector<EventRow> RowsOf(const std::string& events, const RegionalDateFormat& format,
                             std::optional<TodayCase> today = std::nullopt) {
  EventList list;
  EXPECT_TRUE(ReadEventList(events, format, On(2014, 12, 22), today, {}, list).ok());
  return list.rows;
}

std::string Print(const std::vector<EventRow>& rows, const PageOptions& options = {},
                  const RegionalDateFormat& format = MonthFirst()) {
  return PrintPage(rows, format, PatternRegionalFormats("MM/dd/yyyy"), options);
}

std::string Html(std::string_view text) {
  std::string out;
  AppendHtmlText(out, text);
  return out;
}

std::string Font(std::string_view name) {
  std::string out;
  AppendFontName(out, name);
  return out;
}

EventRow Row(const std::string& date, const std::string& title,
             const std::string& occurs = "yearly") {
  EventRow row;
  row.text = RowText(date, title, "7 days", occurs);
  return row;
}

class PrintedPage : public ::testing::TestWithParam<PageCase> {};

TEST_P(PrintedPage, IsTheKnownOneByteForByte) {
  EXPECT_EQ(PageOf(GetParam()), GetParam().page);
}

INSTANTIATE_TEST_SUITE_P(Pages, PrintedPage, ::testing::ValuesIn(PageCases()),
                         [](const auto& page) { return page.param.name; });

TEST(PrintedPages, NeverShowTheHeadingsOfSpecialRows) {
  for (const PageCase& c : PageCases()) {
    SCOPED_TRACE(c.name);
    EXPECT_THAT(PageOf(c), Not(HasSubstr("Non-Gregorian Calendar Holidays")));
    EXPECT_THAT(PageOf(c), Not(HasSubstr("Easter-Fixed Holidays")));
  }
}

TEST(PrintedPages, EndEveryLineInCrLf) {
  for (const PageCase& c : PageCases()) {
    SCOPED_TRACE(c.name);
    const std::string page = PageOf(c);
    EXPECT_EQ(Count(page, "\n"), Count(page, "\r\n"));
    EXPECT_EQ(Count(page, "\r"), Count(page, "\r\n"));
    EXPECT_THAT(page, EndsWith("\r\n</table>\r\n</body>\r\n</html>\r\n"));
  }
}

TEST(PrintedPages, AreTheSameForAnEmptyFileWithAndWithoutToday) {
  const std::string none = Print(RowsOf("", MonthFirst()));
  EXPECT_EQ(none, Print(RowsOf("", MonthFirst(), TodayCase::kCapitals)));
  EXPECT_EQ(none, Print(RowsOf("", MonthFirst(), TodayCase::kSmall)));
  EXPECT_EQ(Count(none, "<tr"), 0U);
}

struct WidthCase {
  std::string stored;
  std::string shown;
  std::string storedAfterwards;
};

TEST(PageOptions, AWidthOutOfRangeIsReplacedAndStored) {
  const std::vector<WidthCase> cases{
      {"49", "90", "90"},
      {"49.9", "90", "90"},
      {"100.5", "90", "90"},
      {"abc", "90", "90"},
      {"-75", "90", "90"},
      {"1e2", "90", "90"},
      {"50", "50", "50"},
      {"75.5", "75.5", "75.5"},
      {"100", "100", "100"},
      {"75.50", "75.5", "75.50"},
      {"80 %", "80", "80 %"},
      {"", "90", "90"},
      {"60\" onload=\"x", "60", "60\" onload=\"x"},
  };
  for (const WidthCase& c : cases) {
    SCOPED_TRACE(c.stored);
    MemorySettingsStore settings;
    if (!c.stored.empty()) {
      ASSERT_TRUE(settings.Write("Printing", "TableWidthAsPercentageOfPage", c.stored).ok());
    }
    settings.writes = 0;
    const PageOptions options = ReadPageOptions(settings);
    EXPECT_THAT(Print({}, options), HasSubstr("<table width=\"" + c.shown + "%\" border=\"0\" "));
    EXPECT_EQ(settings.At("Printing", "TableWidthAsPercentageOfPage"), c.storedAfterwards);
  }
}

TEST(PageOptions, AGoodWidthIsNotWrittenAgain) {
  MemorySettingsStore settings;
  static_cast<void>(ReadPageOptions(settings));
  settings.writes = 0;
  static_cast<void>(ReadPageOptions(settings));
  EXPECT_EQ(settings.writes, 0);
}

TEST(PageOptions, OnlyFalseTakesTheBorderAwayAndOnlyTrueGivesHeadingsAndKinds) {
  struct BooleanCase {
    std::string value;
    bool border;
    bool shown;
  };
  for (const BooleanCase& c : std::vector<BooleanCase>{{"True", true, true},
                                                       {"TRUE", true, true},
                                                       {"False", false, false},
                                                       {"fAlSe", false, false},
                                                       {"1", true, false},
                                                       {"yes", true, false}}) {
    SCOPED_TRACE(c.value);
    MemorySettingsStore settings;
    for (const char* const name :
         {"ShowTableBorder", "ShowMonthHeaders", "EventTypesToPrint0", "EventTypesToPrint7"}) {
      ASSERT_TRUE(settings.Write("Printing", name, c.value).ok());
    }
    const PageOptions options = ReadPageOptions(settings);
    EXPECT_EQ(options.hasBorder, c.border);
    EXPECT_EQ(options.hasMonthHeaders, c.shown);
    EXPECT_EQ(options.isPrinted[0], c.shown);
    EXPECT_EQ(options.isPrinted[7], c.shown);
    EXPECT_TRUE(options.isPrinted[3]);
  }
}

TEST(PageOptions, FontsArriveInLowerCase) {
  MemorySettingsStore settings;
  EXPECT_EQ(ReadPageOptions(settings).monthFont, "arial");
  ASSERT_TRUE(settings.Write("Printing", "EventFontName", "DejaVu Sans").ok());
  EXPECT_EQ(ReadPageOptions(settings).eventFont, "dejavu sans");
}

struct TypeCase {
  std::string occurs;
  PrintedType type;
};

const std::vector<TypeCase>& TypeCases() {
  static const std::vector<TypeCase> cases{
      {"yearly", PrintedType::kYearly},           {"YEARLY", PrintedType::kYearly},
      {"quarter", PrintedType::kQuarterly},       {"monthly", PrintedType::kMonthly},
      {"one2015", PrintedType::kOneTime},         {"One2999", PrintedType::kOneTime},
      {"one1999", PrintedType::kDayOfTheMonth},   {"14-2014", PrintedType::kEverySoManyDays},
      {"20~2014", PrintedType::kEverySoManyDays}, {"1-2014", PrintedType::kDayOfTheMonth},
      {"tdo2014", PrintedType::kUntilDone},       {"tdo1999", PrintedType::kDayOfTheMonth},
      {"df-2030", PrintedType::kCounter},         {"DP-1788", PrintedType::kCounter},
      {"1st mon", PrintedType::kDayOfTheMonth},   {"4th thu", PrintedType::kDayOfTheMonth},
      {"las mon", PrintedType::kDayOfTheMonth},   {"las day", PrintedType::kDayOfTheMonth},
      {"", PrintedType::kDayOfTheMonth},          {"1", PrintedType::kDayOfTheMonth},
  };
  return cases;
}

TEST(PrintedTypeOf, LooksAtTheOccursFieldInItsOrder) {
  for (const TypeCase& c : TypeCases()) EXPECT_EQ(PrintedTypeOf(c.occurs), c.type) << c.occurs;
}

TEST(PrintPage, LeavesOutExactlyTheKindsThatAreNotWanted) {
  std::vector<EventRow> rows;
  for (const TypeCase& c : TypeCases()) {
    // A row has at least seven characters of occurs; shorter ones stand behind the notice.
    if (c.occurs.size() >= 6) rows.push_back(Row("03.05", "kind " + c.occurs, c.occurs));
  }
  for (std::size_t left = 0; left < kPrintedTypes; ++left) {
    PageOptions options;
    options.isPrinted[left] = false;
    const std::string page = Print(rows, options);
    for (const TypeCase& c : TypeCases()) {
      if (c.occurs.size() < 6) continue;
      const bool isShown = page.find(">kind " + c.occurs + "<") != std::string::npos;
      EXPECT_EQ(isShown, static_cast<std::size_t>(c.type) != left) << c.occurs << " " << left;
    }
  }
}

TEST(PrintPage, ReadsTheMonthWhereTheLayoutHasIt) {
  for (const NamedLayout& layout : AllLayouts()) {
    SCOPED_TRACE(layout.name);
    for (int month = 1; month <= 12; ++month) {
      // Day 3 would be March if it were taken for the month.
      const std::string number = (month < 10 ? "0" : "") + std::to_string(month);
      const std::string page =
          Print(RowsOf(number + ".03,x,1,yearly\r\n", layout.format), {}, layout.format);
      EXPECT_THAT(HeadingsOf(page),
                  ::testing::ElementsAre(
                      EnglishCalendarNames().months[static_cast<std::size_t>(month - 1)]));
    }
  }
}

TEST(PrintPage, NamesAMonthByItsLeadingNumberAndAnyMonthInEitherCase) {
  EXPECT_THAT(HeadingsOf(Print({Row("1a.05", "x")})), ::testing::ElementsAre("January"));
  EXPECT_THAT(HeadingsOf(Print({Row("XX.05", "x")})), ::testing::ElementsAre("Monthly Events"));
  EXPECT_THAT(HeadingsOf(Print({Row("05.xX", "x")}, {}, DayFirst())),
              ::testing::ElementsAre("Monthly Events"));
}

TEST(PrintPage, WritesMonthNamesInTheUsersLanguage) {
  CalendarNames names = EnglishCalendarNames();
  names.months[0] = "января";
  names.monthsAlone[0] = "Январь";
  names.months[1] = "Février & Co";
  const PatternRegionalFormats formats("MM/dd/yyyy", names);
  const std::string page =
      PrintPage({Row("01.05", "x"), Row("02.05", "x")}, MonthFirst(), formats, PageOptions());
  EXPECT_THAT(HeadingsOf(page), ::testing::ElementsAre("&#1071;&#1085;&#1074;&#1072;&#1088;&#1100;",
                                                       kSpacer, "F\xE9vrier & Co"));
}

TEST(PrintPage, OpensAHeadingAgainBehindASpecialRow) {
  const std::string page = Print({Row("01.05", "a"), Row("_estr", "b"), Row("01.06", "c")});
  EXPECT_THAT(HeadingsOf(page), ::testing::ElementsAre("January", kSpacer, "January", kSpacer,
                                                       "Non-Gregorian Holidays"));
}

TEST(PrintPage, HasNoSpacerBeforeTheFirstHeadingBehindSpecialRows) {
  const std::string page = Print({Row("_estr", "a"), Row("01.05", "b")});
  EXPECT_THAT(HeadingsOf(page),
              ::testing::ElementsAre("January", kSpacer, "Non-Gregorian Holidays"));
}

TEST(PrintPage, TellsSpecialRowsByTheBeginningOfTheirDate) {
  for (const std::string date :
       {"e-001", "E-001", "e+001", "E+001", "_estr", "_VICT", "_xyzw", "eastr", "EASTR"}) {
    EXPECT_THAT(HeadingsOf(Print({Row(date, "x")})),
                ::testing::ElementsAre("Non-Gregorian Holidays"))
        << date;
  }
}

TEST(PrintPage, CountsOnlyPrintedRowsForTheWidths) {
  PageOptions options;
  options.isPrinted[static_cast<std::size_t>(PrintedType::kMonthly)] = false;
  std::vector<EventRow> rows{Row("12.22", "gone", "monthly"), Row("12.23", "first"),
                             Row("12.24", "second")};
  EventRow today = MakeTodayRow(On(2014, 12, 22), TodayCase::kCapitals, MonthFirst());
  rows.insert(rows.begin(), today);
  const std::string page = Print(rows, options);
  EXPECT_EQ(Count(page, " width=\"63%\">first<"), 1U);
  EXPECT_EQ(Count(page, " width=\""), 5U);  // of the table and of four cells
}

TEST(PrintPage, PrintsNoRowThatHoldsTheMarkOfToday) {
  for (const std::string title : {"a  <TODAY>", "a  <today> b", " <Today>"}) {
    EXPECT_EQ(Count(Print({Row("12.22", title)}), "<tr"), 0U) << title;
  }
  EXPECT_EQ(Count(Print({Row("12.22", "a <TODAY>")}), "<tr class=\"event\">"), 1U);
}

TEST(PrintPage, TakesTheFieldsFromTheirPositions) {
  const std::string title = "\xC3\x84" + std::string(37, 'b');
  const std::string page = Print({Row("01.05", title + "cut", "one20142014")});
  EXPECT_THAT(page, HasSubstr(">\xC4" + std::string(37, 'b') + "<"));
  EXPECT_THAT(page, HasSubstr(">7 days<"));
  EXPECT_THAT(page, HasSubstr(">one20142014<"));
}

struct TextCase {
  std::string text;
  std::string written;
};

TEST(HtmlText, IsWrittenAsTypedExceptWhereItWouldBeMarkup) {
  const std::vector<TextCase> cases{
      {"<1788> Australia Day", "<1788> Australia Day"},
      {"Summer Bank Holiday (Scot & Ire)", "Summer Bank Holiday (Scot & Ire)"},
      {"<b>x</b>", "&lt;b>x&lt;/b>"},
      {"<", "<"},
      {"<<b", "<&lt;b"},
      {"a < b", "a < b"},
      {"<!x", "&lt;!x"},
      {"<?x", "&lt;?x"},
      {"</3", "&lt;/3"},
      {"<3", "<3"},
      {"<\xC3\xA9", "<\xE9"},
      {"R&D", "R&D"},
      {"&", "&"},
      {"&&amp;", "&&amp;amp;"},
      {"&lt;b>", "&amp;lt;b>"},
      {"&LT", "&amp;LT"},
      {"&notanything", "&amp;notanything"},
      {"&Not", "&Not"},
      {"&hearts", "&hearts"},
      {"&hearts;", "&amp;hearts;"},
      {"&frac12x", "&amp;frac12x"},
      {"&#1046;", "&amp;#1046;"},
      {"&#9", "&amp;#9"},
      {"&#xA", "&amp;#xA"},
      {"&#Xa", "&amp;#Xa"},
      {"&#x", "&#x"},
      {"&#;", "&#;"},
      {"&#g", "&#g"},
      {"\"'>;=", "\"'>;="},
  };
  for (const TextCase& c : cases) EXPECT_EQ(Html(c.text), c.written) << c.text;
}

TEST(HtmlText, IsLatin1WithReferencesForEverythingElse) {
  const std::vector<TextCase> cases{
      {"\xC3\xA9", "\xE9"},
      {"\xC2\xA0", "\xA0"},
      {"\xC3\xBF", "\xFF"},
      {"\xC4\x80", "&#256;"},
      {"\xD0\x96", "&#1046;"},
      {"\xF0\x9F\x8E\x82", "&#127874;"},
      {"\xF4\x8F\xBF\xBF", "&#1114111;"},
      {"~", "~"},
      {"\x7F", "&#127;"},
      {"\xC2\x80", "&#128;"},
      {"\xC2\x9F", "&#159;"},
      {"\x1F ", "&#31; "},
      {"\t", "&#9;"},
      {"a\xFFz", "a\xFFz"},  // a byte of no character, as Latin-1
      {"a\x81z", "a&#129;z"},
  };
  for (const TextCase& c : cases) EXPECT_EQ(Html(c.text), c.written) << c.text;
  EXPECT_EQ(Html(std::string_view("\0", 1)), "&#0;");
}

TEST(FontName, CannotLeaveItsPlaceInTheStyleSheet) {
  const std::vector<TextCase> cases{
      {"arial", "arial"},
      {"\"times new roman\", serif", "\"times new roman\", serif"},
      {"a}</style><b>{;", "a/style>b>"},
      {"a\r\nb\tc\x7F", "abc"},
      {"\xC2\x85x", "x"},
      {"\xC3\xBC", "\xFC"},
      {"\xE3\x82\xB4!", "\\30b4 !"},
      {"", ""},
  };
  for (const TextCase& c : cases) EXPECT_EQ(Font(c.text), c.written) << c.text;
}

}  // namespace
}  // namespace tidewarden::test
