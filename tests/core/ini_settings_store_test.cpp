#include "core/ini_settings_store.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "core/get_set_save_set.h"
#include "dates/text.h"
#include "platform/memory/memory_ports.h"

namespace tidewarden {
namespace {

constexpr const char* kPath = "settings.ini";

// ---- The text form.

struct ValueCase {
  std::string name;
  std::string text;
  std::string section;
  std::string key;
  std::optional<std::string> value;
};

TEST(IniText, FindsAValueBySectionAndName) {
  const std::vector<ValueCase> cases{
      {"plain", "[Edit]\nLeft=1\n", "Edit", "Left", "1"},
      {"any case", "[EDIT]\nlEFT=1\n", "Edit", "Left", "1"},
      {"last line without an end", "[Edit]\nLeft=1", "Edit", "Left", "1"},
      {"CR LF", "[Edit]\r\nLeft=1\r\n", "Edit", "Left", "1"},
      {"byte-order mark", "\xEF\xBB\xBF[Edit]\nLeft=1\n", "Edit", "Left", "1"},
      {"split at the first =", "[Edit]\na=b=c\n", "Edit", "a", "b=c"},
      {"blanks belong to the value", "[Edit]\na=  b \n", "Edit", "a", "  b "},
      {"quotes belong to the value", "[Edit]\na=\"b\"\n", "Edit", "a", "\"b\""},
      {"backslashes stay", "[Settings]\nPath=\\sub\\dates.txt\n", "Settings", "Path",
       "\\sub\\dates.txt"},
      {"a comment sign inside a value", "[Edit]\na=b ; c # d\n", "Edit", "a", "b ; c # d"},
      {"empty value", "[Edit]\na=\n", "Edit", "a", ""},
      {"empty name", "[Edit]\n=5\n", "Edit", "", "5"},
      {"name with a slash", "[Options]\nEdits/Left=5\n", "Options", "Edits/Left", "5"},
      {"name with blanks", "[Options]\na b=5\n", "Options", "a b", "5"},
      {"value that looks like a section", "[Edit]\na=[Alarm]\nb=2\n", "Edit", "b", "2"},
      {"first of two names", "[Edit]\na=1\nA=2\n", "Edit", "a", "1"},
      {"second of two sections", "[Edit]\na=1\n[Alarm]\n[edit]\nb=2\n", "Edit", "b", "2"},
      {"first of two sections", "[Edit]\na=1\n[edit]\na=2\n", "Edit", "a", "1"},
      {"other section", "[Alarm]\nLeft=1\n", "Edit", "Left", std::nullopt},
      {"before any section", "Left=1\n[Alarm]\n", "Edit", "Left", std::nullopt},
      {"missing", "[Edit]\nLeft=1\n", "Edit", "Top", std::nullopt},
      {"empty text", "", "Edit", "Left", std::nullopt},
      {"comment", "[Edit]\n;Left=1\n#Left=2\n", "Edit", "Left", std::nullopt},
      {"no =", "[Edit]\nLeft\n", "Edit", "Left", std::nullopt},
      {"unfinished section", "[Edit]\n[x=1\nLeft=2\n", "Edit", "Left", "2"},
      {"only ASCII letters lose their case", "[Edit]\n\xC3\xA4=1\n", "Edit", "\xC3\x84",
       std::nullopt},
  };
  for (const ValueCase& c : cases) {
    SCOPED_TRACE(c.name);
    const auto value = ini::FindValue(c.text, c.section, c.key);
    EXPECT_EQ(value ? std::optional<std::string>(*value) : std::nullopt, c.value);
  }
}

struct ChangeCase {
  std::string name;
  std::string before;
  std::string after;
};

TEST(IniText, SettingAValueChangesItsLineOnly) {
  const std::vector<ChangeCase> cases{
      {"empty text", "", "[Edit]\nLeft=7\n"},
      {"same section", "[Edit]\nTop=1\n", "[Edit]\nTop=1\nLeft=7\n"},
      {"empty section", "[Edit]\n[Alarm]\nTop=1\n", "[Edit]\nLeft=7\n[Alarm]\nTop=1\n"},
      {"new section", "[Alarm]\nTop=1\n", "[Alarm]\nTop=1\n[Edit]\nLeft=7\n"},
      {"replaced", "[Edit]\nLeft=1\nTop=2\n", "[Edit]\nLeft=7\nTop=2\n"},
      {"name keeps the case of its first write", "[edit]\nLEFT=1\n", "[edit]\nLEFT=7\n"},
      {"comments stay", "; mine\n[Edit]\n# before\nLeft=1\n; after\n",
       "; mine\n[Edit]\n# before\nLeft=7\n; after\n"},
      {"unknown lines stay", "hello\n[Edit]\nworld\nLeft=1\n\n???\n",
       "hello\n[Edit]\nworld\nLeft=7\n\n???\n"},
      {"added behind the last value", "[Edit]\nTop=1\n\n; about alarms\n[Alarm]\n",
       "[Edit]\nTop=1\nLeft=7\n\n; about alarms\n[Alarm]\n"},
      {"missing last end, added", "[Edit]\nTop=1", "[Edit]\nTop=1\nLeft=7\n"},
      {"missing last end, new section", "[Alarm]\nTop=1", "[Alarm]\nTop=1\n[Edit]\nLeft=7\n"},
      {"missing last end, replaced", "[Edit]\nLeft=1", "[Edit]\nLeft=7\n"},
      {"missing end behind the heading", "[Edit]", "[Edit]\nLeft=7\n"},
      {"first of two names", "[Edit]\nLeft=1\nleft=2\n", "[Edit]\nLeft=7\nleft=2\n"},
      {"CR LF around it stays", "[Edit]\r\nTop=1\r\nLeft=1\r\nWidth=2\r\n",
       "[Edit]\r\nTop=1\r\nLeft=7\nWidth=2\r\n"},
      {"byte-order mark stays", "\xEF\xBB\xBF[Edit]\nLeft=1\n", "\xEF\xBB\xBF[Edit]\nLeft=7\n"},
  };
  for (const ChangeCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ini::WithValue(c.before, "Edit", "Left", "7"), c.after);
    EXPECT_EQ(ini::WithValue(c.after, "Edit", "Left", "7"), c.after);
  }
}

TEST(IniText, RemovingAValueTakesEveryLineOfItAndNothingElse) {
  const std::vector<ChangeCase> cases{
      {"missing", "[Edit]\nTop=1\n", "[Edit]\nTop=1\n"},
      {"empty text", "", ""},
      {"only value", "[Edit]\nLeft=1\n", "[Edit]\n"},
      {"any case", "[EDIT]\nLEFT=1\nTop=2\n", "[EDIT]\nTop=2\n"},
      {"twice", "[Edit]\nLeft=1\nTop=2\nleft=3\n", "[Edit]\nTop=2\n"},
      {"in two sections of that name", "[Edit]\nLeft=1\n[Alarm]\nLeft=2\n[edit]\nLeft=3",
       "[Edit]\n[Alarm]\nLeft=2\n[edit]\n"},
      {"comments and unknown lines stay", "; a\n[Edit]\n#Left=0\nLeft=1\nhello\n\n",
       "; a\n[Edit]\n#Left=0\nhello\n\n"},
      {"CR LF", "[Edit]\r\nLeft=1\r\nTop=2\r\n", "[Edit]\r\nTop=2\r\n"},
  };
  for (const ChangeCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ini::WithoutValue(c.before, "Edit", "Left"), c.after);
  }
}

