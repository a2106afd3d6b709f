// The settings that the list reads: their defaults, what is written back, and when they are read.
#include <gmock/gmock.h>

#include "tests/reminder/builder_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;

TEST(ListSettings, AreWrittenBackWithTheirDefaults) {
  Desk desk("12.25,Christmas,14,yearly\n");
  desk.Build();
  const struct {
    const char* name;
    const char* value;
  } expected[] = {
      {"TitlebarText", "Your Tidewarden Upcoming Events"},
      {"ShowLessThan", "False"},
      {"SpellOutReminderMonths", "False"},
      {"NewDateOffset", "0000"},
      {"AlarmSound", "True"},
      {"AlarmBeepEachMinute", "True"},
      {"DisableAlarms", "False"},
      {"CapitalizeTodaysEvents", "True"},
      {"PrefaceTodaysEventsWithTODAYis", "True"},
      {"ListTodayWithEvents", "True"},
      {"ShowOnlyIfEventsInRange", "False"},
      {"ShowDateDifferencesInDaysOnly", "True"},
      {"ShowDayOfWeek", "(missing)"},
      {"ShowTodaysDateWithReminders", "(missing)"},
  };
  for (const auto& [name, value] : expected) {
    SCOPED_TRACE(name);
    EXPECT_EQ(desk.settings.At("Options", name), value);
  }
  for (const auto& entry : desk.settings.entries) EXPECT_EQ(entry.section, "Options");
}

TEST(ListSettings, AreNotWrittenASecondTime) {
  Desk desk("12.25,Christmas,14,yearly\n");
  desk.Build();
  desk.settings.writes = 0;
  desk.Build();
  EXPECT_EQ(desk.settings.writes, 0);
}

TEST(ListSettings, OfAStoreThatCannotBeReadAreTheDefaults) {
  Desk desk("12.22,Party,14,yearly\n12.25,Christmas,14,yearly\n");
  desk.Set("Options", "CapitalizeTodaysEvents", "False");
  desk.settings.failure = StatusKind::kNoPermission;
  desk.Build();
  EXPECT_THAT(desk.List(), ElementsAre("12/22/2014   <TODAY>", "12/22/2014 Today is PARTY",
                                       "12/25/2014 Christmas (Thursday, 3 days)"));
  EXPECT_EQ(desk.builder().options().titlebarText, "Your Tidewarden Upcoming Events");
  EXPECT_EQ(desk.settings.writes, 0);
}

TEST(WeekdaySetting, StaysUnsetAndActsDifferentlyOnTheTodayLine) {
  Desk desk("12.25,Christmas,14,yearly\n");
  for (int build = 1; build <= 2; ++build) {
    SCOPED_TRACE(build);
    desk.Build();
    EXPECT_THAT(desk.List(),
                ElementsAre("12/22/2014   <TODAY>", "12/25/2014 Christmas (Thursday, 3 days)"));
    EXPECT_EQ(desk.settings.At("Options", "ShowDayOfWeek"), "(missing)");
  }
}

TEST(WeekdaySetting, ShowsOnBothForTrueOnly) {
  const struct {
    const char* value;
    const char* todayLine;
    const char* event;
  } cases[] = {
      {"True", "12/22/2014   <TODAY is Monday>", "12/25/2014 Christmas (Thursday, 3 days)"},
      {"TRUE", "12/22/2014   <TODAY is Monday>", "12/25/2014 Christmas (Thursday, 3 days)"},
      {"maybe", "12/22/2014   <TODAY>", "12/25/2014 Christmas (Thursday, 3 days)"},
      {"1", "12/22/2014   <TODAY>", "12/25/2014 Christmas (Thursday, 3 days)"},
      {" true", "12/22/2014   <TODAY>", "12/25/2014 Christmas (Thursday, 3 days)"},
      {"False", "12/22/2014   <TODAY>", "12/25/2014 Christmas (3 days)"},
      {"false", "12/22/2014   <TODAY>", "12/25/2014 Christmas (3 days)"},
      {"", "12/22/2014   <TODAY>", "12/25/2014 Christmas (Thursday, 3 days)"},
  };
  for (const auto& [value, todayLine, event] : cases) {
    SCOPED_TRACE(value);
    Desk desk("12.25,Christmas,14,yearly\n");
    desk.Set("Options", "ShowDayOfWeek", value);
    desk.Build();
    EXPECT_THAT(desk.List(), ElementsAre(todayLine, event));
    EXPECT_EQ(desk.settings.At("Options", "ShowDayOfWeek"), value);
  }
}

