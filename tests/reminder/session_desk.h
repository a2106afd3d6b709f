// A reminder session with everything around it in memory, and one log of all that it asks for, in
// the order in which it asks.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "alarm/alarm_session.h"
#include "dates/regional_text.h"
#include "platform/memory/memory_notification_area.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_reminder.h"
#include "platform/memory/memory_sound.h"
#include "reminder/reminder_session.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

using Log = std::vector<std::string>;

// "get Section/Name", "set Section/Name=value", "delete Section/Name".
class LoggedSettings : public MemorySettingsStore {
 public:
  explicit LoggedSettings(Log& log) : log_(log) {}

  Status Read(std::string_view section, std::string_view name, std::string& value) override {
    log_.push_back("get " + Key(section, name));
    return MemorySettingsStore::Read(section, name, value);
  }
  Status Write(std::string_view section, std::string_view name, std::string_view value) override {
    log_.push_back("set " + Key(section, name) + "=" + std::string(value));
    return MemorySettingsStore::Write(section, name, value);
  }
  Status Delete(std::string_view section, std::string_view name) override {
    log_.push_back("delete " + Key(section, name));
    return MemorySettingsStore::Delete(section, name);
  }

 private:
  static std::string Key(std::string_view section, std::string_view name) {
    return std::string(section) + "/" + std::string(name);
  }
  Log& log_;
};

// "open PATH", "create PATH", "stage PATH".
class LoggedFiles : public MemoryFileSystem {
 public:
  explicit LoggedFiles(Log& log) : log_(log) {}

  Status Read(const std::string& path, const TakeBytes& take) override {
    log_.push_back("open " + path);
    return MemoryFileSystem::Read(path, take);
  }
  Status CreateEmpty(const std::string& path) override {
    log_.push_back("create " + path);
    return MemoryFileSystem::CreateEmpty(path);
  }
  Status Stage(const std::string& path, std::string_view content,
               std::unique_ptr<StagedFile>& out) override {
    log_.push_back("stage " + path);
    return MemoryFileSystem::Stage(path, content, out);
  }

 private:
  Log& log_;
};

// "box TEXT"; runs `whileOpen` before it is closed.
class LoggedMessages : public MessageBox {
 public:
  explicit LoggedMessages(Log& log) : log_(log) {}

  struct Box {
    std::string text;
    MessageButtons buttons = MessageButtons::kOk;
    MessageIcon icon = MessageIcon::kNone;
    bool operator==(const Box&) const = default;
  };
  std::vector<Box> boxes;
  MessageAnswer answer = MessageAnswer::kOk;
  std::function<void()> whileOpen;

  MessageAnswer Show(const std::string& text, MessageButtons buttons, MessageIcon icon) override {
    log_.push_back("box " + text);
    boxes.push_back({text, buttons, icon});
    if (whileOpen) whileOpen();
    return answer;
  }

  [[nodiscard]] Log Texts() const {
    Log texts;
    for (const Box& box : boxes) texts.push_back(box.text);
    return texts;
  }

 private:
  Log& log_;
};

// "short date". `shortDate` takes the place of what the pattern gives.
class LoggedFormats : public PatternRegionalFormats {
 public:
  explicit LoggedFormats(Log& log) : PatternRegionalFormats("MM/dd/yyyy"), log_(log) {}

  std::string shortDate;

  [[nodiscard]] std::string ShortDate(CivilDate date) const override {
    log_.emplace_back("short date");
    return shortDate.empty() ? PatternRegionalFormats::ShortDate(date) : shortDate;
  }

 private:
  Log& log_;
};

// "claim", "release".
class LoggedInstance : public MemoryPreviousInstance {
 public:
  explicit LoggedInstance(Log& log) : log_(log) {}

  [[nodiscard]] bool Claim() override {
    log_.emplace_back("claim");
    return MemoryPreviousInstance::Claim();
  }
  void Release() override {
    log_.emplace_back("release");
    MemoryPreviousInstance::Release();
  }

 private:
  Log& log_;
};

// "icon comes", "icon goes", "icon changes".
class LoggedArea : public MemoryNotificationArea {
 public:
  explicit LoggedArea(Log& log) : log_(log) {}

  void NotifyIcon(NotifyIconMessage message, const NotifyIconRecord& record,
                  std::string_view tooltip) override {
    const bool comes = message == NotifyIconMessage::kAdd;
    isShown = message != NotifyIconMessage::kDelete;
    log_.emplace_back(comes ? "icon comes" : isShown ? "icon changes" : "icon goes");
    MemoryNotificationArea::NotifyIcon(message, record, tooltip);
  }

  bool isShown = false;

 private:
  Log& log_;
};

// "seed".
class LoggedRandom : public MemoryRandomNumbers {
 public:
  explicit LoggedRandom(Log& log) : log_(log) {}

  void Seed(std::uint64_t seed) override {
    log_.emplace_back("seed");
    MemoryRandomNumbers::Seed(seed);
  }

 private:
  Log& log_;
};