TEST(IniText, AwkwardValuesComeBackAsTheyWere) {
  for (const std::string value : {"",
                                  " ",
                                  "  two",
                                  "two  ",
                                  "\\sub\\dates.txt",
                                  "a, b; c",
                                  "\"x\"",
                                  "\"",
                                  "'",
                                  "=",
                                  "==x",
                                  "[Edit]",
                                  "; no comment",
                                  "# none",
                                  "\ttab\t",
                                  "%PATH%",
                                  "$HOME",
                                  "\\n",
                                  "\\",
                                  "N\xC3\xB6\xC3\xABl \xF0\x9F\x8E\x84",
                                  "\xE9 is no UTF-8",
                                  "True"}) {
    SCOPED_TRACE(value);
    const std::string text = ini::WithValue("[Options]\na=1\nb=2\n", "Options", "a", value);
    EXPECT_EQ(ini::FindValue(text, "Options", "a"), value);
    EXPECT_EQ(ini::FindValue(text, "Options", "b"), "2");
  }
}

TEST(IniText, ALineBreakInsideAValueBecomesABlank) {
  const std::string text = ini::WithValue("", "Options", "a", "one\ntwo\rthree");
  EXPECT_EQ(text, "[Options]\na=one two three\n");
  EXPECT_EQ(ini::WithValue("", "Options", "a", "\n"), "[Options]\na= \n");
}

