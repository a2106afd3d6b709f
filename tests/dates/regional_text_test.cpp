#include "dates/regional_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "dates/text.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

TEST(CleanRegionalTextTest, MakesPlainTextOfWhatAFormatterGives) {
  const std::pair<const char*, const char*> cases[] = {
      {"31. 12. 1992", "31.12.1992"},
      {"31. 12. 92", "31.12.92"},
      {"92. 12. 31.", "92.12.31."},
      {"31/ 12/ 1992", "31/12/1992"},
      {"31- 12-  1992", "31-12-1992"},
      {"31 12 1992", "31 12 1992"},
      {"31 .12", "31 .12"},
      {"31 Dec 1992", "31 Dec 1992"},
      {"31.\xC2\xA0"
       "12.\xC2\xA0"
       "1992",
       "31.12.1992"},  // no-break blank
      {"31\xC2\xA0"
       "12",
       "31 12"},
      {"31\xE2\x80\xAF"
       "12",
       "31 12"},  // narrow no-break blank
      {"31\xE2\x80\x87"
       "12",
       "31 12"},  // figure space
      {"\xE2\x80\x8F"
       "31\xE2\x80\x8F/\xE2\x80\x8F"
       "12",
       "31/12"},                        // right-to-left marks
      {"31.\xE2\x80\x8E 12", "31.12"},  // a mark before the blank
      {"\xD8\x9C"
       "31\xE2\x80\xAA/\xE2\x80\xAC"
       "12\xE2\x81\xA6\xE2\x81\xA9",
       "31/12"},
      {"\xD9\xA3\xD9\xA1/\xD9\xA1\xD9\xA2/\xD9\xA1\xD9\xA9\xD9\xA9\xD9\xA2", "31/12/1992"},
      {"\xDB\xB1\xDB\xB9\xDB\xB9\xDB\xB2/\xDB\xB1\xDB\xB2/\xDB\xB3\xDB\xB1", "1992/12/31"},
      {"\xE0\xA7\xA9\xE0\xA7\xA7", "31"},          // Bengali
      {"\xE0\xA5\xA9\xE0\xA5\xA7", "31"},          // Devanagari
      {"\xE0\xB9\x93\xE0\xB9\x91", "31"},          // Thai
      {"\xEF\xBC\x93\xEF\xBC\x91", "31"},          // fullwidth
      {"\xF0\x9E\xA5\x93\xF0\x9E\xA5\x91", "31"},  // Adlam
      {"31.\xD1\x8F\xD0\xBD\xD0\xB2", "31.\xD1\x8F\xD0\xBD\xD0\xB2"},
      {"31\xFF"
       "12",
       "31\xFF"
       "12"},  // a stray byte stays
      {"", ""},
  };
  for (const auto& [raw, clean] : cases) EXPECT_EQ(CleanRegionalText(raw), clean) << raw;
}

TEST(CleanRegionalTextTest, KnowsTheTenDigitsOfAScript) {
  for (const char32_t zero :
       {char32_t{0x0660}, char32_t{0x06F0}, char32_t{0x0966}, char32_t{0x09E6}, char32_t{0x0E50},
        char32_t{0x1040}, char32_t{0xFF10}, char32_t{0x1E950}}) {
    std::string native;
    for (char32_t digit = 0; digit < 10; ++digit) AppendCharacter(native, zero + digit);
    EXPECT_EQ(CleanRegionalText(native), "0123456789");
    std::string neighbours;
    AppendCharacter(neighbours, zero - 1);
    AppendCharacter(neighbours, zero + 10);
    EXPECT_EQ(CleanRegionalText(neighbours), neighbours);
  }
}

TEST(FormatByPatternTest, KnowsTheLettersOfADatePattern) {
  const std::pair<const char*, const char*> cases[] = {
      {"d", "5"},
      {"dd", "05"},
      {"ddd", "Thu"},
      {"dddd", "Thursday"},
      {"M", "3"},
      {"MM", "03"},
      {"MMM", "Mar"},
      {"MMMM", "March"},
      {"y", "15"},
      {"yy", "15"},
      {"yyy", "2015"},
      {"yyyy", "2015"},
      {"MM/dd/yyyy", "03/05/2015"},
      {"dd.MM.yyyy", "05.03.2015"},
      {"yyyy-MM-dd", "2015-03-05"},
      {"yy/MM/dd", "15/03/05"},
      {"d. M. yyyy", "5. 3. 2015"},
      {"dddd, d MMMM yyyy", "Thursday, 5 March 2015"},
      {"d 'de' MMMM", "5 de March"},
      {"'day' d", "day 5"},
      {"d ''yy", "5 '15"},
      {"'o''clock'", "o'clock"},
      {"m D Y h", "m D Y h"},
      {"", ""},
  };
  for (const auto& [pattern, text] : cases) {
    EXPECT_EQ(FormatByPattern(pattern, On(2015, 3, 5), EnglishCalendarNames()), text) << pattern;
  }
}

// The Japanese calendar's dates have one; the same day is 2015 in this one.
TEST(FormatByPatternTest, LeavesOutTheEra) {
  const std::pair<const char*, const char*> cases[] = {
      {"gg yy/MM/dd", "15/03/05"},  {"gy/M/d", "15/3/5"},  {"yyyy/MM/dd gg", "2015/03/05"},
      {"ggg  y.MM.dd", "15.03.05"}, {"dd gg MM", "05 03"}, {"g", ""},
      {"'gg' yy", "gg 15"},         {"yy'g'", "15g"},      {"yy''g", "15'"}};
  for (const auto& [pattern, text] : cases) {
    EXPECT_EQ(FormatByPattern(pattern, On(2015, 3, 5), EnglishCalendarNames()), text) << pattern;
  }
  const PatternRegionalFormats formats("gg yy/MM/dd");
  const auto format = DetectRegionalDateFormat(formats.ShortDate(kProbeDate), formats);
  ASSERT_TRUE(format);
  EXPECT_EQ(format->DisplayDateFormat, "yy/mm/dd");
}

