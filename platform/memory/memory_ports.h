// Harmless stand-ins for the ports: they keep everything in memory, do what they are told to and
// record what was asked of them. Tests use them, and programs use them as inert defaults.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/clock.h"
#include "core/file_system.h"
#include "core/message_box.h"
#include "core/settings_store.h"
#include "reminder/shift_key.h"

namespace tidewarden {

// Files by path. A path in `failures` answers every call with its status; a path in
// `writeFailures` can be read but not staged.
class MemoryFileSystem : public FileSystem {
 public:
  std::map<std::string, std::string> files;
  std::map<std::string, StatusKind> failures;
  std::map<std::string, StatusKind> writeFailures;
  std::map<std::string, StatusKind> readFailures;  // there, but not to be read
  std::map<std::string, StatusKind> commitFailures;
  std::map<std::string, StatusKind> lockFailures;
  std::map<std::string, StatusKind> linkFailures;    // by the second name
  std::map<std::string, StatusKind> renameFailures;  // by the first name
  std::vector<std::string> unwritableFolders;
  bool failsAfterWriting = false;  // what is in `commitFailures` is written all the same
  bool writesInPlace = false;      // every folder refuses new files
  std::function<void(const std::string& path)> onStaged;  // what others do meanwhile
  std::size_t piece = 0;           // how many bytes Read gives at a time; 0 for all at once
  std::vector<std::string> calls;  // "read PATH", "create PATH", "stage PATH", "commit PATH",
                                   // "remove PATH", "rename PATH TO", "link PATH TO", ...

  Status Read(const std::string& path, const TakeBytes& take) override;
  Status GetStamp(const std::string& path, FileStamp& out) override;
  Status ListNames(const std::string& folder, std::vector<std::string>& out) override;
  Status CreateEmpty(const std::string& path) override;
  Status Stage(const std::string& path, std::string_view content,
               std::unique_ptr<StagedFile>& out) override;
  Status Lock(const std::string& path, std::unique_ptr<FileLock>& out) override;
  Status Remove(const std::string& path) override;
  Status Rename(const std::string& from, const std::string& to) override;
  Status Link(const std::string& from, const std::string& to) override;
  [[nodiscard]] std::string FullPath(const std::string& path) override { return path; }
  [[nodiscard]] bool CanCreateIn(const std::string& folder) override;

  // How many calls begin with a word.
  [[nodiscard]] int CountCalls(std::string_view word) const;

 private:
  friend class MemoryStagedFile;
  [[nodiscard]] static Status Failure(const std::map<std::string, StatusKind>& kinds,
                                      const std::string& path);
  void WriteUnderAllNames(const std::string& path, const std::string& content);
  // Two names have the same identity when they are names of one file.
  std::map<std::string, std::uint64_t> identities_;
  std::uint64_t nextIdentity_ = 1;
};

// Settings by section and name. `failure` makes every call fail.
class MemorySettingsStore : public SettingsStore {
 public:
  struct Entry {
    std::string section;
    std::string name;
    std::string value;
  };
  std::vector<Entry> entries;  // in the order of their first write
  StatusKind failure = StatusKind::kOk;
  int writes = 0;

  Status Read(std::string_view section, std::string_view name, std::string& value) override;
  Status Write(std::string_view section, std::string_view name, std::string_view value) override;
  Status Delete(std::string_view section, std::string_view name) override;

  // Whether there is a value, be it the empty text.
  [[nodiscard]] bool Has(std::string_view section, std::string_view name) const;

  // The value, or "(missing)".
  [[nodiscard]] std::string At(std::string_view section, std::string_view name) const;

 private:
  [[nodiscard]] const Entry* Find(std::string_view section, std::string_view name) const;
};

// Stands still until it is told to move.
class MemoryClock : public Clock {
 public:
  LocalTime now{MakeDate(2014, 12, 22), 14, 25, 0};
  [[nodiscard]] LocalTime Now() const override { return now; }
};

// Answers the boxes with `answers` in their order and then with `answer`, and keeps what they
// showed. Runs `whileOpen` before a box is closed.
class MemoryMessageBox : public MessageBox {
 public:
  struct Box {
    std::string text;
    MessageButtons buttons = MessageButtons::kOk;
    MessageIcon icon = MessageIcon::kNone;
  };
  MessageAnswer answer = MessageAnswer::kOk;
  std::deque<MessageAnswer> answers;
  std::vector<std::string> shown;
  std::vector<Box> boxes;  // the same with their buttons and icons
  std::function<void()> whileOpen;

  MessageAnswer Show(const std::string& text, MessageButtons buttons, MessageIcon icon) override;
};

class MemoryShiftKey : public ShiftKey {
 public:
  bool down = false;
  [[nodiscard]] bool IsDown() override { return down; }
};

}  // namespace tidewarden
