// The parts of the editor that are plain tables and arithmetic: occurrence kinds, observances,
// placement.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/editor_placement.h"
#include "editor/observances.h"
#include "editor/occurrence_codes.h"
#include "platform/memory/memory_ports.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

using test::DayFirst;
using test::MonthFirst;
using test::On;
using test::YearFirst;
using ::testing::ElementsAre;

TEST(OccurrenceCodes, TheListHasItsItemsInTheirOrder) {
  const auto& items = OccurrenceItems();
  EXPECT_EQ(items.size(), 44U);
  EXPECT_EQ(items[0], "yearly");
  EXPECT_EQ(items[1], "quarter");
  EXPECT_EQ(items[2], "monthly");
  EXPECT_EQ(items[3], "one-time");
  EXPECT_EQ(items[4], "every -");
  EXPECT_EQ(items[5], "til done");
  EXPECT_EQ(items[6], "dayspast");
  EXPECT_EQ(items[7], "daysfutr");
  EXPECT_EQ(items[8], "1st Sun");
  EXPECT_EQ(items[14], "1st Sat");
  EXPECT_EQ(items[15], "2nd Sun");
  EXPECT_EQ(items[23], "3rd Mon");
  EXPECT_EQ(items[33], "4th Thu");
  EXPECT_EQ(items[36], "Las Sun");
  EXPECT_EQ(items[42], "Las Sat");
  EXPECT_EQ(items[43], "Las Day");
}

TEST(OccurrenceCodes, AStoredCodeFindsItsItem) {
  EXPECT_EQ(OccursIndexOf("one2014"), 3);
  EXPECT_EQ(OccursIndexOf("ONE2014"), 3);
  EXPECT_EQ(OccursIndexOf("dp-1788"), 6);
  EXPECT_EQ(OccursIndexOf("df-2020"), 7);
  EXPECT_EQ(OccursIndexOf("14-2014"), 4);
  EXPECT_EQ(OccursIndexOf("20~2014"), 4);
  EXPECT_EQ(OccursIndexOf("tdo2014"), 5);
  EXPECT_EQ(OccursIndexOf("3rd mon"), 23);
  EXPECT_EQ(OccursIndexOf("LAS DAY"), 43);
  EXPECT_EQ(OccursIndexOf("1st xyz"), std::nullopt);
  EXPECT_EQ(OccursIndexOf(""), std::nullopt);
  EXPECT_EQ(OccursIndexOf("-"), std::nullopt);
}

TEST(OccurrenceCodes, CountsTakeTwoDigitsAndAMarkForTheHundred) {
  EXPECT_EQ(EveryCode(1, 2015), "01-2015");
  EXPECT_EQ(EveryCode(99, 2015), "99-2015");
  EXPECT_EQ(EveryCode(100, 2015), "00~2015");
  EXPECT_EQ(EveryCode(150, 2015), "50~2015");
  EXPECT_EQ(EveryCode(199, 2015), "99~2015");
  for (int days = 1; days <= 199; ++days) {
    EXPECT_EQ(EveryCountOf(EveryCode(days, 2015)), days);
  }
}

TEST(OccurrenceCodes, YearsAreWrittenWithFourDigits) {
  EXPECT_EQ(CodeWithYear(3, 2015), "one2015");
  EXPECT_EQ(CodeWithYear(5, 2015), "tdo2015");
  EXPECT_EQ(CodeWithYear(6, 0), "dp-0000");
  EXPECT_EQ(CodeWithYear(6, 88), "dp-0088");
  EXPECT_EQ(CodeWithYear(7, 9999), "df-9999");
}