TEST(FormatByPatternTest, PadsTheYear) {
  const auto& names = EnglishCalendarNames();
  EXPECT_EQ(FormatByPattern("yyyy", On(50, 3, 5), names), "0050");
  EXPECT_EQ(FormatByPattern("yy", On(2003, 3, 5), names), "03");
  EXPECT_EQ(FormatByPattern("yy", On(1900, 3, 5), names), "00");
}

CalendarNames French() {
  CalendarNames names = EnglishCalendarNames();
  names.monthAbbreviations = {"janv.",
                              "f\xC3\xA9vr.",
                              "mars",
                              "avr.",
                              "mai",
                              "juin",
                              "juil.",
                              "ao\xC3\xBBt",
                              "sept.",
                              "oct.",
                              "nov.",
                              "d\xC3\xA9"
                              "c."};
  names.weekdays = {"dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"};
  return names;
}

TEST(NamedRegionalFormatsTest, JoinsDayAndMonthName) {
  const PatternRegionalFormats french("dd/MM/yyyy", French());
  EXPECT_EQ(french.DayAndMonthName(On(1992, 2, 15), DayMonthOrder::kDayFirst, "/"),
            "15/f\xC3\xA9vr.");
  EXPECT_EQ(french.DayAndMonthName(On(1992, 12, 5), DayMonthOrder::kMonthFirst, "-"),
            "d\xC3\xA9"
            "c.-05");
}

TEST(NamedRegionalFormatsTest, NamesTheSevenDays) {
  const PatternRegionalFormats english("MM/dd/yyyy");
  const PatternRegionalFormats french("dd/MM/yyyy", French());
  EXPECT_EQ(english.WeekdayName(1), "Sunday");
  EXPECT_EQ(english.WeekdayName(7), "Saturday");
  EXPECT_EQ(french.WeekdayName(1), "dimanche");
  EXPECT_EQ(french.WeekdayName(5), "jeudi");
  EXPECT_EQ(french.names().weekdays[6], "samedi");
}

TEST(PatternRegionalFormatsTest, AnswersInCleanText) {
  EXPECT_EQ(PatternRegionalFormats("d. M. yyyy").ShortDate(kProbeDate), "31.12.1992");
  EXPECT_EQ(PatternRegionalFormats("MM/dd/yyyy").ShortDate(kProbeDate), "12/31/1992");
  EXPECT_EQ(PatternRegionalFormats("yy/MM/dd").ShortDate(On(2015, 3, 5)), "15/03/05");
  EXPECT_EQ(PatternRegionalFormats("dd\xC2\xA0MMM\xC2\xA0yyyy").ShortDate(kProbeDate),
            "31 Dec 1992");
}

TEST(EnglishCalendarNamesTest, BeginsWithJanuaryAndSunday) {
  const CalendarNames& names = EnglishCalendarNames();
  EXPECT_EQ(names.months[0], "January");
  EXPECT_EQ(names.months[11], "December");
  EXPECT_EQ(names.weekdays[0], "Sunday");
  EXPECT_EQ(names.weekdays[6], "Saturday");
  for (std::size_t i = 0; i < 12; ++i) {
    EXPECT_EQ(names.monthAbbreviations[i], names.months[i].substr(0, 3));
  }
  for (std::size_t i = 0; i < 7; ++i) {
    EXPECT_EQ(names.weekdayAbbreviations[i], names.weekdays[i].substr(0, 3));
  }
}

TEST(IsoDateTest, IsReadBackAsTheSameDay) {
  EXPECT_EQ(IsoDate(On(2015, 3, 5)), "2015-03-05");
  EXPECT_EQ(IsoDate(On(0, 1, 1)), "0000-01-01");
  EXPECT_EQ(IsoDate(On(9999, 12, 31)), "9999-12-31");
  for (CivilDate date = On(1999, 12, 1); date != On(2001, 2, 1); date = AddDays(date, 1)) {
    EXPECT_EQ(ReadIsoDate(IsoDate(date)), date);
  }
}

TEST(ReadIsoDateTest, RefusesAnyOtherText) {
  for (const char* text :
       {"", "2015-3-5", "2015-03-5", "15-03-05", "2015/03/05", "2015-03-05 ", " 2015-03-05",
        "2015-02-29", "2015-13-01", "2015-00-01", "2015-01-00", "2015-01-32", "20150305",
        "2015-0a-05", "+015-01-01", "-015-01-01", "2015-03-05T00:00", "02015-03-05"}) {
    EXPECT_FALSE(ReadIsoDate(text).has_value()) << text;
  }
}

TEST(ReadClockTimeTest, ReadsHoursAndMinutes) {
  EXPECT_EQ(ReadClockTime("00:00"), 0);
  EXPECT_EQ(ReadClockTime("09:05"), 905);
  EXPECT_EQ(ReadClockTime("23:59"), 2359);
  for (const char* text : {"", "9:05", "09.05", "24:00", "23:60", "0905", "09:5", "09:05 ", "-1:00",
                           "0a:00", "09:05:00", "12:05am"}) {
    EXPECT_FALSE(ReadClockTime(text).has_value()) << text;
  }
}

}  // namespace
}  // namespace tidewarden::test
