#include "editor/event_entry.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dates/regional_text.h"
#include "editor/event_rows.h"
#include "editor/occurrence_codes.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

using test::AllLayouts;
using test::DayFirst;
using test::MonthFirst;
using test::TwoDigitYearFirst;
using test::YearFirst;

EventEntry Adding(const RegionalDateFormat& format, int kind = kYearlyKind) {
  EventEntry entry(format);
  entry.SetHints({true, true});
  entry.StartAdd("", "", kind);
  return entry;
}

TEST(EventEntry, NothingIsShownWithoutAnEntry) {
  EventEntry entry(MonthFirst());
  const EntryRow& row = entry.row();
  EXPECT_FALSE(row.lblEvent.visible);
  EXPECT_FALSE(row.cmdSave.visible || row.cmdSave.enabled);
  EXPECT_FALSE(row.cmdCancel.enabled || row.cmdDelete.enabled || row.cmdDelete.visible);
  EXPECT_FALSE(row.txtEventInput.visible || row.txtDateInput.enabled || row.cmbOccursInput.enabled);
  EXPECT_EQ(row.txtEventInput.maxLength, 38);
  EXPECT_EQ(row.txtAdvanceInput.maxLength, 3);
  EXPECT_EQ(row.txtEveryInput.maxLength, 3);
}

struct KindCase {
  int index;
  std::string label;
  int maxLength;
  std::string example;
  bool every;
  bool everyMonth;
  bool advance;
};

TEST(EventEntry, TheDateBoxFollowsTheKind) {
  const std::string date = "12/31 or dec31";
  const std::string month = "12 or dec";
  for (const KindCase& c : std::vector<KindCase>{{0, "Date:", 5, date, false, false, true},
                                                 {1, "Date:", 5, date, false, false, true},
                                                 {2, "Day:", 2, "", false, false, true},
                                                 {3, "Date:", 5, date, false, false, true},
                                                 {4, "Date:", 5, date, true, false, true},
                                                 {5, "Date:", 5, date, false, false, true},
                                                 {6, "Date:", 10, "", false, false, false},
                                                 {7, "Date:", 10, "", false, false, false},
                                                 {8, "Month:", 2, month, false, true, true},
                                                 {42, "Month:", 2, month, false, true, true},
                                                 {43, "Month:", 2, month, false, true, true}}) {
    SCOPED_TRACE(c.index);
    for (const bool pickedLater : {false, true}) {
      EventEntry entry = Adding(MonthFirst(), pickedLater ? kYearlyKind : c.index);
      if (pickedLater) entry.SelectOccurs(c.index);
      const EntryRow& row = entry.row();
      EXPECT_EQ(row.lblDate.caption, c.label);
      EXPECT_EQ(row.txtDateInput.maxLength, c.maxLength);
      EXPECT_EQ(row.lblDateExample.caption, c.example);
      EXPECT_EQ(row.txtEveryInput.visible, c.every);
      EXPECT_EQ(row.txtEveryInput.enabled, c.every);
      EXPECT_EQ(row.lblEvery.visible, c.every);
      EXPECT_EQ(row.lblDays.visible, c.every);
      EXPECT_EQ(row.chkEveryMonth.visible, c.everyMonth);
      EXPECT_EQ(row.chkEveryMonth.enabled, c.everyMonth);
      EXPECT_EQ(row.txtAdvanceInput.enabled, c.advance);
      EXPECT_EQ(row.lblAdvance.enabled, c.advance);
      EXPECT_EQ(row.datePlace.labelLeft, 420);
    }
  }
}

TEST(EventEntry, TheExamplesFollowTheLayout) {
  EventEntry entry = Adding(DayFirst());
  EXPECT_EQ(entry.row().lblDateExample.caption, "31.12 or 31dec");
  entry.SelectOccurs(kFirstWeekdayKind);
  EXPECT_EQ(entry.row().lblDateExample.caption, "12 or dec");
  EXPECT_EQ(Adding(YearFirst()).row().lblDateExample.caption, "31-12 or 31dec");
}

