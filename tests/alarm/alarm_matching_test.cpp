// Which row of the list an alarm stands on.
#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "alarm/alarm_schedule.h"
#include "dates/text.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

constexpr int kNoRow = AlarmSchedule::kNoRow;
const LocalTime kNow{On(2014, 12, 22), 14, 25, 0};

AlarmSchedule Scheduled(const std::vector<std::string>& titles) {
  AlarmSchedule alarms;
  for (const std::string& title : titles) alarms.ScheduleAlarm(title, kNow.date);
  return alarms;
}

// The rows as a list shows them.
std::vector<std::string_view> Shown(const std::vector<std::string>& rows) {
  return {rows.begin(), rows.end()};
}

TEST(AlarmRow, IsTheFirstThatEndsInTheTitle) {
  const struct {
    const char* name;
    std::vector<std::string> titles;
    std::vector<std::string> list;
    std::vector<int> rows;
  } cases[] = {
      {"the end of a row", {"Tea 15:00"}, {"a", "12/22/2014 Today is Tea 15:00"}, {1}},
      {"the whole row", {"Tea 15:00"}, {"Tea 15:00"}, {0}},
      {"not its beginning", {"Tea 15:00"}, {"Tea 15:00 "}, {kNoRow}},
      {"not its middle", {"Tea 15:00"}, {"a Tea 15:00 (Monday, 1 day)"}, {kNoRow}},
      {"not a shorter row", {"Tea 15:00"}, {"ea 15:00", "0", ""}, {kNoRow}},
      {"capitals", {"Tea 15:00 pm"}, {"12/22/2014 Today is TEA 15:00 PM"}, {0}},
      {"small letters", {"TEA 15:00"}, {"12/22/2014 Today is tea 15:00"}, {0}},
      {"letters beyond ASCII", {"Straße 15:00 für Zoë"}, {"x STRAßE 15:00 FÜR ZOË"}, {0}},
      {"capitals that are longer in bytes", {"ɐɐɐ 15:00"}, {"x ⱯⱯⱯ 15:00"}, {0}},
      {"a sharp s is not two letters", {"Straße 15:00"}, {"x STRASSE 15:00"}, {kNoRow}},
      {"final sigma", {"Γιατρός 15:00"}, {"x ΓΙΑΤΡΌΣ 15:00"}, {0}},
      {"capitals of a dotless i", {"ılık 15:00"}, {"x ILIK 15:00"}, {0}},
      {"letters that share a capital", {"ılık 15:00"}, {"x ilik 15:00"}, {0}},
      {"micro sign and long s", {"5 µg 15:00 ſ"}, {"x 5 ΜG 15:00 S"}, {0}},
      {"a final sigma at the end", {"15:00 Γιατρός"}, {"x 15:00 ΓΙΑΤΡΌΣ"}, {0}},
      {"an empty list", {"Tea 15:00"}, {}, {kNoRow}},
      {"the first of equal rows", {"Tea 15:00"}, {"a Tea 15:00", "b Tea 15:00"}, {0}},
      {"equal titles share a row",
       {"Tea 15:00", "Tea 15:00"},
       {"x", "12/22/2014 Today is TEA 15:00", "12/22/2014 Today is TEA 15:00"},
       {1, 1}},
      {"titles that differ in case share a row",
       {"Tea 15:00", "TEA 15:00"},
       {"12/22/2014 Today is TEA 15:00", "12/22/2014 Today is TEA 15:00"},
       {0, 0}},
      {"the end of another title",
       {"Green tea 15:00", "tea 15:00"},
       {"12/22/2014 Today is GREEN TEA 15:00", "12/22/2014 Today is TEA 15:00"},
       {0, 0}},
      {"the longer title is not the end of the shorter",
       {"Green tea 15:00", "tea 15:00"},
       {"12/22/2014 Today is TEA 15:00", "12/22/2014 Today is GREEN TEA 15:00"},
       {1, 0}},
      {"some have a row and some have none",
       {"A 9:00", "B 9:00", "C 9:00"},
       {"C 9:00", "A 9:00"},
       {1, kNoRow, 0}},
  };
  for (const auto& [name, titles, list, rows] : cases) {
    SCOPED_TRACE(name);
    AlarmSchedule alarms = Scheduled(titles);
    std::vector<std::string_view> shown = Shown(list);
    alarms.MatchAlarmsToList(shown, kNow);
    EXPECT_THAT(alarms.alarmItemIndexes(), ElementsAreArray(rows));
    ASSERT_EQ(shown.size(), list.size());
    for (std::size_t row = 0; row < list.size(); ++row) {
      const bool matched = std::find(rows.begin(), rows.end(), static_cast<int>(row)) != rows.end();
      EXPECT_EQ(shown[row] != list[row], matched);
      EXPECT_TRUE(shown[row].starts_with(list[row]));
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
      EXPECT_EQ(alarms.alarmItemTexts()[i],
                rows[i] == kNoRow ? "" : list[static_cast<std::size_t>(rows[i])]);
    }
  }
}

