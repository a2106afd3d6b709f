// The editor's real save on real files, in a process that is killed before every system call and
// in which every system call fails in every way: after a restart no event is missing, "saved" was
// only said when it was, and nothing is left lying about.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "tests/editor/save_trial.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden {
namespace {

using test::Deed;
using test::Fault;
using test::InUnprivilegedChild;
using test::Place;
using test::Tally;
using test::TemporaryFolder;
using test::Trial;

// Thousands of files are made and renamed here, which a disk in memory does without delay.
class FastFolder {
 public:
  [[nodiscard]] const std::string& path() const { return folder_.path(); }

 private:
  test::ScopedVariable variable_{
      "TMPDIR", ::access("/dev/shm", W_OK | X_OK) == 0 ? "/dev/shm" : std::getenv("TMPDIR")};
  TemporaryFolder folder_;
};

const std::string kPlainOld =
    "01.01,New Year,1,yearly\r\n04.05,Café,7,yearly\r\n06.01,Ferns,3,20~2014\r\n"
    "06.21,Summer,1,yearly\r\n";
// A change in its middle moves a good deal.
const std::string kLongOld = kPlainOld +
                             "12.24,The evening before,1,yearly\r\n"
                             "12.26,A walk along the river,1,yearly\r\n"
                             "12.28,Letters to the family,1,yearly\r\n"
                             "12.30,The day before the last,1,yearly\r\n";
// Holds what a save drops: a hidden mark and a line that is no event.
const std::string kUntidyOld =
    "01.01,New Year,1,yearly*\r\nsee also the other file\r\n04.05,Café,7,yearly\r\n"
    "06.01,Ferns,3,20~2014\r\n06.21,Summer,1,yearly\r\n";

void KillEverywhere(Trial& trial, Tally& tally, std::size_t atMost = 1'000'000) {
  Fault fault;
  fault.atMost = atMost;
  do {
    ++fault.killBefore;
  } while (!trial.Run(fault, tally));
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
  for (const int levels : {0, 1, 3, 8}) {
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

// Errors in the middle of the file, where a part of it has been written, and some in a row, so that
// the first try to put the old bytes back fails as well.
void FailInPieces(Trial& trial, Tally& tally) {
  for (int at = 1; at <= 2 * trial.calls(); ++at) {
    for (const int many : {1, 2, 3}) {
      for (const int error : {ENOSPC, EIO}) trial.Run({0, at, error, false, many, 50}, tally);
    }
  }
}

// A part of the bytes is really written, and the rest refused.
void FillDisk(Trial& trial, Tally& tally) {
  for (std::size_t room = 0; room < 2 * kLongOld.size(); room += 5) {
    trial.RunOnFullDisk(room, tally);
  }
}

enum class Faults { kKills, kKillsInPieces, kErrors };

// In a process of its own, because none may take longer than a minute.
std::string FaultsInReadOnlyFolder(const std::string& root, Place place, Deed deed, int levels,
                                   Faults faults) {
  return InUnprivilegedChild(root, [&]() -> std::string {
    Tally tally;
    Trial trial(root, place, deed, levels, kLongOld);
    if (!trial.saves()) return "no save, " + std::to_string(trial.calls()) + " calls";
    if (faults == Faults::kKills) KillEverywhere(trial, tally);
    if (faults == Faults::kKillsInPieces) KillEverywhere(trial, tally, 50);
    if (faults == Faults::kErrors) FailEverywhere(trial, tally);
    const bool tears = place == Place::kReadOnlyFolder && faults == Faults::kKillsInPieces;
    if (tears && tally.torn < 3) return "hardly a file was torn";
    Print(place == Place::kReadOnlyFolder ? "in a read-only folder" : "behind a link in one",
          tally);
    std::cout.flush();
    return Report(tally);
  });
}

TEST(SaveFaults, InAReadOnlyFolderTheOldBytesSurviveSomewhere) {
  const FastFolder folder;
  for (const Deed deed : {Deed::kAdd, Deed::kDelete}) {
    for (const int levels : {0, 1, 3, 8}) {
      for (const Faults faults : {Faults::kKills, Faults::kKillsInPieces, Faults::kErrors}) {
        SCOPED_TRACE(std::to_string(levels) + " backups");
        EXPECT_EQ(
            FaultsInReadOnlyFolder(folder.path(), Place::kReadOnlyFolder, deed, levels, faults),
            "");
      }
    }
  }
}

TEST(SaveFaults, WithoutAFolderForTheCopiesAnErrorLosesNothingEither) {
  const FastFolder folder;
  for (const Deed deed : {Deed::kAdd, Deed::kEdit, Deed::kDelete}) {
    for (const int levels : {0, 3}) {
      SCOPED_TRACE(std::to_string(levels) + " backups");
      const std::string answer = InUnprivilegedChild(folder.path(), [&]() -> std::string {
        Tally tally;
        Trial trial(folder.path(), Place::kReadOnlyEverywhere, deed, levels, kLongOld);
        if (!trial.saves()) return "no save, " + std::to_string(trial.calls()) + " calls";
        FailInPieces(trial, tally);
        FillDisk(trial, tally);
        if (tally.saved < 10 || tally.notSaved < 10) return "hardly a difference";
        Print("without a folder that takes files", tally);
        std::cout.flush();
        return Report(tally);
      });
      EXPECT_EQ(answer, "");
    }
  }
}

TEST(SaveFaults, ALinkInAReadOnlyFolderLosesNothingAndLeavesNothing) {
  const FastFolder folder;
  for (const Deed deed : {Deed::kEdit, Deed::kDelete}) {
    for (const int levels : {0, 1, 3, 8}) {
      for (const Faults faults : {Faults::kKills, Faults::kErrors}) {
        SCOPED_TRACE(std::to_string(levels) + " backups");
        EXPECT_EQ(FaultsInReadOnlyFolder(folder.path(), Place::kLinkInReadOnlyFolder, deed, levels,
                                         faults),
                  "");
      }
    }
  }
}

TEST(SaveFaults, InAReadOnlyFolderASecondKillLosesNothingEither) {
  const FastFolder folder;
  constexpr int kCallsEach = 20;
  for (const Deed deed : {Deed::kEdit, Deed::kDelete}) {
    int torn = 0;
    bool lived = false;
    // A few calls in each process, because none may take longer than a minute.
    for (int begin = 1; !lived; begin += kCallsEach) {
      const std::string answer = InUnprivilegedChild(folder.path(), [&]() -> std::string {
        Tally tally;
        Trial trial(folder.path(), Place::kReadOnlyFolder, deed, 0, kLongOld);
        if (!trial.saves()) return "no save, " + std::to_string(trial.calls()) + " calls";
        bool ended = false;
        for (int at = begin; at < begin + kCallsEach && !ended; ++at) {
          Fault first;
          first.killBefore = at;
          first.atMost = 50;
          ended = trial.RunTwice(first, tally);
        }
        Print("in a read-only folder, killed twice", tally);
        std::cout.flush();
        const std::string found = (ended ? "end " : "on ") + std::to_string(tally.torn);
        return tally.complaints.empty() ? found : Report(tally);
      });
      lived = answer.starts_with("end ");
      ASSERT_TRUE(lived || answer.starts_with("on ")) << answer;
      torn += std::stoi(answer.substr(answer.find(' ')));
    }
    EXPECT_GE(torn, 3);
  }
}

TEST(SaveFaults, AFullDiskLosesNothing) {
  const FastFolder folder;
  for (const int levels : {0, 1, 3, 8}) {
    for (const Deed deed : {Deed::kAdd, Deed::kDelete}) {
      Tally tally;
      Trial trial(folder.path(), Place::kPlain, deed, levels, kLongOld);
      ASSERT_TRUE(trial.saves());
      FillDisk(trial, tally);
      EXPECT_EQ(Report(tally), "");
      EXPECT_GT(tally.saved, 10);
      EXPECT_GT(tally.notSaved, 10);
      Print("on a full disk", tally);
    }
  }
}

TEST(SaveFaults, AFullDiskLosesNothingInAReadOnlyFolderEither) {
  const FastFolder folder;
  for (const Deed deed : {Deed::kAdd, Deed::kDelete}) {
    const std::string answer = InUnprivilegedChild(folder.path(), [&]() -> std::string {
      Tally tally;
      Trial trial(folder.path(), Place::kReadOnlyFolder, deed, 0, kLongOld);
      if (!trial.saves()) return "no save, " + std::to_string(trial.calls()) + " calls";
      FillDisk(trial, tally);
      if (tally.saved < 10 || tally.notSaved < 10) return "hardly a difference";
      Print("on a full disk in a read-only folder", tally);
      std::cout.flush();
      return Report(tally);
    });
    EXPECT_EQ(answer, "");
  }
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