TEST(EventEntry, AddingAndEditingDifferInWhatTheyOffer) {
  EventEntry entry = Adding(MonthFirst());
  EXPECT_EQ(entry.row().cmdSave.tooltip, "Save New Event (Alt + S)");
  EXPECT_EQ(entry.row().cmdCancel.tooltip, "Cancel Adding a New Event (Esc)");
  EXPECT_FALSE(entry.row().cmdDelete.enabled);
  EXPECT_TRUE(entry.row().cmbPopular.enabled && entry.row().cmbPopular.visible);
  EXPECT_TRUE(entry.row().lblPopularObservances.visible);
  entry.End();
  EXPECT_FALSE(entry.row().cmbPopular.enabled || entry.row().lblPopularObservances.visible);
  entry.StartEdit("12.25 Christmas Day                          7 days   yearly");
  EXPECT_EQ(entry.row().cmdSave.tooltip, "Save Changes to this Event (Alt + S)");
  EXPECT_EQ(entry.row().cmdCancel.tooltip, "Cancel Editing this Event (Esc)");
  EXPECT_TRUE(entry.row().cmdDelete.enabled && entry.row().cmdDelete.visible);
  EXPECT_FALSE(entry.row().cmbPopular.enabled || entry.row().lblPopularObservances.visible);
  EXPECT_TRUE(entry.row().cmbOccursInput.enabled);
  EXPECT_TRUE(entry.row().lblDateExample.visible);
  entry.End();
  EXPECT_FALSE(entry.row().cmdDelete.enabled);
  EXPECT_FALSE(entry.row().lblDateExample.visible);
}

TEST(EventEntry, HintsThatAreSwitchedOffStayAway) {
  EventEntry entry(MonthFirst());
  entry.StartAdd("", "", kYearlyKind);
  EXPECT_FALSE(entry.row().lblPopularObservances.visible);
  EXPECT_FALSE(entry.row().lblDateExample.visible);
  EXPECT_TRUE(entry.row().cmbPopular.enabled);
}

struct AidCase {
  RegionalDateFormat format;
  int kind;
  std::string text;
  std::string key;
  std::string expected;
  KeyUse use;
};

