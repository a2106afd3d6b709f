// The notification area, the sound, the shell, the previous instance and the precautions of a
// start on Windows.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "alarm/tray_icon.h"
#include "platform/system.h"
#include "platform/windows/shell_notification_area.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_previous_instance.h"
#include "platform/windows/windows_shell.h"
#include "platform/windows/windows_sound_player.h"
#include "platform/windows/windows_text.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/windows_child.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;

// --- The notification area.

constexpr WindowHandle kOwner = 0x00020456;
constexpr IconHandle kPicture = 0xFFFF8001;  // the sign of a handle is extended

class ShellArea : public ::testing::Test {
 protected:
  ShellArea()
      : area_({[this](DWORD message, NOTIFYICONDATAA& data) {
                 messages_.push_back(message);
                 data_ = data;
                 return std::find(refused_.begin(), refused_.end(), message) == refused_.end();
               },
               [this] { return isBusy_; },
               [this](HWND window) {
                 EXPECT_EQ(window, WindowOf(kOwner));
                 return isSeen_;
               },
               [this] { return hasArea_; },
               [this](HWND window, UINT message) {
                 EXPECT_EQ(window, WindowOf(kOwner));
                 letIn_.push_back(message);
               }}),
        icon_(area_) {
    icon_.OwnerForm = kOwner;
    icon_.Icon(kPicture);
    icon_.Tooltip("For \"always on\" computers,\r\nTidewarden reminders pop up each day.");
    area_.Mouse = [this](IconMouseMessage message) {
      heard_.push_back(static_cast<int>(message));
      icon_.HandleCallback(static_cast<double>(message), 1);
    };
  }

  bool Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    return area_.HandleMessage(WindowOf(kOwner), message, wParam, lParam);
  }

  std::vector<DWORD> messages_;
  NOTIFYICONDATAA data_{};
  bool isSeen_ = false;
  bool hasArea_ = true;
  std::vector<DWORD> refused_;  // messages that the shell does not obey
  bool isBusy_ = false;         // that is why
  std::vector<UINT> letIn_;
  std::vector<int> heard_;
  ShellNotificationArea area_;
  TrayIcon icon_;
};

TEST_F(ShellArea, GetsTheRecordInTheSystemsLayout) {
  icon_.Visible(true);
  EXPECT_EQ(data_.cbSize, sizeof(void*) == 4 ? 88U : 104U);
  EXPECT_EQ(data_.hWnd, WindowOf(kOwner));
  EXPECT_EQ(NumberOf(data_.hWnd), kOwner);
  EXPECT_EQ(data_.uID, 1U);
  EXPECT_EQ(data_.uFlags, static_cast<UINT>(NIF_MESSAGE | NIF_ICON | NIF_TIP));
  EXPECT_EQ(data_.uCallbackMessage, static_cast<UINT>(WM_MOUSEMOVE));
  EXPECT_EQ(NumberOf(data_.hIcon), kPicture);
  // 63 of the 65 characters, and the NUL that the system needs.
  EXPECT_STREQ(data_.szTip, "For \"always on\" computers,\r\nTidewarden reminders pop up each da");
  EXPECT_EQ(std::strlen(data_.szTip), 63U);
  icon_.Tooltip("short");
  icon_.Visible(false);
  EXPECT_THAT(messages_, ElementsAre(DWORD{NIM_ADD}, DWORD{NIM_MODIFY}, DWORD{NIM_DELETE}));
}

TEST_F(ShellArea, TheBytesOfTheRecordStandWhereTheSystemReadsThem) {
  icon_.Visible(true);
  const auto* const bytes = reinterpret_cast<const unsigned char*>(&data_);
  const auto number = [&](std::size_t at) {
    return static_cast<std::uint32_t>(bytes[at] | bytes[at + 1] << 8 | bytes[at + 2] << 16 |
                                      static_cast<std::uint32_t>(bytes[at + 3]) << 24U);
  };
  constexpr bool kIs64 = sizeof(void*) == 8;
  EXPECT_EQ(number(kIs64 ? 8 : 4), kOwner);
  EXPECT_EQ(number(kIs64 ? 16 : 8), 1U);
  EXPECT_EQ(number(kIs64 ? 20 : 12), 7U);
  EXPECT_EQ(number(kIs64 ? 24 : 16), 512U);
  EXPECT_EQ(number(kIs64 ? 32 : 20), kPicture);
  EXPECT_EQ(bytes[kIs64 ? 40 : 24], 'F');
  EXPECT_EQ(bytes[kIs64 ? 103 : 87], 0);
}