// "editor opens", "editor reloads", "editor closes". Where it cannot be shown it stays unloaded.
class LoggedEditor : public MemoryEditorWindow {
 public:
  explicit LoggedEditor(Log& log) : log_(log) {}

  bool canBeShown = true;

  void Open(const EditorRequest& request) override {
    log_.emplace_back("editor opens");
    MemoryEditorWindow::Open(request);
    loaded = canBeShown;
  }
  void Reload() override {
    log_.emplace_back("editor reloads");
    MemoryEditorWindow::Reload();
  }
  void Unload() override {
    log_.emplace_back("editor closes");
    MemoryEditorWindow::Unload();
  }

  // The last request: its line, and whether an event is to be added.
  [[nodiscard]] std::pair<long, bool> request() const {
    return {requests.back().RequestedEditLine, requests.back().RequestedAdd};
  }

 private:
  Log& log_;
};

inline const std::string kSessionPath = "/home/ann/dates.txt";
inline const WindowArea kScreen{0, 0, 28800, 16200};  // 1920 by 1080 pixels

class SessionDesk {
 public:
  Log log;
  LoggedSettings settings{log};
  LoggedFiles files{log};
  MemoryClock clock;
  LoggedMessages messages{log};
  MemoryShiftKey shiftKey;
  LoggedFormats formats{log};
  LoggedInstance instance{log};
  LoggedArea area{log};
  LoggedRandom random{log};
  LoggedEditor editor{log};
  MemorySoundPlayer sound;
  ProgramFolders folders{"/opt/tidewarden", "/home/ann/data", PathStyle::kPosix};
  Screens screens{kScreen, {kScreen}, true};
  AlarmSession alarms{{settings, files, sound, messages}, folders};
  ReminderSession session;
  Log alarmsShown;  // the messages at each call for the alarm window
  Log complaints;

  // The events lie where the settings say. Without a file there is none.
  SessionDesk() : SessionDesk(PathStyle::kPosix) {}
  explicit SessionDesk(PathStyle style)
      : folders(style == PathStyle::kPosix
                    ? ProgramFolders{"/opt/tidewarden", "/home/ann/data", style}
                    : ProgramFolders{"C:\\Tide", "C:\\Users\\Ann\\Tideward", style}),
        session(ReminderPorts{settings, files, clock, messages, shiftKey, formats, instance, area,
                              random, editor, alarms, folders}) {
    Set("Settings", "Path", kSessionPath);
    session.ShowAlarm = [this] { alarmsShown.push_back(alarms.alarmMessages()); };
    session.Complain = [this](const std::string& text) { complaints.push_back(text); };
  }
  explicit SessionDesk(std::string events) : SessionDesk() {
    files.files[kSessionPath] = std::move(events);
  }

  void Set(const std::string& section, const std::string& name, const std::string& value) {
    static_cast<void>(settings.MemorySettingsStore::Write(section, name, value).ok());
    settings.writes = 0;
  }
  [[nodiscard]] std::string Stored(const std::string& name,
                                   const std::string& section = "Settings") const {
    return settings.At(section, name);
  }

  WindowChange Load() { return session.Load(screens, ""); }

  // A session that has been started and whose window has been shown; the log begins anew.
  SessionDesk& Start() {
    EXPECT_EQ(Load(), WindowChange::kNone);
    session.Shown();
    log.clear();
    files.calls.clear();
    settings.writes = 0;
    return *this;
  }

  void SetNow(int year, int month, int day, int hour, int minute) {
    clock.now = {On(year, month, day), hour, minute, 0};
  }
  // A tick at this moment, and what the window makes of it ("pops up").
  WindowChange TickAt(int year, int month, int day, int hour, int minute,
                      WindowState window = WindowState::kNormal) {
    SetNow(year, month, day, hour, minute);
    const WindowChange change = session.Tick(window);
    if (change != WindowChange::kPopUp) return change;
    log.emplace_back("pops up");
    const WindowChange next = session.StartNewDay();
    return next == WindowChange::kNone ? change : next;
  }

  [[nodiscard]] Log List() const { return {session.List1().begin(), session.List1().end()}; }

  // The row that contains a text; kNoRow without one.
  [[nodiscard]] int RowWith(std::string_view text) const {
    const auto& list = session.List1();
    for (std::size_t i = 0; i < list.size(); ++i) {
      if (list[i].find(text) != std::string_view::npos) return static_cast<int>(i);
    }
    return ReminderSession::kNoRow;
  }

  // Opens the menu on the row that contains a text.
  PopupMenu MenuOn(std::string_view text) {
    const int row = RowWith(text);
    EXPECT_NE(row, ReminderSession::kNoRow) << text;
    return session.OpenMenu(row);
  }

  [[nodiscard]] const std::string& file() { return files.files.at(kSessionPath); }

  // Of the log what begins with a word.
  [[nodiscard]] Log Logged(std::string_view word) const {
    Log found;
    for (const std::string& entry : log) {
      if (entry.starts_with(word)) found.push_back(entry);
    }
    return found;
  }

  // Where the window stands, in the normal state.
  WindowPlacement here{WindowState::kNormal, {1500, 3000, 6000, 4500}};
};

}  // namespace tidewarden::test