TEST(OccurrenceCodes, TheYearOfNextIsThisOneUntilTheDayHasPassed) {
  const CivilDate today = On(2014, 12, 22);
  EXPECT_EQ(YearOfNext(12, 21, today), 2015);
  EXPECT_EQ(YearOfNext(12, 22, today), 2014);
  EXPECT_EQ(YearOfNext(12, 23, today), 2014);
  EXPECT_EQ(YearOfNext(2, 29, today), 2016);
  EXPECT_EQ(YearOfNext(2, 29, On(2016, 2, 29)), 2016);
  EXPECT_EQ(YearOfNext(2, 29, On(2016, 3, 1)), 2020);
  EXPECT_EQ(YearOfNext(2, 29, On(2096, 3, 1)), 2104);
}

// The dated ones, then the movable feasts.
const std::vector<std::string>& AllObservances() {
  static const std::vector<std::string> entries{
      "01.01,New Year's Day,yearly",
      "01.25,Robbie Burns' Night,yearly",
      "01.26,<1788> Australia Day,yearly",
      "01.xx,Martin Luther King Day,3rd Mon",
      "02.02,Groundhog Day,yearly",
      "02.14,Valentine's Day,yearly",
      "02.xx,Washington's Birthday (Holiday),3rd Mon",
      "03.17,St. Patrick's Day,yearly",
      "04.01,April Fools' Day,yearly",
      "04.15,Tax Day (US),yearly",
      "04.22,Earth Day,yearly",
      "04.23,St. Georges' Day,yearly",
      "04.25,ANZAC Day,yearly",
      "05.01,May Day,yearly",
      "05.05,Cinco de Mayo,yearly",
      "05.xx,Armed Forces Day,3rd Sat",
      "05.xx,May Day Bank Holiday,1st Mon",
      "05.xx,Memorial Day,Las Mon",
      "05.xx,Mother's Day,2nd Sun",
      "05.xx,Spring Bank Holiday,Las Mon",
      "06.14,Flag Day,yearly",
      "06.xx,Father's Day,3rd Sun",
      "07.01,<1867> Canada Day,yearly",
      "07.04,USA's <1776> Independence Day,yearly",
      "07.15,St. Swithun's Day,yearly",
      "08.xx,Summer Bank Holiday (Scot & Ire),1st Mon",
      "08.xx,Summer Bank Holiday (Eng & NI),Las Mon",
      "09.xx,Labor Day,1st Mon",
      "10.31,Halloween,yearly",
      "10.xx,Columbus Day,2nd Mon",
      "10.xx,Thanksgiving Day (Canada),2nd Mon",
      "11.05,Guy Fawkes' Night,yearly",
      "11.11,Remembrance Day,yearly",
      "11.11,Veterans Day,yearly",
      "11.30,St. Andrews' Day,yearly",
      "11.xx,Thanksgiving Day (US),4th Thu",
      "12.25,Christmas Day,yearly",
      "12.26,Boxing Day,yearly",
      "12.26,Kwanzaa Begins,yearly",
      "12.31,New Year's Eve,yearly",
      "_estr,Easter Sunday,yearly",
      "_ashw,Ash Wednesday,yearly",
      "_mthr,Mothering Sunday,yearly",
      "_palm,Palm Sunday,yearly",
      "_good,Good Friday,yearly",
      "_ascn,Ascension,yearly",
      "_pent,Pentecost Sunday,yearly",
      "_crpc,Corpus Christi,yearly",
      "_rosh,Rosh Hashanah,yearly",
      "_yomk,Yom Kippur,yearly",
      "_sukk,Sukkot,yearly",
      "_shem,Shemini Atzeret,yearly",
      "_simh,Simhat Torah,yearly",
      "_hanu,Hanukkah,yearly",
      "_puri,Purim,yearly",
      "_pass,Passover,yearly",
      "_shav,Shavuot,yearly",
      "_vict,Victoria Day,yearly",
  };
  return entries;
}

TEST(Observances, AllAreOfferedInTheirOrder) {
  ASSERT_EQ(AllObservances().size(), 58U);
  EXPECT_EQ(PopularObservances(MonthFirst()), AllObservances());
}