TEST(Caption, IsTheSettingAsStoredAtEachBuild) {
  Desk desk("");
  desk.Build();
  EXPECT_EQ(desk.builder().options().titlebarText, "Your Tidewarden Upcoming Events");
  desk.Set("Options", "TitlebarText", "OUR Family [*] &c");
  desk.Build();
  EXPECT_EQ(desk.builder().options().titlebarText, "OUR Family [*] &c");
}

TEST(Options, AreReadAtEachBuild) {
  Desk desk("12.22,Party,0,yearly\n");
  desk.Build();
  EXPECT_EQ(desk.List().back(), "12/22/2014 Today is PARTY");
  desk.Set("Options", "CapitalizeTodaysEvents", "False");
  desk.Build();
  EXPECT_THAT(desk.List(), ElementsAre("12/22/2014   <Today>", "12/22/2014 Today is Party"));
}

TEST(Preface, IsReadOnceAtTheStart) {
  Desk desk("12.22,Party,0,yearly\n");
  desk.Build();
  desk.Set("Options", "PrefaceTodaysEventsWithTODAYis", "False");
  desk.Build();
  EXPECT_EQ(desk.List().back(), "12/22/2014 Today is PARTY");

  Desk restarted("12.22,Party,0,yearly\n");
  restarted.Set("Options", "PrefaceTodaysEventsWithTODAYis", "False");
  restarted.Build();
  EXPECT_EQ(restarted.List().back(), "12/22/2014PARTY");
}

TEST(AlarmOptions, AreTrueOrFalseOrANumberOrTheDefault) {
  const struct {
    const char* value;
    bool sound;    // on by default
    bool disable;  // off by default
  } cases[] = {
      {"True", true, true},    {"TRUE", true, true}, {"False", false, false},
      {"fALSE", false, false}, {"1", true, true},    {"-1", true, true},
      {"0.5", true, true},     {"0", false, false},  {" true ", true, true},
      {"yes", true, false},    {"no", true, false},  {"1x", true, false},
      {"0.0", false, false},
  };
  for (const auto& [value, sound, disable] : cases) {
    SCOPED_TRACE(value);
    Desk desk("");
    desk.Set("Options", "AlarmSound", value);
    desk.Set("Options", "AlarmBeepEachMinute", value);
    desk.Set("Options", "DisableAlarms", value);
    desk.Build();
    EXPECT_EQ(desk.builder().options().alarmSound, sound);
    EXPECT_EQ(desk.builder().options().alarmBeepEachMinute, sound);
    EXPECT_EQ(desk.builder().options().disableAlarms, disable);
  }
}

TEST(NewDateOffset, IsAWholeNumber) {
  const struct {
    const char* value;
    int offset;
  } cases[] = {
      {"0000", 0}, {"0600", 600}, {"2359", 2359}, {" 0630 am", 630}, {"6.9", 6}, {"abc", 0},
  };
  for (const auto& [value, offset] : cases) {
    SCOPED_TRACE(value);
    Desk desk("");
    desk.Set("Options", "NewDateOffset", value);
    desk.Build();
    EXPECT_EQ(desk.builder().options().newDateOffset, offset);
  }
}

TEST(ObsoleteSetting, IsRemovedWhenItHoldsAnything) {
  for (const char* value : {"True", "False", "x"}) {
    SCOPED_TRACE(value);
    Desk desk("");
    desk.Set("Options", "ShowTodaysDateWithReminders", value);
    desk.Set("Settings", "ShowTodaysDateWithReminders", "not this one");
    desk.Build();
    EXPECT_EQ(desk.settings.At("Options", "ShowTodaysDateWithReminders"), "(missing)");
    EXPECT_EQ(desk.settings.At("Settings", "ShowTodaysDateWithReminders"), "not this one");
  }
}

// --- Today's label, in each layout.

TEST(DateLabel, IsTodayInTheUsersLayout) {
  const struct {
    const char* shortDate;
    const char* plain;
    const char* spelled;
  } cases[] = {
      {"MM/dd/yyyy", "12/02/2014", "Dec 02 2014"},
      {"dd.MM.yyyy", "02.12.2014", "02 Dec 2014"},
      {"yyyy-MM-dd", "2014-12-02", "2014 Dec 02"},
      {"yy/MM/dd", "14/12/02", "14/12/02"},
  };
  for (const auto& [shortDate, plain, spelled] : cases) {
    SCOPED_TRACE(shortDate);
    Desk desk("");
    desk.format = LayoutOf(shortDate);
    desk.SetNow(2014, 12, 2);
    desk.Build();
    EXPECT_EQ(desk.builder().dateLabel(), plain);
    desk.Set("Options", "SpellOutReminderMonths", "True");
    desk.Set("Options", "ListTodayWithEvents", "False");
    desk.Build();
    EXPECT_EQ(desk.builder().dateLabel(), spelled);
  }
}

}  // namespace
}  // namespace tidewarden::test
