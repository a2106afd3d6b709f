// The order of the rows against a list box that sorts one text for each row.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <tuple>

#include "dates/text.h"
#include "dates/time_of_day.h"
#include "tests/reminder/builder_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAreArray;

// The date as "yyyy-mm-dd", the time in four digits, the row, the character with the number 1 and
// the line number: sorted as small letters, this is the order.
std::string SortText(const ReminderRow& row, const std::string& text) {
  char head[32];
  std::snprintf(head, sizeof head, "%04d-%02d-%02d%04d", YearOf(row.date), MonthOf(row.date),
                DayOf(row.date), row.timeOfDay);
  char tail[32];
  std::snprintf(tail, sizeof tail, "\x01%05ld", row.line);
  return head + ToLower(text) + tail;
}

// The seed, and how many lines the file has.
class RandomLists : public ::testing::TestWithParam<std::tuple<unsigned, int>> {
 protected:
  RandomLists() : random_(std::get<0>(GetParam())), lines_(std::get<1>(GetParam())) {}

  int UpTo(int most) { return static_cast<int>(random_() % (static_cast<unsigned>(most) + 1)); }

  const std::string& Pick(const std::vector<std::string>& from) {
    return from[static_cast<std::size_t>(UpTo(static_cast<int>(from.size()) - 1))];
  }

  std::mt19937 random_;
  int lines_;
};

TEST_P(RandomLists, AreSortedAsTheirSortTexts) {
  // Words that begin alike over many letters, and letters whose lower case has more or fewer bytes.
  const std::vector<std::string> words = {"A",
                                          "a",
                                          "b",
                                          "B",
                                          "é",
                                          "É",
                                          "_",
                                          "9:15",
                                          "8:00",
                                          " x",
                                          "~",
                                          "12:00 am",
                                          "Zz",
                                          "z",
                                          "ß",
                                          "\t",
                                          "<2>",
                                          "24:00",
                                          "ẞ",
                                          "Ⱥ",
                                          "ⱥ",
                                          "\xF0\x9F\x8E\x84",
                                          "\xE2\x84\xAA",
                                          "k",
                                          "a long beginning, the same for many",
                                          "A LONG BEGINNING, THE SAME FOR MANY"};
  const std::vector<std::string> dates = {"12.22", "12.23", "12.24", "01.05", "12.20"};
  const std::vector<std::string> rules = {"yearly",  "tdo2014", "dp-2001",
                                          "df-2014", "one2014", "01-2014"};
  std::string file;
  for (int i = 0; i < lines_; ++i) {
    std::string title;
    for (int word = UpTo(3); word >= 0; --word) title += Pick(words);
    std::replace(title.begin(), title.end(), ',', ' ');
    file += Pick(dates) + "," + title + ",20," + Pick(rules) + "\n";
  }
  Desk desk(file);
  desk.access = FileAccess::kReadOnly;
  desk.Build();
  const auto& rows = desk.builder().rows();
  ASSERT_GT(rows.size(), lines_ / 2);

  std::vector<std::string> given;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].kind == RowKind::kTodayLine) continue;
    // Without the countdown, which is put on after sorting.
    std::string text = desk.List()[i];
    const auto& indexes = desk.builder().alarms().alarmItemIndexes();
    const auto alarm = std::find(indexes.begin(), indexes.end(), static_cast<int>(i));
    if (alarm != indexes.end()) text.erase(text.rfind(" ("));
    given.push_back(SortText(rows[i], text));
  }
  std::vector<std::string> sorted = given;
  std::sort(sorted.begin(), sorted.end());
  EXPECT_THAT(given, ElementsAreArray(sorted));
}

TEST_P(RandomLists, HaveTheTodayLineAheadOfTodaysRows) {
  std::string file;
  for (int i = 0; i < lines_; ++i) {
    file += "12.22," + Pick({"", " ", "  ", "\t"}) + "x 12:0" + std::to_string(UpTo(1)) + " am,0," +
            Pick({"yearly", "dp-2014"}) + "\n";
  }
  for (const NamedLayout& layout : AllLayouts()) {
    SCOPED_TRACE(layout.name);
    Desk desk(file);
    desk.format = layout.format;
    desk.Build();
    ASSERT_EQ(desk.builder().rows().size(), lines_ + 1);
    EXPECT_EQ(desk.builder().rows().front().kind, RowKind::kTodayLine);
  }
}

INSTANTIATE_TEST_SUITE_P(SeedsAndSizes, RandomLists,
                         ::testing::Combine(::testing::Range(1U, 5U),
                                            ::testing::Values(30, 400, 600, 2000)));

}  // namespace
}  // namespace tidewarden::test
