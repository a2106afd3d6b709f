// One save by the editor on real files with a fault in it, and what must hold afterwards.
#pragma once

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <utility>
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

namespace tidewarden::test {

namespace fs = std::filesystem;

enum class Deed { kAdd, kEdit, kDelete };
enum class Place {
  kPlain,
  kBehindLink,
  kReadOnlyFolder,
  kLinkInReadOnlyFolder,
  kReadOnlyEverywhere,  // the user's data folder, too
};

inline constexpr int kSaved = 10;
inline constexpr int kToldOff = 11;  // not saved, and the user was told
inline constexpr int kSilent = 12;   // not saved, without a word
inline constexpr int kNoLimit = 13;  // the size of files could not be limited

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
      Inject(Fault());
      static_cast<void>(DoDeed(deed_));
      ::_exit(std::min(CallsMade(), 250));
    });
    const int status = WaitFor(child);
    calls_ = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
  }

  [[nodiscard]] bool saves() const { return saves_ && new_ != old_ && calls_ > 20 && calls_ < 250; }
  [[nodiscard]] int calls() const { return calls_; }

  // True when the process has lived to the end of its deed.
  bool Run(const Fault& fault, Tally& tally) {
    SetUp();
    const int outcome = RunChild(fault);
    Judge(Name(fault), outcome, fault, tally);
    ++(fault.killBefore != 0 ? tally.kills : tally.errors);
    return outcome >= 0;
  }

  // No file may grow beyond `room` bytes: the system itself writes a part and refuses the rest.
  void RunOnFullDisk(std::size_t room, Tally& tally) {
    SetUp();
    const int status = WaitFor(StartChild([&] {
      ::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{room, room};
      const bool limited = ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
      ::_exit(limited ? DoDeed(deed_) : kNoLimit);
    }));
    const int outcome = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    const std::string name = Name(Fault()) + ", room for " + std::to_string(room) + " bytes";
    if (outcome == kNoLimit) tally.Complain(name + ": no limit could be set");
    Judge(name, outcome, Fault(), tally);
    ++tally.errors;
  }

  // Killed at this call, and at every call of the next start with another save, when the first kill
  // has left something to settle that no other has left. True as for Run.
  bool RunTwice(const Fault& first, Tally& tally) {
    SetUp();
    const bool lived = RunChild(first) >= 0;
    const std::string file = BytesOf(Path());
    const std::string before = BytesOf(NotesOfSave().before);
    const std::string after = BytesOf(NotesOfSave().after);
    if (before != old_ || after == "(unreadable)" || !left_.insert(file).second) return lived;
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
    return lived;
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
    const std::string rescue = root_ + "/rescue";
    ::chmod(events.c_str(), 0700);
    ::chmod(rescue.c_str(), 0700);
    for (const std::string folder : {"events", "real", "rescue"}) {
      for (const std::string& name : NamesIn(root_ + "/" + folder)) {
        fs::remove(root_ + "/" + folder + "/" + name);
      }
    }
    if (place_ == Place::kBehindLink || place_ == Place::kLinkInReadOnlyFolder) {
      WriteBytes(root_ + "/real/dates.txt", old_);
      fs::create_symlink("../real/dates.txt", Path());
    } else {
      WriteBytes(Path(), old_);
    }
    for (int k = 1; k <= levels_; ++k) WriteBytes(BackupPath(Path(), k), OldBackup(k));
    const bool writable = place_ == Place::kPlain || place_ == Place::kBehindLink;
    if (!writable) ::chmod(events.c_str(), 0500);
    if (place_ == Place::kReadOnlyEverywhere) ::chmod(rescue.c_str(), 0500);
  }

  // Opens the editor, adds, edits or deletes an event, and tells how that ended.
  int DoDeed(Deed deed, const char* title = "Christmas Day") {
    IniSettingsStore settings(files_, SettingsPath());
    MemoryClock clock;
    MemoryMessageBox messages;
    messages.answer = MessageAnswer::kYes;
    EditSession session({settings, files_, clock, messages}, {}, MonthFirst(),
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
      Inject(fault);
      const int outcome = DoDeed(deed, title);
      ::_exit(outcome);
    }));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  void Judge(const std::string& name, int outcome, const Fault& fault, Tally& tally) {
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
    EditSession session({settings, files_, clock, messages}, {}, MonthFirst(),
                        {Path(), root_ + "/rescue", 1, 0, 0});
    static_cast<void>(session.Load({{0, 0, 28800, 16200}}));
    session.Shown();
    if (!messages.shown.empty()) tally.Complain(name + ": " + messages.shown[0]);
    const std::string all = BytesOf(Path());
    for (const std::string event : {"New Year", "Café", "Ferns", "Summer", "Second one"}) {
      const bool mayMiss =
          (event == "Second one" && !saved) || (event == "Summer" && deed_ == Deed::kDelete);
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
    EditSession session({settings, files_, clock, messages}, {}, MonthFirst(),
                        {Path(), root_ + "/rescue", 1, 0, 0});
    static_cast<void>(session.Load({{0, 0, 28800, 16200}}));
    session.Shown();
    CheckLeftovers(name + ": after a restart", {"."}, tally);
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
    // A lone copy of the old state says nothing, and goes with the next save.
    const auto nameOf = [](const std::string& path) { return fs::path(path).filename().string(); };
    CheckLeftovers(name, {".", nameOf(NotesOfSave().before), nameOf(NotesOfSave().after)}, tally);
  }

  void CheckLeftovers(const std::string& name, const std::vector<std::string>& beginnings,
                      Tally& tally) {
    for (const std::string folder : {"events", "real", "rescue"}) {
      for (const std::string& entry : NamesIn(root_ + "/" + folder)) {
        for (const std::string& beginning : beginnings) {
          if (entry.starts_with(beginning)) {
            tally.Complain(name + ": " + entry + " stays in " + folder);
          }
        }
      }
    }
  }

  [[nodiscard]] std::string Name(const Fault& fault) const {
    const std::string what = fault.killBefore != 0
                                 ? "killed before call " + std::to_string(fault.killBefore)
                                 : "error " + std::to_string(fault.error) + " at call " +
                                       std::to_string(fault.failAt) +
                                       (fault.lasting ? " and after" : "") + ", " +
                                       std::to_string(fault.many) + " in a row";
    const char* const deeds[] = {"add", "edit", "delete"};
    const char* const places[] = {"", " behind a link", " in a read-only folder",
                                  " behind a link in a read-only folder",
                                  " without a folder that takes files"};
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

}  // namespace tidewarden::test