TEST(IniText, TellsTheNamesThatItCanHold) {
  for (const std::string name : {"", "a", "Edits/Left", "a b", "a]", "a[", "x;y", "\xC3\xA9"}) {
    EXPECT_TRUE(ini::IsStorableName(name)) << name;
  }
  for (const std::string name : {"a=b", "=", "a\nb", "a\rb", "[a", ";a", "#a"}) {
    EXPECT_FALSE(ini::IsStorableName(name)) << name;
  }
}

TEST(IniText, ManyRandomChangesAgreeWithATable) {
  std::mt19937 random(20141222);
  const auto pick = [&](std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
  };
  const std::vector<std::string> sections{"Alarm", "Edit", "Options", "Settings"};
  const std::vector<std::string> names{"Left", "top", "a b", "", "x/y", "\xC3\xA9"};
  const std::string letters = "ab =[];#\\\"'\t/";
  const std::vector<std::string> keptLines{"; first", "hello", "[broken", "# last"};
  std::string text = "; first\n[Edit]\nhello\n[ALARM]\n[edit]\n[broken\n[Options]\n# last";
  std::map<std::pair<std::string, std::string>, std::string> table;
  for (int step = 0; step < 2000; ++step) {
    std::string section = sections[pick(sections.size())];
    std::string name = names[pick(names.size())];
    const std::pair key{section, name};
    if (pick(2) == 0) {
      section = ToUpper(section);
      if (IsAscii(name)) name = ToUpper(name);
    }
    if (pick(4) == 0) {
      text = ini::WithoutValue(text, section, name);
      table.erase(key);
    } else {
      std::string value;
      for (std::size_t i = pick(8); i > 0; --i) value.push_back(letters[pick(letters.size())]);
      text = ini::WithValue(text, section, name, value);
      table[key] = value;
    }
    for (const std::string& s : sections) {
      for (const std::string& n : names) {
        const auto found = ini::FindValue(text, s, n);
        const auto expected = table.find({s, n});
        ASSERT_EQ(found.has_value(), expected != table.end()) << text;
        if (found) {
          ASSERT_EQ(*found, expected->second) << text;
        }
      }
    }
  }
  std::size_t from = 0;
  for (const std::string& line : keptLines) {
    from = text.find(line, from);
    ASSERT_NE(from, std::string::npos) << line;
  }
}

// ---- The store.

std::string ValueOf(SettingsStore& store, std::string_view section, std::string_view name) {
  std::string value = "(unread)";
  const Status status = store.Read(section, name, value);
  return status.ok() ? value : "(" + DescribeStatus(status) + ")";
}

TEST(IniSettingsStore, AMissingFileReadsAsEmptyAndIsNotCreatedByReading) {
  MemoryFileSystem files;
  IniSettingsStore store(files, kPath);
  EXPECT_EQ(ValueOf(store, "Options", "UseSkin"), "");
  EXPECT_TRUE(files.files.empty());
  EXPECT_EQ(files.CountCalls("stage"), 0);
}

