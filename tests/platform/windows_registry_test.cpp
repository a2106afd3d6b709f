#include <gmock/gmock.h>

#include <string>

#include "core/get_set_save_set.h"
#include "core/settings_keys.h"
#include "platform/windows/registry_autostart.h"
#include "platform/windows/registry_key.h"
#include "platform/windows/registry_settings_store.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_text.h"
#include "tests/support/windows_child.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;

// A part of the registry that is gone when the object is.
class RegistryPart {
 public:
  RegistryPart() { Remove(); }
  RegistryPart(const RegistryPart&) = delete;
  RegistryPart& operator=(const RegistryPart&) = delete;
  ~RegistryPart() { Remove(); }

  [[nodiscard]] const std::wstring& root() const { return root_; }

  void Set(const std::wstring& key, const std::wstring& name, DWORD kind,
           const std::string& bytes) const {
    ASSERT_EQ(::RegSetKeyValueW(HKEY_CURRENT_USER, (root_ + L"\\" + key).c_str(), name.c_str(),
                                kind, bytes.data(), static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
  }

  [[nodiscard]] bool Has(const std::wstring& key, const std::wstring& name) const {
    return ::RegGetValueW(HKEY_CURRENT_USER, (root_ + L"\\" + key).c_str(), name.c_str(),
                          RRF_RT_ANY, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
  }

 private:
  void Remove() const { ::RegDeleteTreeW(HKEY_CURRENT_USER, root_.c_str()); }

  std::wstring root_ = L"Software\\Tideward test " + std::to_wstring(::GetCurrentProcessId());
};

// A text as the registry keeps it, its NUL included when `ended`.
std::string Stored(const std::wstring& text, bool ended = true) {
  return {reinterpret_cast<const char*>(text.c_str()), 2 * (text.size() + (ended ? 1 : 0))};
}

class RegistrySettings : public ::testing::Test {
 protected:
  std::string Read(std::string_view section, std::string_view name) {
    std::string value = "(unchanged)";
    const Status status = store_.Read(section, name, value);
    return status.ok() ? value : DescribeStatus(status);
  }

  // What the system's own tool shows of a key.
  [[nodiscard]] std::string Query(const std::string& key, const std::string& value = {}) const {
    std::vector<std::string> arguments{"query", "HKCU\\" + Narrow(part_.root()) + "\\" + key};
    if (!value.empty()) arguments.insert(arguments.end(), {"/v", value});
    return Child("C:\\windows\\system32\\reg.exe", arguments).ReadRest();
  }

  RegistryPart part_;
  RegistrySettingsStore store_{part_.root()};
};

TEST_F(RegistrySettings, AMissingValueReadsAsEmptyAndMakesNothing) {
  EXPECT_EQ(Read("Settings", "FontName"), "");
  HKEY key = nullptr;
  EXPECT_EQ(::RegOpenKeyExW(HKEY_CURRENT_USER, part_.root().c_str(), 0, KEY_READ, &key),
            ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistrySettings, ValuesComeBackAsTheyWereWritten) {
  for (const std::string value : {"\\sub\\dates.txt", "  two", "a, b; c", "", "True",
                                  "Zoë Ж 日本 𝄞", "\"quoted\"", "a=b", "trailing  "}) {
    ASSERT_TRUE(store_.Write("Settings", "Name", value).ok());
    EXPECT_EQ(Read("Settings", "Name"), value);
  }
  const std::string longValue(100'000, 'x');
  ASSERT_TRUE(store_.Write("Settings", "Name", longValue).ok());
  EXPECT_EQ(Read("Settings", "Name"), longValue);
}

TEST_F(RegistrySettings, SectionsAndNamesHaveNoLetterCase) {
  ASSERT_TRUE(store_.Write("Options", "UseSkin", "True").ok());
  ASSERT_TRUE(store_.Write("OPTIONS", "useskin", "False").ok());
  EXPECT_EQ(Read("options", "USESKIN"), "False");
  EXPECT_THAT(Query("Options"), HasSubstr("UseSkin"));
  EXPECT_THAT(Query("Options"), Not(HasSubstr("useskin")));
}

TEST_F(RegistrySettings, TheSystemsToolShowsTheSections) {
  std::string key = "Settings/FontName";
  EXPECT_EQ(modGetSetSaveSet::GetSet(store_, key, "MS Sans Serif", "KeepCaps"), "MS Sans Serif");
  EXPECT_THAT(Query("Settings", "FontName"), HasSubstr("FontName    REG_SZ    MS Sans Serif"));
  key = "EDIT/Left";
  std::string value = "-1";
  modGetSetSaveSet::SaveSet(store_, key, value);
  EXPECT_THAT(Query("Edit", "Left"), HasSubstr("Left    REG_SZ    -1"));
  key = "Edits/Left";
  modGetSetSaveSet::SaveSet(store_, key, value);
  EXPECT_THAT(Query("Options", "Edits/Left"), HasSubstr("Edits/Left    REG_SZ    -1"));
}

TEST_F(RegistrySettings, AValueOfAnotherKindReadsAsMissing) {
  part_.Set(L"Options", L"Number", REG_DWORD, std::string("\1\0\0\0", 4));
  part_.Set(L"Options", L"Bytes", REG_BINARY, "abc");
  part_.Set(L"Options", L"Expanded", REG_EXPAND_SZ, Stored(L"%TEMP%"));
  for (const char* name : {"Number", "Bytes", "Expanded"}) EXPECT_EQ(Read("Options", name), "");
  ASSERT_TRUE(store_.Write("Options", "Number", "text").ok());
  EXPECT_EQ(Read("Options", "Number"), "text");
}

TEST_F(RegistrySettings, ATextWithoutItsEndIsRead) {
  part_.Set(L"Options", L"Text", REG_SZ, Stored(L"abc", false));
  part_.Set(L"Options", L"Odd", REG_SZ, Stored(L"abc", false) + "x");
  part_.Set(L"Options", L"Nothing", REG_SZ, "");
  EXPECT_EQ(Read("Options", "Text"), "abc");
  EXPECT_EQ(Read("Options", "Odd"), "abc");
  EXPECT_EQ(Read("Options", "Nothing"), "");
}

TEST_F(RegistrySettings, ADeletedNameIsGoneAndMayBeMissing) {
  ASSERT_TRUE(store_.Write("Customizer", "JustExited", "true").ok());
  EXPECT_TRUE(store_.Delete("Customizer", "JustExited").ok());
  EXPECT_FALSE(part_.Has(L"Customizer", L"JustExited"));
  EXPECT_TRUE(store_.Delete("Customizer", "JustExited").ok());
  EXPECT_TRUE(store_.Delete("Nowhere", "Nothing").ok());
}

TEST_F(RegistrySettings, AnotherProgramsWriteIsSeenAtOnce) {
  RegistrySettingsStore other(part_.root());
  ASSERT_TRUE(store_.Write("Options", "UseSkin", "True").ok());
  ASSERT_TRUE(other.Write("Options", "UseSkin", "False").ok());
  EXPECT_EQ(Read("Options", "UseSkin"), "False");
}

TEST_F(RegistrySettings, AreBroughtToTheDiskOnceForAllThatWasWritten) {
  int flushes = 0;
  {
    RegistrySettingsStore store(part_.root(), [&flushes] { ++flushes; });
    std::string value;
    ASSERT_TRUE(store.Read("Options", "UseSkin", value).ok());
    store.Flush();
    EXPECT_EQ(flushes, 0) << "nothing was written";
    for (const char* name : {"One", "Two", "Three"}) {
      ASSERT_TRUE(store.Write("Options", name, "1").ok());
    }
    EXPECT_EQ(flushes, 0);
    store.Flush();
    store.Flush();
    EXPECT_EQ(flushes, 1);
    ASSERT_TRUE(store.Delete("Options", "Two").ok());
  }
  EXPECT_EQ(flushes, 2) << "at its end";
}

// --- The start with the computer.

constexpr char kProgram[] = "C:\\Program Files\\Tidewarden\\tidewarden.exe";
constexpr wchar_t kRun[] = L"Run";
constexpr wchar_t kApproved[] = L"Explorer\\StartupApproved\\Run";
constexpr wchar_t kName[] = L"Tidewarden";

class RegistryStart : public ::testing::Test {
 protected:
  [[nodiscard]] std::string Command() const {
    wchar_t text[512] = L"(none)";
    DWORD bytes = sizeof text;
    ::RegGetValueW(HKEY_CURRENT_USER, (part_.root() + L"\\" + kRun).c_str(), kName, RRF_RT_REG_SZ,
                   nullptr, text, &bytes);
    return Narrow(text);
  }

  RegistryPart part_;
  RegistryAutostart autostart_{kProgram, part_.root()};
};

TEST_F(RegistryStart, IsSwitchedOnAndOff) {
  EXPECT_FALSE(autostart_.IsOn());
  EXPECT_TRUE(autostart_.Set(false).ok());
  EXPECT_TRUE(autostart_.Set(true).ok());
  EXPECT_EQ(Command(), "\"" + std::string(kProgram) + "\"");
  EXPECT_TRUE(autostart_.IsOn());
  EXPECT_TRUE(autostart_.Set(false).ok());
  EXPECT_EQ(Command(), "(none)");
  EXPECT_FALSE(autostart_.IsOn());
}

// Else a copy in another place would lose its start, and this one would not have it.
TEST_F(RegistryStart, StaysAsItWasWhenItCannotBeSwitchedOn) {
  RegistryAutostart autostart(kProgram, part_.root(), [](const auto&, const auto&) {
    return Status(StatusKind::kNoPermission);
  });
  part_.Set(kApproved, kName, REG_BINARY, std::string("\3\0\0\0\0\0\0\0\0\0\0\0", 12));
  EXPECT_EQ(autostart.Set(true).kind(), StatusKind::kNoPermission);
  EXPECT_FALSE(part_.Has(kRun, kName));
  for (const DWORD kind : {DWORD{REG_SZ}, DWORD{REG_EXPAND_SZ}}) {
    part_.Set(kRun, kName, kind, Stored(L"C:\\Old\\tidewarden.exe"));
    EXPECT_EQ(autostart.Set(true).kind(), StatusKind::kNoPermission);
    std::optional<RegistryValue> value;
    ASSERT_TRUE(ReadRegistry(part_.root() + L"\\" + kRun, kName, value).ok());
    ASSERT_TRUE(value);
    EXPECT_EQ(value->kind, kind);
    EXPECT_EQ(value->bytes, Stored(L"C:\\Old\\tidewarden.exe"));
  }
  const std::wstring own = L"\"C:\\Program Files\\Tidewarden\\tidewarden.exe\" -x";
  part_.Set(kRun, kName, REG_SZ, Stored(own));
  EXPECT_EQ(autostart.Set(true).kind(), StatusKind::kNoPermission);
  EXPECT_EQ(Command(), Narrow(own));
}

TEST_F(RegistryStart, CountsWhateverTheEntryAddsToTheProgram) {
  for (const wchar_t* command : {L"\"C:\\Program Files\\Tidewarden\\tidewarden.exe\" --file x.txt",
                                 L"\"c:\\program files\\TIDEWARDEN\\Tidewarden.exe\"",
                                 L"C:\\PROGRA~1\\Tidewarden\\..\\..\\Program?Files"}) {
    SCOPED_TRACE(Narrow(command));
    part_.Set(kRun, kName, REG_SZ, Stored(command));
    const bool isProgram = std::wstring(command).find(L'?') == std::wstring::npos;
    EXPECT_EQ(autostart_.IsOn(), isProgram);
    if (!isProgram) continue;
    EXPECT_TRUE(autostart_.Set(true).ok());
    EXPECT_EQ(Command(), Narrow(command)) << "it is on already";
  }
}

TEST_F(RegistryStart, OfAnotherProgramIsReplaced) {
  part_.Set(kRun, kName, REG_SZ, Stored(L"C:\\Old\\tidewarden.exe"));
  EXPECT_FALSE(autostart_.IsOn());
  EXPECT_TRUE(autostart_.Set(true).ok());
  EXPECT_EQ(Command(), "\"" + std::string(kProgram) + "\"");
}

// The task manager switches an entry off by a mark beside it.
TEST_F(RegistryStart, ThatTheTaskManagerHasSwitchedOffIsOff) {
  part_.Set(kRun, kName, REG_SZ, Stored(L"\"C:\\Program Files\\Tidewarden\\tidewarden.exe\" -x"));
  part_.Set(kApproved, kName, REG_BINARY, std::string("\3\0\0\0\0\0\0\0\0\0\0\0", 12));
  EXPECT_FALSE(autostart_.IsOn());
  EXPECT_TRUE(autostart_.Set(true).ok());
  EXPECT_TRUE(autostart_.IsOn());
  EXPECT_EQ(Command(), "\"C:\\Program Files\\Tidewarden\\tidewarden.exe\" -x");
  part_.Set(kApproved, kName, REG_BINARY, std::string("\2\0\0\0\0\0\0\0\0\0\0\0", 12));
  EXPECT_TRUE(autostart_.IsOn());
  EXPECT_TRUE(autostart_.Set(false).ok());
  EXPECT_FALSE(autostart_.IsOn());
}

}  // namespace
}  // namespace tidewarden::test
