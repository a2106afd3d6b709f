#include <gtest/gtest.h>

#include <array>

#include "dates/date_text.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_regional_formats.h"

namespace tidewarden {
namespace {

TEST(WindowsRegionalFormats, WriteTheShortDateOfEachCountry) {
  const struct {
    const wchar_t* locale;
    const char* shortDate;
  } cases[] = {{L"en-US", "12/31/1992"}, {L"de-DE", "31.12.1992"}, {L"fr-FR", "31/12/1992"},
               {L"sv-SE", "1992-12-31"}, {L"sk-SK", "31.12.1992"}, {L"ja-JP", "1992/12/31"}};
  for (const auto& [locale, shortDate] : cases) {
    EXPECT_EQ(WindowsRegionalFormats(locale).ShortDate(kProbeDate), shortDate);
  }
}

// Where another calendar is the usual one, the year would be 2535 or 1413.
TEST(WindowsRegionalFormats, WriteDatesOfTheGregorianCalendarEverywhere) {
  for (const wchar_t* const locale : {L"th-TH", L"ar-SA", L"fa-IR"}) {
    const std::string shown = WindowsRegionalFormats(locale).ShortDate(kProbeDate);
    EXPECT_NE(shown.find("92"), std::string::npos) << shown;
    EXPECT_NE(shown.find("31"), std::string::npos) << shown;
  }
}

TEST(WindowsRegionalFormats, KnowTheNamesOfTheLanguage) {
  const WindowsRegionalFormats english(L"en-US");
  EXPECT_EQ(english.names().months, EnglishCalendarNames().months);
  EXPECT_EQ(english.names().monthAbbreviations, EnglishCalendarNames().monthAbbreviations);
  EXPECT_EQ(english.names().weekdays, EnglishCalendarNames().weekdays);
  const WindowsRegionalFormats german(L"de-DE");
  EXPECT_EQ(german.WeekdayName(1), "Sonntag");
  EXPECT_EQ(german.WeekdayName(2), "Montag");
  EXPECT_EQ(german.WeekdayName(7), "Samstag");
  EXPECT_EQ(german.MonthName(3), "M\xC3\xA4rz");
  EXPECT_EQ(german.MonthName(12), "Dezember");
}

TEST(WindowsRegionalFormats, TellAMonthBesideADayFromOneAlone) {
  const WindowsRegionalFormats russian(L"ru-RU");
  EXPECT_EQ(russian.names().months[2], "марта");
  EXPECT_NE(russian.MonthName(3), "марта");
}

TEST(WindowsRegionalFormats, AnswerForYearsBeforeTheSystemsOwn) {
  EXPECT_EQ(WindowsRegionalFormats(L"de-DE").ShortDate(MakeDate(1492, 10, 12)), "12.10.1492");
}

TEST(WindowsRegionalFormats, OfAnUnknownLocaleAreEnglish) {
  const WindowsRegionalFormats unknown(L"no such locale");
  EXPECT_EQ(unknown.ShortDate(kProbeDate), "12/31/1992");
  EXPECT_EQ(unknown.WeekdayName(2), "Monday");
}

// The user's own pattern, put back at the end.
class OwnShortDate {
 public:
  explicit OwnShortDate(const wchar_t* pattern) {
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, former_.data(),
                     static_cast<int>(former_.size()));
    EXPECT_NE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, pattern), FALSE);
  }
  OwnShortDate(const OwnShortDate&) = delete;
  OwnShortDate& operator=(const OwnShortDate&) = delete;
  ~OwnShortDate() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, former_.data()); }

 private:
  std::array<wchar_t, 128> former_{};
};

TEST(WindowsRegionalFormats, FollowWhatTheUserHasChanged) {
  const struct {
    const wchar_t* pattern;
    const char* shortDate;
  } cases[] = {{L"dd-MMM-yy", "31-Dec-92"},
               {L"yy/MM/dd", "92/12/31"},
               {L"dd.MM.yyyy", "31.12.1992"},
               {L"gg yy/MM/dd", "92/12/31"},
               {L"gy/M/d", "92/12/31"},
               {L"yyyy/MM/dd gg", "1992/12/31"},
               {L"dd.MM.yyyy 'g'", "31.12.1992 g"}};
  for (const auto& [pattern, shortDate] : cases) {
    const OwnShortDate own(pattern);
    const WindowsRegionalFormats formats;
    EXPECT_EQ(formats.ShortDate(kProbeDate), shortDate);
    EXPECT_TRUE(DetectRegionalDateFormat(formats.ShortDate(kProbeDate), formats));
  }
}

}  // namespace
}  // namespace tidewarden
