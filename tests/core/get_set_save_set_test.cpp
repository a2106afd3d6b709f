#include "core/get_set_save_set.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/memory/memory_ports.h"

namespace tidewarden::modGetSetSaveSet {
namespace {

constexpr const char* kMissing = "(missing)";

std::string Read(SettingsStore& store, std::string key, const std::string& defaultValue,
                 const std::string& mode) {
  return GetSet(store, key, defaultValue, mode);
}

void SaveText(SettingsStore& store, std::string key, const std::string& value) {
  SaveSet(store, key, value);
}

// A store that can be read but takes no writes.
class ReadOnlyStore : public MemorySettingsStore {
 public:
  Status Write(std::string_view /*section*/, std::string_view /*name*/,
               std::string_view /*value*/) override {
    return Status(StatusKind::kNoSpace);
  }
};

struct KeyCase {
  std::string key;
  std::string section;
  std::string name;
};

const std::vector<KeyCase>& KeyCases() {
  static const std::vector<KeyCase> cases{
      {"alarm/Left", "Alarm", "Left"},
      {"ALARM/left", "Alarm", "left"},
      {"customizer/JustExited", "Customizer", "JustExited"},
      {"Customizer/JustExited", "Customizer", "JustExited"},
      {"EDIT/Left", "Edit", "Left"},
      {"eDiT/tOp", "Edit", "tOp"},
      {"printing/EventTypesToPrint7", "Printing", "EventTypesToPrint7"},
      {"PrInTiNg/MonthFontName", "Printing", "MonthFontName"},
      {"Settings/Path", "Settings", "Path"},
      {"SETTINGS/PATH", "Settings", "PATH"},
      {"settings/a/b", "Settings", "a/b"},
      {"edit//x", "Edit", "/x"},
      {"edit/alarm/x", "Edit", "alarm/x"},
      {"edit/", "Edit", ""},
      {"UseSkin", "Options", "UseSkin"},
      {"Edits/Left", "Options", "Edits/Left"},
      {"Options/UseSkin", "Options", "Options/UseSkin"},
      {"alarm", "Options", "alarm"},
      {"settings", "Options", "settings"},
      {"alarm\\Left", "Options", "alarm\\Left"},
      {" edit/Left", "Options", " edit/Left"},
      {"xedit/Left", "Options", "xedit/Left"},
      {"edi/Left", "Options", "edi/Left"},
      {"/Left", "Options", "/Left"},
      {"ed\xC4\xB1t/Left", "Options", "ed\xC4\xB1t/Left"},  // dotless i
      {"\xC5\xBF"
       "ettings/Path",
       "Options",
       "\xC5\xBF"
       "ettings/Path"},  // long s
      {"", "Options", ""},
  };
  return cases;
}

TEST(SettingKey, ChoosesSectionByPrefixAndLosesIt) {
  for (const KeyCase& c : KeyCases()) {
    SCOPED_TRACE(c.key);
    MemorySettingsStore store;
    store.entries = {{c.section, c.name, "here"}};
    std::string key = c.key;
    EXPECT_EQ(GetSet(store, key, "other", ""), "here");
    EXPECT_EQ(key, c.name);
    EXPECT_EQ(store.writes, 0);
  }
}

TEST(SettingKey, IsSavedUnderSectionAndNameAndLosesItsPrefix) {
  for (const KeyCase& c : KeyCases()) {
    SCOPED_TRACE(c.key);
    MemorySettingsStore store;
    std::string key = c.key;
    SaveSet(store, key, "Value");
    EXPECT_EQ(key, c.name);
    ASSERT_EQ(store.entries.size(), 1);
    EXPECT_EQ(store.entries[0].section, c.section);
    EXPECT_EQ(store.entries[0].name, c.name);
    EXPECT_EQ(store.entries[0].value, "Value");
  }
}

TEST(SettingKey, ADefaultIsStoredUnderSectionAndName) {
  for (const KeyCase& c : KeyCases()) {
    SCOPED_TRACE(c.key);
    MemorySettingsStore store;
    EXPECT_EQ(Read(store, c.key, "True", ""), "true");
    ASSERT_EQ(store.entries.size(), 1);
    EXPECT_EQ(store.entries[0].section, c.section);
    EXPECT_EQ(store.entries[0].name, c.name);
    EXPECT_EQ(store.entries[0].value, "True");
  }
}

TEST(GetSet, AnEmptyStoreReturnsAndStoresAFontName) {
  MemorySettingsStore store;
  EXPECT_EQ(Read(store, "Settings/FontName", "MS Sans Serif", "KeepCaps"), "MS Sans Serif");
  EXPECT_EQ(store.At("Settings", "FontName"), "MS Sans Serif");
}

TEST(GetSet, AnEmptyStoreReturnsALowerCaseBooleanAndStoresItAsWritten) {
  MemorySettingsStore store;
  EXPECT_EQ(Read(store, "UseSkin", "True", ""), "true");
  EXPECT_EQ(store.At("Options", "UseSkin"), "True");
}

TEST(GetSet, AnEmptyDefaultWritesNothing) {
  MemorySettingsStore store;
  EXPECT_EQ(Read(store, "Customizer/JustExited", "", ""), "");
  EXPECT_EQ(Read(store, "Customizer/JustExited", "", "KeepCaps"), "");
  EXPECT_EQ(store.writes, 0);
  EXPECT_TRUE(store.entries.empty());
}

TEST(GetSet, AStoredValueIsReturnedAndNotWritten) {
  MemorySettingsStore store;
  store.entries = {{"Options", "UseSkin", "TRUE"}};
  EXPECT_EQ(Read(store, "UseSkin", "False", ""), "true");
  EXPECT_EQ(Read(store, "UseSkin", "False", "KeepCaps"), "TRUE");
  EXPECT_EQ(store.At("Options", "UseSkin"), "TRUE");
  EXPECT_EQ(store.writes, 0);
}

TEST(GetSet, OnlyTheExactModeKeepsTheLetterCase) {
  for (const std::string mode :
       {"", "keepcaps", "KEEPCAPS", "Keepcaps", "KeepCaps ", " KeepCaps", "KeepCap", "True"}) {
    SCOPED_TRACE("mode '" + mode + "'");
    MemorySettingsStore store;
    EXPECT_EQ(Read(store, "TitlebarText", "My Events", mode), "my events");
    EXPECT_EQ(store.At("Options", "TitlebarText"), "My Events");
    SaveText(store, "TitlebarText", "Our EVENTS");
    EXPECT_EQ(Read(store, "TitlebarText", "My Events", mode), "our events");
  }
  MemorySettingsStore store;
  EXPECT_EQ(Read(store, "TitlebarText", "My Events", "KeepCaps"), "My Events");
}

TEST(GetSet, LowersEveryLetterWithoutRegardToTheLanguage) {
  MemorySettingsStore store;
  store.entries = {{"Options", "ReminderListColors", "VIOLET \xC3\x84\xC3\x96 \xD0\x96"}};
  EXPECT_EQ(Read(store, "ReminderListColors", "pale green", ""),
            "violet \xC3\xA4\xC3\xB6 \xD0\xB6");
}

TEST(GetSet, AStoredEmptyTextCountsAsMissing) {
  MemorySettingsStore store;
  SaveText(store, "NewDateOffset", "");
  EXPECT_EQ(store.At("Options", "NewDateOffset"), "");
  EXPECT_EQ(Read(store, "NewDateOffset", "", ""), "");
  EXPECT_EQ(store.At("Options", "NewDateOffset"), "");
  EXPECT_EQ(Read(store, "NewDateOffset", "X", ""), "x");
  EXPECT_EQ(store.At("Options", "NewDateOffset"), "X");
}

TEST(GetSet, AStoredBlankIsAValue) {
  MemorySettingsStore store;
  store.entries = {{"Options", "TitlebarText", " "}};
  EXPECT_EQ(Read(store, "TitlebarText", "My Events", "KeepCaps"), " ");
  EXPECT_EQ(store.writes, 0);
}

TEST(GetSet, TheFirstDefaultHolds) {
  MemorySettingsStore store;
  EXPECT_EQ(Read(store, "Settings/Path", "/first/dates.txt", "KeepCaps"), "/first/dates.txt");
  EXPECT_EQ(Read(store, "Settings/Path", "/second/dates.txt", "KeepCaps"), "/first/dates.txt");
  EXPECT_EQ(store.writes, 1);
}

TEST(GetSet, ChangesNothingButTheKey) {
  MemorySettingsStore store;
  std::string key = "EDIT/Left";
  const std::string defaultValue = "True";
  const std::string mode = "None";
  EXPECT_EQ(GetSet(store, key, defaultValue, mode), "true");
  EXPECT_EQ(key, "Left");
  EXPECT_EQ(defaultValue, "True");
  EXPECT_EQ(mode, "None");
}

TEST(GetSet, AnUnreadableStoreGivesTheDefaultAndIsNotWritten) {
  for (const StatusKind failure :
       {StatusKind::kNoPermission, StatusKind::kIsFolder, StatusKind::kNotAFile,
        StatusKind::kInputOutput, StatusKind::kBusy, StatusKind::kTooLarge}) {
    MemorySettingsStore store;
    store.entries = {{"Options", "UseSkin", "False"}};
    store.failure = failure;
    EXPECT_EQ(Read(store, "UseSkin", "True", ""), "true");
    EXPECT_EQ(Read(store, "UseSkin", "True", "KeepCaps"), "True");
    EXPECT_EQ(store.writes, 0);
    EXPECT_EQ(store.At("Options", "UseSkin"), "False");
  }
}

TEST(GetSet, AStoreThatTakesNoWritesStillAnswers) {
  ReadOnlyStore store;
  EXPECT_EQ(Read(store, "UseSkin", "True", ""), "true");
  SaveText(store, "UseSkin", "False");
  EXPECT_EQ(Read(store, "UseSkin", "True", ""), "true");
  EXPECT_EQ(store.At("Options", "UseSkin"), kMissing);
}

TEST(SaveSet, WritesWhateverItIsGiven) {
  for (const std::string value : {"", " ", "True", "\\sub\\dates.txt", "a,b;c", "\"quoted\"",
                                  "[Section]", "x=y", "\xC3\xA9"}) {
    SCOPED_TRACE(value);
    MemorySettingsStore store;
    SaveText(store, "Alarm/Left", "before");
    SaveText(store, "Alarm/Left", value);
    EXPECT_EQ(store.At("Alarm", "Left"), value);
  }
}

TEST(Setting, IsReadAndSavedWithItsOwnDefaultAndMode) {
  MemorySettingsStore store;
  const Setting title{"TitlebarText", "My Events", kKeepCaps};
  const Setting width{"Settings/Width", "4425"};
  EXPECT_EQ(Get(store, title), "My Events");
  EXPECT_EQ(Get(store, width), "4425");
  Save(store, width, "5000");
  EXPECT_EQ(Get(store, width), "5000");
  EXPECT_EQ(store.At("Settings", "Width"), "5000");
  const Setting path{"Settings/Path", "", kKeepCaps};
  EXPECT_EQ(Get(store, path, "/Home/Dates.txt"), "/Home/Dates.txt");
  EXPECT_EQ(store.At("Settings", "Path"), "/Home/Dates.txt");
}

TEST(Setting, DeletingRemovesOnlyThatName) {
  MemorySettingsStore store;
  store.entries = {{"Customizer", "JustExited", "1"},
                   {"Options", "JustExited", "2"},
                   {"Options", "ReminderListBackColor", "3"}};
  Delete(store, Setting{"Customizer/JustExited", ""});
  EXPECT_EQ(store.At("Customizer", "JustExited"), kMissing);
  EXPECT_EQ(store.At("Options", "JustExited"), "2");
  Delete(store, Setting{"ReminderListBackColor", ""});
  EXPECT_EQ(store.At("Options", "ReminderListBackColor"), kMissing);
  Delete(store, Setting{"ReminderListBackColor", ""});
  EXPECT_EQ(store.entries.size(), 1);
}

struct BooleanCase {
  std::string text;
  bool isTrue;
  bool isNotFalse;
};

TEST(BooleanSetting, TheTwoComparisonsDifferForEveryUnrecognizedText) {
  // As GetSet returns them, in lower case.
  const std::vector<BooleanCase> cases{
      {"true", true, true},    {"false", false, false}, {"", false, true},
      {"yes", false, true},    {"no", false, true},     {"1", false, true},
      {"0", false, true},      {" true", false, true},  {"true ", false, true},
      {"false ", false, true}, {"maybe", false, true}};
  for (const BooleanCase& c : cases) {
    SCOPED_TRACE("'" + c.text + "'");
    EXPECT_EQ(isTrue(c.text), c.isTrue);
    EXPECT_EQ(isNotFalse(c.text), c.isNotFalse);
  }
}

TEST(BooleanSetting, ConvertsWordsAndNumbers) {
  const std::vector<std::string> yes{"true",
                                     "TRUE",
                                     "True",
                                     "tRuE",
                                     " true ",
                                     "1",
                                     "-1",
                                     "+1",
                                     "2",
                                     "0.5",
                                     ".5",
                                     "-0.5",
                                     "1.",
                                     " 7 ",
                                     "007",
                                     "0.0000001",
                                     "123456789012345678901234567890"};
  const std::vector<std::string> no{"false", "FALSE", "False", "fAlSe", "  false", "0",  "-0",
                                    "+0",    "00",    "0.0",   ".0",    "0.",      " 0 "};
  for (const std::string& text : yes) {
    SCOPED_TRACE("'" + text + "'");
    EXPECT_TRUE(toBoolean(text, true));
    EXPECT_TRUE(toBoolean(text, false));
  }
  for (const std::string& text : no) {
    SCOPED_TRACE("'" + text + "'");
    EXPECT_FALSE(toBoolean(text, true));
    EXPECT_FALSE(toBoolean(text, false));
  }
}

TEST(BooleanSetting, ANumberIsTrueHoweverSmall) {
  EXPECT_TRUE(toBoolean("0.0000000001", false));
  EXPECT_TRUE(toBoolean("-0.00000000000000000001", false));
}

TEST(BooleanSetting, AnyOtherTextGivesTheDefault) {
  for (const std::string text :
       {"",      " ",          "yes",   "no",  "on",  "off", "maybe",       "1x", "x1",
        "1 2",   "1,5",        "1e2",   "0x1", "--1", "+-1", "+",           "-",  ".",
        "1.2.3", "true false", "truee", "tru", "inf", "nan", "\xEF\xBC\x91" /* a fullwidth 1 */}) {
    SCOPED_TRACE("'" + text + "'");
    EXPECT_TRUE(toBoolean(text, true));
    EXPECT_FALSE(toBoolean(text, false));
  }
}

// Takes every write but those of one name.
class PickyStore : public MemorySettingsStore {
 public:
  std::string refused;
  Status Write(std::string_view section, std::string_view name, std::string_view value) override {
    return name == refused ? Status(StatusKind::kNoSpace)
                           : MemorySettingsStore::Write(section, name, value);
  }
};

TEST(SaveAll, StoresEveryValueUnderItsSection) {
  MemorySettingsStore store;
  EXPECT_TRUE(SaveAll(store, {{"Settings/FontSize", "14"}, {"UseSkin", ""}}).ok());
  EXPECT_EQ(store.At("Settings", "FontSize"), "14");
  EXPECT_EQ(store.At("Options", "UseSkin"), "");
  EXPECT_TRUE(SaveAll(store, {}).ok());
  EXPECT_EQ(store.entries.size(), 2U);
}

TEST(SaveAll, PutsBackWhatWasThereWhenAValueCannotBeStored) {
  for (const char* const refused : {"UseSkin", "FontSize", "ShowLessThan"}) {
    SCOPED_TRACE(refused);
    PickyStore store;
    ASSERT_TRUE(store.Write("Options", "UseSkin", "True").ok());
    ASSERT_TRUE(store.Write("Options", "ShowLessThan", "False").ok());
    store.refused = refused;
    const Status status = SaveAll(
        store, {{"UseSkin", "False"}, {"Settings/FontSize", "14"}, {"ShowLessThan", "True"}});
    EXPECT_EQ(status.kind(), StatusKind::kNoSpace);
    EXPECT_EQ(store.At("Options", "UseSkin"), "True");
    EXPECT_EQ(store.At("Options", "ShowLessThan"), "False");
    EXPECT_EQ(store.At("Settings", "FontSize"), "(missing)");
  }
}

TEST(SaveAll, WritesNothingIntoAStoreThatCannotBeRead) {
  MemorySettingsStore store;
  store.failure = StatusKind::kNoPermission;
  EXPECT_EQ(SaveAll(store, {{"UseSkin", "False"}}).kind(), StatusKind::kNoPermission);
  EXPECT_EQ(store.writes, 0);
}

TEST(Stored, GivesTheTextAsItStandsAndNeverWrites) {
  MemorySettingsStore store;
  EXPECT_EQ(Stored(store, {"UseSkin", "True"}), "");
  EXPECT_EQ(store.entries.size(), 0U);
  SaveText(store, "UseSkin", "MayBe");
  EXPECT_EQ(Stored(store, {"UseSkin", "True"}), "MayBe");
}

}  // namespace
}  // namespace tidewarden::modGetSetSaveSet
