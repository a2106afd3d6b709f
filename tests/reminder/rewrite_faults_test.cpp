// The reminder's own changes to a real events file, in a process that is killed before every system
// call and in which every system call fails: after a restart no event is missing, a change that was
// said to be made is made, and nothing is left lying about.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "core/interrupted_save.h"
#include "platform/memory/memory_ports.h"
#include "platform/posix/posix_file_system.h"
#include "reminder/event_actions.h"
#include "reminder/list_builder.h"
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

enum class Deed { kHide, kDelete, kTidy };
enum class Place { kPlain, kReadOnlyFolder };

constexpr int kDone = 10;
constexpr int kRefused = 11;

// The states that a deed may leave, from the first to the last; its steps may fail one by one.
std::vector<std::string> StatesOf(Deed deed) {
  const std::string first = "01.01,New Year,14,yearly\r\n";
  const std::string gone = "12.21,Gone,7,one2014\r\n";
  const std::string cafe = "12.23,Café,7,yearly";
  const std::string back = "06.01,Back,7,yearly";
  const std::string last = "\r\n12.25,Christmas,7,yearly\r\n";
  const std::string tidy = first + cafe + "\r\n" + back + last;
  switch (deed) {
    case Deed::kHide:
      return {tidy, first + cafe + "*\r\n" + back + last};
    case Deed::kDelete:
      return {tidy, first + back + last};
    case Deed::kTidy:
      break;
  }
  const std::string hidden = cafe + "\r\n" + back + "*" + last;
  return {first + gone + hidden, first + hidden, first + gone + cafe + "\r\n" + back + last, tidy};
}

struct Tally {
  int kills = 0;
  int errors = 0;
  int done = 0;
  int torn = 0;
  std::vector<std::string> complaints;
};

// One folder with an events file, and one change that the reminder makes to it.
class Trial {
 public:
  Trial(const std::string& root, Place place, Deed deed)
      : root_(root), place_(place), deed_(deed), states_(StatesOf(deed)) {
    for (const char* const folder : {"events", "data"})
      fs::create_directories(root_ + "/" + folder);
    SetUp();
    const int status = WaitFor(StartChild([&] {
      test::Inject(Fault());
      const int outcome = DoDeed();
      ::_exit(outcome == kDone ? std::min(test::CallsMade(), 250) : 0);
    }));
    calls_ = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    if (BytesOf(Path()) != states_.back()) calls_ = 0;
  }

  // Without a fault the change is made.
  [[nodiscard]] bool works() const { return calls_ > 20 && calls_ < 250; }
  [[nodiscard]] int calls() const { return calls_; }

  void Run(const Fault& fault, Tally& tally) {
    SetUp();
    const int status = WaitFor(StartChild([&] {
      test::Inject(fault);
      ::_exit(DoDeed());
    }));
    const bool killed = !WIFEXITED(status);
    const std::string name = "deed " + std::to_string(static_cast<int>(deed_)) +
                             (fault.killBefore != 0 ? ", killed before call " : ", failed call ") +
                             std::to_string(fault.killBefore + fault.failAt) + ": ";
    const auto complain = [&](const std::string& what) {
      if (tally.complaints.size() < 20) tally.complaints.push_back(name + what);
    };
    const std::string content = BytesOf(Path());
    if (!IsState(content)) {
      ++tally.torn;
      const SaveNotes notes = SaveNotesOf(root_ + "/data", Path());
      const bool kept = place_ == Place::kReadOnlyFolder && IsState(BytesOf(notes.before)) &&
                        IsState(BytesOf(notes.after));
      if (!kept) complain("nothing whole is left: " + content);
    }
    if (!killed && WEXITSTATUS(status) == kDone) {
      ++tally.done;
      if (content != states_.back()) complain("said to be done, but it is not");
    }
    if (killed && fault.killBefore == 0) complain("the process has crashed");
    if (place_ == Place::kPlain && !NamesIn(root_ + "/data").empty()) complain("a needless copy");
    CheckAfterRestart(complain);
    ++(fault.killBefore != 0 ? tally.kills : tally.errors);
  }

 private:
  [[nodiscard]] std::string Path() const { return root_ + "/events/dates.txt"; }

  [[nodiscard]] bool IsState(const std::string& content) const {
    return std::find(states_.begin(), states_.end(), content) != states_.end();
  }

  void SetUp() {
    ::chmod((root_ + "/events").c_str(), 0700);
    for (const std::string folder : {"/events/", "/data/"}) {
      for (const std::string& name : NamesIn(root_ + folder)) fs::remove(root_ + folder + name);
    }
    WriteBytes(Path(), states_.front());
    if (place_ == Place::kReadOnlyFolder) ::chmod((root_ + "/events").c_str(), 0500);
  }

  // Builds the list as the reminder does when it starts, and changes the event as from its menu.
  int DoDeed() {
    MemorySettingsStore settings;
    MemoryClock clock;
    MemoryMessageBox messages;
    MemoryShiftKey shiftKey;
    const std::string data = root_ + "/data";
    ListBuilder builder({settings, files_, clock, messages, shiftKey, data}, test::MonthFirst(),
                        Path(), "");
    static_cast<void>(builder.BuildReminderList(FileAccess::kUpdate));
    const bool built = builder.readStatus().ok() && builder.writeStatus().ok();
    if (deed_ == Deed::kTidy) return built ? kDone : kRefused;
    const ListedEvent event{1, "12.23,Café,7,yearly"};
    const Status status = deed_ == Deed::kHide ? HideEvent(files_, Path(), data, event)
                                               : DeleteEvent(files_, Path(), data, event);
    return status.ok() ? kDone : kRefused;
  }

