#include "editor/event_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "dates/text.h"
#include "editor/event_entry.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

using test::AllLayouts;
using test::DayFirst;
using test::MonthFirst;
using test::On;
using test::YearFirst;

std::string Row(const std::string& line, const RegionalDateFormat& format) {
  const auto event = ParseEventLine(line, format, 2014);
  return event ? MakeRow(*event, 0, format).text : "(rejected)";
}

struct RowCase {
  std::string line;
  std::string row;
  std::string title;
  int advance;
  std::string occurs;
};

const std::vector<RowCase>& Rows() {
  static const std::vector<RowCase> rows{
      {"12.25,Christmas Day,7,yearly",
       "12.25 Christmas Day                          7 days   yearly", "Christmas Day", 7,
       "yearly"},
      {"01.26,<1788> Australia Day,7,dp-1788",
       "01.26 <1788> Australia Day                   (always) dp-1788", "<1788> Australia Day", 0,
       "dp-1788"},
      {"06.01,Water the ferns,3,20~2014",
       "06.01 Water the ferns                        3 days   20~2014", "Water the ferns", 3,
       "20~2014"},
      {"_estr,Easter Sunday,14,yearly",
       "_estr Easter Sunday                          14 days  yearly", "Easter Sunday", 14,
       "yearly"},
      {"xx.15,AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA,365,monthly",
       "xx.15 AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA 365 days monthly",
       "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA", 365, "monthly"},
      {"01.xx,Martin Luther King Day,1,3rd Mon",
       "01.xx Martin Luther King Day                 1 day    3rd mon", "Martin Luther King Day", 1,
       "3rd mon"},
      {"06.01,X,0,df-2020", "06.01 X                                      (always) df-2020", "X", 0,
       "df-2020"},
      {"06.01,X,0,one2014", "06.01 X                                      0 days   one2014", "X", 0,
       "one2014"},
  };
  return rows;
}

TEST(EventRows, EveryFieldStandsInItsColumn) {
  for (const RowCase& c : Rows()) {
    SCOPED_TRACE(c.line);
    const std::string row = Row(c.line, MonthFirst());
    EXPECT_EQ(row, c.row);
    const RowFields fields = FieldsOf(row);
    EXPECT_EQ(fields.title, c.title);
    EXPECT_EQ(fields.advance, c.advance);
    EXPECT_EQ(fields.occurs, c.occurs);
    const RowCells cells = CellsOf(row);
    EXPECT_EQ(std::string(cells.date) + " " + std::string(cells.title) +
                  std::string(cells.advance) + std::string(cells.occurs),
              row);
    EXPECT_EQ(Trim(cells.title), c.title);
    EXPECT_EQ(cells.occurs, c.occurs);
  }
}

TEST(EventRows, EveryRowOpensWithItsOwnTitleAdvanceAndKind) {
  const int kinds[] = {0, 6, 4, 0, 2, 23, 7, 3};
  std::size_t i = 0;
  for (const RowCase& c : Rows()) {
    SCOPED_TRACE(c.line);
    EventEntry entry(MonthFirst());
    entry.StartEdit(c.row);
    EXPECT_EQ(entry.row().txtEventInput.text, c.title);
    EXPECT_EQ(entry.row().txtAdvanceInput.text, std::to_string(c.advance));
    EXPECT_EQ(entry.occursIndex(), kinds[i++]);
  }
}

TEST(EventRows, ATitleIsCutAfter38CharactersAndFollowedByABlank) {
  for (const std::string letter : {"a", "é", "日", "😀"}) {
    std::string title;
    for (int i = 0; i < 60; ++i) title += letter;
    const std::string row = Row("12.25," + title + ",365,yearly", MonthFirst());
    EXPECT_EQ(CountCharacters(row), 60U);
    EXPECT_EQ(Characters(row, 45, 46), " 3");
    EXPECT_EQ(CountCharacters(FieldsOf(row).title), 38U);
  }
}