TEST(Observances, TheDayComesFirstWhereTheMonthDoesNot) {
  std::vector<std::string> swapped = AllObservances();
  constexpr std::size_t kDated = 40;
  for (std::size_t i = 0; i < kDated; ++i) {
    std::string& entry = swapped[i];
    entry = entry.substr(3, 2) + "." + entry.substr(0, 2) + entry.substr(5);
  }
  for (const auto& format : {DayFirst(), YearFirst()}) {
    const auto dayFirst = PopularObservances(format);
    EXPECT_EQ(dayFirst, swapped);
    EXPECT_EQ(dayFirst[0], "01.01,New Year's Day,yearly");
    EXPECT_EQ(dayFirst[1], "25.01,Robbie Burns' Night,yearly");
    EXPECT_EQ(dayFirst[3], "xx.01,Martin Luther King Day,3rd Mon");
    EXPECT_EQ(dayFirst[57], "_vict,Victoria Day,yearly");
  }
}

TEST(Observances, ATitleEndsBeforeItsParenthesis) {
  const auto entries = PopularObservances(MonthFirst());
  EXPECT_EQ(ReadObservance(entries[6]).title, "Washington's Birthday");
  EXPECT_EQ(ReadObservance(entries[9]).title, "Tax Day");
  EXPECT_EQ(ReadObservance(entries[30]).title, "Thanksgiving Day");
  EXPECT_EQ(ReadObservance(entries[25]).title, "Summer Bank Holiday");
  EXPECT_EQ(ReadObservance(entries[26]).title, "Summer Bank Holiday");
  EXPECT_EQ(ReadObservance(entries[2]).title, "<1788> Australia Day");
  EXPECT_EQ(ReadObservance(entries[2]).date, "01.26");
  EXPECT_EQ(ReadObservance(entries[25]).occurs, "1st Mon");
}

const std::vector<WindowArea> kScreens{{0, 0, 28800, 16200}, {28800, 0, 28800, 16200}};
const WindowArea kCentred{(28800 - 7575) / 2, (16200 - 4845) / 2, 9015, 4845};

struct PlaceCase {
  std::string left;
  std::string top;
  std::string height;
  WindowArea expected;
};

TEST(EditorPlacement, AStoredPlaceIsUsedOnlyWhenItIsSound) {
  const std::vector<PlaceCase> cases{
      {"", "", "", kCentred},
      {"-1", "100", "5000", kCentred},
      {"100", "-1", "5000", kCentred},
      {"100", "100", "4844", kCentred},
      {"100", "100", "4845", {100, 100, 9015, 4845}},
      {"0", "0", "6000", {0, 0, 9015, 6000}},
      {"30000", "50", "6000", {30000, 50, 9015, 6000}},
      {"32800", "100", "5000", kCentred},
      {"100", "32768", "5000", kCentred},
      {"100", "100", "99999", kCentred},
      {"abc", "100", "5000", kCentred},
      {"100", "10x", "5000", kCentred},
      {"100", "100", "1e4", kCentred},
      {"0x10", "100", "5000", kCentred},
      {" 100 ", "100.4", "5000", {100, 100, 9015, 5000}},
      {"100", "32767", "5000", {0, 0, 9015, 5000}},  // below every screen
  };
  for (const PlaceCase& c : cases) {
    SCOPED_TRACE(c.left + "," + c.top + "," + c.height);
    MemorySettingsStore settings;
    ASSERT_TRUE(settings.Write("Edit", "Left", c.left).ok());
    ASSERT_TRUE(settings.Write("Edit", "Top", c.top).ok());
    ASSERT_TRUE(settings.Write("Edit", "Height", c.height).ok());
    EXPECT_EQ(LoadEditorPlacement(settings, kScreens), c.expected);
  }
}