TEST(NativeRecordOf, ATooltipIsInTheCodePageOfTheProcess) {
  constexpr unsigned kUtf8 = 65001;
  const auto tip = [](std::string_view bytes, unsigned codePage) {
    NotifyIconRecord record;
    record.szTip.fill(' ');
    bytes.copy(record.szTip.data(), record.szTip.size());
    return std::string(NativeRecord(record, codePage).szTip);
  };
  const std::string zoe("Zo\xEB\x80\0", 5);  // "Zoë€" and the end of the text
  EXPECT_EQ(tip(zoe, 1252), "Zo\xEB\x80");
  EXPECT_EQ(tip(zoe, kUtf8), "Zoë€");
  // Whole characters only: 31 of two bytes leave one byte and the NUL.
  std::string longest;
  for (int i = 0; i < 31; ++i) longest += "ë";
  EXPECT_EQ(tip(std::string(64, '\xEB'), kUtf8), longest);
  EXPECT_EQ(tip(std::string(64, 'e'), kUtf8), std::string(63, 'e'));
  EXPECT_EQ(tip(std::string(64, '\xEB'), 1252), std::string(63, '\xEB'));
}

TEST_F(ShellArea, TheShellsMessagesReachTheIcon) {
  std::vector<std::string> events;
  icon_.MouseDown = [&](TrayButton b) { events.push_back("down " + std::to_string(int(b))); };
  icon_.MouseUp = [&](TrayButton b) { events.push_back("up " + std::to_string(int(b))); };
  icon_.DblClick = [&] { events.emplace_back("double"); };
  icon_.Visible(true);
  for (const LPARAM mouse : {513, 514, 515, 516, 517, 518}) EXPECT_TRUE(Handle(512, 1, mouse));
  EXPECT_THAT(events, ElementsAre("down 1", "up 1", "double", "down 2", "up 2", "double"));
  EXPECT_THAT(heard_, ElementsAre(513, 514, 515, 516, 517, 518));
}

TEST_F(ShellArea, OtherMessagesDoNot) {
  EXPECT_FALSE(Handle(512, 1, 514)) << "no icon yet";
  icon_.Visible(true);
  for (const LPARAM mouse : {0, 512, 519, 514 + (1 << 16)}) EXPECT_FALSE(Handle(512, 1, mouse));
  EXPECT_FALSE(Handle(512, 0, 514)) << "another number";
  EXPECT_FALSE(Handle(513, 1, 514)) << "another message";
  EXPECT_FALSE(area_.HandleMessage(WindowOf(kOwner + 1), 512, 1, 514)) << "another window";
  isSeen_ = true;
  EXPECT_FALSE(Handle(512, 1, 514)) << "the mouse, dragged over the window itself";
  isSeen_ = false;
  icon_.Visible(false);
  EXPECT_FALSE(Handle(512, 1, 514)) << "no icon any more";
  EXPECT_THAT(heard_, IsEmpty());
}

TEST_F(ShellArea, AShellThatStartsAnewGetsTheIconAgain) {
  const UINT started = ::RegisterWindowMessageW(L"TaskbarCreated");
  ASSERT_NE(started, 0U);
  int appeared = 0;
  area_.Appeared = [&] { ++appeared; };
  EXPECT_FALSE(Handle(started, 0, 0));
  EXPECT_THAT(messages_, IsEmpty());
  icon_.Visible(true);
  data_ = {};
  EXPECT_FALSE(Handle(started, 0, 0));
  EXPECT_FALSE(area_.HandleMessage(WindowOf(kOwner + 1), started, 0, 0));
  EXPECT_THAT(messages_, ElementsAre(DWORD{NIM_ADD}, DWORD{NIM_ADD}));
  EXPECT_EQ(data_.uID, 1U);
  EXPECT_EQ(appeared, 1);
}

