// The editor's real save on real files, in a process that is killed before every system call and
// in which every system call fails in every way: after a restart no event is missing, "saved" was
// only said when it was, and nothing is left lying about.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#include "core/ini_settings_store.h"
#include "editor/edit_session.h"
#include "editor/events_writer.h"
#include "platform/memory/memory_ports.h"
#include "platform/posix/posix_file_system.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/layouts.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden {
namespace {

using test::BytesOf;
using test::Fault;
using test::InUnprivilegedChild;
using test::NamesIn;
using test::StartChild;
using test::TemporaryFolder;
using test::WaitFor;
using test::WriteBytes;

namespace fs = std::filesystem;

// Thousands of files are made and renamed here, which a disk in memory does without delay.
class FastFolder {
 public:
  [[nodiscard]] const std::string& path() const { return folder_.path(); }

 private:
  test::ScopedVariable variable_{
      "TMPDIR", ::access("/dev/shm", W_OK | X_OK) == 0 ? "/dev/shm" : std::getenv("TMPDIR")};
  TemporaryFolder folder_;
};

enum class Deed { kAdd, kEdit, kDelete };
enum class Place { kPlain, kBehindLink, kReadOnlyFolder };

constexpr int kSaved = 10;
constexpr int kToldOff = 11;  // not saved, and the user was told
constexpr int kSilent = 12;   // not saved, without a word

// How many processes were killed, how many calls failed, and what went wrong.
struct Tally {
  int kills = 0;
  int errors = 0;
  int saved = 0;
  int notSaved = 0;
  int torn = 0;  // files that a restart had to put right
  std::vector<std::string> complaints;

  void Complain(const std::string& what) {
    if (complaints.size() < 20) complaints.push_back(what);
  }
};

// One folder with an events file, its backups and settings, and one deed of a user.
class Trial {
 public:
  Trial(const std::string& root, Place place, Deed deed, int levels, std::string old)
      : root_(root), place_(place), deed_(deed), levels_(levels), old_(std::move(old)) {
    for (const char* const folder : {"events", "real", "settings", "rescue"}) {
      fs::create_directories(root_ + "/" + folder);
    }
    SetUp();
    IniSettingsStore settings(files_, SettingsPath());
    static_cast<void>(settings.Write("Options", "LevelsOfBackup", std::to_string(levels_)).ok());
    // Without a fault: what the file holds afterwards, and how many calls that takes.
    const int outcome = RunChild(Fault());
    saves_ = outcome == kSaved;
    new_ = BytesOf(Path());
    const pid_t child = StartChild([&] {
      SetUp();
      test::Inject(Fault());
      static_cast<void>(DoDeed(deed_));
      ::_exit(std::min(test::CallsMade(), 250));
    });
    const int status = WaitFor(child);
    calls_ = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
  }

  [[nodiscard]] bool saves() const { return saves_ && new_ != old_ && calls_ > 20 && calls_ < 250; }
  [[nodiscard]] int calls() const { return calls_; }

  void Run(const Fault& fault, Tally& tally) {
    SetUp();
    const int outcome = RunChild(fault);
    const std::string name = Name(fault);
    const bool killed = outcome < 0;
    const std::string content = BytesOf(Path());
    const bool isOld = content == old_;
    const bool isNew = content == new_;
    // Only a file that is written in place may be torn, and then the old bytes are elsewhere.
    const bool rescued = place_ == Place::kReadOnlyFolder && BytesOf(NotesOfSave().before) == old_;
    if (!isOld && !isNew) ++tally.torn;
    if (!isOld && !isNew && !rescued) {
      tally.Complain(name + ": the file is neither old nor new: " + content);
    }
    if (outcome == kSaved) {
      ++tally.saved;
      if (!isNew) tally.Complain(name + ": said to be saved, but it is not");
    } else if (!killed) {
      ++tally.notSaved;
      if (!isOld && !rescued) tally.Complain(name + ": not saved, but the file has changed");
      if (levels_ == 0 && outcome != kToldOff) tally.Complain(name + ": not saved without a word");
    }
    if (killed && fault.killBefore == 0) tally.Complain(name + ": the process has crashed");
    CheckBackups(name, fault, tally);
    CheckAfterRestart(name, tally);
    ++(fault.killBefore != 0 ? tally.kills : tally.errors);
  }

