// The quick look at the ends of a line against reading all of it.
#include "reminder/next_dates.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "core/event_line.h"
#include "dates/event_date_rules.h"
#include "dates/words.h"
#include "reminder/line_ends.h"

namespace tidewarden {
namespace {

const CivilDate kToday = MakeDate(2026, 11, 20);

TEST(Words, BeginWithTheByteThatTheirNameSays) {
  constexpr char kBytes[] = "\x01\x02\x03\x04\x05\x06\x07\xF8";
  EXPECT_EQ(LittleEndianWord(kBytes), 0xF807060504030201U);
  EXPECT_EQ(BigEndianWord(kBytes), 0x01020304050607F8U);
}

TEST(Words, FindEveryByteAtEveryPlace) {
  for (int sought = 0; sought < 256; ++sought) {
    for (unsigned place = 0; place < kWord; ++place) {
      for (const int other : {sought ^ 1, sought ^ 0x80, sought == 0 ? 1 : 0, (sought + 1) % 256}) {
        const std::uint64_t others = 0x0101010101010101U * static_cast<unsigned>(other);
        const std::uint64_t mask = std::uint64_t{0xFF} << (8 * place);
        const std::uint64_t word = (others & ~mask) | static_cast<std::uint64_t>(sought)
                                                          << (8 * place);
        ASSERT_EQ(BytesEqualTo(word, static_cast<char>(sought)), mask & 0x8080808080808080U);
      }
    }
  }
}

struct GoodEnds {
  std::string_view line;
  std::string_view date;
  int advance;
  std::string_view occurs;
};

TEST(LineEnds, AreReadFromLinesOfTheCommonForm) {
  const GoodEnds cases[] = {
      {"12.25,Christmas,14,yearly", "12.25", 14, "yearly"},
      {"12.25,,0,yearly", "12.25", 0, "yearly"},
      {"xx.15,A title of some length with \xC3\xA9,7,monthly", "xx.15", 7, "monthly"},
      {"11.xx,Thanksgiving,365, 4th th", "11.xx", 365, " 4th th"},
      {"12.25,a,999,x", "12.25", 999, "x"},
      {"12.25,long,007,", "12.25", 7, ""},
      // What stands between the ends is not looked at.
      {"12.25,a,b,c,d,3,one2026", "12.25", 3, "one2026"},
      {"12,25,7,yearly", "12,25", 7, "yearly"},
      {"12.25,7,yearly", "12.25", 7, "yearly"},
  };
  for (const GoodEnds& expected : cases) {
    LineEnds ends;
    ASSERT_TRUE(ReadLineEnds(expected.line, ends)) << expected.line;
    EXPECT_EQ(ends.advance, expected.advance) << expected.line;
    std::string date(expected.date);
    date.append("\0\0\0", 3);
    std::string occurs(expected.occurs);
    occurs.resize(kWord);
    EXPECT_EQ(ends.fields.date,
              LittleEndianWord(date.data()) | PackedLength(expected.occurs.size()))
        << expected.line;
    EXPECT_EQ(ends.fields.occurs, LittleEndianWord(occurs.data())) << expected.line;
    EXPECT_EQ(LengthOfOccurs(ends.fields), expected.occurs.size()) << expected.line;
  }
}

TEST(LineEnds, AreNotReadFromAnyOtherLine) {
  for (const std::string_view line :
       {"", ",,,", "12.25,,0,x", "1.25,Short,7,yearly", "012.25,Long,7,yearly",
        "12.25,Hidden,7,yearly*", "12.25,No notice,,yearly", "12.25,Blank, 7,yearly",
        "12.25,Sign,+7,yearly", "12.25,Fraction,7.5,yearly", "12.25,Many digits,0007,yearly",
        "12.25,Occurs of eight,7, monthly", "12.25,Two commas;7,yearly",
        "no comma stands in this line", "1234567,yearly"}) {
    LineEnds ends;
    EXPECT_FALSE(ReadLineEnds(line, ends)) << line;
  }
}

// Pieces of which lines are made that are right, almost right and wrong.
class MadeLines {
 public:
  std::string Next() {
    std::string line(Pick(kDates));
    line.append(",").append(Pick(kTitles)).append(",").append(Pick(kAdvances)).append(",");
    line.append(Pick(kOccurs)).append(Pick(kEnds));
    if (Below(8) == 0) line[Below(line.size())] = kNoise[Below(kNoise.size())];
    return line;
  }