TEST(EditorPlacement, AFirstOneIsCentredOnThePrimaryScreenWhereverThatBegins) {
  const WindowArea origin{0, 0, 28800, 16200};
  MemorySettingsStore settings;
  EXPECT_EQ(LoadEditorPlacement(settings, {{28800, 0, 28800, 16200}, origin}),
            (WindowArea{39412, 5677, 9015, 4845}));
  EXPECT_EQ(LoadEditorPlacement(settings, {{0, 16200, 28800, 16200}, {28800, 0, 28800, 16200}}),
            (WindowArea{10612, 21877, 9015, 4845}));
}

TEST(EditorPlacement, AnUnplacedEditorStoresItsDefaults) {
  MemorySettingsStore settings;
  EXPECT_EQ(LoadEditorPlacement(settings, kScreens), kCentred);
  EXPECT_EQ(settings.At("Edit", "Left"), "-1");
  EXPECT_EQ(settings.At("Edit", "Top"), "-1");
  EXPECT_EQ(settings.At("Edit", "Height"), "4845");
}

TEST(EditorPlacement, ASavedPlaceComesBackAndAnUnknownOneLeavesTheStoredOne) {
  MemorySettingsStore settings;
  SaveEditorPlacement(settings, {300, 450, 6000});
  EXPECT_EQ(LoadEditorPlacement(settings, kScreens), (WindowArea{300, 450, 9015, 6000}));
  SaveEditorPlacement(settings, {std::nullopt, std::nullopt, 7000});
  EXPECT_EQ(LoadEditorPlacement(settings, kScreens), (WindowArea{300, 450, 9015, 7000}));
}

TEST(EditorPlacement, APlaceOnAScreenThatIsGoneMovesButStaysStored) {
  MemorySettingsStore settings;
  SaveEditorPlacement(settings, {30000, 450, 6000});
  EXPECT_EQ(LoadEditorPlacement(settings, {{150, 75, 28800, 16200}}),
            (WindowArea{150, 75, 9015, 6000}));
  EXPECT_EQ(settings.At("Edit", "Left"), "30000");
}

TEST(EditorPlacement, TheControlsFollowTheBottom) {
  const EditorTops plain = LayOutEditor(5000, EditorLook::kPlain);
  EXPECT_EQ(plain.List1Height, 2480);
  EXPECT_EQ(plain.idleButtons, 3605);
  EXPECT_EQ(plain.cmdClose, 3845);
  EXPECT_EQ(plain.cmdDelete, 3160);
  EXPECT_EQ(plain.titleRow, 3160);
  EXPECT_EQ(plain.lblEvent, 3230);
  EXPECT_EQ(plain.saveButtons, 3755);
  EXPECT_EQ(plain.entryRow, 3755);
  EXPECT_EQ(plain.txtEveryInput, 3815);
  EXPECT_EQ(plain.lblEvery, 3620);
  EXPECT_EQ(plain.entryLabels, 3845);
  EXPECT_EQ(plain.lblDays, 3875);
  EXPECT_EQ(plain.lblDateExample, 4235);
  const EditorTops skinned = LayOutEditor(5000, EditorLook::kSkinned);
  EXPECT_EQ(skinned.idleButtons, 3560);
  EXPECT_EQ(skinned.cmdClose, 3800);
  EXPECT_EQ(skinned.cmdDelete, 3115);
  EXPECT_EQ(skinned.saveButtons, 3710);
  EXPECT_EQ(skinned.titleRow, plain.titleRow);
  EXPECT_EQ(skinned.List1Height, plain.List1Height);
}

TEST(EditorPlacement, TheDateLabelStandsLeftOfTheBoxesCentre) {
  for (const int length : {2, 5, 10}) {
    const DateInputPlace place = PlaceDateInput(length);
    EXPECT_EQ(place.labelLeft, place.boxLeft + place.boxWidth / 2 - 900);
    EXPECT_EQ(place.boxLeft + place.boxWidth / 2, 1320);
  }
  EXPECT_GT(PlaceDateInput(10).boxWidth, PlaceDateInput(5).boxWidth);
}

}  // namespace
}  // namespace tidewarden