  // Killed at this call, and at every call of the next start with another save, when the first kill
  // has left something to settle that no other has left. False when nothing was left to be killed.
  bool RunTwice(const Fault& first, Tally& tally) {
    SetUp();
    if (RunChild(first) >= 0) return false;
    const std::string file = BytesOf(Path());
    const std::string before = BytesOf(NotesOfSave().before);
    const std::string after = BytesOf(NotesOfSave().after);
    if (before != old_ || after == "(unreadable)" || !left_.insert(file).second) return true;
    if (file != old_ && file != new_) ++tally.torn;
    bool survived = false;
    for (Fault second{1}; !survived; ++second.killBefore) {
      WriteBytes(Path(), file);
      for (const std::string& name : NamesIn(root_ + "/rescue")) {
        fs::remove(root_ + "/rescue/" + name);
      }
      WriteBytes(NotesOfSave().before, before);
      WriteBytes(NotesOfSave().after, after);
      second.atMost = first.atMost;
      const int outcome = RunChild(second, Deed::kAdd, "Second one");
      survived = outcome >= 0;
      ++tally.kills;
      const std::string name =
          Name(first) + ", then before call " + std::to_string(second.killBefore);
      CheckAfterTwoKills(name, survived && outcome != kSaved, survived, tally);
    }
    return true;
  }

 private:
  [[nodiscard]] std::string Path() const { return root_ + "/events/dates.txt"; }
  [[nodiscard]] std::string SettingsPath() const { return root_ + "/settings/settings.ini"; }

  [[nodiscard]] SaveNotes NotesOfSave() const { return SaveNotesOf(root_ + "/rescue", Path()); }

  [[nodiscard]] static std::string OldBackup(int number) {
    return "07.0" + std::to_string(number) + ",Older " + std::to_string(number) + ",1,yearly\r\n";
  }

  void SetUp() {
    const std::string events = root_ + "/events";
    ::chmod(events.c_str(), 0700);
    for (const std::string folder : {"events", "real", "rescue"}) {
      for (const std::string& name : NamesIn(root_ + "/" + folder)) {
        fs::remove(root_ + "/" + folder + "/" + name);
      }
    }
    if (place_ == Place::kBehindLink) {
      WriteBytes(root_ + "/real/dates.txt", old_);
      fs::create_symlink("../real/dates.txt", Path());
    } else {
      WriteBytes(Path(), old_);
    }
    for (int k = 1; k <= levels_; ++k) WriteBytes(BackupPath(Path(), k), OldBackup(k));
    if (place_ == Place::kReadOnlyFolder) ::chmod(events.c_str(), 0500);
  }

  // Opens the editor, adds, edits or deletes an event, and tells how that ended.
  int DoDeed(Deed deed, const char* title = "Christmas Day") {
    IniSettingsStore settings(files_, SettingsPath());
    MemoryClock clock;
    MemoryMessageBox messages;
    messages.answer = MessageAnswer::kYes;
    EditSession session({settings, files_, clock, messages}, {}, test::MonthFirst(),
                        {Path(), root_ + "/rescue", 1, 0, 0});
    static_cast<void>(session.Load({{0, 0, 28800, 16200}}));
    session.Shown();
    if (deed == Deed::kAdd) {
      session.Add();
      session.EventInputTyped(title);
      session.DateInputTyped("12.25");
    } else {
      const auto& rows = session.List1();
      const auto found = std::find_if(rows.begin(), rows.end(), [](const EventRow& row) {
        return row.text.find("Summer") != std::string::npos;
      });
      // The file could not be read, as the user has been told.
      if (found == rows.end()) return kToldOff;
      session.RowSelected(static_cast<int>(found - rows.begin()));
      session.Edit();
      session.EventInputTyped("Summer begins");
    }
    messages.boxes.clear();
    if (deed == Deed::kDelete) {
      session.Delete();
    } else {
      session.Save();
    }
    if (!session.isEntryUnderWay()) return kSaved;
    const std::size_t questions = deed == Deed::kDelete ? 1 : 0;
    return messages.boxes.size() > questions ? kToldOff : kSilent;
  }

