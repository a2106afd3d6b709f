// The claim to be the only copy, with real processes.
#include "platform/posix/posix_previous_instance.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/posix/posix_file_system.h"
#include "platform/system.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden {
namespace {

namespace fs = std::filesystem;
using test::InChild;
using test::InUnprivilegedChild;
using test::ModeOf;
using test::NamesIn;
using test::ScopedVariable;
using test::StartChild;
using test::TemporaryFolder;
using test::WaitFor;
using ::testing::ElementsAre;

// A pipe whose ends close when the object goes.
class Pipe {
 public:
  Pipe() {
    if (::pipe2(ends_.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    CloseReading();
    CloseWriting();
  }

  void CloseReading() { Close(ends_[0]); }
  void CloseWriting() { Close(ends_[1]); }
  void Send(char letter) const {
    if (::write(ends_[1], &letter, 1) != 1) ::_exit(1);
  }
  // The next letter; 0 when every writing end is closed.
  [[nodiscard]] char Receive() const {
    char letter = 0;
    while (::read(ends_[0], &letter, 1) < 0) {
    }
    return letter;
  }

 private:
  static void Close(int& descriptor) {
    if (descriptor >= 0) ::close(descriptor);
    descriptor = -1;
  }
  std::array<int, 2> ends_{-1, -1};
};

TEST(PreviousInstance, OneClaimKeepsEveryOtherOutUntilItIsReleased) {
  const TemporaryFolder folder;
  PosixPreviousInstance first(folder / "lock");
  PosixPreviousInstance second(folder / "lock");
  EXPECT_TRUE(first.Claim());
  EXPECT_TRUE(first.Claim()) << "it is still the only one";
  EXPECT_FALSE(second.Claim());
  EXPECT_FALSE(second.Claim());
  EXPECT_EQ(InChild([&]() -> std::string {
              return PosixPreviousInstance(folder / "lock").Claim() ? "only" : "second";
            }),
            "second");
  second.Release();
  EXPECT_FALSE(second.Claim()) << "only its owner gives a claim up";
  first.Release();
  EXPECT_TRUE(second.Claim());
  EXPECT_FALSE(first.Claim());
}

TEST(PreviousInstance, AClaimEndsWithItsObject) {
  const TemporaryFolder folder;
  PosixPreviousInstance next(folder / "lock");
  {
    PosixPreviousInstance owner(folder / "lock");
    EXPECT_TRUE(owner.Claim());
    EXPECT_FALSE(next.Claim());
  }
  EXPECT_TRUE(next.Claim());
}

TEST(PreviousInstance, AskingWhetherAnotherHasItClaimsNothing) {
  const TemporaryFolder folder;
  PosixPreviousInstance owner(folder / "lock");
  PosixPreviousInstance asking(folder / "lock");
  EXPECT_FALSE(asking.IsClaimedByAnother());
  EXPECT_FALSE(folder.Exists("lock")) << "nor does it make the file";
  ASSERT_TRUE(owner.Claim());
  EXPECT_TRUE(asking.IsClaimedByAnother());
  EXPECT_FALSE(owner.IsClaimedByAnother()) << "the claim is its own";
  EXPECT_EQ(InChild([&]() -> std::string {
              return PosixPreviousInstance(folder / "lock").IsClaimedByAnother() ? "yes" : "no";
            }),
            "yes");
  EXPECT_FALSE(asking.Claim()) << "the owner has it still";
  owner.Release();
  EXPECT_FALSE(asking.IsClaimedByAnother());
  EXPECT_TRUE(owner.Claim());
}

TEST(PreviousInstance, WhoeverClaimsWhileOthersAskIsNotRefused) {
  constexpr int kQuestions = 20000;
  const TemporaryFolder folder;
  const pid_t other = StartChild([&] {
    PosixPreviousInstance asking(folder / "lock");
    for (int i = 0; i < kQuestions; ++i) static_cast<void>(asking.IsClaimedByAnother());
  });
  PosixPreviousInstance owner(folder / "lock");
  int refused = 0;
  int status = 0;
  while (::waitpid(other, &status, WNOHANG) == 0) {
    if (!owner.Claim()) ++refused;
    owner.Release();
  }
  EXPECT_EQ(status, 0);
  EXPECT_EQ(refused, 0);
}

TEST(PreviousInstance, OfManyThatClaimAtOnceExactlyOneIsTheOwner) {
  constexpr int kRounds = 200;
  constexpr int kCopies = 4;
  const TemporaryFolder folder;
  for (int round = 0; round < kRounds; ++round) {
    // In every second round the file is there from the round before.
    const std::string path = folder / ("lock" + std::to_string(round / 2));
    Pipe start;
    Pipe answers;
    Pipe end;
    std::vector<pid_t> copies;
    for (int i = 0; i < kCopies; ++i) {
      copies.push_back(StartChild([&] {
        start.CloseWriting();
        end.CloseWriting();
        static_cast<void>(start.Receive());
        PosixPreviousInstance instance(path);
        answers.Send(instance.Claim() ? 'y' : 'n');
        static_cast<void>(end.Receive());
      }));
    }
    start.CloseWriting();
    std::string heard;
    for (int i = 0; i < kCopies; ++i) heard += answers.Receive();
    end.CloseWriting();
    for (const pid_t copy : copies) EXPECT_EQ(WaitFor(copy), 0);
    ASSERT_EQ(std::count(heard.begin(), heard.end(), 'y'), 1) << "round " << round << ": " << heard;
    ASSERT_EQ(std::count(heard.begin(), heard.end(), 'n'), kCopies - 1) << heard;
  }
}

TEST(PreviousInstance, AKilledOwnerFreesItAtOnce) {
  const TemporaryFolder folder;
  PosixPreviousInstance next(folder / "lock");
  for (int round = 0; round < 20; ++round) {
    Pipe answers;
    const pid_t owner = StartChild([&] {
      PosixPreviousInstance instance(folder / "lock");
      answers.Send(instance.Claim() ? 'y' : 'n');
      while (true) ::pause();
    });
    ASSERT_EQ(answers.Receive(), 'y');
    EXPECT_FALSE(next.Claim());
    ::kill(owner, SIGKILL);
    EXPECT_EQ(WTERMSIG(WaitFor(owner)), SIGKILL);
    EXPECT_TRUE(next.Claim());
    next.Release();
  }
}

// A running program that this process has started.
pid_t StartProgram() {
  return StartChild([] { ::execl("/bin/sleep", "sleep", "60", static_cast<char*>(nullptr)); });
}

bool IsProgram(pid_t process) {
  std::error_code error;
  const fs::path own = fs::read_symlink("/proc/self/exe");
  for (int i = 0; i < 1000; ++i) {
    const fs::path path = fs::read_symlink("/proc/" + std::to_string(process) + "/exe", error);
    if (!error && path != own) return true;
    ::usleep(10'000);
  }
  return false;
}

TEST(PreviousInstance, AProgramThatTheOwnerStartedDoesNotHoldIt) {
  const TemporaryFolder folder;
  PosixPreviousInstance owner(folder / "lock");
  PosixPreviousInstance next(folder / "lock");
  ASSERT_TRUE(owner.Claim());
  const pid_t program = StartProgram();
  ASSERT_TRUE(IsProgram(program));
  EXPECT_FALSE(next.Claim());
  owner.Release();
  EXPECT_TRUE(next.Claim());
  ::kill(program, SIGKILL);
  EXPECT_EQ(WTERMSIG(WaitFor(program)), SIGKILL) << "it was running until now";
}

TEST(PreviousInstance, WhereNothingCanBeClaimedEveryCopyIsTheOnlyOne) {
  const TemporaryFolder folder;
  folder.MakeFolder("folder");
  ASSERT_EQ(::symlink((folder / "target").c_str(), (folder / "link").c_str()), 0);
  for (const std::string& path : std::vector<std::string>{
           folder / "nowhere/lock", folder / "folder", folder / "link", std::string()}) {
    SCOPED_TRACE(path);
    PosixPreviousInstance first(path);
    PosixPreviousInstance second(path);
    EXPECT_TRUE(first.Claim());
    EXPECT_TRUE(second.Claim());
    EXPECT_FALSE(PosixPreviousInstance(path).IsClaimedByAnother());
    first.Release();
  }
  EXPECT_FALSE(folder.Exists("target")) << "a link is not followed";
  EXPECT_EQ(InUnprivilegedChild(folder.path(),
                                [&]() -> std::string {
                                  ::chmod((folder / "folder").c_str(), 0500);
                                  PosixPreviousInstance first(folder / "folder/lock");
                                  PosixPreviousInstance second(folder / "folder/lock");
                                  return first.Claim() && second.Claim() ? "both" : "not both";
                                }),
            "both");
}

TEST(PreviousInstance, TheFileIsTheUsersOwnAndStays) {
  const TemporaryFolder folder;
  {
    PosixPreviousInstance owner(folder / "lock");
    EXPECT_TRUE(owner.Claim());
    EXPECT_EQ(ModeOf(folder / "lock") & 0777, 0600);
  }
  EXPECT_TRUE(folder.Exists("lock"));
}

TEST(PreviousInstance, TheFileHasTheStickyBitSoThatItIsNotCleanedUp) {
  const TemporaryFolder folder;
  const auto isSticky = [&] {
    struct stat file {};
    return ::stat((folder / "lock").c_str(), &file) == 0 && (file.st_mode & S_ISVTX) != 0;
  };
  {
    PosixPreviousInstance owner(folder / "lock");
    EXPECT_TRUE(owner.Claim());
    EXPECT_TRUE(isSticky());
  }
  // An older version has left one without.
  ASSERT_EQ(::chmod((folder / "lock").c_str(), 0600), 0);
  ASSERT_FALSE(isSticky());
  PosixPreviousInstance owner(folder / "lock");
  EXPECT_TRUE(owner.Claim());
  EXPECT_TRUE(isSticky());
}

TEST(PreviousInstance, AClaimInVainAndAQuestionLeaveNothingOpen) {
  const TemporaryFolder folder;
  PosixPreviousInstance owner(folder / "lock");
  ASSERT_TRUE(owner.Claim());
  const std::size_t before = NamesIn("/proc/self/fd").size();
  PosixPreviousInstance second(folder / "lock");
  for (int i = 0; i < 50; ++i) {
    EXPECT_FALSE(second.Claim());
    EXPECT_TRUE(second.IsClaimedByAnother());
  }
  EXPECT_EQ(NamesIn("/proc/self/fd").size(), before);
}

// ---- Where the claim lies.

TEST(MakePreviousInstance, OtherSettingsAreAnotherProgram) {
  const TemporaryFolder folder;
  const ScopedVariable runtime("XDG_RUNTIME_DIR", folder.path().c_str());
  const ScopedVariable config("XDG_CONFIG_HOME", (folder / "config").c_str());
  PosixFileSystem files;
  const auto own = MakePreviousInstance(files, "");
  const auto a = MakePreviousInstance(files, folder / "a.ini");
  const auto b = MakePreviousInstance(files, folder / "new/b.ini");
  EXPECT_TRUE(own->Claim());
  EXPECT_TRUE(a->Claim());
  EXPECT_TRUE(b->Claim());
  for (const std::string& settings :
       std::vector<std::string>{"", folder / "a.ini", folder / "new/b.ini"}) {
    EXPECT_FALSE(MakePreviousInstance(files, settings)->Claim()) << settings;
  }
  a->Release();
  EXPECT_FALSE(MakePreviousInstance(files, "")->Claim());
  EXPECT_TRUE(MakePreviousInstance(files, folder / "a.ini")->Claim());
  EXPECT_FALSE(MakePreviousInstance(files, folder / "new/b.ini")->Claim());
  EXPECT_FALSE(folder.Exists("a.ini")) << "the settings are not the claim's";
}

TEST(MakePreviousInstance, TheUsersOwnLiesInTheSessionsFolder) {
  const TemporaryFolder folder;
  folder.MakeFolder("run", 0700);
  const ScopedVariable runtime("XDG_RUNTIME_DIR", (folder / "run").c_str());
  const ScopedVariable config("XDG_CONFIG_HOME", (folder / "config").c_str());
  PosixFileSystem files;
  const auto own = MakePreviousInstance(files, "");
  EXPECT_TRUE(own->Claim());
  EXPECT_EQ(NamesIn(folder / "run").size(), 1U);
  EXPECT_FALSE(folder.Exists("config"));
}

TEST(MakePreviousInstance, WithoutASessionsFolderItLiesBesideTheSettings) {
  for (const char* const unusable :
       {static_cast<const char*>(nullptr), "", "relative", "/nowhere"}) {
    const TemporaryFolder folder;
    const ScopedVariable runtime("XDG_RUNTIME_DIR", unusable);
    const ScopedVariable config("XDG_CONFIG_HOME", (folder / "config").c_str());
    PosixFileSystem files;
    const auto own = MakePreviousInstance(files, "");
    const auto second = MakePreviousInstance(files, "");
    EXPECT_TRUE(own->Claim());
    EXPECT_FALSE(second->Claim());
    EXPECT_THAT(NamesIn(folder / "config/Tideward"), ElementsAre("settings.ini.instance"));
    EXPECT_EQ(ModeOf(folder / "config/Tideward"), 0700);
    EXPECT_EQ(ModeOf(folder / "config/Tideward/settings.ini.instance") & 0777, 0600);
  }
}

}  // namespace
}  // namespace tidewarden