TEST(EventRows, TheDayComesFirstUnlessTheMonthDoes) {
  for (const auto& layout : AllLayouts()) {
    SCOPED_TRACE(layout.name);
    const bool monthFirst = layout.format.IsMonthFirst();
    const auto date = [&](const std::string& line) {
      return Row(line, layout.format).substr(0, 5);
    };
    EXPECT_EQ(date("03.05,X,7,yearly"), monthFirst ? "03.05" : "05.03");
    EXPECT_EQ(date("xx.15,X,7,monthly"), monthFirst ? "xx.15" : "15.xx");
    EXPECT_EQ(date("12-25,X,7,yearly"), monthFirst ? "12-25" : "25.12");
    EXPECT_EQ(date("_rosh,X,7,yearly"), "_rosh");
    EXPECT_EQ(date("e+039,X,7,yearly"), "e+039");
    EXPECT_EQ(date("EASTR,X,7,yearly"), "EASTR");
  }
}

TEST(EventRows, ARowIsWrittenAsTheLineThatItWasMadeOf) {
  for (const auto& layout : AllLayouts()) {
    for (const std::string line :
         {"12.25,Christmas Day,7,yearly", "01.26,<1788> Australia Day,0,dp-1788",
          "06.01,Water the ferns,3,20~2014", "_estr,Easter Sunday,14,yearly", "e-046,Ash,1,yearly",
          "01.xx,King,365,3rd mon", "xx.15,Rent,0,monthly", "xx.xx,Each,7,las fri",
          "1a.05,odd,7,yearly", "03.05,Ünïcödé 日本 😀,7,quarter", "06.01,long code,7,1st xyz mon",
          "06.01,longer,7,one20142014", "06.01,longest,0,dp-0001788"}) {
      SCOPED_TRACE(layout.name + ": " + line);
      EXPECT_EQ(EventLineOf(Row(line, layout.format), layout.format), line);
    }
  }
}

TEST(EventRows, AHiddenEventIsListedLikeAnyOther) {
  for (const auto& layout : AllLayouts()) {
    SCOPED_TRACE(layout.name);
    const std::string date = layout.format.IsMonthFirst() ? "12.20" : "20.12";
    EXPECT_EQ(Row("12.20,Pay rent,7,tdo2014*", layout.format),
              date + " Pay rent                               7 days   tdo2014");
    EXPECT_EQ(Row("12.20,Pay rent,7,tdo2014*", layout.format),
              Row("12.20,Pay rent,7,tdo2014", layout.format));
  }
}

TEST(EventRows, BlanksAroundATitleAndTheCaseOfACodeAreNotKept) {
  EXPECT_EQ(EventLineOf(Row("12.25, Bob ,07,YEARLY", DayFirst()), DayFirst()),
            "12.25,Bob,7,yearly");
  EXPECT_EQ(EventLineOf(Row("06.01,X,abc,dp-2001", DayFirst()), DayFirst()), "06.01,X,0,dp-2001");
}

TEST(EventRows, OnlyFiveCharactersAreAFeast) {
  EXPECT_TRUE(IsRowFeast("_estr"));
  EXPECT_TRUE(IsRowFeast("E+039"));
  EXPECT_FALSE(IsRowFeast("e+39"));
  EXPECT_FALSE(IsRowFeast("e+0039"));
  EXPECT_FALSE(IsRowFeast("e+5,1"));
  EXPECT_FALSE(IsRowFeast("12.25"));
}

TEST(EventRows, TheTodayRowShowsTheUsersOrder) {
  const CivilDate today = On(2014, 12, 22);
  EXPECT_EQ(MakeTodayRow(today, TodayCase::kCapitals, MonthFirst()).text, "12.22  <TODAY>");
  EXPECT_EQ(MakeTodayRow(today, TodayCase::kSmall, YearFirst()).text, "22.12  <Today>");
  EXPECT_TRUE(MakeTodayRow(today, TodayCase::kSmall, DayFirst()).isToday);
}