TEST_F(ShellArea, AShellWithFewerRightsThanTheProgramReachesIt) {
  EXPECT_THAT(letIn_, IsEmpty());
  icon_.Visible(true);
  EXPECT_THAT(letIn_, ElementsAre(::RegisterWindowMessageW(L"TaskbarCreated"), UINT{WM_MOUSEMOVE}));
  icon_.Tooltip("short");
  icon_.Visible(false);
  EXPECT_EQ(letIn_.size(), 2U);
}

TEST_F(ShellArea, IsNoneUntilTheShellHasTakenTheIcon) {
  EXPECT_TRUE(area_.IsAvailable());
  EXPECT_THAT(messages_, IsEmpty()) << "no icon is wanted";
  refused_ = {NIM_ADD, NIM_MODIFY};
  icon_.Visible(true);
  messages_.clear();
  EXPECT_FALSE(area_.IsAvailable());
  EXPECT_FALSE(area_.IsAvailable());
  EXPECT_THAT(messages_, ElementsAre(NIM_ADD, NIM_MODIFY, NIM_ADD, NIM_MODIFY));
  messages_.clear();
  refused_.clear();
  data_ = {};
  EXPECT_TRUE(area_.IsAvailable());
  EXPECT_TRUE(area_.IsAvailable());
  EXPECT_THAT(messages_, ElementsAre(NIM_ADD, NIM_MODIFY)) << "once it is there, it is looked for";
  EXPECT_EQ(NumberOf(data_.hIcon), kPicture);
  hasArea_ = false;
  EXPECT_FALSE(area_.IsAvailable());
}

TEST_F(ShellArea, AnIconThatHasGoneIsAddedAgain) {
  icon_.Visible(true);
  messages_.clear();
  data_ = {};
  EXPECT_TRUE(area_.IsAvailable());
  EXPECT_THAT(messages_, ElementsAre(DWORD{NIM_MODIFY})) << "the same record tells of an icon";
  EXPECT_EQ(NumberOf(data_.hIcon), kPicture);
  messages_.clear();
  refused_ = {NIM_MODIFY};
  data_ = {};
  EXPECT_TRUE(area_.IsAvailable());
  EXPECT_THAT(messages_, ElementsAre(NIM_MODIFY, NIM_ADD));
  EXPECT_EQ(NumberOf(data_.hIcon), kPicture);
}

TEST_F(ShellArea, AnIconThatHasGoneAndIsNotTakenAgainMeansNoArea) {
  icon_.Visible(true);
  refused_ = {NIM_ADD, NIM_MODIFY};
  EXPECT_FALSE(area_.IsAvailable());
  EXPECT_FALSE(area_.IsAvailable());
  refused_.clear();
  EXPECT_TRUE(area_.IsAvailable());
  icon_.Visible(false);
  messages_.clear();
  EXPECT_TRUE(area_.IsAvailable());
  EXPECT_THAT(messages_, IsEmpty()) << "no icon is wanted any more";
}

TEST_F(ShellArea, AnIconIsNotTakenForGoneBecauseTheShellIsBusy) {
  icon_.Visible(true);
  refused_ = {NIM_ADD, NIM_MODIFY};
  isBusy_ = true;
  messages_.clear();
  EXPECT_TRUE(area_.IsAvailable());
  EXPECT_THAT(messages_, ElementsAre(DWORD{NIM_MODIFY}));
}

TEST_F(ShellArea, AnIconThatTheShellHasTakenAfterAllIsThere) {
  refused_ = {NIM_ADD, NIM_MODIFY};
  icon_.Visible(true);
  refused_ = {NIM_ADD};  // it has it now
  EXPECT_TRUE(area_.IsAvailable());
}

TEST_F(ShellArea, AnIconThatIsNoLongerWantedIsNotMissed) {
  refused_ = {NIM_ADD, NIM_MODIFY};
  icon_.Visible(true);
  icon_.Visible(false);
  messages_.clear();
  EXPECT_TRUE(area_.IsAvailable());
  EXPECT_THAT(messages_, IsEmpty());
}