  // The exit code of the process that does the deed, or a negative number when it was killed.
  int RunChild(const Fault& fault) { return RunChild(fault, deed_); }
  int RunChild(const Fault& fault, Deed deed, const char* title = "Christmas Day") {
    const int status = WaitFor(StartChild([&] {
      test::Inject(fault);
      const int outcome = DoDeed(deed, title);
      ::_exit(outcome);
    }));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  // A killed process leaves every backup but the oldest, and none of them torn.
  void CheckBackups(const std::string& name, const Fault& fault, Tally& tally) {
    std::vector<std::string> held;
    for (int k = 1; k <= kMostBackups + 1; ++k) {
      const std::string content = BytesOf(BackupPath(Path(), k));
      if (content == "(unreadable)") continue;
      held.push_back(content);
      bool known = content == old_;
      for (int i = 1; i <= levels_; ++i) known = known || content == OldBackup(i);
      if (!known || k > levels_) tally.Complain(name + ": backup " + std::to_string(k) + " is odd");
    }
    if (fault.killBefore == 0) return;
    for (int k = 1; k < levels_; ++k) {
      if (std::find(held.begin(), held.end(), OldBackup(k)) == held.end()) {
        tally.Complain(name + ": backup " + std::to_string(k) + " is gone");
      }
    }
  }

  void CheckAfterTwoKills(const std::string& name, bool failed, bool saved, Tally& tally) {
    if (failed) tally.Complain(name + ": the second save failed");
    MemoryClock clock;
    MemoryMessageBox messages;
    IniSettingsStore settings(files_, SettingsPath());
    EditSession session({settings, files_, clock, messages}, {}, test::MonthFirst(),
                        {Path(), root_ + "/rescue", 1, 0, 0});
    static_cast<void>(session.Load({{0, 0, 28800, 16200}}));
    session.Shown();
    if (!messages.shown.empty()) tally.Complain(name + ": " + messages.shown[0]);
    const std::string all = BytesOf(Path());
    for (const std::string event : {"New Year", "Café", "Ferns", "Summer", "Second one"}) {
      const bool mayMiss = event == "Second one" && !saved;
      if (!mayMiss && all.find(event) == std::string::npos) {
        tally.Complain(name + ": " + event + " is missing");
      }
    }
    if (all.find('\0') != std::string::npos) tally.Complain(name + ": the file is torn");
  }

  // The program starts again, and one more event is saved.
  void CheckAfterRestart(const std::string& name, Tally& tally) {
    IniSettingsStore settings(files_, SettingsPath());
    MemoryClock clock;
    MemoryMessageBox messages;
    EditSession session({settings, files_, clock, messages}, {}, test::MonthFirst(),
                        {Path(), root_ + "/rescue", 1, 0, 0});
    static_cast<void>(session.Load({{0, 0, 28800, 16200}}));
    session.Shown();
    const std::string content = BytesOf(Path());
    if (content != old_ && content != new_) {
      tally.Complain(name + ": after a restart the file is neither old nor new: " + content);
    }
    session.Add();
    session.EventInputTyped("Last one");
    session.DateInputTyped("12.31");
    session.Save();
    if (session.isEntryUnderWay()) tally.Complain(name + ": after a restart nothing is saved");
    if (!messages.shown.empty()) tally.Complain(name + ": after a restart: " + messages.shown[0]);
    // The day before, and "Summer" in one of its forms unless it was deleted.
    const std::string all = BytesOf(Path());
    for (const std::string event : {"New Year", "Café", "Ferns", "Summer", "Last one"}) {
      const bool deleted = event == "Summer" && deed_ == Deed::kDelete;
      if (!deleted && all.find(event) == std::string::npos) {
        tally.Complain(name + ": after a restart " + event + " is missing");
      }
    }
    for (const std::string folder : {"events", "real", "rescue"}) {
      for (const std::string& entry : NamesIn(root_ + "/" + folder)) {
        const bool isNote = entry.find("-save.txt") != std::string::npos;
        if (entry.front() == '.' || isNote) {
          tally.Complain(name + ": " + entry + " stays in " + folder);
        }
      }
    }
  }

  [[nodiscard]] std::string Name(const Fault& fault) const {
    const std::string what = fault.killBefore != 0
                                 ? "killed before call " + std::to_string(fault.killBefore)
                                 : "error " + std::to_string(fault.error) + " at call " +
                                       std::to_string(fault.failAt) +
                                       (fault.lasting ? " and after" : "");
    const char* const deeds[] = {"add", "edit", "delete"};
    const char* const places[] = {"", " behind a link", " in a read-only folder"};
    return std::string(deeds[static_cast<int>(deed_)]) + places[static_cast<int>(place_)] +
           " with " + std::to_string(levels_) + " backups, " + what;
  }

  PosixFileSystem files_;
  std::string root_;
  Place place_;
  Deed deed_;
  int levels_;
  std::string old_;
  std::string new_;
  bool saves_ = false;
  int calls_ = 0;
  std::set<std::string> left_;  // the files that first kills have left
};

const std::string kPlainOld =
    "01.01,New Year,1,yearly\r\n04.05,Café,7,yearly\r\n06.01,Ferns,3,20~2014\r\n"
    "06.21,Summer,1,yearly\r\n";
// Holds what a save drops: a hidden mark and a line that is no event.
const std::string kUntidyOld =
    "01.01,New Year,1,yearly*\r\nsee also the other file\r\n04.05,Café,7,yearly\r\n"
    "06.01,Ferns,3,20~2014\r\n06.21,Summer,1,yearly\r\n";

void KillEverywhere(Trial& trial, Tally& tally, std::size_t atMost = 1'000'000) {
  // In small pieces there are more calls.
  const int last = atMost < 100 ? 2 * trial.calls() : trial.calls() + 1;
  for (int at = 1; at <= last; ++at) {
    Fault fault;
    fault.killBefore = at;
    fault.atMost = atMost;
    trial.Run(fault, tally);
  }
}

void FailEverywhere(Trial& trial, Tally& tally) {
  for (int at = 1; at <= trial.calls(); ++at) {
    for (const int error : {ENOSPC, EIO, EACCES, EINTR}) trial.Run({0, at, error}, tally);
    // A disk that is full from then on, or broken.
    for (const int error : {ENOSPC, EIO}) trial.Run({0, at, error, true}, tally);
  }
}

std::string Report(const Tally& tally) {
  std::string report;
  for (const std::string& complaint : tally.complaints) report += complaint + "\n";
  return report;
}

void Print(const std::string& what, const Tally& tally) {
  std::cout << what << ": " << tally.kills << " kill points, " << tally.errors << " error points ("
            << tally.saved << " saved, " << tally.notSaved << " not saved), " << tally.torn
            << " torn files put right\n";
}

TEST(SaveFaults, NoKillAndNoErrorLosesAnEvent) {
  const FastFolder folder;
  Tally tally;
  for (const int levels : {0, 1, 3, 8}) {
    for (const Deed deed : {Deed::kAdd, Deed::kEdit, Deed::kDelete}) {
      Trial trial(folder.path(), Place::kPlain, deed, levels, kPlainOld);
      ASSERT_TRUE(trial.saves()) << trial.calls();
      KillEverywhere(trial, tally);
      FailEverywhere(trial, tally);
    }
  }
  EXPECT_EQ(Report(tally), "");
  EXPECT_GE(tally.kills, 400);
  EXPECT_GE(tally.errors, 5000);
  EXPECT_GT(tally.saved, 1000);
  EXPECT_GT(tally.notSaved, 1000);
  Print("0, 1, 3 and 8 backups", tally);
}

TEST(SaveFaults, SmallPiecesBehindALinkAndWithARescueCopyAreNoDifferent) {
  const FastFolder folder;
  Tally tally;
  {
    Trial pieces(folder.path(), Place::kPlain, Deed::kAdd, 1, kPlainOld);
    ASSERT_TRUE(pieces.saves());
    KillEverywhere(pieces, tally, 50);
  }
  for (const int levels : {0, 3}) {
    Trial linked(folder.path(), Place::kBehindLink, Deed::kEdit, levels, kPlainOld);
    ASSERT_TRUE(linked.saves());
    KillEverywhere(linked, tally);
    FailEverywhere(linked, tally);
    Trial untidy(folder.path(), Place::kPlain, Deed::kAdd, levels, kUntidyOld);
    ASSERT_TRUE(untidy.saves());
    KillEverywhere(untidy, tally);
    FailEverywhere(untidy, tally);
  }
  EXPECT_EQ(Report(tally), "");
  Print("in pieces, behind a link, with a rescue copy", tally);
}

TEST(SaveFaults, InAReadOnlyFolderTheOldBytesSurviveSomewhere) {
  const FastFolder folder;
  // A process of its own for each, because none may take longer than a minute.
  enum class Faults { kKills, kKillsInPieces, kErrors };
  for (const int levels : {0, 3}) {
    for (const Faults faults : {Faults::kKills, Faults::kKillsInPieces, Faults::kErrors}) {
      const std::string answer = InUnprivilegedChild(folder.path(), [&]() -> std::string {
        Tally tally;
        Trial trial(folder.path(), Place::kReadOnlyFolder, Deed::kAdd, levels, kPlainOld);
        if (!trial.saves()) return "no save, " + std::to_string(trial.calls()) + " calls";
        if (faults == Faults::kKills) KillEverywhere(trial, tally);
        if (faults == Faults::kKillsInPieces) KillEverywhere(trial, tally, 50);
        if (faults == Faults::kErrors) FailEverywhere(trial, tally);
        if (faults == Faults::kKillsInPieces && tally.torn < 3) return "hardly a file was torn";
        Print("in a read-only folder", tally);
        std::cout.flush();
        return Report(tally);
      });
      EXPECT_EQ(answer, "");
    }
  }
}

TEST(SaveFaults, InAReadOnlyFolderASecondKillLosesNothingEither) {
  const FastFolder folder;
  const std::string answer = InUnprivilegedChild(folder.path(), [&]() -> std::string {
    Tally tally;
    Trial trial(folder.path(), Place::kReadOnlyFolder, Deed::kEdit, 0, kPlainOld);
    if (!trial.saves()) return "no save, " + std::to_string(trial.calls()) + " calls";
    // The pieces are so small that the end of the file, which alone changes, takes several.
    Fault first{1};
    first.atMost = 12;
    while (trial.RunTwice(first, tally)) ++first.killBefore;
    if (tally.torn < 3) return "only " + std::to_string(tally.torn) + " torn files";
    Print("in a read-only folder, killed twice", tally);
    std::cout.flush();
    return Report(tally);
  });
  EXPECT_EQ(answer, "");
}

// The wrappers know every call that the adapter makes.
TEST(SaveFaults, EverySystemCallOfTheAdapterIsWrapped) {
  const std::string command = std::string(TIDEWARDEN_NM) + " -u " + TIDEWARDEN_SYSTEM_LIBRARY;
  FILE* const output = ::popen(command.c_str(), "r");
  ASSERT_NE(output, nullptr);
  std::string symbols;
  char buffer[4096];
  for (std::size_t got = 0; (got = std::fread(buffer, 1, sizeof buffer, output)) > 0;) {
    symbols.append(buffer, got);
  }
  ASSERT_EQ(::pclose(output), 0);
  const std::size_t begin = symbols.find("posix_file_system.cpp.o:");
  ASSERT_NE(begin, std::string::npos);
  const std::string own = symbols.substr(begin, symbols.find("\n\n", begin) - begin);
  // Folders are never listed in a save.
  const std::vector<std::string> harmless{"closedir", "geteuid", "memcmp",  "memcpy",   "memmove",
                                          "memset",   "opendir", "readdir", "strerror", "strlen"};
  int calls = 0;
  for (std::size_t at = own.find(" U "); at != std::string::npos; at = own.find(" U ", at + 1)) {
    const std::string name = own.substr(at + 3, own.find('\n', at) - at - 3);
    if (name.front() == '_') continue;
    const auto& wrapped = test::WrappedCalls();
    const bool known = std::find(wrapped.begin(), wrapped.end(), name) != wrapped.end();
    if (known) ++calls;
    EXPECT_TRUE(known || std::find(harmless.begin(), harmless.end(), name) != harmless.end())
        << name;
  }
  EXPECT_GE(calls, 20);
}

}  // namespace
}  // namespace tidewarden