TEST(IniSettingsStore, WritesAreOnTheDiskWhenTheCallReturns) {
  MemoryFileSystem files;
  IniSettingsStore store(files, kPath);
  EXPECT_TRUE(store.Write("Options", "UseSkin", "True").ok());
  EXPECT_EQ(files.files[kPath], "[Options]\nUseSkin=True\n");
  EXPECT_TRUE(store.Write("Edit", "Left", "-1").ok());
  EXPECT_EQ(files.files[kPath], "[Options]\nUseSkin=True\n[Edit]\nLeft=-1\n");
  EXPECT_EQ(ValueOf(store, "EDIT", "left"), "-1");
}

TEST(IniSettingsStore, AWriteTakesTheLockBeforeItReadsTheFile) {
  MemoryFileSystem files;
  files.files[kPath] = "[Options]\na=1\n";
  IniSettingsStore store(files, kPath);
  EXPECT_TRUE(store.Write("Options", "b", "2").ok());
  ASSERT_FALSE(files.calls.empty());
  EXPECT_EQ(files.calls.front(), "lock settings.ini");
  EXPECT_EQ(files.calls.back(), "commit settings.ini");
}

TEST(IniSettingsStore, KeepsWhatAnotherProgramHasWrittenSinceTheLastRead) {
  MemoryFileSystem files;
  IniSettingsStore mine(files, kPath);
  IniSettingsStore other(files, kPath);
  EXPECT_TRUE(mine.Write("Options", "a", "1").ok());
  EXPECT_EQ(ValueOf(mine, "Options", "a"), "1");
  EXPECT_TRUE(other.Write("Options", "b", "2").ok());
  EXPECT_EQ(ValueOf(mine, "Options", "b"), "2");
  EXPECT_TRUE(other.Write("Options", "a", "3").ok());
  EXPECT_TRUE(mine.Write("Options", "c", "4").ok());
  EXPECT_EQ(files.files[kPath], "[Options]\na=3\nb=2\nc=4\n");
  EXPECT_TRUE(other.Delete("Options", "a").ok());
  EXPECT_EQ(ValueOf(mine, "Options", "a"), "");
}

TEST(IniSettingsStore, AWriteReadsTheFileAgainEvenWhenItsStampIsTheSame) {
  MemoryFileSystem files;
  files.files[kPath] = "[Options]\na=1\nb=1\n";
  IniSettingsStore store(files, kPath);
  EXPECT_EQ(ValueOf(store, "Options", "a"), "1");
  // Of the same length and within the clock's resolution: nothing but the bytes tells.
  files.files[kPath] = "[Options]\na=2\nb=1\n";
  EXPECT_TRUE(store.Write("Options", "b", "3").ok());
  EXPECT_EQ(files.files[kPath], "[Options]\na=2\nb=3\n");
}

TEST(IniSettingsStore, WritingTheSameValueLeavesTheFileAlone) {
  MemoryFileSystem files;
  files.files[kPath] = "[Options]\na=1\n";
  IniSettingsStore store(files, kPath);
  EXPECT_TRUE(store.Write("options", "A", "1").ok());
  EXPECT_EQ(files.CountCalls("stage"), 0);
}

TEST(IniSettingsStore, DeletingWhatIsNotThereSucceedsAndWritesNothing) {
  MemoryFileSystem files;
  IniSettingsStore store(files, kPath);
  EXPECT_TRUE(store.Delete("Options", "a").ok());
  files.files[kPath] = "[Options]\na=1\n";
  EXPECT_TRUE(store.Delete("Options", "b").ok());
  EXPECT_TRUE(store.Delete("Edit", "a").ok());
  EXPECT_EQ(files.CountCalls("stage"), 0);
  EXPECT_TRUE(store.Delete("OPTIONS", "A").ok());
  EXPECT_EQ(files.files[kPath], "[Options]\n");
}