TEST_F(ShellArea, AShellThatStartsAnewMayBeTooBusyAtFirst) {
  int appeared = 0;
  area_.Appeared = [&] { ++appeared; };
  icon_.Visible(true);
  refused_ = {NIM_ADD, NIM_MODIFY};
  EXPECT_FALSE(Handle(::RegisterWindowMessageW(L"TaskbarCreated"), 0, 0));
  EXPECT_EQ(appeared, 0);
  EXPECT_FALSE(area_.IsAvailable());
  refused_.clear();
  EXPECT_TRUE(area_.IsAvailable());
}

// --- The sound.

class WindowsSound : public ::testing::Test {
 protected:
  WindowsSound()
      : player_([this](const std::string& line) { calls_.push_back("complain " + line); },
                {[this](const std::wstring& path, unsigned long flags) {
                   calls_.push_back("sound " + Narrow(path) + " " + std::to_string(flags));
                   return works_;
                 },
                 [this](const std::wstring& command) {
                   calls_.push_back(Narrow(command));
                   return works_ && Narrow(command) != unknown_;
                 },
                 [this](const std::wstring& name) {
                   calls_.push_back("mode of " + Narrow(name));
                   return hasStopped_;
                 },
                 [this](unsigned kind) { calls_.push_back("beep " + std::to_string(kind)); }}) {}

  std::vector<std::string> Calls() { return std::exchange(calls_, {}); }

  std::vector<std::string> calls_;
  bool works_ = true;
  std::string unknown_;  // a command that fails
  bool hasStopped_ = false;
  WindowsSoundPlayer player_;
};

TEST_F(WindowsSound, OfAWaveFileIsPlayedByItsNameInTheBackground) {
  player_.Play("C:\\alarms\\Zoë.WAV", SoundKind::kWave);
  EXPECT_THAT(Calls(), ElementsAre("sound C:\\alarms\\Zoë.WAV 131073"));  // SND_FILENAME, SND_ASYNC
}

