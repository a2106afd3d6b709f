#include "dates/year_marker.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/dates/data_rows.h"

namespace tidewarden::test {
namespace {

std::string Marked(std::string title, int daysToGo, int currentYear) {
  ApplyYearMarker(title, daysToGo, currentYear);
  return title;
}

TEST(ApplyYearMarkerTest, TurnsTheYearIntoAnOrdinal) {
  EXPECT_EQ(Marked("<1788> Australia Day", 0, 2014), "226th Australia Day");
  EXPECT_EQ(Marked("Anna's <1990> birthday", 0, 2014), "Anna's 24th birthday");
  EXPECT_EQ(Marked("Married <2013>", 0, 2014), "Married 1st");
  EXPECT_EQ(Marked("<0000>", 0, 2014), "2014th");
  EXPECT_EQ(Marked("\xC3\xA9t\xC3\xA9 <1990> \xC3\xA9", 0, 2014),
            "\xC3\xA9t\xC3\xA9 24th \xC3\xA9");
}

struct OrdinalCase {
  int number;
  const char* text;
};

const OrdinalCase kOrdinals[] = {
    {1, "1st"},     {2, "2nd"},       {3, "3rd"},       {4, "4th"},       {9, "9th"},
    {10, "10th"},   {11, "11th"},     {12, "12th"},     {13, "13th"},     {14, "14th"},
    {19, "19th"},   {20, "20th"},     {21, "21st"},     {22, "22nd"},     {23, "23rd"},
    {24, "24th"},   {100, "100th"},   {101, "101st"},   {102, "102nd"},   {103, "103rd"},
    {111, "111th"}, {112, "112th"},   {113, "113th"},   {121, "121st"},   {122, "122nd"},
    {226, "226th"}, {1011, "1011th"}, {1012, "1012th"}, {1013, "1013th"}, {1021, "1021st"}};

TEST(ApplyYearMarkerTest, WritesTheOrdinalsSuffix) {
  constexpr int kYear = 2014;
  for (const OrdinalCase& c : kOrdinals) {
    const std::string title = "x <" + Padded(kYear - c.number, 4) + "> y";
    EXPECT_EQ(Marked(title, 0, kYear), std::string("x ") + c.text + " y");
  }
}

TEST(ApplyYearMarkerTest, WritesThOnlyWhereNoOtherSuffixIsDue) {
  for (int number = 1; number <= 9999; ++number) {
    const std::string title = "<" + Padded(9999 - number, 4) + ">";
    std::string expected = std::to_string(number);
    const bool teen = expected.size() >= 2 && expected[expected.size() - 2] == '1';
    const char last = expected.back();
    expected += !teen && last == '1'   ? "st"
                : !teen && last == '2' ? "nd"
                : !teen && last == '3' ? "rd"
                                       : "th";
    ASSERT_EQ(Marked(title, 0, 9999), expected);
  }
}

TEST(ApplyYearMarkerTest, CountsOneMoreWhenTheDateHasPassed) {
  EXPECT_EQ(Marked("<1788> Australia Day", -1, 2014), "227th Australia Day");
  EXPECT_EQ(Marked("<1788> Australia Day", -330, 2014), "227th Australia Day");
  EXPECT_EQ(Marked("<1788> Australia Day", 1, 2014), "226th Australia Day");
  EXPECT_EQ(Marked("<1986> MLK", 28, 2014), "28th MLK");
}

TEST(ApplyYearMarkerTest, KeepsAMarkerThatCountsNothing) {
  EXPECT_EQ(Marked("<2014> new", 0, 2014), "<2014> new");
  EXPECT_EQ(Marked("<2014> new", 5, 2014), "<2014> new");
  EXPECT_EQ(Marked("<2014> new", -5, 2014), "1st new");
  EXPECT_EQ(Marked("<2015> new", -5, 2014), "<2015> new");
  EXPECT_EQ(Marked("<9999> new", 0, 2014), "<9999> new");
}

TEST(ApplyYearMarkerTest, TriesOnlyTheFirstAngle) {
  EXPECT_EQ(Marked("a < b <1788>", 0, 2014), "a < b <1788>");
  EXPECT_EQ(Marked("<<1788>", 0, 2014), "<<1788>");
  EXPECT_EQ(Marked("<1788> and <1990>", 0, 2014), "226th and <1990>");
  EXPECT_EQ(Marked("> <1788>", 0, 2014), "> 226th");
}

TEST(ApplyYearMarkerTest, LeavesEverythingElseAlone) {
  for (const char* title : {"", "no marker", "<", "<>", "<178>", "<17888>", "<1788", "1788>",
                            "<17a8>", "<17 8>", "<-788>", "<+788>", "<1.88>", "<1788 >", "< 1788>",
                            "<\xC3\xA9"
                            "88>",
                            "(1788)"}) {
    EXPECT_EQ(Marked(title, 0, 2014), title);
    EXPECT_EQ(Marked(title, -1, 2014), title);
  }
}

}  // namespace
}  // namespace tidewarden::test
