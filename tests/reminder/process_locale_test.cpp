// The list is the same whatever locale the process has taken: letters, numbers and order are the
// program's own.
#include <gmock/gmock.h>

#include <clocale>
#include <cstdlib>
#include <locale>
#include <sstream>

#include "tests/reminder/builder_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAreArray;

// Writes numbers as in "1.234,5", as the C++ library does in many languages.
class GroupedNumbers : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

// Takes a locale for the C library, and grouped numbers for the C++ library, and gives them up
// again.
class ProcessLocale {
 public:
  explicit ProcessLocale(const std::string& name)
      : former_(std::locale::global(std::locale(std::locale::classic(), new GroupedNumbers))),
        taken_(std::setlocale(LC_ALL, name.c_str()) != nullptr) {}
  ProcessLocale(const ProcessLocale&) = delete;
  ProcessLocale& operator=(const ProcessLocale&) = delete;
  ~ProcessLocale() {
    std::locale::global(former_);
    std::setlocale(LC_ALL, "C");
  }
  [[nodiscard]] bool taken() const { return taken_; }

 private:
  std::locale former_;
  bool taken_;
};

std::vector<std::string> LocaleNames() {
  ::setenv("LOCPATH", TIDEWARDEN_TEST_LOCALES, 1);
  return {"C.UTF-8", "de_DE.UTF-8", "tr_TR.UTF-8"};
}

void FillDesk(Desk& desk) {
  desk.files.files[kEventsPath] =
      "06.01,Sober,0,dp-2001\n"
      "12.24,half a day,0.5,yearly\n"
      "12.23,ONE AND A HALF,1.5,YEARLY\n"
      "12.22,istanbul IĞDIR 3:30PM,0,Yearly\n"
      "12.26,Igel,7,yearly\n"
      "12.26,igel,7,yearly\n"
      "12.26,Äpfel,7,yearly\n"
      "12.26,Zebra,7,yearly\n"
      "12.26,apfel,7,yearly\n"
      "_ESTR,Easter,200,QUARTERLY\n"
      "_PASS,Passover,365,YEARLY\n"
      "01.XX,Rejected,365,LAS FRI\n"
      "01.xx,Friday,365,LAS FRI\n"
      "12.21,Gone,7,one2014\n";
  desk.Set("Options", "ShowLessThan", "FALSE");
  desk.Set("Options", "ListTodayWithEvents", "TRUE");
  desk.Set("Options", "ShowDayOfWeek", "TITLE");
  desk.Set("Options", "AlarmSound", "0.5");
}

TEST(ProcessLocaleOfTheList, HasNoInfluence) {
  Desk plain;
  FillDesk(plain);
  plain.Build();
  ASSERT_THAT(
      plain.List(),
      ElementsAreArray({"06/01/2001 Sober (4952 days past)", "12/22/2014   <TODAY>",
                        "12/22/2014 Today is ISTANBUL IĞDIR 3:30PM (1:05 to go)",
                        "12/23/2014 ONE AND A HALF (Tuesday, 1 day)",
                        "12/26/2014 apfel (Friday, 4 days)", "12/26/2014 Igel (Friday, 4 days)",
                        "12/26/2014 igel (Friday, 4 days)", "12/26/2014 Zebra (Friday, 4 days)",
                        "12/26/2014 Äpfel (Friday, 4 days)", "01/30/2015 Friday (39 days)",
                        "04/04/2015 Passover (103 days)"}));
  for (const std::string& name : LocaleNames()) {
    SCOPED_TRACE(name);
    const ProcessLocale locale(name);
    ASSERT_TRUE(locale.taken());
    Desk desk;
    FillDesk(desk);
    desk.Build();
    EXPECT_THAT(desk.Listed(), ElementsAreArray(plain.Listed()));
    EXPECT_EQ(desk.file(), plain.file());
    EXPECT_TRUE(desk.builder().options().alarmSound);
    EXPECT_EQ(desk.builder().alarms().alarmTitles(), plain.builder().alarms().alarmTitles());
  }
}

// Without this the test above would show nothing.
TEST(ProcessLocaleOfTheList, IsReallyTaken) {
  const std::vector<std::string> names = LocaleNames();
  const ProcessLocale locale(names.back());
  ASSERT_TRUE(locale.taken());
  EXPECT_EQ(names.back(), std::setlocale(LC_ALL, nullptr));
  std::ostringstream number;
  number << 4952;
  EXPECT_EQ(number.str(), "4.952");
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");
}

}  // namespace
}  // namespace tidewarden::test