RegionalDateFormat German() {
  CalendarNames names = EnglishCalendarNames();
  names.monthAbbreviations = {"Jan", "Feb", "Mär", "Apr", "Mai", "Jun",
                              "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
  const PatternRegionalFormats formats("dd.MM.yyyy", names);
  return *DetectRegionalDateFormat(formats.ShortDate(kProbeDate), formats);
}

TEST(EventEntry, MonthNamesBecomeNumbers) {
  const auto pass = KeyUse::kPassOn;
  for (const AidCase& c :
       std::vector<AidCase>{{MonthFirst(), 8, "de", "c", "12", KeyUse::kConsumed},
                            {MonthFirst(), 8, "MA", "r", "3", KeyUse::kConsumed},
                            {MonthFirst(), 8, "ma", "Y", "5", KeyUse::kConsumed},
                            {MonthFirst(), 8, "zz", "z", "zz", pass},
                            {MonthFirst(), 8, "xx", "1", "xx", pass},
                            {MonthFirst(), 8, "12", "3", "12", pass},
                            {MonthFirst(), 8, "d", "e", "d", pass},
                            {MonthFirst(), 0, "dec", "3", "12.", pass},
                            {MonthFirst(), 0, "Dec31", "x", "12.31", pass},
                            {DayFirst(), 0, "31dec", "x", "31.12", pass},
                            {YearFirst(), 0, "31dec", "x", "31.12", pass},
                            {DayFirst(), 0, "1JAN", "x", "1.1", pass},
                            {DayFirst(), 0, "de", "c", "de", pass},
                            {DayFirst(), 6, "31dec", "x", "31dec", pass},
                            {DayFirst(), 2, "dec", "x", "dec", pass},
                            {German(), 0, "5mÄR", "x", "5.3", pass},
                            {German(), 8, "mä", "r", "3", KeyUse::kConsumed},
                            {MonthFirst(), 0, "_estr", "x", "_estr", pass}}) {
    SCOPED_TRACE(c.text + "+" + c.key);
    EventEntry entry = Adding(c.format, kYearlyKind);
    entry.DateInputTyped(c.text);
    entry.SelectOccurs(c.kind);
    EXPECT_EQ(entry.DateInputKey(c.key), c.use);
    EXPECT_EQ(entry.row().txtDateInput.text, c.expected);
  }
}

TEST(EventEntry, AMonthNameIsAlsoReadWhenTheBoxIsLeft) {
  EventEntry entry = Adding(MonthFirst());
  entry.DateInputTyped("dec31");
  entry.DateInputLeft();
  EXPECT_EQ(entry.row().txtDateInput.text, "12.31");
}

TEST(EventEntry, TickingEveryMonthWritesXxAndUntickingTakesItAway) {
  EventEntry entry = Adding(MonthFirst(), 23);
  entry.DateInputTyped("5");
  entry.EveryMonthClicked(true);
  EXPECT_EQ(entry.row().txtDateInput.text, "xx");
  entry.EveryMonthClicked(false);
  EXPECT_EQ(entry.row().txtDateInput.text, "");
  entry.DateInputTyped("5");
  entry.EveryMonthClicked(false);
  EXPECT_EQ(entry.row().txtDateInput.text, "5");
  entry.DateInputTyped("xx");
  entry.SelectOccurs(24);
  EXPECT_TRUE(entry.row().chkEveryMonth.checked);
  entry.DateInputTyped("11");
  entry.SelectOccurs(25);
  EXPECT_FALSE(entry.row().chkEveryMonth.checked);
}

TEST(EventEntry, ChangingTheKindNeverCutsTheDate) {
  EventEntry entry = Adding(MonthFirst(), kDaysFutureKind);
  entry.DateInputTyped("12.25.2014");
  for (int kind = kOccurrenceKinds - 1; kind >= 0; --kind) {
    entry.SelectOccurs(kind);
    EXPECT_EQ(entry.row().txtDateInput.text, "12.25.2014");
  }
  // It may become shorter, but not longer.
  entry.DateInputTyped("12.25.20145");
  EXPECT_EQ(entry.row().txtDateInput.text, "12.25.2014");
  entry.DateInputTyped("12.25.201");
  EXPECT_EQ(entry.row().txtDateInput.text, "12.25.201");
}

TEST(EventEntry, TypingStopsAtTheMaximumLength) {
  EventEntry entry = Adding(MonthFirst());
  entry.EventInputTyped(std::string(50, 'a'));
  EXPECT_EQ(entry.row().txtEventInput.text, std::string(38, 'a'));
  entry.EventInputTyped("b" + std::string(38, 'a'));
  EXPECT_EQ(entry.row().txtEventInput.text, std::string(38, 'a'));
  std::string emoji;
  for (int i = 0; i < 39; ++i) emoji += "😀";
  entry.EventInputTyped("");
  entry.EventInputTyped(emoji);
  EXPECT_EQ(entry.row().txtEventInput.text, emoji.substr(4));
  entry.DateInputTyped("12.2");
  entry.DateInputTyped("1x2.2");
  EXPECT_EQ(entry.row().txtDateInput.text, "1x2.2");
  entry.DateInputTyped("1xyz2.2");
  EXPECT_EQ(entry.row().txtDateInput.text, "1x2.2");
  entry.AdvanceInputTyped("3650");
  EXPECT_EQ(entry.row().txtAdvanceInput.text, "365");
  entry.EveryInputTyped("1999");
  EXPECT_EQ(entry.row().txtEveryInput.text, "199");
}

TEST(EventEntry, ControlCharactersBecomeBlanks) {
  EXPECT_EQ(CleanText("A\nB"), "A B");
  EXPECT_EQ(CleanText("A\r\n\tB\x7F\x1F"
                      "C"),
            "A   B  C");
  EXPECT_EQ(CleanText("a\xC2\x85"
                      "b\xE2\x80\xA8"
                      "c\xE2\x80\xA9"
                      "d"),
            "a b c d");
  EXPECT_EQ(CleanText(std::string_view("a\0b", 3)), "a b");
  EXPECT_EQ(CleanText("caf\xE9"), "café");
  EXPECT_EQ(CleanText("日本 é ß 😀"), "日本 é ß 😀");
}

TEST(EventEntry, TheStoredDayCountComesBack) {
  EventEntry entry(MonthFirst());
  entry.StartEdit("06.01 Water the ferns                        3 days   20~2014");
  EXPECT_EQ(entry.row().txtEveryInput.text, "120");
  entry.End();
  entry.StartEdit("06.01 Water the ferns                        3 days   07-2015");
  EXPECT_EQ(entry.row().txtEveryInput.text, "7");
  entry.End();
  entry.StartAdd("", "", kEveryKind);
  EXPECT_EQ(entry.row().txtEveryInput.text, "");
}

TEST(EventEntry, ACodeWithoutAnItemLeavesTheKind) {
  EventEntry entry(MonthFirst());
  entry.StartEdit("06.01 X                                      3 days   1st xyz mon");
  EXPECT_EQ(entry.occursIndex(), 0);
  entry.SelectOccurs(24);
  entry.End();
  entry.StartEdit("06.01 X                                      3 days   1st xyz mon");
  EXPECT_EQ(entry.occursIndex(), 24);
}

TEST(EventEntry, AnEditShowsTheDateInTheOrderInWhichItIsRead) {
  struct Case {
    RegionalDateFormat format;
    std::string row;
    std::string date;
    bool everyMonth;
  };
  const std::string rest = " X                                      ";
  for (const Case& c : std::vector<Case>{
           {MonthFirst(), "12.25" + rest + "7 days   yearly", "12.25", false},
           {DayFirst(), "25.12" + rest + "7 days   yearly", "25.12", false},
           {MonthFirst(), "xx.15" + rest + "7 days   monthly", "15", false},
           {DayFirst(), "15.xx" + rest + "7 days   monthly", "15", false},
           {MonthFirst(), "01.xx" + rest + "7 days   3rd mon", "01", false},
           {YearFirst(), "xx.01" + rest + "7 days   3rd mon", "01", false},
           {MonthFirst(), "xx.xx" + rest + "7 days   las day", "xx", true},
           {DayFirst(), "xx.xx" + rest + "7 days   yearly", "xx.xx", false},
           {MonthFirst(), "01.26" + rest + "(always) dp-1788", "01.26.1788", false},
           {DayFirst(), "05.03" + rest + "(always) dp-2010", "05.03.2010", false},
           {YearFirst(), "05.03" + rest + "(always) dp-2010", "2010.03.05", false},
           {YearFirst(), "_estr" + rest + "7 days   yearly", "_estr", false},
           {DayFirst(), "_estr" + rest + "(always) dp-2000", "_estr.2000", false},
           {YearFirst(), "_estr" + rest + "(always) dp-2000", "2000._estr", false},
           {TwoDigitYearFirst(), "e+039" + rest + "(always) df-2030", "2030.e+039", false},
           {MonthFirst(), "06.01" + rest + "7 days   one2015", "06.01", false}}) {
    SCOPED_TRACE(c.row);
    EventEntry entry(c.format);
    entry.StartEdit(c.row);
    EXPECT_EQ(entry.row().txtDateInput.text, c.date);
    EXPECT_EQ(entry.row().chkEveryMonth.checked, c.everyMonth);
  }
}

}  // namespace
}  // namespace tidewarden