TEST_F(WindowsSound, OfAnotherFileGoesThroughTheControl) {
  player_.Play("C:\\alarms\\a b.mp3", SoundKind::kOther);
  EXPECT_THAT(Calls(),
              ElementsAre("sound  0", "close tidewarden", "stop tidewarden",
                          "open \"C:\\alarms\\a b.mp3\" alias tidewarden", "play tidewarden"));
  player_.Rest();
  EXPECT_THAT(Calls(), ElementsAre("mode of tidewarden"));
  hasStopped_ = true;
  player_.Rest();
  EXPECT_THAT(Calls(), ElementsAre("mode of tidewarden", "close tidewarden"));
  player_.Rest();
  EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(WindowsSound, OfAnEndingThatTheControlDoesNotKnowIsTriedWithItsGeneralPlayer) {
  unknown_ = "open \"C:\\a.ogg\" alias tidewarden";
  player_.Play("C:\\a.ogg", SoundKind::kOther);
  EXPECT_THAT(Calls(),
              ElementsAre("sound  0", "close tidewarden", "stop tidewarden", unknown_,
                          "open \"C:\\a.ogg\" type mpegvideo alias tidewarden", "play tidewarden"));
  player_.Stop();
  EXPECT_THAT(Calls(), ElementsAre("sound  0", "close tidewarden"));
}

TEST_F(WindowsSound, IsOfferedForWhatEveryWindowsPlays) {
  EXPECT_THAT(player_.Endings(), ElementsAre("wav", "mp3", "wma", "mid"));
}

TEST_F(WindowsSound, OfOneKindEndsTheOther) {
  player_.Play("C:\\a.mp3", SoundKind::kOther);
  static_cast<void>(Calls());
  player_.Play("C:\\a.wav", SoundKind::kWave);
  EXPECT_THAT(Calls(), ElementsAre("close tidewarden", "sound C:\\a.wav 131073"));
  player_.Stop();
  EXPECT_THAT(Calls(), ElementsAre("sound  0"));
}

TEST_F(WindowsSound, ThatCannotBePlayedIsABeepWithAReason) {
  works_ = false;
  player_.Play("C:\\a.wav", SoundKind::kWave);
  EXPECT_THAT(Calls(), ElementsAre("sound C:\\a.wav 131073", "complain C:\\a.wav cannot be played",
                                   "beep 48"));
  player_.Play("C:\\a.ogg", SoundKind::kOther);
  EXPECT_THAT(Calls(), ElementsAre("sound  0", "close tidewarden", "stop tidewarden",
                                   "open \"C:\\a.ogg\" alias tidewarden",
                                   "open \"C:\\a.ogg\" type mpegvideo alias tidewarden",
                                   "complain C:\\a.ogg cannot be played", "beep 48"));
  player_.Beep("no file");
  EXPECT_THAT(Calls(), ElementsAre("complain no file", "beep 48"));
}

TEST_F(WindowsSound, ThatCanBeOpenedButNotPlayedIsLetGo) {
  unknown_ = "play tidewarden";
  player_.Play("C:\\a.mp3", SoundKind::kOther);
  EXPECT_THAT(Calls(),
              ElementsAre("sound  0", "close tidewarden", "stop tidewarden",
                          "open \"C:\\a.mp3\" alias tidewarden", "play tidewarden",
                          "close tidewarden", "complain C:\\a.mp3 cannot be played", "beep 48"));
  player_.Rest();
  player_.Stop();
  EXPECT_THAT(Calls(), ElementsAre("sound  0")) << "nothing is open";
}

TEST(SystemSound, TheControlTellsWhatItCannotDo) {
  const SoundCalls system = SystemSoundCalls();
  EXPECT_FALSE(system.control(L"play nothingofthisname"));
  EXPECT_FALSE(system.control(L"open \"C:\\nowhere\\a.mp3\" alias nothing"));
  EXPECT_FALSE(system.hasStopped(L"nothingofthisname"));
}

// A tenth of a second of silence, in one channel of 8000 bytes per second.
std::string ShortWave() {
  const std::string silence(800, '\x80');
  std::string wave = "RIFF";
  const auto number = [&wave](std::size_t value, int bytes) {
    for (; bytes > 0; --bytes, value >>= 8U) wave += static_cast<char>(value & 0xFFU);
  };
  number(36 + silence.size(), 4);
  wave += "WAVEfmt ";
  number(16, 4);
  number(1, 2);     // plain numbers
  number(1, 2);     // channels
  number(8000, 4);  // per second: samples,
  number(8000, 4);  // and bytes
  number(1, 2);     // bytes in one sample,
  number(8, 2);     // and bits
  wave += "data";
  number(silence.size(), 4);
  return wave + silence;
}

TEST(SystemSound, TheControlHasAFileOpenUntilItIsClosed) {
  const TemporaryFolder folder;
  folder.Write("short.wav", ShortWave());
  const SoundCalls system = SystemSoundCalls();
  const std::wstring path = WidePath(folder / "short.wav");
  ASSERT_TRUE(system.control(L"open \"" + path + L"\" alias short"));
  EXPECT_TRUE(system.hasStopped(L"short")) << "it has not begun";
  // Also without a sound card, where it comes to its end at once.
  EXPECT_TRUE(system.control(L"play short"));
  for (int i = 0; i < 100 && !system.hasStopped(L"short"); ++i) ::Sleep(50);
  EXPECT_TRUE(system.hasStopped(L"short"));
  EXPECT_EQ(::DeleteFileW(path.c_str()), 0);
  EXPECT_TRUE(system.control(L"close short"));
  EXPECT_FALSE(system.hasStopped(L"short")) << "there is none of this name";
  EXPECT_NE(::DeleteFileW(path.c_str()), 0);
}

TEST(SystemSound, IsLetGoAtItsEnd) {
  const TemporaryFolder folder;
  folder.Write("short.wav", ShortWave());
  std::vector<std::string> complaints;
  WindowsSoundPlayer player([&](const std::string& line) { complaints.push_back(line); });
  player.Play(folder / "short.wav", SoundKind::kOther);
  const auto remove = [&] { return ::DeleteFileW(WidePath(folder / "short.wav").c_str()) != 0; };
  bool isGone = false;
  for (int i = 0; i < 100 && !isGone; ++i) {
    player.Rest();
    isGone = remove();
    if (!isGone) ::Sleep(50);
  }
  EXPECT_TRUE(isGone);
  EXPECT_THAT(complaints, IsEmpty());
}

// --- The shell.

TEST(WindowsShellCalls, AreOneCallOfEveryRequest) {
  std::vector<ShellExecuteArguments> calls;
  WindowsShell shell([&](const ShellExecuteArguments& arguments) { calls.push_back(arguments); });
  shell.Execute(
      RequestFor(ShellTarget::kDocument, "C:\\ProgramData\\prïnt.htm", PathStyle::kWindows));
  shell.Execute(RequestFor(ShellTarget::kWebPage, "https://example.org/", PathStyle::kWindows));
  ASSERT_EQ(calls.size(), 2U);
  EXPECT_EQ(calls[0].file, L"C:\\ProgramData\\prïnt.htm");
  EXPECT_EQ(calls[0].parameters, L"");
  EXPECT_EQ(calls[0].folder, L"C:\\");
  EXPECT_EQ(calls[0].show, SW_SHOWNORMAL);
  EXPECT_EQ(calls[1].file, L"https://example.org/");
}

TEST(WindowsShellCalls, StartAProgramInTheRoot) {
  const TemporaryFolder folder;
  const std::string answer = folder / "Übung.txt";
  ShellRequest request = RequestFor(
      ShellTarget::kProgram, Narrow(WidePath(TIDEWARDEN_TEST_WINDOWS_HELPER)), PathStyle::kWindows);
  request.parameters = "write \"" + answer + "\"";
  WindowsShell().Execute(request);
  // While it is put in its place it exists and may not be read yet.
  WindowsFileSystem files;
  std::string written;
  for (int i = 0; i < 200 && !ReadFile(files, answer, written).ok(); ++i) ::Sleep(50);
  EXPECT_EQ(written, "C:\\");
}

// --- Another copy.

std::string NameOfThisTest() {
  return "Tideward test " + std::to_string(::GetCurrentProcessId());
}

TEST(WindowsInstance, OnlyOneHasTheClaim) {
  WindowsPreviousInstance first(Wide(NameOfThisTest()));
  WindowsPreviousInstance second(Wide(NameOfThisTest()));
  WindowsPreviousInstance other(Wide(NameOfThisTest() + " too"));
  EXPECT_TRUE(first.Claim());
  EXPECT_TRUE(first.Claim());
  EXPECT_FALSE(second.Claim());
  EXPECT_TRUE(other.Claim());
  first.Release();
  EXPECT_TRUE(second.Claim());
  EXPECT_FALSE(first.Claim());
}

TEST(WindowsInstance, TheClaimOfAKilledProcessIsVoid) {
  WindowsPreviousInstance own(Wide(NameOfThisTest()));
  Child child(TIDEWARDEN_TEST_WINDOWS_HELPER, {"claim", NameOfThisTest()});
  ASSERT_EQ(child.ReadLine(), "only");
  EXPECT_FALSE(own.Claim());
  child.Kill();
  EXPECT_TRUE(own.Claim());
  Child second(TIDEWARDEN_TEST_WINDOWS_HELPER, {"claim", NameOfThisTest()});
  EXPECT_EQ(second.ReadLine(), "other");
}

TEST(WindowsInstance, AskingWhetherAnotherHasItClaimsNothing) {
  WindowsPreviousInstance asking(Wide(NameOfThisTest()));
  EXPECT_FALSE(asking.IsClaimedByAnother());
  {
    Child owner(TIDEWARDEN_TEST_WINDOWS_HELPER, {"claim", NameOfThisTest()});
    ASSERT_EQ(owner.ReadLine(), "only") << "whoever has asked holds nothing";
    EXPECT_TRUE(asking.IsClaimedByAnother());
    EXPECT_FALSE(asking.Claim()) << "the owner has it still";
    owner.Kill();
  }
  EXPECT_FALSE(asking.IsClaimedByAnother());
  EXPECT_TRUE(asking.Claim());
  EXPECT_FALSE(asking.IsClaimedByAnother()) << "the claim is its own";
}

TEST(WindowsInstance, EachSettingsFileHasItsOwn) {
  const auto files = MakeSystemFiles();
  const TemporaryFolder folder;
  const auto one = MakePreviousInstance(*files, folder / "one.ini");
  const auto same = MakePreviousInstance(*files, folder.path() + "/sub/../ONE.INI");
  const auto other = MakePreviousInstance(*files, folder / "other.ini");
  EXPECT_TRUE(one->Claim());
  EXPECT_FALSE(same->Claim());
  EXPECT_TRUE(other->Claim());
}

// --- The folders and the start.

// What this process finds in place of the user's part of the registry.
class OtherRegistry {
 public:
  OtherRegistry() {
    EXPECT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, root_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                                nullptr, &key_, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(::RegOverridePredefKey(HKEY_CURRENT_USER, key_), ERROR_SUCCESS);
  }
  OtherRegistry(const OtherRegistry&) = delete;
  OtherRegistry& operator=(const OtherRegistry&) = delete;
  ~OtherRegistry() {
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegCloseKey(key_);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, root_.c_str());
  }

  // Where the user's roaming application data are.
  void PutData(const std::string& folder) const {
    const std::wstring text = Wide(folder);
    EXPECT_EQ(::RegSetKeyValueW(
                  HKEY_CURRENT_USER,
                  L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
                  L"AppData", REG_SZ, text.c_str(), static_cast<DWORD>(2 * (text.size() + 1))),
              ERROR_SUCCESS);
  }

 private:
  std::wstring root_ = L"Software\\Tideward test " + std::to_wstring(::GetCurrentProcessId());
  HKEY key_ = nullptr;
};