  template <typename Complain>
  void CheckAfterRestart(Complain complain) {
    MemorySettingsStore settings;
    MemoryClock clock;
    MemoryMessageBox messages;
    MemoryShiftKey shiftKey;
    ListBuilder builder({settings, files_, clock, messages, shiftKey, root_ + "/data"},
                        test::MonthFirst(), Path(), "");
    static_cast<void>(builder.BuildReminderList(FileAccess::kUpdate));
    if (!builder.readStatus().ok() || !builder.writeStatus().ok())
      complain("no list after a restart");
    if (!messages.shown.empty()) complain("after a restart: " + messages.shown[0]);
    const std::string content = BytesOf(Path());
    const bool right = deed_ == Deed::kTidy ? content == states_.back() : IsState(content);
    if (!right) complain("after a restart the file holds: " + content);
    for (const std::string title : {"New Year", "Café", "Christmas"}) {
      const auto& list = builder.List1();
      const bool listed = std::any_of(list.begin(), list.end(), [&](std::string_view row) {
        return row.find(title) != std::string_view::npos;
      });
      const bool mayBeOut = title == "Café" && content == states_.back() && deed_ != Deed::kTidy;
      if (!listed && !mayBeOut) complain("after a restart " + title + " is not listed");
    }
    // The next change takes away what was kept.
    const ListedEvent first{0, "01.01,New Year,14,yearly"};
    if (!HideEvent(files_, Path(), root_ + "/data", first).ok()) complain("no further change");
    if (BytesOf(Path()) != std::string(content).insert(first.rawLine.size(), "*")) {
      complain("after a further change the file holds: " + BytesOf(Path()));
    }
    for (const std::string& name : NamesIn(root_ + "/data")) {
      if (name != "dates.save.lock") complain(name + " stays");
    }
  }

  PosixFileSystem files_;
  std::string root_;
  Place place_;
  Deed deed_;
  std::vector<std::string> states_;
  int calls_ = 0;
};

void RunEverywhere(Trial& trial, std::size_t atMost, Tally& tally) {
  // In small pieces there are more calls.
  for (int at = 1; at <= 2 * trial.calls(); ++at) {
    Fault fault;
    fault.killBefore = at;
    fault.atMost = atMost;
    trial.Run(fault, tally);
  }
}

void FailEverywhere(Trial& trial, Tally& tally) {
  for (int at = 1; at <= trial.calls(); ++at) {
    for (const bool lasting : {false, true}) {
      for (const int error : {ENOSPC, EIO}) trial.Run({0, at, error, lasting}, tally);
    }
  }
}

std::string Report(const char* what, const Tally& tally) {
  std::cout << what << ": " << tally.kills << " kill points, " << tally.errors << " error points, "
            << tally.done << " done, " << tally.torn << " torn files put right" << std::endl;
  std::string report;
  for (const std::string& complaint : tally.complaints) report += complaint + "\n";
  return report;
}

// A disk in memory has no delays.
class FastFolder {
 public:
  [[nodiscard]] const std::string& path() const { return folder_.path(); }

 private:
  test::ScopedVariable variable_{
      "TMPDIR", ::access("/dev/shm", W_OK | X_OK) == 0 ? "/dev/shm" : std::getenv("TMPDIR")};
  TemporaryFolder folder_;
};

TEST(RewriteFaults, NoKillAndNoErrorLosesAnEvent) {
  const FastFolder folder;
  Tally tally;
  for (const Deed deed : {Deed::kHide, Deed::kDelete, Deed::kTidy}) {
    Trial trial(folder.path(), Place::kPlain, deed);
    ASSERT_TRUE(trial.works()) << trial.calls();
    RunEverywhere(trial, 50, tally);
    FailEverywhere(trial, tally);
  }
  EXPECT_EQ(Report("in an ordinary folder", tally), "");
  EXPECT_EQ(tally.torn, 0);
  EXPECT_GT(tally.done, 0);
}

TEST(RewriteFaults, InAReadOnlyFolderATornFileIsPutRightWhenTheReminderStarts) {
  const FastFolder folder;
  for (const Deed deed : {Deed::kHide, Deed::kDelete, Deed::kTidy}) {
    // A process of its own for each, because none may take longer than a minute.
    const std::string answer = InUnprivilegedChild(folder.path(), [&]() -> std::string {
      Tally tally;
      Trial trial(folder.path(), Place::kReadOnlyFolder, deed);
      if (!trial.works()) return "no change, " + std::to_string(trial.calls()) + " calls";
      RunEverywhere(trial, 1'000'000, tally);
      RunEverywhere(trial, 20, tally);
      if (tally.torn < 3) return "hardly a file was torn";
      FailEverywhere(trial, tally);
      return Report("in a read-only folder", tally);
    });
    EXPECT_EQ(answer, "");
  }
}

}  // namespace
}  // namespace tidewarden
