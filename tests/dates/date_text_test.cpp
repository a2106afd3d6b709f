#include "dates/date_text.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <vector>

#include "dates/regional_text.h"
#include "tests/dates/data_rows.h"
#include "tests/dates/naive_calendar.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

// Answers with given month abbreviations; short dates are not asked for.
class NamesOnly : public RegionalFormats {
 public:
  explicit NamesOnly(std::array<std::string, 12> months) : months_(std::move(months)) {}

  [[nodiscard]] std::string ShortDate(CivilDate /*date*/) const override { return {}; }
  [[nodiscard]] std::string DayAndMonthName(CivilDate date, DayMonthOrder order,
                                            std::string_view separator) const override {
    const std::string& month = months_[static_cast<std::size_t>(MonthOf(date) - 1)];
    const std::string day = std::to_string(DayOf(date));
    return order == DayMonthOrder::kDayFirst ? day + std::string(separator) + month
                                             : month + std::string(separator) + day;
  }
  [[nodiscard]] std::string WeekdayName(int weekday) const override {
    return "day " + std::to_string(weekday);
  }
  [[nodiscard]] std::string MonthName(int month) const override {
    return "month " + std::to_string(month);
  }

 private:
  std::array<std::string, 12> months_;
};

const PatternRegionalFormats& English() {
  static const PatternRegionalFormats formats("MM/dd/yyyy");
  return formats;
}

std::optional<RegionalDateFormat> Detect(std::string_view probe) {
  return DetectRegionalDateFormat(probe, English());
}

struct LayoutCase {
  const char* probe;
  const char* separator;
  const char* display;
  const char* full;
  int month;
  int day;
  int year;
  bool twoDigitYear;
};

const LayoutCase kLayouts[] = {
    {"12/31/1992", "/", "mm/dd/yyyy", "mm/dd/yyyy", 1, 4, 7, false},
    {"12-31-1992", "-", "mm-dd-yyyy", "mm-dd-yyyy", 1, 4, 7, false},
    {"12.31.1992", ".", "mm.dd.yyyy", "mm.dd.yyyy", 1, 4, 7, false},
    {"12 31 1992", " ", "mm dd yyyy", "mm dd yyyy", 1, 4, 7, false},
    {"12/31/92", "/", "mm/dd/yyyy", "mm/dd/yyyy", 1, 4, 7, false},
    {"31/12/1992", "/", "dd/mm/yyyy", "dd/mm/yyyy", 4, 1, 7, false},
    {"31-12-1992", "-", "dd-mm-yyyy", "dd-mm-yyyy", 4, 1, 7, false},
    {"31.12.1992", ".", "dd.mm.yyyy", "dd.mm.yyyy", 4, 1, 7, false},
    {"31 12 1992", " ", "dd mm yyyy", "dd mm yyyy", 4, 1, 7, false},
    {"31.12.92", ".", "dd.mm.yyyy", "dd.mm.yyyy", 4, 1, 7, false},
    {"31/Dec/1992", "/", "dd/mm/yyyy", "dd/mm/yyyy", 4, 1, 7, false},
    {"31-Dec-92", "-", "dd-mm-yyyy", "dd-mm-yyyy", 4, 1, 7, false},
    {"31-DEC-92", "-", "dd-mm-yyyy", "dd-mm-yyyy", 4, 1, 7, false},
    {"31.Dez.1992", ".", "dd.mm.yyyy", "dd.mm.yyyy", 4, 1, 7, false},
    {"31 Dez 1992", " ", "dd mm yyyy", "dd mm yyyy", 4, 1, 7, false},
    {"31 de diciembre", " ", "dd mm yyyy", "dd mm yyyy", 4, 1, 7, false},
    {"1992/12/31", "/", "yyyy/mm/dd", "yyyy/mm/dd", 6, 9, 1, false},
    {"1992-12-31", "-", "yyyy-mm-dd", "yyyy-mm-dd", 6, 9, 1, false},
    {"1992.12.31.", ".", "yyyy.mm.dd", "yyyy.mm.dd", 6, 9, 1, false},
    {"1992 12 31", " ", "yyyy mm dd", "yyyy mm dd", 6, 9, 1, false},
    {"1992-Dec-31", "-", "yyyy-mm-dd", "yyyy-mm-dd", 6, 9, 1, false},
    {"92/12/31", "/", "yy/mm/dd", "yyyy/mm/dd", 6, 9, 1, true},
    {"92-12-31", "-", "yy-mm-dd", "yyyy-mm-dd", 6, 9, 1, true},
    {"92.12.31.", ".", "yy.mm.dd", "yyyy.mm.dd", 6, 9, 1, true},
    {"92 12 31", " ", "yy mm dd", "yyyy mm dd", 6, 9, 1, true},
    // Whatever follows the head is not looked at.
    {"12/31, 1992 AD", "/", "mm/dd/yyyy", "mm/dd/yyyy", 1, 4, 7, false},
    {"12/31", "/", "mm/dd/yyyy", "mm/dd/yyyy", 1, 4, 7, false},
};

