// The user's date layout from real locales. They are compiled when a test first needs them, with
// the system's localedef, into the build folder.
#include "platform/posix/posix_regional_formats.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "dates/date_text.h"
#include "platform/system.h"
#include "tests/support/processes.h"

namespace tidewarden {
namespace {

namespace fs = std::filesystem;
using test::ScopedVariable;

const fs::path kLocales = TIDEWARDEN_TEST_LOCALES;

// Held by one test program at a time.
class LocalesLock {
 public:
  LocalesLock() {
    fs::create_directories(kLocales);
    fd_ = ::open((kLocales / ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ::flock(fd_, LOCK_EX);
  }
  LocalesLock(const LocalesLock&) = delete;
  LocalesLock& operator=(const LocalesLock&) = delete;
  ~LocalesLock() { ::close(fd_); }

 private:
  int fd_;
};

// Compiles "de_DE.UTF-8" unless it is there. A system that cannot do so fails the test.
void NeedLocale(const std::string& name) {
  const LocalesLock lock;
  const fs::path place = kLocales / name;
  if (fs::exists(place / "LC_TIME")) return;
  const std::size_t dot = name.find('.');
  const fs::path making = kLocales / ("making-" + name);
  fs::remove_all(making);
  const std::string command = "localedef -i " + name.substr(0, dot) + " -f " +
                              name.substr(dot + 1) + " '" + making.string() + "' 2>&1";
  // A warning about the locale's text gives exit code 1 although the locale is made.
  static_cast<void>(std::system(command.c_str()));
  ASSERT_TRUE(fs::exists(making / "LC_TIME"))
      << "THE LOCALE " << name << " CANNOT BE COMPILED, SO NOTHING WAS TESTED. Needed are the "
      << "program localedef and the sources of the locales (Debian package \"locales\").";
  fs::rename(making, place);
}

class PosixFormats : public ::testing::Test {
 protected:
  // What a user sees whose environment says `value` for all categories.
  static std::unique_ptr<PosixRegionalFormats> FormatsOf(const char* value) {
    const ScopedVariable all("LC_ALL", value);
    return std::make_unique<PosixRegionalFormats>();
  }

 private:
  ScopedVariable path_{"LOCPATH", kLocales.c_str()};
  ScopedVariable all_{"LC_ALL", nullptr};
  ScopedVariable time_{"LC_TIME", nullptr};
  ScopedVariable lang_{"LANG", nullptr};
  ScopedVariable language_{"LANGUAGE", nullptr};
};

struct LocaleCase {
  std::string name;
  std::string shortDate;  // of 31 December 1992
  std::string layout;     // as it is shown
  std::string months;     // January to December
  std::string sunday;
};

void PrintTo(const LocaleCase& c, std::ostream* out) {
  *out << c.name;
}

class PosixFormatsOf : public PosixFormats, public ::testing::WithParamInterface<LocaleCase> {};

TEST_P(PosixFormatsOf, GivesItsLayoutAndNames) {
  const LocaleCase& c = GetParam();
  ASSERT_NO_FATAL_FAILURE(NeedLocale(c.name));
  const auto formats = FormatsOf(c.name.c_str());
  const std::string probe = formats->ShortDate(kProbeDate);
  EXPECT_EQ(probe, c.shortDate);
  const auto format = DetectRegionalDateFormat(probe, *formats);
  ASSERT_TRUE(format.has_value()) << probe;
  EXPECT_EQ(format->DisplayDateFormat, c.layout);
  std::string months;
  for (std::size_t m = 1; m <= 12; ++m) months += (m == 1 ? "" : " ") + format->MonthNames[m];
  EXPECT_EQ(months, c.months);
  EXPECT_EQ(format->WeekdayNames[1], c.sunday);
  EXPECT_EQ(formats->WeekdayName(1), c.sunday);
}

INSTANTIATE_TEST_SUITE_P(
    Locales, PosixFormatsOf,
    ::testing::Values(LocaleCase{"en_US.UTF-8", "12/31/1992", "mm/dd/yyyy",
                                 "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec", "Sunday"},
                      LocaleCase{"en_GB.UTF-8", "31/12/92", "dd/mm/yyyy",
                                 "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec", "Sunday"},
                      LocaleCase{"de_DE.UTF-8", "31.12.1992", "dd.mm.yyyy",
                                 "Jan Feb Mär Apr Mai Jun Jul Aug Sep Okt Nov Dez", "Sonntag"},
                      // June and July are "juin" and "juil.", told apart.
                      LocaleCase{"fr_FR.UTF-8", "31/12/1992", "dd/mm/yyyy",
                                 "jan fév mar avr mai jun jul aoû sep oct nov déc", "dimanche"},
                      LocaleCase{"sv_SE.UTF-8", "1992-12-31", "yyyy-mm-dd",
                                 "jan feb mar apr maj jun jul aug sep okt nov dec", "söndag"},
                      LocaleCase{"sk_SK.UTF-8", "31.12.1992", "dd.mm.yyyy",
                                 "jan feb mar apr máj jún júl aug sep okt nov dec", "Nedeľa"},
                      LocaleCase{"hr_HR.UTF-8", "31.12.1992", "dd.mm.yyyy",
                                 "sij vel ožu tra svi lip srp kol ruj lis stu pro", "nedjelja"},
                      // "juuni" and "juuli" stay the same: eleven names differ.
                      LocaleCase{"et_EE.UTF-8", "31.12.1992", "dd.mm.yyyy",
                                 "jaa vee mär apr mai juu juu aug sep okt nov det", "pühapäev"},
                      // All names begin alike, so they are of no use.
                      LocaleCase{"vi_VN.UTF-8", "31/12/1992", "dd/mm/yyyy",
                                 "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec", "Chủ nhật"},
                      // The form that stands beside a day.
                      LocaleCase{"ru_RU.UTF-8", "31.12.1992", "dd.mm.yyyy",
                                 "янв фев мар апр мая июн июл авг сен окт ноя дек", "Воскресенье"},
                      // Long forms of the date keep the separator of their day.
                      LocaleCase{"nb_NO.UTF-8", "31.12.1992", "dd.mm.yyyy",
                                 "jan feb mar apr mai jun jul aug sep okt nov des", "søndag"},
                      LocaleCase{"nn_NO.UTF-8", "31.12.1992", "dd.mm.yyyy",
                                 "jan feb mar apr mai jun jul aug sep okt nov des", "sundag"},
                      LocaleCase{"is_IS.UTF-8", "31.12.1992", "dd.mm.yyyy",
                                 "jan feb mar apr maí jún júl ágú sep okt nóv des", "sunnudagur"},
                      // June and July are "ئىيۇن" and "ئىيۇل": eleven names differ.
                      LocaleCase{"ug_CN.UTF-8", "31-12-1992", "dd-mm-yyyy",
                                 "يان فېۋ مار ئاپ ماي ئىي ئىي ئاۋ سېن ئۆك نوي دېك", "يەكشەنبە"},
                      // A character set of single bytes.
                      LocaleCase{"de_DE.ISO-8859-1", "31.12.1992", "dd.mm.yyyy",
                                 "Jan Feb Mär Apr Mai Jun Jul Aug Sep Okt Nov Dez", "Sonntag"},
                      LocaleCase{"fr_FR.ISO-8859-1", "31/12/1992", "dd/mm/yyyy",
                                 "jan fév mar avr mai jun jul aoû sep oct nov déc", "dimanche"},
                      LocaleCase{"sk_SK.ISO-8859-2", "31.12.1992", "dd.mm.yyyy",
                                 "jan feb mar apr máj jún júl aug sep okt nov dec", "Nedeľa"}),
    [](const auto& locale) {
      std::string name = locale.param.name;
      for (char& c : name) {
        if (c == '.' || c == '-') c = '_';
      }
      return name;
    });

TEST_F(PosixFormats, NativeDigitsBecomePlainOnes) {
  ASSERT_NO_FATAL_FAILURE(NeedLocale("fa_IR.UTF-8"));
  const auto formats = FormatsOf("fa_IR.UTF-8");
  EXPECT_EQ(formats->ShortDate(kProbeDate), "92/12/31");
  const auto format = DetectRegionalDateFormat(formats->ShortDate(kProbeDate), *formats);
  ASSERT_TRUE(format.has_value());
  EXPECT_TRUE(format->IsYearFirst());
  EXPECT_TRUE(format->TwoDigitYear);
}

// The form that stands beside a day is another one in Slavic languages.
TEST_F(PosixFormats, MonthsStandAlone) {
  ASSERT_NO_FATAL_FAILURE(NeedLocale("ru_RU.UTF-8"));
  ASSERT_NO_FATAL_FAILURE(NeedLocale("pl_PL.UTF-8"));
  ASSERT_NO_FATAL_FAILURE(NeedLocale("de_DE.ISO-8859-1"));
  EXPECT_EQ(FormatsOf("ru_RU.UTF-8")->MonthName(5), "Май");
  EXPECT_EQ(FormatsOf("ru_RU.UTF-8")->MonthName(1), "Январь");
  EXPECT_EQ(FormatsOf("pl_PL.UTF-8")->MonthName(12), "grudzień");
  EXPECT_EQ(FormatsOf("de_DE.ISO-8859-1")->MonthName(3), "März");
  EXPECT_EQ(FormatsOf("C")->MonthName(7), "July");
}

struct OrderCase {
  std::string name;
  bool yearFirst;  // else day-first
};

void PrintTo(const OrderCase& c, std::ostream* out) {
  *out << c.name;
}

class PosixFormatsOrder : public PosixFormats, public ::testing::WithParamInterface<OrderCase> {};

// Their long forms of the date have signs or names between the numbers; the order of the parts is
// what the user sees.
TEST_P(PosixFormatsOrder, AUserOfTheLocaleIsNotTurnedAway) {
  const OrderCase& c = GetParam();
  ASSERT_NO_FATAL_FAILURE(NeedLocale(c.name));
  const auto formats = FormatsOf(c.name.c_str());
  const std::string probe = formats->ShortDate(kProbeDate);
  const auto format = DetectRegionalDateFormat(probe, *formats);
  ASSERT_TRUE(format.has_value()) << "\"" << probe << "\" is not supported";
  EXPECT_EQ(format->IsYearFirst(), c.yearFirst);
  EXPECT_EQ(format->IsDayFirst(), !c.yearFirst);
}

INSTANTIATE_TEST_SUITE_P(
    Locales, PosixFormatsOrder,
    ::testing::Values(OrderCase{"ja_JP.UTF-8", true}, OrderCase{"zh_CN.UTF-8", true},
                      OrderCase{"ko_KR.UTF-8", true}, OrderCase{"ar_EG.UTF-8", false},
                      OrderCase{"is_IS.UTF-8", false}, OrderCase{"eu_ES.UTF-8", true}),
    [](const auto& locale) { return locale.param.name.substr(0, 5); });

// "1月" and "11月" without their ones are the same.
TEST_F(PosixFormats, NumberedMonthsHaveEnglishNames) {
  for (const std::string name : {"ja_JP.UTF-8", "zh_CN.UTF-8", "ko_KR.UTF-8"}) {
    SCOPED_TRACE(name);
    ASSERT_NO_FATAL_FAILURE(NeedLocale(name));
    const auto formats = FormatsOf(name.c_str());
    const auto format = DetectRegionalDateFormat(formats->ShortDate(kProbeDate), *formats);
    ASSERT_TRUE(format.has_value());
    EXPECT_EQ(format->MonthNames[1], "Jan");
    EXPECT_EQ(format->MonthNames[5], "May");
    EXPECT_EQ(format->MonthNames[12], "Dec");
  }
}

TEST_F(PosixFormats, WithoutARegionalSettingDatesAreMonthFirst) {
  for (const char* value : {"C", "POSIX", "C.UTF-8", "C.utf8", ""}) {
    SCOPED_TRACE(value);
    const auto formats = FormatsOf(value);
    EXPECT_EQ(formats->ShortDate(kProbeDate), "12/31/1992");
    const auto format = DetectRegionalDateFormat(formats->ShortDate(kProbeDate), *formats);
    ASSERT_TRUE(format.has_value());
    EXPECT_TRUE(format->IsMonthFirst());
    EXPECT_EQ(format->DateSeparator, "/");
    EXPECT_EQ(format->MonthNames[5], "May");
    EXPECT_EQ(formats->WeekdayName(7), "Saturday");
  }
  EXPECT_EQ(FormatsOf(nullptr)->ShortDate(kProbeDate), "12/31/1992") << "nothing set";
}

TEST_F(PosixFormats, ALocaleThatIsNotInstalledCountsAsNone) {
  for (const char* value : {"xx_YY.UTF-8", "de_DE.NO-SUCH-CHARSET", "no such locale", "/"}) {
    const auto formats = FormatsOf(value);
    EXPECT_EQ(formats->ShortDate(kProbeDate), "12/31/1992") << value;
    EXPECT_EQ(formats->WeekdayName(1), "Sunday") << value;
  }
}

TEST_F(PosixFormats, TheTimeCategoryDecidesNotTheLanguage) {
  ASSERT_NO_FATAL_FAILURE(NeedLocale("de_DE.UTF-8"));
  ASSERT_NO_FATAL_FAILURE(NeedLocale("sv_SE.UTF-8"));
  ASSERT_NO_FATAL_FAILURE(NeedLocale("fr_FR.UTF-8"));
  const ScopedVariable language("LANGUAGE", "en");
  const ScopedVariable messages("LC_MESSAGES", "en_US.UTF-8");
  const ScopedVariable lang("LANG", "fr_FR.UTF-8");
  EXPECT_EQ(PosixRegionalFormats().ShortDate(kProbeDate), "31/12/1992");
  {
    const ScopedVariable time("LC_TIME", "sv_SE.UTF-8");
    EXPECT_EQ(PosixRegionalFormats().ShortDate(kProbeDate), "1992-12-31");
    EXPECT_EQ(PosixRegionalFormats().WeekdayName(1), "söndag");
    const ScopedVariable all("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(PosixRegionalFormats().ShortDate(kProbeDate), "31.12.1992");
    EXPECT_EQ(PosixRegionalFormats().WeekdayName(1), "Sonntag");
  }
  const ScopedVariable emptyAll("LC_ALL", "");
  const ScopedVariable emptyTime("LC_TIME", "");
  EXPECT_EQ(PosixRegionalFormats().ShortDate(kProbeDate), "31/12/1992") << "empty counts as unset";
}

TEST_F(PosixFormats, TheProcessLocaleStaysAsItIs) {
  ASSERT_NO_FATAL_FAILURE(NeedLocale("de_DE.UTF-8"));
  const auto formats = FormatsOf("de_DE.UTF-8");
  EXPECT_EQ(formats->WeekdayName(2), "Montag");
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

TEST_F(PosixFormats, DaysStandBesideMonthNamesInEitherOrder) {
  ASSERT_NO_FATAL_FAILURE(NeedLocale("de_DE.UTF-8"));
  const auto formats = FormatsOf("de_DE.UTF-8");
  const CivilDate date = MakeDate(1992, 3, 5);
  EXPECT_EQ(formats->DayAndMonthName(date, DayMonthOrder::kDayFirst, "."), "05.Mär");
  EXPECT_EQ(formats->DayAndMonthName(date, DayMonthOrder::kMonthFirst, " "), "Mär 05");
}

TEST_F(PosixFormats, EveryDayOfAYearIsWrittenInTheLayout) {
  ASSERT_NO_FATAL_FAILURE(NeedLocale("de_DE.UTF-8"));
  const auto formats = FormatsOf("de_DE.UTF-8");
  for (CivilDate date = MakeDate(2016, 1, 1); YearOf(date) == 2016; date = AddDays(date, 1)) {
    std::string expected = DayOf(date) < 10 ? "0" : "";
    expected += std::to_string(DayOf(date)) + (MonthOf(date) < 10 ? ".0" : ".");
    expected += std::to_string(MonthOf(date)) + ".2016";
    ASSERT_EQ(formats->ShortDate(date), expected);
  }
}

TEST_F(PosixFormats, APatternTakesTheUsersNames) {
  ASSERT_NO_FATAL_FAILURE(NeedLocale("de_DE.UTF-8"));
  const ScopedVariable all("LC_ALL", "de_DE.UTF-8");
  const auto formats = MakeSystemFormats("yyyy-MM-dd");
  EXPECT_EQ(formats->ShortDate(kProbeDate), "1992-12-31");
  EXPECT_EQ(formats->WeekdayName(1), "Sonntag");
  EXPECT_EQ(MakeSystemFormats("")->ShortDate(kProbeDate), "31.12.1992");
  EXPECT_EQ(MakeSystemFormats("dd MMM yyyy")->ShortDate(kProbeDate), "31 Dez 1992");
}

}  // namespace
}  // namespace tidewarden
