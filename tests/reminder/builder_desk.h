// A list builder with everything around it in memory.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory/memory_ports.h"
#include "reminder/list_builder.h"
#include "tests/reminder/list_case.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

inline const std::string kEventsPath = "/home/ann/dates.txt";
inline const std::string kDataFolder = "/home/ann/data";

// A clock that counts how often it is read, and jumps to another day when it has been.
class CountingClock : public MemoryClock {
 public:
  mutable int readings = 0;
  std::vector<LocalTime> later;  // given out from the second reading on

  [[nodiscard]] LocalTime Now() const override {
    const auto reading = static_cast<std::size_t>(readings++);
    return reading == 0 || reading > later.size() ? now : later[reading - 1];
  }
};

// The ports, and the builder that works on them. The builder is made when it is first asked for,
// so that a test can set everything before.
class Desk {
 public:
  MemorySettingsStore settings;
  MemoryFileSystem files;
  CountingClock clock;
  MemoryMessageBox messages;
  MemoryShiftKey shiftKey;
  RegionalDateFormat format = MonthFirst();
  FileAccess access = FileAccess::kUpdate;

  Desk() = default;
  explicit Desk(std::string file) { files.files[kEventsPath] = std::move(file); }

  void Set(const std::string& section, const std::string& name, const std::string& value) {
    static_cast<void>(settings.Write(section, name, value).ok());
    settings.writes = 0;
  }

  void SetNow(int year, int month, int day, int hour = 14, int minute = 25) {
    clock.now = {On(year, month, day), hour, minute, 0};
  }

  ListBuilder& builder() {
    if (!builder_) {
      builder_.emplace(ListPorts{settings, files, clock, messages, shiftKey, kDataFolder}, format,
                       kEventsPath, ReadTodayPreface(settings));
    }
    return *builder_;
  }

  BuildOutcome Build() {
    clock.readings = 0;
    return builder().BuildReminderList(access);
  }

  // The list with its line numbers.
  [[nodiscard]] std::vector<ExpectedRow> Listed() {
    std::vector<ExpectedRow> rows;
    for (std::size_t i = 0; i < builder().List1().size(); ++i) {
      rows.push_back({builder().ReminderLineMap().at(i), std::string(builder().List1()[i])});
    }
    return rows;
  }

  // The list's texts.
  [[nodiscard]] std::vector<std::string> List() {
    const auto& list = builder().List1();
    return {list.begin(), list.end()};
  }

  [[nodiscard]] const std::string& file() { return files.files.at(kEventsPath); }

  // Whether anything was written or created since the desk was set up.
  [[nodiscard]] int FileChanges() const {
    return files.CountCalls("stage") + files.CountCalls("commit") + files.CountCalls("create");
  }

 private:
  std::optional<ListBuilder> builder_;
};

}  // namespace tidewarden::test
