// Events followed day by day over some years, against what a person would expect on each day.
#include <gmock/gmock.h>

#include "tests/reminder/builder_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Calls `visit` for each day from the first to the last.
template <typename Visit>
void ForEachDay(CivilDate first, CivilDate last, Visit visit) {
  for (CivilDate day = first; day <= last; day = AddDays(day, 1)) {
    SCOPED_TRACE(std::to_string(YearOf(day)) + "-" + std::to_string(MonthOf(day)) + "-" +
                 std::to_string(DayOf(day)));
    visit(day);
    if (::testing::Test::HasFailure()) return;
  }
}

class CalendarWalk : public ::testing::Test {
 protected:
  void Start(const std::string& file) {
    desk_.files.files[kEventsPath] = file;
    desk_.Set("Options", "ListTodayWithEvents", "False");
  }

  std::vector<std::string> ListOn(CivilDate day) {
    desk_.clock.now = {day, 12, 0, 0};
    desk_.Build();
    return desk_.List();
  }

  Desk desk_;
};

TEST_F(CalendarWalk, AYearlyEventIsListedFromItsNoticeToItsDay) {
  Start("12.25,Christmas,14,yearly\n");
  static const char* const kWeekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                          "Thursday", "Friday", "Saturday"};
  ForEachDay(On(2014, 1, 1), On(2016, 12, 31), [&](CivilDate day) {
    const CivilDate christmas = On(YearOf(day), 12, 25);
    const std::string date = "12/25/" + std::to_string(YearOf(day));
    const int days = DaysBetween(day, christmas);
    if (days < 0 || days > 14) {
      EXPECT_THAT(ListOn(day), IsEmpty());
    } else if (days == 0) {
      EXPECT_THAT(ListOn(day), ElementsAre(date + " Today is CHRISTMAS"));
    } else {
      std::string expected = date + " Christmas (";
      if (days <= 7) {
        expected += kWeekdays[WeekdayNumber(christmas) - 1];
        expected += ", ";
      }
      expected += std::to_string(days) + (days == 1 ? " day)" : " days)");
      EXPECT_THAT(ListOn(day), ElementsAre(expected));
    }
  });
  EXPECT_EQ(desk_.FileChanges(), 0);
}

TEST_F(CalendarWalk, NoticeReachesOverTheTurnOfTheYear) {
  Start("01.03,Birthday,10,yearly\n");
  ForEachDay(On(2014, 1, 1), On(2016, 12, 31), [&](CivilDate day) {
    const CivilDate thisYear = On(YearOf(day), 1, 3);
    const CivilDate next = thisYear >= day ? thisYear : On(YearOf(day) + 1, 1, 3);
    const int days = DaysBetween(day, next);
    ASSERT_EQ(ListOn(day).size(), days <= 10 ? 1 : 0);
    if (days <= 10) {
      EXPECT_EQ(desk_.builder().rows()[0].daysToGo, days);
      EXPECT_TRUE(desk_.List()[0].starts_with("01/03/" + std::to_string(YearOf(next))));
    }
  });
}

TEST_F(CalendarWalk, AHiddenEventComesBackTheDayAfterItsOccurrence) {
  Start("12.25,Christmas,14,yearly*\n");
  ForEachDay(On(2014, 12, 11), On(2014, 12, 25), [&](CivilDate day) {
    EXPECT_THAT(ListOn(day), IsEmpty());
    EXPECT_EQ(desk_.file(), "12.25,Christmas,14,yearly*\n");
  });
  EXPECT_THAT(ListOn(On(2014, 12, 26)), IsEmpty());
  EXPECT_EQ(desk_.file(), "12.25,Christmas,14,yearly\r\n");
  EXPECT_EQ(ListOn(On(2015, 12, 11)).size(), 1);
}

TEST_F(CalendarWalk, AHiddenMonthlyEventComesBackOnceItsNextDateIsFarEnough) {
  Start("xx.15,Rent,10,monthly*\n");
  ForEachDay(On(2014, 12, 6), On(2014, 12, 15), [&](CivilDate day) {
    EXPECT_THAT(ListOn(day), IsEmpty());
    EXPECT_EQ(desk_.file(), "xx.15,Rent,10,monthly*\n");
  });
  // 15 January is 30 days away.
  ListOn(On(2014, 12, 16));
  EXPECT_EQ(desk_.file(), "xx.15,Rent,10,monthly\r\n");
}

TEST_F(CalendarWalk, AHiddenEventWithAYearOfNoticeNeverComesBack) {
  Start("12.25,Christmas,365,yearly*\n");
  ForEachDay(On(2014, 12, 1), On(2016, 1, 31),
             [&](CivilDate day) { EXPECT_THAT(ListOn(day), IsEmpty()); });
  EXPECT_EQ(desk_.file(), "12.25,Christmas,365,yearly*\n");
}

TEST_F(CalendarWalk, AOneTimeEventIsGoneTheDayAfter) {
  Start("12.25,Dinner,3,one2014\n12.25,Other,0,one2015\n");
  const std::string before = desk_.file();
  ForEachDay(On(2014, 12, 1), On(2014, 12, 25), [&](CivilDate day) {
    const int days = DaysBetween(day, On(2014, 12, 25));
    EXPECT_EQ(ListOn(day).size(), days <= 3 ? 1 : 0);
    EXPECT_EQ(desk_.file(), before);
  });
  EXPECT_THAT(ListOn(On(2014, 12, 26)), IsEmpty());
  EXPECT_EQ(desk_.file(), "12.25,Other,0,one2015\r\n");
}

TEST_F(CalendarWalk, ATaskStaysUntilItIsDeleted) {
  Start("12.25,Tax,3,tdo2014\n");
  ForEachDay(On(2014, 12, 1), On(2016, 3, 1), [&](CivilDate day) {
    const int days = DaysBetween(day, On(2014, 12, 25));
    if (days > 3) {
      EXPECT_THAT(ListOn(day), IsEmpty());
    } else if (days == 0) {
      EXPECT_THAT(ListOn(day), ElementsAre("12/25/2014 Today is TAX"));
    } else if (days < 0) {
      EXPECT_THAT(ListOn(day), ElementsAre("12/25/2014 Tax (" + std::to_string(-days) +
                                           (days == -1 ? " DAY" : " DAYS") + " OVERDUE!!!)"));
    } else {
      EXPECT_EQ(ListOn(day).size(), 1);
    }
  });
  EXPECT_EQ(desk_.FileChanges(), 0);
}

// A count-up from a year to come is no event until that year has begun.
TEST_F(CalendarWalk, ACountUpBeginsWithItsYear) {
  Start("01.05,Moved,0,dp-2015\n");
  EXPECT_THAT(ListOn(On(2014, 12, 31)), IsEmpty());
  EXPECT_THAT(ListOn(On(2015, 1, 1)), ElementsAre("01/05/2015 Moved (4 days future)"));
  EXPECT_THAT(ListOn(On(2015, 1, 5)), ElementsAre("01/05/2015 Moved (0 daysIS TODAY)"));
  EXPECT_THAT(ListOn(On(2015, 1, 6)), ElementsAre("01/05/2015 Moved (1 days past)"));
}

}  // namespace
}  // namespace tidewarden::test
