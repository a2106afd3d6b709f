// An events editor with everything around it in memory, and a user who types into it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/edit_session.h"
#include "platform/memory/memory_ports.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

inline const std::string kEventsPath = "/home/ann/dates.txt";
inline const std::string kRescueFolder = "/home/ann/.local/share/Tideward";
inline const std::string kRescuePath = kRescueFolder + "/dates.rescue.txt";

class EditDesk {
 public:
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryClock clock;  // 22 December 2014, 14:25
  MemoryMessageBox messages;
  RegionalDateFormat format = MonthFirst();
  std::vector<std::string> hooksRun;
  std::vector<EventRow> printed;
  std::function<void()> onOptions;

  explicit EditDesk(std::string file = {}) { files.files[kEventsPath] = std::move(file); }

  void Set(const std::string& name, const std::string& value,
           const std::string& section = "Options") {
    static_cast<void>(settings.Write(section, name, value).ok());
  }

  // Made when first asked for, so that a test can set everything before.
  EditSession& session() {
    if (!session_) {
      EditorHooks hooks;
      hooks.print = [this](const std::vector<EventRow>& rows) {
        hooksRun.emplace_back("print");
        printed = rows;
      };
      hooks.help = [this] { hooksRun.emplace_back("help"); };
      hooks.options = [this] {
        hooksRun.emplace_back("options");
        if (onOptions) onOptions();
      };
      hooks.donate = [this] { hooksRun.emplace_back("donate"); };
      hooks.showReminder = [this] { hooksRun.emplace_back("reminder"); };
      session_.emplace(EditPorts{settings, files, clock, messages}, hooks, format,
                       EditorSetup{kEventsPath, kRescueFolder, 1, 0, 0});
    }
    return *session_;
  }

  // Opens the editor; the same in one call with the session that comes back.
  EditSession& Open() {
    static_cast<void>(session().Load({{0, 0, 28800, 16200}}));
    session().Shown();
    static_cast<void>(session().TakeFocus());
    return session();
  }

  // Fills the entry row, starting an Add. An empty count is not typed.
  void Enter(int kind, const std::string& date, const std::string& title,
             const std::string& advance = "7", const std::string& count = "") {
    session().Add();
    session().OccursPicked(kind);
    Fill(date, title, advance, count);
  }

  void Fill(const std::string& date, const std::string& title, const std::string& advance = "7",
            const std::string& count = "") {
    session().EventInputTyped(title);
    session().DateInputTyped(date);
    session().AdvanceInputTyped(advance);
    if (!count.empty()) session().EveryInputTyped(count);
  }

  // Selects the first row that holds a text. False when there is none.
  bool Select(const std::string& part) {
    const auto& rows = session().List1();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (rows[i].text.find(part) == std::string::npos) continue;
      session().RowSelected(static_cast<int>(i));
      return true;
    }
    return false;
  }

  [[nodiscard]] std::vector<std::string> List() {
    std::vector<std::string> texts;
    for (const EventRow& row : session().List1()) texts.push_back(row.text);
    return texts;
  }

  [[nodiscard]] const std::string& file() const { return files.files.at(kEventsPath); }
  [[nodiscard]] std::string Backup(int number) {
    const auto found = files.files.find("/home/ann/datesbk" + std::to_string(number) + ".txt");
    return found == files.files.end() ? "(none)" : found->second;
  }

 private:
  std::optional<EditSession> session_;
};

}  // namespace tidewarden::test