TEST(EventRows, RowsAreSortedByMonthAndDayWhateverTheOrderOnTheScreen) {
  // Feasts, then the months, then Easter offsets, then the wildcards.
  const std::vector<std::string> sorted{
      "_estr,A,7,yearly", "_good,A,7,yearly", "01.01,B,7,yearly",    "01.26,a,7,yearly",
      "01.26,B,7,yearly", "01.26,c,7,yearly", "01.xx,D,7,1st mon",   "12.22,A,7,yearly",
      "12.31,É,7,yearly", "e+039,A,7,yearly", "xx.15,Rent,3,monthly"};
  for (const auto& layout : AllLayouts()) {
    std::vector<EventRow> rows;
    for (auto line = sorted.rbegin(); line != sorted.rend(); ++line) {
      rows.push_back(MakeRow(*ParseEventLine(*line, layout.format, 2014), 0, layout.format));
    }
    rows.push_back(MakeTodayRow(On(2014, 12, 22), TodayCase::kCapitals, layout.format));
    SortEventRows(rows);
    std::vector<std::string> lines;
    for (const EventRow& row : rows) {
      lines.push_back(row.isToday ? "today" : EventLineOf(row.text, layout.format));
    }
    std::vector<std::string> expected = sorted;
    expected.insert(expected.begin() + 7, "today");
    EXPECT_EQ(lines, expected) << layout.name;
  }
}

TEST(EventRows, EqualRowsKeepTheirOrder) {
  std::vector<EventRow> rows;
  for (long line = 0; line < 300; ++line) {
    rows.push_back(MakeRow(*ParseEventLine(line % 2 == 0 ? "12.25,x,7,yearly" : "01.01,X,7,yearly",
                                           MonthFirst(), 2014),
                           line, MonthFirst()));
  }
  SortEventRows(rows);
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (rows[i].key == rows[i - 1].key) {
      EXPECT_LT(rows[i - 1].line, rows[i].line);
    }
  }
  EXPECT_EQ(rows.front().key, "01.01");
}

TEST(EventRows, ReplacingARowIsTakingOneOutAndPuttingAnotherIn) {
  std::vector<EventRow> rows;
  for (const std::string date : {"01.01", "02.02", "02.02", "04.04", "05.05"}) {
    rows.push_back({date, date + " " + std::to_string(rows.size()), 0, false});
  }
  ASSERT_TRUE(AreEventRowsSorted(rows));
  for (const std::string date : {"", "00.00", "01.01", "02.02", "03.03", "04.04", "09.09"}) {
    for (std::size_t removed = 0; removed <= rows.size(); ++removed) {
      std::vector<EventRow> expected = rows;
      std::vector<EventRow> replaced = rows;
      const auto at = [&](std::size_t i) {
        return expected.begin() + static_cast<std::ptrdiff_t>(i);
      };
      std::optional<EventRow> added;
      if (!date.empty()) added = EventRow{date, date + " 1", 7, false};
      if (removed < rows.size()) expected.erase(at(removed));
      if (added) expected.insert(at(PlaceFor(expected, *added)), *added);
      const RowRange moved = ReplaceRow(
          replaced, removed < rows.size() ? std::optional(removed) : std::nullopt, added);
      EXPECT_LE(moved.end, replaced.size());
      for (std::size_t i = 0; i < std::min(rows.size(), replaced.size()); ++i) {
        if (i >= moved.begin && i < moved.end) continue;
        EXPECT_EQ(replaced[i].text, rows[i].text) << date << " " << removed << " " << i;
      }
      ASSERT_EQ(replaced.size(), expected.size());
      for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(replaced[i].text, expected[i].text) << date << " " << removed << " " << i;
        EXPECT_EQ(replaced[i].line, expected[i].line);
      }
    }
  }
}

}  // namespace
}  // namespace tidewarden