TEST(DetectRegionalDateFormatTest, FindsOrderAndSeparatorFromTheHead) {
  for (const LayoutCase& c : kLayouts) {
    SCOPED_TRACE(c.probe);
    const auto format = Detect(c.probe);
    ASSERT_TRUE(format.has_value());
    EXPECT_EQ(format->DateSeparator, c.separator);
    EXPECT_EQ(format->DisplayDateFormat, c.display);
    EXPECT_EQ(format->FullDateFormat, c.full);
    EXPECT_EQ(format->MonthPosition, c.month);
    EXPECT_EQ(format->DayPosition, c.day);
    EXPECT_EQ(format->YearPosition, c.year);
    EXPECT_EQ(format->TwoDigitYear, c.twoDigitYear);
    EXPECT_EQ(format->IsMonthFirst(), c.month == 1);
    EXPECT_EQ(format->IsDayFirst(), c.month == 4);
    EXPECT_EQ(format->IsYearFirst(), c.month == 6);
  }
}

TEST(DetectRegionalDateFormatTest, RefusesLayoutsItCannotPlace) {
  for (const char* probe : {"",
                            "12",
                            "12/3",
                            "Dec 31, 1992",
                            "December 31",
                            "31. 12. 1992",
                            "31. 12. 92",
                            "92. 12. 31.",
                            "31-dic-1992",
                            "31-d\xC3\xA9"
                            "c-1992",
                            "31/gru/1992",
                            "31,12,1992",
                            "12,31,1992",
                            "1992,12,31",
                            "1992\xE5\xB9\xB4"
                            "12\xE6\x9C\x88",
                            "19921231",
                            " 12/31/1992",
                            "92,12,31",
                            "31_12_1992",
                            "Thu 31/12/1992",
                            "\xD9\xA3\xD9\xA1/\xD9\xA1\xD9\xA2/1992"}) {
    EXPECT_FALSE(Detect(probe).has_value()) << probe;
  }
}

TEST(DetectRegionalDateFormatTest, TakesTheNamesFromTheSystem) {
  const auto format = Detect("12/31/1992");
  ASSERT_TRUE(format.has_value());
  EXPECT_EQ(format->MonthNames[0], "");
  EXPECT_EQ(format->MonthNames[1], "Jan");
  EXPECT_EQ(format->MonthNames[12], "Dec");
  EXPECT_EQ(format->WeekdayNames[1], "Sunday");
  EXPECT_EQ(format->WeekdayNames[7], "Saturday");
}

TEST(DetectRegionalDateFormatTest, ShowsExamplesOfEntries) {
  const auto examples = [](std::string_view probe) {
    const auto format = Detect(probe);
    return format->DateEntryExample + " | " + format->MonthEntryExample;
  };
  EXPECT_EQ(examples("12/31/1992"), "12/31 or dec31 | 12 or dec");
  EXPECT_EQ(examples("31.12.1992"), "31.12 or 31dec | 12 or dec");
  EXPECT_EQ(examples("1992-12-31"), "31-12 or 31dec | 12 or dec");
  EXPECT_EQ(examples("92/12/31"), "31/12 or 31dec | 12 or dec");
  const NamesOnly czech({"led", "\xC3\xBAno",
                         "b\xC5\x99"
                         "e",
                         "dub", "kv\xC4\x9B", "\xC4\x8Dvn",
                         "\xC4\x8D"
                         "vc",
                         "srp", "z\xC3\xA1\xC5\x99", "\xC5\x99\xC3\xADj", "lis", "PRO"});
  EXPECT_EQ(DetectRegionalDateFormat("31.12.1992", czech)->DateEntryExample, "31.12 or 31pro");
}