TEST(IniSettingsStore, AFileThatCannotBeReadIsNeverWritten) {
  for (const StatusKind kind :
       {StatusKind::kNoPermission, StatusKind::kIsFolder, StatusKind::kNotAFile,
        StatusKind::kInputOutput, StatusKind::kTooLarge, StatusKind::kBusy}) {
    SCOPED_TRACE(DescribeStatus(Status(kind)));
    MemoryFileSystem files;
    files.files[kPath] = "[Options]\nUseSkin=False\n";
    files.failures[kPath] = kind;
    IniSettingsStore store(files, kPath);
    std::string value = "before";
    EXPECT_EQ(store.Read("Options", "UseSkin", value).kind(), kind);
    EXPECT_EQ(value, "before");
    EXPECT_EQ(store.Write("Options", "UseSkin", "True").kind(), kind);
    EXPECT_EQ(store.Delete("Options", "UseSkin").kind(), kind);
    std::string key = "UseSkin";
    EXPECT_EQ(modGetSetSaveSet::GetSet(store, key, "True", ""), "true");
    modGetSetSaveSet::SaveSet(store, key, "True");
    EXPECT_EQ(files.CountCalls("stage"), 0);
    EXPECT_EQ(files.files[kPath], "[Options]\nUseSkin=False\n");
    // It is read as soon as it can be.
    files.failures.clear();
    EXPECT_EQ(ValueOf(store, "Options", "UseSkin"), "False");
  }
}

TEST(IniSettingsStore, AFileThatBecomesUnreadableIsNoLongerAnsweredFromMemory) {
  MemoryFileSystem files;
  files.files[kPath] = "[Options]\na=1\n";
  IniSettingsStore store(files, kPath);
  EXPECT_EQ(ValueOf(store, "Options", "a"), "1");
  files.failures[kPath] = StatusKind::kInputOutput;
  std::string value;
  EXPECT_FALSE(store.Read("Options", "a", value).ok());
  EXPECT_FALSE(store.Write("Options", "a", "2").ok());
  EXPECT_EQ(files.files[kPath], "[Options]\na=1\n");
}

TEST(IniSettingsStore, AFileThatIsGoneReadsAsEmpty) {
  MemoryFileSystem files;
  files.files[kPath] = "[Options]\na=1\n";
  IniSettingsStore store(files, kPath);
  EXPECT_EQ(ValueOf(store, "Options", "a"), "1");
  files.files.clear();
  EXPECT_EQ(ValueOf(store, "Options", "a"), "");
  EXPECT_TRUE(store.Write("Options", "b", "2").ok());
  EXPECT_EQ(files.files[kPath], "[Options]\nb=2\n");
}

TEST(IniSettingsStore, DamagedTextKeepsEveryLine) {
  using namespace std::string_literals;
  const std::string damaged = "\0\xFF\xFE\x80[Opt\nhalf a li\0ne\n[Options\n=[]=\n\n"s;
  MemoryFileSystem files;
  files.files[kPath] = damaged;
  IniSettingsStore store(files, kPath);
  EXPECT_EQ(ValueOf(store, "Options", "UseSkin"), "");
  EXPECT_TRUE(store.Write("Options", "UseSkin", "True").ok());
  EXPECT_EQ(files.files[kPath], damaged + "[Options]\nUseSkin=True\n");
  EXPECT_EQ(ValueOf(store, "Options", "UseSkin"), "True");
}

