#include "dates/event_fields.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/dates/data_rows.h"

namespace tidewarden::test {
namespace {

constexpr int kAny = DateField::kAny;
constexpr int kNot = DateField::kNotADate;

struct DateFieldCase {
  const char* stored;
  int month;
  int day;
};

const DateFieldCase kMonthAndDay[] = {
    {"01.01", 1, 1},
    {"12.31", 12, 31},
    {"02.30", 2, 30},
    {"xx.15", kAny, 15},
    {"01.xx", 1, kAny},
    {"xx.xx", kAny, kAny},
    // Any one character stands between them.
    {"12-25", 12, 25},
    {"12/25", 12, 25},
    {"12 25", 12, 25},
    {"12x25", 12, 25},
    {"12925", 12, 25},
    {"12,25", 12, 25},
    {"12\xC3\xA9"
     "25",
     12, 25},
    // Accepted as leading numbers, yet two digits short of a date.
    {"1a.05", kNot, 5},
    {"1..05", kNot, 5},
    {"+1.05", kNot, 5},
    {"01.5x", 1, kNot},
    {"01.1.", 1, kNot},
    {"01.+5", 1, kNot},
    {"1a.xx", kNot, kAny},
    {"xx.3x", kAny, kNot},
    {"1\xC3\xA9.05", kNot, 5},
    // Blanks at the edge of a half do no harm.
    {" 1.05", 1, 5},
    {"1 .05", 1, 5},
    {"01. 5", 1, 5},
    {"01.5 ", 1, 5},
};

TEST(ReadDateFieldTest, ReadsMonthAndDay) {
  for (const DateFieldCase& c : kMonthAndDay) {
    DateField field;
    ASSERT_EQ(ReadDateField(c.stored, field), DateFieldFault::kNone) << c.stored;
    EXPECT_FALSE(field.isFeast) << c.stored;
    EXPECT_EQ(field.month, c.month) << c.stored;
    EXPECT_EQ(field.day, c.day) << c.stored;
  }
}

TEST(ReadDateFieldTest, TakesEveryMonthAndDayAndNoOther) {
  for (int month = 0; month <= 99; ++month) {
    for (int day = 0; day <= 99; ++day) {
      const std::string stored = Padded(month, 2) + "." + Padded(day, 2);
      DateField field;
      const DateFieldFault expected = month < 1 || month > 12 ? DateFieldFault::kMonth
                                      : day < 1 || day > 31   ? DateFieldFault::kDay
                                                              : DateFieldFault::kNone;
      ASSERT_EQ(ReadDateField(stored, field), expected) << stored;
      if (expected == DateFieldFault::kNone) {
        ASSERT_EQ(field.month, month) << stored;
        ASSERT_EQ(field.day, day) << stored;
      }
    }
  }
}

struct DateFaultCase {
  const char* stored;
  DateFieldFault fault;
};

const DateFaultCase kDateFaults[] = {
    {"", DateFieldFault::kLength},
    {"1.15", DateFieldFault::kLength},
    {"1.1", DateFieldFault::kLength},
    {"12.255", DateFieldFault::kLength},
    {" 12.25", DateFieldFault::kLength},
    {"12.25 ", DateFieldFault::kLength},
    {"_est", DateFieldFault::kLength},
    {"_estr ", DateFieldFault::kLength},
    {"e+01", DateFieldFault::kLength},
    {"12\xC3\xA9\xC3\xA9"
     "25",
     DateFieldFault::kLength},
    {"12.2\xC3\xA9\xC3\xA9", DateFieldFault::kLength},
    {"12\xC3\xA9"
     "5",
     DateFieldFault::kLength},  // five bytes, four characters
    {"13.01", DateFieldFault::kMonth},
    {"00.10", DateFieldFault::kMonth},
    {"0a.10", DateFieldFault::kMonth},
    {"-1.10", DateFieldFault::kMonth},
    {".9.10", DateFieldFault::kMonth},
    {"XX.15", DateFieldFault::kMonth},
    {"Xx.15", DateFieldFault::kMonth},
    {"  .15", DateFieldFault::kMonth},
    {"ab.15", DateFieldFault::kMonth},
    {"_abcd", DateFieldFault::kMonth},
    {"e+000", DateFieldFault::kMonth},
    {"e+366", DateFieldFault::kMonth},
    {"e-000", DateFieldFault::kMonth},
    {"easte", DateFieldFault::kMonth},
    {"\xC3\xA9"
     "1.05",
     DateFieldFault::kMonth},
    {"01.32", DateFieldFault::kDay},
    {"01.00", DateFieldFault::kDay},
    {"01.XX", DateFieldFault::kDay},
    {"01.-5", DateFieldFault::kDay},
    {"01.  ", DateFieldFault::kDay},
    {"xx.ab", DateFieldFault::kDay},
    {"01..5", DateFieldFault::kDay},
    {"13.32", DateFieldFault::kMonth},
};

TEST(ReadDateFieldTest, SaysWhatIsWrong) {
  for (const DateFaultCase& c : kDateFaults) {
    DateField field;
    EXPECT_EQ(ReadDateField(c.stored, field), c.fault) << c.stored;
  }
}

TEST(ReadDateFieldTest, ReadsFeastsInAnyCase) {
  struct Case {
    const char* stored;
    Feast::Family family;
  };
  for (const Case& c :
       {Case{"_estr", Feast::Family::kEaster}, Case{"EASTR", Feast::Family::kEaster},
        Case{"_ASHW", Feast::Family::kEaster}, Case{"e+039", Feast::Family::kEaster},
        Case{"E-046", Feast::Family::kEaster}, Case{"_Rosh", Feast::Family::kHebrew},
        Case{"_shav", Feast::Family::kHebrew}, Case{"_vict", Feast::Family::kVictoria},
        Case{"_VICT", Feast::Family::kVictoria}, Case{"e+0.5", Feast::Family::kNone}}) {
    DateField field;
    ASSERT_EQ(ReadDateField(c.stored, field), DateFieldFault::kNone) << c.stored;
    EXPECT_TRUE(field.isFeast) << c.stored;
    EXPECT_EQ(field.feast.family, c.family) << c.stored;
  }
}

struct OccursCase {
  const char* text;
  OccursKind kind;
  int year;
  int interval;
  int ordinal;
  int weekday;
};

const OccursCase kOccurs[] = {
    {"yearly", OccursKind::kYearly, -1, 0, 0, 0},
    {"quarter", OccursKind::kQuarter, -1, 0, 0, 0},
    {"monthly", OccursKind::kMonthly, -1, 0, 0, 0},
    {"one2014", OccursKind::kOneTime, 2014, 0, 0, 0},
    {"one2000", OccursKind::kOneTime, 2000, 0, 0, 0},
    {"one2999", OccursKind::kOneTime, 2999, 0, 0, 0},
    {"tdo2014", OccursKind::kTilDone, 2014, 0, 0, 0},
    {"14-2014", OccursKind::kEveryNDays, 2014, 14, 0, 0},
    {"00-2014", OccursKind::kEveryNDays, 2014, 0, 0, 0},
    {"99-2014", OccursKind::kEveryNDays, 2014, 99, 0, 0},
    {"07-1999", OccursKind::kEveryNDays, 1999, 7, 0, 0},
    {"14-0000", OccursKind::kEveryNDays, 0, 14, 0, 0},
    {"00~2014", OccursKind::kEveryNDays, 2014, 100, 0, 0},
    {"20~2014", OccursKind::kEveryNDays, 2014, 120, 0, 0},
    {"99~2014", OccursKind::kEveryNDays, 2014, 199, 0, 0},
    {"dp-2001", OccursKind::kDaysPast, 2001, 0, 0, 0},
    {"dp-0000", OccursKind::kDaysPast, 0, 0, 0, 0},
    {"dp-0050", OccursKind::kDaysPast, 50, 0, 0, 0},
    {"dp-2015", OccursKind::kDaysPast, 2015, 0, 0, 0},
    {"df-2030", OccursKind::kDaysFuture, 2030, 0, 0, 0},
    {"df-0000", OccursKind::kDaysFuture, 0, 0, 0, 0},
    {"df-2001", OccursKind::kDaysFuture, 2001, 0, 0, 0},
    {"df-9999", OccursKind::kDaysFuture, 9999, 0, 0, 0},
    {"3rd mon", OccursKind::kNthWeekday, -1, 0, 3, 2},
    {"las day", OccursKind::kLastDay, -1, 0, -1, 0},
    // A weekday may be in any case.
    {"3rd Mon", OccursKind::kNthWeekday, -1, 0, 3, 2},
    {"las SAT", OccursKind::kNthWeekday, -1, 0, 0, 7},
    // Only the first and the last characters are looked at.
    {"14-992014", OccursKind::kEveryNDays, 2014, 14, 0, 0},
    {"14-x2014", OccursKind::kEveryNDays, 2014, 14, 0, 0},
    {"dp-992014", OccursKind::kDaysPast, 2014, 0, 0, 0},
    {"1st xx sun", OccursKind::kNthWeekday, -1, 0, 1, 1},
    {"las  fri", OccursKind::kNthWeekday, -1, 0, 0, 6},
    {"one2 x 2014", OccursKind::kOneTime, 2014, 0, 0, 0},
    {"tdo22014", OccursKind::kTilDone, 2014, 0, 0, 0},
};

TEST(ReadOccursTest, ReadsEveryWayToRepeat) {
  for (const OccursCase& c : kOccurs) {
    Occurs occurs;
    ASSERT_EQ(ReadOccurs(c.text, 2015, occurs), OccursFault::kNone) << c.text;
    EXPECT_EQ(occurs.kind, c.kind) << c.text;
    EXPECT_EQ(occurs.year, c.year) << c.text;
    EXPECT_EQ(occurs.interval, c.interval) << c.text;
    EXPECT_EQ(occurs.ordinal, c.ordinal) << c.text;
    EXPECT_EQ(occurs.weekday, c.weekday) << c.text;
    EXPECT_EQ(occurs.IsCounter(),
              c.kind == OccursKind::kDaysPast || c.kind == OccursKind::kDaysFuture)
        << c.text;
  }
}

TEST(ReadOccursTest, ReadsEveryOrdinalWithEveryWeekday) {
  const char* ordinals[] = {"las", "1st", "2nd", "3rd", "4th"};
  const char* weekdays[] = {"sun", "mon", "tue", "wed", "thu", "fri", "sat"};
  for (int ordinal = 0; ordinal <= 4; ++ordinal) {
    for (int weekday = 1; weekday <= 7; ++weekday) {
      const std::string text = std::string(ordinals[ordinal]) + " " + weekdays[weekday - 1];
      Occurs occurs;
      ASSERT_EQ(ReadOccurs(text, 2015, occurs), OccursFault::kNone) << text;
      EXPECT_EQ(occurs.kind, OccursKind::kNthWeekday) << text;
      EXPECT_EQ(occurs.ordinal, ordinal) << text;
      EXPECT_EQ(occurs.weekday, weekday) << text;
    }
  }
}

TEST(ReadOccursTest, ReadsEveryInterval) {
  for (int days = 0; days <= 199; ++days) {
    const std::string text = Padded(days % 100, 2) + (days < 100 ? "-" : "~") + "2014";
    Occurs occurs;
    ASSERT_EQ(ReadOccurs(text, 2015, occurs), OccursFault::kNone) << text;
    ASSERT_EQ(occurs.interval, days) << text;
  }
}

// A one-time event and a task take a year from 2000 whose first digit is 2, a count-up a year up
// to the current one, a countdown and an interval any year.
TEST(ReadOccursTest, TakesTheYearsThatEachKindAllows) {
  for (int year = 0; year <= 9999; ++year) {
    const auto accepted = [&](const std::string& head) {
      Occurs occurs;
      return ReadOccurs(head + Padded(year, 4), 2015, occurs) == OccursFault::kNone &&
             occurs.year == year;
    };
    ASSERT_EQ(accepted("one"), year >= 2000 && year <= 2999) << year;
    ASSERT_EQ(accepted("tdo"), year >= 2000 && year <= 2999) << year;
    ASSERT_EQ(accepted("dp-"), year <= 2015) << year;
    ASSERT_TRUE(accepted("df-")) << year;
    ASSERT_TRUE(accepted("14-")) << year;
    ASSERT_TRUE(accepted("14~")) << year;
  }
}

struct OccursFaultCase {
  const char* text;
  OccursFault fault;
};

const OccursFaultCase kOccursFaults[] = {
    {"", OccursFault::kUnknown},
    {"x", OccursFault::kUnknown},
    {"daily", OccursFault::kUnknown},
    {"weekly", OccursFault::kUnknown},
    {"year", OccursFault::kUnknown},
    {"yearly ", OccursFault::kUnknown},
    {"yearly*", OccursFault::kUnknown},
    {"yearlyx", OccursFault::kUnknown},
    {"Yearly", OccursFault::kUnknown},  // the caller lower-cases
    {"5th mon", OccursFault::kUnknown},
    {"1ts mon", OccursFault::kUnknown},
    {"1stmon", OccursFault::kUnknown},
    {"last fri", OccursFault::kUnknown},
    {"142014", OccursFault::kUnknown},
    {"120-2014", OccursFault::kUnknown},
    {"ab~2014", OccursFault::kInterval},
    {"dp~2014", OccursFault::kInterval},
    {"-5-2014", OccursFault::kInterval},
    {"+5-2014", OccursFault::kInterval},
    {" 5-2014", OccursFault::kInterval},
    {"1.-2014", OccursFault::kInterval},
    {"dx-2014", OccursFault::kInterval},
    {"14-", OccursFault::kYear},
    {"14-14", OccursFault::kYear},
    {"14-014", OccursFault::kYear},
    {"14-201x", OccursFault::kYear},
    {"14~201x", OccursFault::kYear},
    {"14- 201", OccursFault::kYear},
    {"14-2014x", OccursFault::kYear},
    {"dp-", OccursFault::kYear},
    {"dp-abcd", OccursFault::kYear},
    {"dp--001", OccursFault::kYear},
    {"df-20x0", OccursFault::kYear},
    {"dp-2016", OccursFault::kYearInFuture},
    {"dp-2999", OccursFault::kYearInFuture},
    {"one1999", OccursFault::kYearTooEarly},
    {"tdo1999", OccursFault::kYearTooEarly},
    {"one3000", OccursFault::kYearTooEarly},
    {"one2", OccursFault::kYearTooEarly},
    {"one214", OccursFault::kYearTooEarly},
    {"one2014x", OccursFault::kYearTooEarly},
    {"one20014", OccursFault::kYearTooEarly},  // the last four are 0014
    {"one", OccursFault::kYearTooEarly},
    {"1st day", OccursFault::kWeekday},
    {"1st su", OccursFault::kWeekday},
    {"1st sunday", OccursFault::kWeekday},
    {"2nd unm", OccursFault::kWeekday},
    {"2nd nmo", OccursFault::kWeekday},
    {"3rd ", OccursFault::kWeekday},
    {"las xx day", OccursFault::kWeekday},
    {"las days", OccursFault::kWeekday},
};

// One variable may serve for many lines.
TEST(ReadDateFieldTest, KeepsNothingOfAnEarlierField) {
  DateField field;
  for (int round = 0; round < 2; ++round) {
    ASSERT_EQ(ReadDateField("_rosh", field), DateFieldFault::kNone);
    EXPECT_TRUE(field.isFeast);
    EXPECT_EQ(field.feast.family, Feast::Family::kHebrew);
    ASSERT_EQ(ReadDateField("xx.15", field), DateFieldFault::kNone);
    EXPECT_FALSE(field.isFeast);
    ASSERT_EQ(ReadDateField("e+012", field), DateFieldFault::kNone);
    EXPECT_EQ(field.feast.family, Feast::Family::kEaster);
    ASSERT_EQ(ReadDateField("1a.05", field), DateFieldFault::kNone);
    EXPECT_FALSE(field.isFeast);
    EXPECT_EQ(field.month, kNot);
  }
}

TEST(ReadOccursTest, KeepsNothingOfAnEarlierField) {
  Occurs used;
  for (const OccursCase& before : kOccurs) {
    for (const OccursCase& c : kOccurs) {
      ASSERT_EQ(ReadOccurs(before.text, 2015, used), OccursFault::kNone);
      ASSERT_EQ(ReadOccurs(c.text, 2015, used), OccursFault::kNone);
      ASSERT_EQ(used.kind, c.kind) << before.text << " then " << c.text;
      ASSERT_EQ(used.year, c.year) << before.text << " then " << c.text;
      ASSERT_EQ(used.interval, c.interval) << before.text << " then " << c.text;
      ASSERT_EQ(used.ordinal, c.ordinal) << before.text << " then " << c.text;
      ASSERT_EQ(used.weekday, c.weekday) << before.text << " then " << c.text;
    }
  }
}

TEST(ReadOccursTest, RefusesEverythingElse) {
  for (const OccursFaultCase& c : kOccursFaults) {
    Occurs occurs;
    EXPECT_EQ(ReadOccurs(c.text, 2015, occurs), c.fault) << c.text;
  }
}

TEST(ReadOccursTest, AcceptsACountUpFromTheCurrentYearOnwards) {
  Occurs occurs;
  EXPECT_EQ(ReadOccurs("dp-2999", 2998, occurs), OccursFault::kYearInFuture);
  EXPECT_EQ(ReadOccurs("dp-2999", 2999, occurs), OccursFault::kNone);
}

TEST(ReadOccursTest, SurvivesCharactersOfSeveralBytes) {
  for (const char* text : {"\xC3\xA9-2014", "\xC3\xA9\xC3\xA9-2014",
                           "14\xC3\xA9"
                           "2014",
                           "\xC3\xA9", "1st \xC3\xA9\xC3\xA9\xC3\xA9", "14-201\xC3\xA9"}) {
    Occurs occurs;
    EXPECT_NE(ReadOccurs(text, 2015, occurs), OccursFault::kNone) << text;
  }
}

}  // namespace
}  // namespace tidewarden::test