TEST(UnsupportedLayoutMessageTest, HasThreeLinesAndTwoBlanksAfterTheName) {
  EXPECT_EQ(kUnsupportedLayoutMessage,
            "Please forgive our humble little freeware offering, but your regional setting "
            "currently\nis not supported by Tidewarden.  Please email us your Short Date setting "
            "as listed in\nControl Panel | Regional Options and we will work to add support for "
            "your Regional Settings.");
}

struct NamesCase {
  const char* language;
  std::array<std::string, 12> given;
  std::array<std::string, 12> names;
};

const std::array<std::string, 12> kEnglishNames{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

const NamesCase kNames[] = {
    {"English", kEnglishNames, kEnglishNames},
    {"German",
     {"Jan.", "Feb.", "M\xC3\xA4rz", "Apr.", "Mai", "Juni", "Juli", "Aug.", "Sept.", "Okt.", "Nov.",
      "Dez."},
     {"Jan", "Feb", "M\xC3\xA4r", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"}},
    {"French, whose June and July begin alike",
     {"janv.", "f\xC3\xA9vr.", "mars", "avr.", "mai", "juin", "juil.", "ao\xC3\xBBt", "sept.",
      "oct.", "nov.",
      "d\xC3\xA9"
      "c."},
     {"jan", "f\xC3\xA9v", "mar", "avr", "mai", "jun", "jul", "ao\xC3\xBB", "sep", "oct", "nov",
      "d\xC3\xA9"
      "c"}},
    {"a language whose June and July begin with iyu",
     {"yan", "fev", "mar", "apr", "may", "iyun", "iyul", "avg", "sen", "okt", "noy", "dek"},
     {"yan", "fev", "mar", "apr", "may", "iyn", "iyl", "avg", "sen", "okt", "noy", "dek"}},
    {"capitals are not corrected",
     {"Jan", "Fev", "Mar", "Avr", "Mai", "Juin", "Juil", "Aou", "Sep", "Oct", "Nov", "Dec"},
     {"Jan", "Fev", "Mar", "Avr", "Mai", "Jui", "Jui", "Aou", "Sep", "Oct", "Nov", "Dec"}},
    {"one of the pair alone is not corrected",
     {"jan", "fev", "mar", "avr", "mai", "jui", "jul", "aou", "sep", "oct", "nov", "dec"},
     {"jan", "fev", "mar", "avr", "mai", "jui", "jul", "aou", "sep", "oct", "nov", "dec"}},
    {"Estonian, eleven different names",
     {"jaan", "veebr", "m\xC3\xA4rts", "apr", "mai", "juuni", "juuli", "aug", "sept", "okt", "nov",
      "dets"},
     {"jaa", "vee", "m\xC3\xA4r", "apr", "mai", "juu", "juu", "aug", "sep", "okt", "nov", "det"}},
    {"Russian, counted in characters",
     {"\xD1\x8F\xD0\xBD\xD0\xB2\xD0\xB0\xD1\x80\xD1\x8F",
      "\xD1\x84\xD0\xB5\xD0\xB2\xD1\x80\xD0\xB0\xD0\xBB\xD1\x8F",
      "\xD0\xBC\xD0\xB0\xD1\x80\xD1\x82\xD0\xB0",
      "\xD0\xB0\xD0\xBF\xD1\x80\xD0\xB5\xD0\xBB\xD1\x8F", "\xD0\xBC\xD0\xB0\xD1\x8F",
      "\xD0\xB8\xD1\x8E\xD0\xBD\xD1\x8F", "\xD0\xB8\xD1\x8E\xD0\xBB\xD1\x8F",
      "\xD0\xB0\xD0\xB2\xD0\xB3\xD1\x83\xD1\x81\xD1\x82\xD0\xB0",
      "\xD1\x81\xD0\xB5\xD0\xBD\xD1\x82", "\xD0\xBE\xD0\xBA\xD1\x82", "\xD0\xBD\xD0\xBE\xD1\x8F",
      "\xD0\xB4\xD0\xB5\xD0\xBA"},
     {"\xD1\x8F\xD0\xBD\xD0\xB2", "\xD1\x84\xD0\xB5\xD0\xB2", "\xD0\xBC\xD0\xB0\xD1\x80",
      "\xD0\xB0\xD0\xBF\xD1\x80", "\xD0\xBC\xD0\xB0\xD1\x8F", "\xD0\xB8\xD1\x8E\xD0\xBD",
      "\xD0\xB8\xD1\x8E\xD0\xBB", "\xD0\xB0\xD0\xB2\xD0\xB3", "\xD1\x81\xD0\xB5\xD0\xBD",
      "\xD0\xBE\xD0\xBA\xD1\x82", "\xD0\xBD\xD0\xBE\xD1\x8F", "\xD0\xB4\xD0\xB5\xD0\xBA"}},
    {"Chinese, whose numbers lose their 1 and 5",
     {"1\xE6\x9C\x88", "2\xE6\x9C\x88", "3\xE6\x9C\x88", "4\xE6\x9C\x88", "5\xE6\x9C\x88",
      "6\xE6\x9C\x88", "7\xE6\x9C\x88", "8\xE6\x9C\x88", "9\xE6\x9C\x88", "10\xE6\x9C\x88",
      "11\xE6\x9C\x88", "12\xE6\x9C\x88"},
     kEnglishNames},
    {"Vietnamese, twelve equal beginnings",
     {"thg 1", "thg 2", "thg 3", "thg 4", "thg 5", "thg 6", "thg 7", "thg 8", "thg 9", "thg 10",
      "thg 11", "thg 12"},
     kEnglishNames},
    {"an empty name",
     {"Jan", "Feb", "Mar", "Apr", "", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
     kEnglishNames},
    {"a name of nothing but what is deleted",
     {"Jan", "Feb", "Mar", "Apr", "15", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
     kEnglishNames},
    {"ten different names",
     {"aaa", "aaa", "aaa", "ddd", "eee", "fff", "ggg", "hhh", "iii", "jjj", "kkk", "lll"},
     kEnglishNames},
    {"short names",
     {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"},
     {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"}},
};

TEST(BuildMonthNamesTest, TakesThreeCharactersInEveryLayout) {
  for (const NamesCase& c : kNames) {
    for (const NamedLayout& layout : AllLayouts()) {
      SCOPED_TRACE(std::string(c.language) + ", " + layout.name);
      RegionalDateFormat format = layout.format;
      BuildMonthNames(format, NamesOnly(c.given));
      for (std::size_t month = 1; month <= 12; ++month) {
        EXPECT_EQ(format.MonthNames[month], c.names[month - 1]) << month;
      }
      EXPECT_EQ(format.MonthNames[0], "");
    }
  }
}

TEST(BuildMonthNamesTest, DeletesTheSeparatorFromTheName) {
  const std::array<std::string, 12> pointed{"j.an", "f.eb", "m.ar", "a.pr", "m.ay", "x.un",
                                            "y.ul", "a.ug", "s.ep", "o.ct", "n.ov", "d.ec"};
  RegionalDateFormat points = DayFirst();
  BuildMonthNames(points, NamesOnly(pointed));
  EXPECT_EQ(points.MonthNames[1], "jan");
  RegionalDateFormat dashes = YearFirst();
  BuildMonthNames(dashes, NamesOnly(pointed));
  EXPECT_EQ(dashes.MonthNames[1], "j.a");
}

TEST(BuildMonthNamesTest, AsksForTheDayAndMonthInTheLayoutsOrder) {
  class Recorder : public NamesOnly {
   public:
    Recorder() : NamesOnly(kEnglishNames) {}
    [[nodiscard]] std::string DayAndMonthName(CivilDate date, DayMonthOrder order,
                                              std::string_view separator) const override {
      EXPECT_EQ(DayOf(date), 15);
      orders.insert(order);
      separators.insert(std::string(separator));
      return NamesOnly::DayAndMonthName(date, order, separator);
    }
    mutable std::set<DayMonthOrder> orders;
    mutable std::set<std::string> separators;
  };
  for (const NamedLayout& layout : AllLayouts()) {
    SCOPED_TRACE(layout.name);
    RegionalDateFormat format = layout.format;
    const Recorder recorder;
    BuildMonthNames(format, recorder);
    EXPECT_EQ(recorder.orders, (std::set{layout.name == "MonthFirst" ? DayMonthOrder::kMonthFirst
                                                                     : DayMonthOrder::kDayFirst}));
    EXPECT_EQ(recorder.separators, std::set{layout.format.DateSeparator});
  }
}

TEST(FormatDateTest, WritesTwoTwoAndFourDigitsInTheLayoutsOrder) {
  EXPECT_EQ(FormatDate(On(2015, 3, 5), MonthFirst()), "03/05/2015");
  EXPECT_EQ(FormatDate(On(2015, 3, 5), DayFirst()), "05.03.2015");
  EXPECT_EQ(FormatDate(On(2015, 3, 5), YearFirst()), "2015-03-05");
  EXPECT_EQ(FormatDate(On(2015, 3, 5), TwoDigitYearFirst()), "2015/03/05");
  EXPECT_EQ(FormatDate(On(50, 6, 1), MonthFirst()), "06/01/0050");
  EXPECT_EQ(FormatDate(On(0, 6, 1), TwoDigitYearFirst()), "0000/06/01");
  EXPECT_EQ(FormatDate(On(2015, 3, 5), LayoutOf("dd MM yyyy")), "05 03 2015");
}

TEST(AppendDateTest, KeepsWhatIsThere) {
  for (const NamedLayout& layout : AllLayouts()) {
    std::string text = "on ";
    AppendDate(text, On(2014, 12, 31), layout.format);
    EXPECT_EQ(text, "on " + FormatDate(On(2014, 12, 31), layout.format));
  }
}

TEST(ReadFullDateTest, ReadsBackEveryFormattedDay) {
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  for (const NamedLayout& layout : AllLayouts()) {
    for (int i = pages.IndexOf(1995, 1, 1); i < pages.IndexOf(2005, 1, 1); ++i) {
      const CivilDate date = pages.At(i).ToDate();
      ASSERT_EQ(ReadFullDate(FormatDate(date, layout.format), layout.format), date)
          << layout.name << " " << TextOf(date);
    }
    for (const CivilDate date : {On(0, 1, 1), On(50, 2, 28), On(9999, 12, 31)}) {
      EXPECT_EQ(ReadFullDate(FormatDate(date, layout.format), layout.format), date);
    }
  }
}

TEST(ReadFullDateTest, IsStrict) {
  const RegionalDateFormat format = MonthFirst();
  EXPECT_EQ(ReadFullDate("12/31/2014", format), On(2014, 12, 31));
  EXPECT_EQ(ReadFullDate("12-31-2014", format), On(2014, 12, 31));
  EXPECT_EQ(ReadFullDate("12-25/2014", format), On(2014, 12, 25));
  for (const char* text :
       {"",           "12/31/14",   "1/1/2014",    "01/1/20145",  "31/12/2014", "02/30/2015",
        "02/29/2015", "00/10/2015", "10/00/2015",  "xx/15/2015",  "12/xx/2015", " 1/05/2015",
        "1 /05/2015", "-1/05/2015", "12/31/2014 ", " 12/31/2014", "12/31/201x", "12/31/-014",
        "_estr/2014", "2014/12/31"}) {
    EXPECT_FALSE(ReadFullDate(text, format).has_value()) << text;
  }
  EXPECT_FALSE(ReadFullDate("12.31.2014", DayFirst()).has_value());
  EXPECT_FALSE(ReadFullDate("2014-31-12", YearFirst()).has_value());
  EXPECT_FALSE(ReadFullDate("14/12/31", TwoDigitYearFirst()).has_value());
  EXPECT_EQ(ReadFullDate("2014/12/31", TwoDigitYearFirst()), On(2014, 12, 31));
}

struct TypedCase {
  const char* typed;
  int day;
  int month;
};

struct TypedLayout {
  const char* pattern;
  std::vector<TypedCase> cases;
};

const std::vector<TypedLayout>& TypedLayouts() {
  static const std::vector<TypedCase> yearFirst{
      // Three parts are year, month and day; two are day and month.
      {"2014.12.31", 31, 12}, {"2014-12-31", 31, 12}, {"2014/12/31", 31, 12},
      {"2014 12 31", 31, 12}, {"14.12.31", 31, 12},   {"31.12", 31, 12},
      {"31-12", 31, 12},      {"1.2", 1, 2},          {"1.2.3", 0, 0},
      {"14.1.2", 2, 1},       {"31.12.", 0, 12},      {"12", 0, 0}};
  static const std::vector<TypedLayout> layouts{
      {"MM/dd/yyyy",
       {{"12/31", 31, 12},
        {"12.31", 31, 12},
        {"12-31", 31, 12},
        {"12 31", 31, 12},
        {"1.2", 2, 1},
        {"1.2x", 2, 1},
        {"12/31/2014", 31, 12},
        {"12-31.2014", 31, 12},
        {"12 31 14", 31, 12},
        // The length decides how many parts there must be.
        {"1.1.1", 0, 0},
        {"1.1.14", 1, 1},
        {"12.31.", 31, 12},
        {"12. 31", 0, 12},
        {"012.31", 0, 0},
        {".1.", 0, 0},
        {"..", 0, 0},
        {".5", 5, 0},
        {"5.", 0, 5},
        {"......", 0, 0},
        {"", 0, 0},
        {"12", 0, 0},
        {"1231", 0, 0},
        {"1/2/3/4", 0, 0},
        {"ab.cd", 0, 0},
        {"1a.2b", 2, 1},
        {"+1.+2", 2, 1},
        {"xx.15", 15, 0},
        // Minus is a separator.
        {"-1.2", 0, 0},
        {"1.-2", 0, 0},
        // More than sixteen bits.
        {"12.32767.1", 32767, 12},
        {"12.32768.1", 0, 12},
        {"99999.31.1", 31, 0},
        {"12.99999999999999999999.1", 0, 12}}},
      {"dd.MM.yyyy",
       {{"31.12", 31, 12},
        {"31/12", 31, 12},
        {"31 12 2014", 31, 12},
        {"31.12.2014", 31, 12},
        {"31-12-14", 31, 12},
        {"1.1.1", 0, 0},
        {"1.2.14", 1, 2},
        {"31.12.", 31, 12},
        {"31. 12", 31, 0},
        {"31", 0, 0}}},
      {"yyyy-MM-dd", yearFirst},
      {"yy/MM/dd", yearFirst},
  };
  return layouts;
}

TEST(ExtractDayTest, TakesThePartThatTheLayoutNames) {
  for (const TypedLayout& layout : TypedLayouts()) {
    const RegionalDateFormat format = LayoutOf(layout.pattern);
    for (const TypedCase& c : layout.cases) {
      EXPECT_EQ(ExtractDay(c.typed, format), c.day) << layout.pattern << ": " << c.typed;
    }
  }
}

TEST(ExtractMonthTest, TakesThePartThatTheLayoutNames) {
  for (const TypedLayout& layout : TypedLayouts()) {
    const RegionalDateFormat format = LayoutOf(layout.pattern);
    for (const TypedCase& c : layout.cases) {
      EXPECT_EQ(ExtractMonth(c.typed, format), c.month) << layout.pattern << ": " << c.typed;
    }
  }
}

TEST(ExtractDayTest, CountsCharactersNotBytes) {
  // Five characters, so two parts are right.
  EXPECT_EQ(ExtractDay("1.2\xC3\xA9x", MonthFirst()), 2);
  EXPECT_EQ(ExtractMonth("\xC3\xA9\xC3\xA9.15", MonthFirst()), 0);
  EXPECT_EQ(ExtractDay("\xC3\xA9\xC3\xA9.15", MonthFirst()), 15);
}

struct NormalizeCase {
  const char* typed;
  const char* text;  // the normalized text
  int year;
};

struct NormalizeLayout {
  const char* pattern;
  std::vector<NormalizeCase> cases;
};

const std::vector<NormalizeLayout>& NormalizeLayouts() {
  static const std::vector<NormalizeLayout> layouts{
      {"MM/dd/yyyy",
       {{"12.31.14", "12/31/2014", 2014},
        {"12.31.88", "12/31/1988", 1988},
        {"12 31 2014", "12/31/2014", 2014},
        {"12-31/2014", "12/31/2014", 2014},
        {"1.2.2014", "01/02/2014", 2014},
        {"12/31", "12/31/2015", 2015},
        {"1.2", "01/02/2015", 2015},
        {"2.28", "02/28/2015", 2015},
        // The length does not matter.
        {"1.1.5", "01/01/2005", 2005},
        {"1/1/9", "01/01/2009", 2009},
        {"2.3.4", "02/03/2004", 2004},
        {"012.31", "12/31/2015", 2015},
        {"0012 0031", "12/31/2015", 2015},
        // The pivot of a year of one or two digits.
        {"12.31.0", "12/31/2000", 2000},
        {"12.31.9", "12/31/2009", 2009},
        {"12.31.29", "12/31/2029", 2029},
        {"12.31.30", "12/31/1930", 1930},
        {"12.31.99", "12/31/1999", 1999},
        {"12.31.00", "12/31/2000", 2000},
        // Three and four digits stand for themselves.
        {"12.31.014", "12/31/0014", 14},
        {"12.31.0050", "12/31/0050", 50},
        {"12.31.999", "12/31/0999", 999},
        {"12.31.9999", "12/31/9999", 9999},
        {"02.29.2016", "02/29/2016", 2016},
        // No real date.
        {"13.31.2014", "", 0},
        {"31.12.2014", "", 0},
        {"2.29.2015", "", 0},
        {"2.29", "", 0},
        {"2.30", "", 0},
        {"4.31.2014", "", 0},
        {"0.10.2014", "", 0},
        {"10.0.2014", "", 0},
        {"12.31.20145", "", 0},
        {"Dec 31 2014", "", 0},
        {"12.31.", "", 0},
        {"12..2014", "", 0},
        {"12.3x.2014", "", 0},
        {"1a.31.2014", "", 0},
        {"12.3.", "", 0},
        {"1..5", "", 0},
        {"1.2.3.4", "", 0},
        {"12.31.2014.", "", 0},
        {"12", "", 0},
        {"12312014", "", 0},
        {"", "", 0}}},
      {"dd.MM.yyyy",
       {{"31.12.14", "31.12.2014", 2014},
        {"31 12 2014", "31.12.2014", 2014},
        {"31/12", "31.12.2015", 2015},
        {"1-2", "01.02.2015", 2015},
        {"1.2.3", "01.02.2003", 2003},
        {"031.12", "31.12.2015", 2015},
        {"12.31.2014", "", 0},
        {"29.2", "", 0},
        {"29.2.16", "29.02.2016", 2016}}},
      {"yyyy-MM-dd",
       {{"2014.12.31", "2014-12-31", 2014},
        {"2014/1/2", "2014-01-02", 2014},
        {"14.12.31", "2014-12-31", 2014},
        {"88-12-31", "1988-12-31", 1988},
        // Two parts are day and month.
        {"31.12", "2015-12-31", 2015},
        {"031.12", "2015-12-31", 2015},
        {"1.2.3", "2001-02-03", 2001},
        {"12.31", "", 0},
        {"31.12.2014", "", 0}}},
      {"yy/MM/dd",
       {{"14/12/31", "2014/12/31", 2014},
        {"2014/12/31", "2014/12/31", 2014},
        {"30 1 2", "1930/01/02", 1930},
        {"31/12", "2015/12/31", 2015},
        {"12/31", "", 0}}},
  };
  return layouts;
}

TEST(NormalizeDateTextTest, GivesAFullDateTextOrNothing) {
  for (const NormalizeLayout& layout : NormalizeLayouts()) {
    const RegionalDateFormat format = LayoutOf(layout.pattern);
    for (const NormalizeCase& c : layout.cases) {
      EXPECT_EQ(NormalizeDateText(c.typed, format, 2015), c.text)
          << layout.pattern << ": " << c.typed;
    }
  }
}

TEST(ExtractYearTest, IsTheYearOfTheNormalizedText) {
  for (const NormalizeLayout& layout : NormalizeLayouts()) {
    const RegionalDateFormat format = LayoutOf(layout.pattern);
    for (const NormalizeCase& c : layout.cases) {
      EXPECT_EQ(ExtractYear(c.typed, format, 2015), c.year) << layout.pattern << ": " << c.typed;
    }
  }
}

TEST(NormalizeDateTextTest, KeepsAFullDateTextAsItIs) {
  for (const NamedLayout& layout : AllLayouts()) {
    for (const CivilDate date : {On(2014, 12, 31), On(2016, 2, 29), On(50, 1, 2)}) {
      const std::string text = FormatDate(date, layout.format);
      EXPECT_EQ(NormalizeDateText(text, layout.format, 2015), text) << layout.name;
      EXPECT_EQ(ExtractYear(text, layout.format, 2015), YearOf(date)) << layout.name;
      EXPECT_EQ(ExtractMonth(text, layout.format), MonthOf(date)) << layout.name;
      EXPECT_EQ(ExtractDay(text, layout.format), DayOf(date)) << layout.name;
    }
  }
}

TEST(BuildDateTextTest, JoinsFieldAndYear) {
  EXPECT_EQ(BuildDateText("12.25", "2014", MonthFirst()), "12/25/2014");
  EXPECT_EQ(BuildDateText("25.12", "2014", DayFirst()), "25.12.2014");
  EXPECT_EQ(BuildDateText("12.25", "2014", YearFirst()), "2014-12-25");
  EXPECT_EQ(BuildDateText("12.25", "2014", TwoDigitYearFirst()), "2014/12/25");
  EXPECT_EQ(BuildDateText("12.25", "0050", TwoDigitYearFirst()), "0050/12/25");
  EXPECT_EQ(BuildDateText("xx.15", "2014", MonthFirst()), "xx/15/2014");
  EXPECT_EQ(BuildDateText("_estr", "2014", MonthFirst()), "_estr/2014");
  EXPECT_EQ(BuildDateText("_estr", "2014", YearFirst()), "2014-_estr");
  EXPECT_EQ(BuildDateText("02.30", "2015", MonthFirst()), "02/30/2015");
  EXPECT_EQ(BuildDateText("25.12", "2014", LayoutOf("dd MM yyyy")), "25 12 2014");
}

// A field with another separator still makes a text that names the day.
TEST(BuildDateTextTest, MakesAReadableDateOfAFieldWithAnotherSeparator) {
  EXPECT_EQ(ReadFullDate(BuildDateText("12-25", "2014", MonthFirst()), MonthFirst()),
            On(2014, 12, 25));
  EXPECT_EQ(ReadFullDate(BuildDateText("12-25", "2014", TwoDigitYearFirst()), TwoDigitYearFirst()),
            On(2014, 12, 25));
}

TEST(SpellOutMonthTest, PutsTheNameInTheMonthsPlaceAndBlanksBetween) {
  EXPECT_EQ(SpellOutMonth("12/31/2014", MonthFirst()), "Dec 31 2014");
  EXPECT_EQ(SpellOutMonth("12 31 2014", MonthFirst()), "Dec 31 2014");
  EXPECT_EQ(SpellOutMonth("31.12.2014", DayFirst()), "31 Dec 2014");
  EXPECT_EQ(SpellOutMonth("2014-12-31", YearFirst()), "2014 Dec 31");
  EXPECT_EQ(SpellOutMonth("12/31-2014.", MonthFirst()), "Dec 31 2014 ");
  for (int month = 1; month <= 12; ++month) {
    const std::string name = kEnglishNames[static_cast<std::size_t>(month - 1)];
    EXPECT_EQ(SpellOutMonth(FormatDate(On(2014, month, 5), MonthFirst()), MonthFirst()),
              name + " 05 2014");
    EXPECT_EQ(SpellOutMonth(FormatDate(On(2014, month, 5), DayFirst()), DayFirst()),
              "05 " + name + " 2014");
  }
}

TEST(SpellOutMonthTest, LeavesATwoDigitYearLayoutAlone) {
  EXPECT_EQ(SpellOutMonth("2014/12/31", TwoDigitYearFirst()), "2014/12/31");
  EXPECT_EQ(SpellOutMonth("14/12/31", TwoDigitYearFirst()), "14/12/31");
}

TEST(SpellOutMonthTest, LeavesATextWithoutAMonthAlone) {
  for (const char* text : {"", "1", "00/31/2014", "13/31/2014", "xx/31/2014", "1/31/2014",
                           " 1/31/2014", "_estr/2014"}) {
    EXPECT_EQ(SpellOutMonth(text, MonthFirst()), text);
  }
  EXPECT_EQ(SpellOutMonth("31.13.2014", DayFirst()), "31.13.2014");
  EXPECT_EQ(SpellOutMonth("31.1", DayFirst()), "31.1");
  EXPECT_EQ(SpellOutMonth("12-31", YearFirst()), "12-31");
}

TEST(SpellOutMonthTest, PutsInNamesOfAnyLength) {
  RegionalDateFormat format = DayFirst();
  format.MonthNames[12] = "\xD0\xB4\xD0\xB5\xD0\xBA";
  EXPECT_EQ(SpellOutMonth("31.12.2014", format), "31 \xD0\xB4\xD0\xB5\xD0\xBA 2014");
}

TEST(MaskMonthTest, PutsTwoLettersInTheMonthsPlace) {
  EXPECT_EQ(MaskMonth("12/31/2014", MonthFirst()), "xx/31/2014");
  EXPECT_EQ(MaskMonth("31.12.2014", DayFirst()), "31.xx.2014");
  EXPECT_EQ(MaskMonth("2014-12-31", YearFirst()), "2014-xx-31");
  EXPECT_EQ(MaskMonth("2014/12/31", TwoDigitYearFirst()), "2014/xx/31");
  EXPECT_EQ(MaskMonth("xx/31/2014", MonthFirst()), "xx/31/2014");
}

}  // namespace
}  // namespace tidewarden::test