 private:
  static inline const std::vector<std::string_view> kDates = {
      "11.20", "11.21", "11.27", "12.25", "01.01", "02.29", "xx.15", "xx.20", "11.xx",
      "xx.xx", "_estr", "_pass", "e+039", "12,25", "1.25",  "1a.05", "13.01", "é2.25"};
  static inline const std::vector<std::string_view> kTitles = {"", "Anna", "<1999> A, b", "é", ","};
  static inline const std::vector<std::string_view> kAdvances = {
      "0", "1", "7", "14", "99", "100", "365", "366", "999", "1000", "", " 7", "7.5", "-1", "x"};
  static inline const std::vector<std::string_view> kOccurs = {
      "yearly",  "Yearly",   "monthly", "quarter", "one2026", "one2025", "tdo2026", "tdo2024",
      "14-2026", "20~2026",  "dp-2001", "dp-2027", "df-2030", "3rd mon", "Las Fri", "las day",
      " yearly", "yearly  ", "yearl",   "",        "5th mon", "1st  sun"};
  static inline const std::vector<std::string_view> kEnds = {"", "", "", "*", " "};
  static constexpr std::string_view kNoise =
      ",* x1\0"
      "\xFF";

  std::size_t Below(std::size_t limit) { return random_() % limit; }
  std::string_view Pick(const std::vector<std::string_view>& from) {
    return from[Below(from.size())];
  }

  std::mt19937 random_{20261120};
};

// Whether a line asks for anything on the day, by the rules alone.
bool Matters(std::string_view line) {
  EventLine event;
  if (!ReadEventLine(line, YearOf(kToday), event)) return false;
  const auto date = NextOccurrence(event.dateField, event.occurs, kToday);
  if (!date || (*date < kToday && IsMovedOn(event.occurs))) return false;
  return event.parts.hidden || event.occurs.IsCounter() ||
         DaysBetween(kToday, *date) <= event.advance;
}

TEST(NextDates, PassOverNoLineThatMatters) {
  MadeLines lines;
  NextDates nextDates(kToday);
  int passedOver = 0;
  int matter = 0;
  for (int i = 0; i < 200'000; ++i) {
    const std::string line = lines.Next();
    LineEnds ends;
    const bool quick = ReadLineEnds(line, ends);
    const bool passes = quick && ends.advance < nextDates.Find(ends.fields).noticeNeeded;
    const bool matters = Matters(line);
    ASSERT_FALSE(passes && matters) << line;
    passedOver += passes ? 1 : 0;
    matter += matters ? 1 : 0;
  }
  // Both happen often.
  EXPECT_GT(passedOver, 20'000);
  EXPECT_GT(matter, 20'000);
}

TEST(NextDates, AnswerPackedFieldsAsTheFieldsThemselves) {
  MadeLines lines;
  NextDates packed(kToday);
  NextDates cut(kToday);
  int compared = 0;
  for (int i = 0; i < 100'000; ++i) {
    const std::string line = lines.Next();
    LineEnds ends;
    EventLineParts parts;
    if (!ReadLineEnds(line, ends) || !SplitEventLine(line, parts) || parts.date.size() != 5) {
      continue;
    }
    const NextDate& a = packed.Find(ends.fields);
    const NextDate& b = cut.Find(parts);
    ASSERT_EQ(a.state, b.state) << line;
    ASSERT_EQ(a.date, b.date) << line;
    ASSERT_EQ(a.days, b.days) << line;
    ASSERT_EQ(a.kind, b.kind) << line;
    ASSERT_EQ(a.noticeNeeded, b.noticeNeeded) << line;
    ++compared;
  }
  EXPECT_GT(compared, 10'000);
}

// More pairs than are remembered, each asked for again after many others.
TEST(NextDates, AnswerAnyNumberOfPairs) {
  NextDates nextDates(kToday);
  for (int round = 0; round < 2; ++round) {
    for (int year = 2000; year < 2150; ++year) {
      for (int month = 1; month <= 12; ++month) {
        for (int day = 1; day <= 28; ++day) {
          std::string date;
          date += static_cast<char>('0' + month / 10);
          date += static_cast<char>('0' + month % 10);
          date += '.';
          date += static_cast<char>('0' + day / 10);
          date += static_cast<char>('0' + day % 10);
          const std::string occurs = "tdo" + std::to_string(year);
          EventLineParts parts;
          parts.date = date;
          parts.occurs = occurs;
          const NextDate& next = nextDates.Find(parts);
          ASSERT_EQ(next.date, MakeDate(year, month, day)) << date << occurs;
          ASSERT_EQ(next.days, DaysBetween(kToday, next.date)) << date << occurs;
        }
      }
    }
  }
}

}  // namespace
}  // namespace tidewarden