TEST(WindowsFolders, OfTheUserAreMadeWhenTheyAreMissing) {
  const TemporaryFolder folder;
  folder.Write("file", "");
  const std::string data = Narrow(WidePath(folder.path())) + "\\data";
  const OtherRegistry registry;
  registry.PutData(data);
  EXPECT_EQ(SystemFolders().userData, data + "\\Tideward");
  EXPECT_TRUE(folder.Exists("data"));
  // Where they cannot be made, the root of a drive is no place for them.
  registry.PutData(Narrow(WidePath(folder / "file")) + "\\below");
  const ProgramFolders folders = SystemFolders();
  EXPECT_EQ(folders.userData, folders.program + "\\Tideward");
}

TEST(WindowsFolders, HaveBackslashesAndNoneAtTheEnd) {
  const ProgramFolders folders = SystemFolders();
  EXPECT_EQ(folders.style, PathStyle::kWindows);
  EXPECT_EQ(folders.program.find('/'), std::string::npos);
  EXPECT_NE(folders.program.back(), '\\');
  EXPECT_TRUE(std::filesystem::exists(WidePath(folders.program) + L"\\windows_ports_test.exe"));
  EXPECT_THAT(folders.userData, EndsWith("\\Tideward"));
  EXPECT_TRUE(std::filesystem::is_directory(FolderOf(WidePath(folders.userData))));
  EXPECT_EQ(ReminderProgram(), folders.program + "\\tidewarden.exe");
  EXPECT_TRUE(std::filesystem::is_directory(WidePath(GetCommonDataFolder())));
  EXPECT_THAT(folders.userData, EndsWith("\\AppData\\Roaming\\Tideward"));
  EXPECT_THAT(GetLocalDataFolder(), EndsWith("\\AppData\\Local\\Tideward"));
}

TEST(WindowsStart, TakesNoLibraryFromTheCurrentFolder) {
  const TemporaryFolder folder;
  std::filesystem::copy_file(WidePath(TIDEWARDEN_TEST_WINDOWS_PROBE),
                             WidePath(folder / "tw_probe.dll"));
  const auto load = [&](const std::string& command, const std::string& name) {
    return Child(TIDEWARDEN_TEST_WINDOWS_HELPER, {command, name}, folder.path()).ReadLine();
  };
  EXPECT_EQ(load("any-library", "tw_probe.dll"), "loaded");
  EXPECT_EQ(load("library", "tw_probe.dll"), "refused");
  EXPECT_EQ(load("library", "version.dll"), "loaded") << "the system's own";
}

TEST(WindowsStart, LetsNoEmptyDriveAskForItsMedium) {
  const UINT before = ::SetErrorMode(SEM_NOGPFAULTERRORBOX);
  PrepareProgram();
  const UINT after = ::SetErrorMode(before);
  EXPECT_EQ(after, UINT{SEM_NOGPFAULTERRORBOX | SEM_FAILCRITICALERRORS});
}

}  // namespace
}  // namespace tidewarden::test