TEST(AlarmRow, ShowsTheLaterAlarmWhenTwoShareIt) {
  AlarmSchedule alarms = Scheduled({"7:00 and tea 15:00", "tea 15:00"});
  std::vector<std::string_view> list{"x 7:00 AND TEA 15:00", "x TEA 15:00"};
  alarms.MatchAlarmsToList(list, kNow);
  EXPECT_THAT(list, ElementsAre("x 7:00 AND TEA 15:00 (0:35 to go)", "x TEA 15:00"));
  EXPECT_EQ(alarms.alarmCount(), 1);
}

TEST(AlarmRow, LeavesAllOtherRowsAlone) {
  AlarmSchedule alarms = Scheduled({"Tea 15:00"});
  std::vector<std::string_view> list{"12/22/2014   <TODAY>", "12/22/2014 Today is TEA 15:00",
                                     "12/23/2014 Tea 15:00 (Tuesday, 1 day)"};
  alarms.MatchAlarmsToList(list, kNow);
  EXPECT_THAT(list,
              ElementsAre("12/22/2014   <TODAY>", "12/22/2014 Today is TEA 15:00 (0:35 to go)",
                          "12/23/2014 Tea 15:00 (Tuesday, 1 day)"));
}

TEST(AlarmRow, IsFoundAnewInAnotherList) {
  AlarmSchedule alarms = Scheduled({"Tea 15:00"});
  std::vector<std::string_view> list{"a", "x TEA 15:00"};
  alarms.MatchAlarmsToList(list, kNow);
  std::vector<std::string_view> other{"y TEA 15:00"};
  alarms.MatchAlarmsToList(other, kNow);
  EXPECT_THAT(alarms.alarmItemIndexes(), ElementsAre(0));
  EXPECT_THAT(alarms.alarmItemTexts(), ElementsAre("y TEA 15:00"));
  EXPECT_THAT(other, ElementsAre("y TEA 15:00 (0:35 to go)"));
}

TEST(AlarmRow, NeedsNoAlarms) {
  AlarmSchedule alarms;
  std::vector<std::string_view> list{"a"};
  alarms.MatchAlarmsToList(list, kNow);
  EXPECT_THAT(list, ElementsAre("a"));
  EXPECT_THAT(alarms.alarmItemIndexes(), IsEmpty());
}

// Walks the list for each alarm, letter by letter.
int FirstRowEndingIn(const std::vector<std::string>& list, const std::string& title) {
  for (std::size_t row = 0; row < list.size(); ++row) {
    std::string_view rest = list[row];
    if (CountCharacters(rest) < CountCharacters(title)) continue;
    rest = LastCharacters(rest, CountCharacters(title));
    std::string_view wanted = title;
    bool equal = true;
    while (equal && !wanted.empty()) {
      equal = ToLower(ToUpper(TakeCharacter(rest))) == ToLower(ToUpper(TakeCharacter(wanted)));
    }
    if (equal) return static_cast<int>(row);
  }
  return kNoRow;
}

TEST(AlarmRow, IsTheSameAsByWalkingTheListForEachAlarm) {
  std::mt19937 random(20141222);
  const auto pick = [&](const std::vector<std::string>& from) {
    return from[random() % from.size()];
  };
  const std::vector<std::string> heads = {"",     "x",          "É",    "é", "ß", "Tea ",
                                          "tea ", "green tea ", "\xFF", "σ", "ς", "Σ"};
  const std::vector<std::string> times = {"9:00",   "19:00",  "9:00 pm", "15:00ß",
                                          "15:00É", "15:00é", "15:00ς",  "15:00Σ"};
  for (int round = 0; round < 200; ++round) {
    std::vector<std::string> titles;
    std::vector<std::string> list;
    for (int i = 0; i < 8; ++i) titles.push_back(pick(heads) + pick(heads) + pick(times));
    for (int i = 0; i < 12; ++i) list.push_back(pick(heads) + pick(heads) + pick(times));
    AlarmSchedule alarms = Scheduled(titles);
    std::vector<int> rows;
    for (const std::string& title : titles) rows.push_back(FirstRowEndingIn(list, title));
    std::vector<std::string_view> shown = Shown(list);
    alarms.MatchAlarmsToList(shown, kNow);
    ASSERT_THAT(alarms.alarmItemIndexes(), ElementsAreArray(rows));
  }
}

TEST(AlarmRow, IsFoundForThousandsOfAlarms) {
  std::vector<std::string> titles;
  std::vector<std::string> rows;
  for (int i = 0; i < 3000; ++i) {
    titles.push_back("alarm " + std::to_string(i) + " 15:00");
    rows.push_back("12/22/2014 Today is ALARM " + std::to_string(i) + " 15:00");
  }
  AlarmSchedule alarms = Scheduled(titles);
  std::vector<std::string_view> list = Shown(rows);
  alarms.MatchAlarmsToList(list, kNow);
  for (int i = 0; i < 3000; ++i)
    ASSERT_EQ(alarms.alarmItemIndexes()[static_cast<std::size_t>(i)], i);
  EXPECT_EQ(list.back(), "12/22/2014 Today is ALARM 2999 15:00 (0:35 to go)");
}

}  // namespace
}  // namespace tidewarden::test