TEST(IniSettingsStore, AFailedWriteLeavesTheOldValue) {
  MemoryFileSystem files;
  files.files[kPath] = "[Options]\na=1\n";
  IniSettingsStore store(files, kPath);
  files.writeFailures[kPath] = StatusKind::kNoSpace;
  EXPECT_EQ(store.Write("Options", "a", "2").kind(), StatusKind::kNoSpace);
  EXPECT_EQ(ValueOf(store, "Options", "a"), "1");
  files.writeFailures.clear();
  files.commitFailures[kPath] = StatusKind::kInputOutput;
  EXPECT_EQ(store.Write("Options", "a", "2").kind(), StatusKind::kInputOutput);
  EXPECT_EQ(store.Delete("Options", "a").kind(), StatusKind::kInputOutput);
  EXPECT_EQ(ValueOf(store, "Options", "a"), "1");
  EXPECT_EQ(files.files[kPath], "[Options]\na=1\n");
}

TEST(IniSettingsStore, AStoreThatCannotBeLockedIsNotWritten) {
  class Locked : public MemoryFileSystem {
   public:
    Status Lock(const std::string& /*path*/, std::unique_ptr<FileLock>& /*out*/) override {
      return Status(StatusKind::kBusy);
    }
  };
  Locked files;
  files.files[kPath] = "[Options]\na=1\n";
  IniSettingsStore store(files, kPath);
  EXPECT_EQ(store.Write("Options", "a", "2").kind(), StatusKind::kBusy);
  EXPECT_EQ(store.Delete("Options", "a").kind(), StatusKind::kBusy);
  EXPECT_EQ(files.files[kPath], "[Options]\na=1\n");
}

TEST(IniSettingsStore, RefusesANameThatTheFileCannotHold) {
  MemoryFileSystem files;
  IniSettingsStore store(files, kPath);
  for (const std::string name : {"a=b", "[a", ";a", "#a", "a\nb"}) {
    EXPECT_FALSE(store.Write("Options", name, "1").ok()) << name;
  }
  EXPECT_TRUE(files.files.empty());
}

TEST(IniSettingsStore, SeveralValuesAreOneReplacementOrNone) {
  MemoryFileSystem files;
  files.files[kPath] = "[Options]\na=1\n";
  IniSettingsStore store(files, kPath);
  EXPECT_TRUE(store.WriteAll({{"Options", "a", "2"}, {"Edit", "Left", "-1"}}).ok());
  EXPECT_EQ(files.CountCalls("commit"), 1);
  EXPECT_EQ(files.CountCalls("lock"), 1);
  EXPECT_EQ(files.files[kPath], "[Options]\na=2\n[Edit]\nLeft=-1\n");

  EXPECT_FALSE(store.WriteAll({{"Options", "a", "3"}, {"Options", "b=c", "4"}}).ok());
  files.commitFailures[kPath] = StatusKind::kNoSpace;
  EXPECT_EQ(store.WriteAll({{"Options", "a", "3"}, {"Edit", "Left", "5"}}).kind(),
            StatusKind::kNoSpace);
  EXPECT_EQ(files.files[kPath], "[Options]\na=2\n[Edit]\nLeft=-1\n");
  EXPECT_TRUE(store.WriteAll({}).ok());
}

TEST(IniSettingsStore, ServesGetSetAndSaveSet) {
  MemoryFileSystem files;
  IniSettingsStore store(files, kPath);
  std::string key = "Settings/FontName";
  EXPECT_EQ(modGetSetSaveSet::GetSet(store, key, "MS Sans Serif", "KeepCaps"), "MS Sans Serif");
  key = "UseSkin";
  EXPECT_EQ(modGetSetSaveSet::GetSet(store, key, "True", ""), "true");
  key = "Edits/Left";
  modGetSetSaveSet::SaveSet(store, key, "5");
  EXPECT_EQ(files.files[kPath],
            "[Settings]\nFontName=MS Sans Serif\n[Options]\nUseSkin=True\nEdits/Left=5\n");
  for (const std::string value : {"\\sub\\dates.txt", "  two", "a, b; c", ""}) {
    key = "TitlebarText";
    modGetSetSaveSet::SaveSet(store, key, value);
    EXPECT_EQ(ValueOf(store, "Options", "TitlebarText"), value);
  }
}

}  // namespace
}  // namespace tidewarden
