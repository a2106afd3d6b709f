// The desktop program put together: the adapters, the sessions and the windows.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "alarm/alarm_session.h"
#include "app/arguments.h"
#include "app/editor_of_program.h"
#include "app/start_clock.h"
#include "app/system_adapters.h"
#include "platform/memory/memory_notification_area.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_reminder.h"
#include "platform/memory/settings_in_memory.h"
#include "platform/qt/qt_ports.h"
#include "reminder/reminder_session.h"

namespace tidewarden {

class frmAlarm;
class frmReminder;

// Needs a running QApplication.
class Desktop {
 public:
  explicit Desktop(const Arguments& arguments);
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // Runs the program to its end and gives its exit code.
  [[nodiscard]] int Run();

 private:
  // A message is a line on standard error in a run that only takes a picture: there is nobody to
  // press OK.
  class StandardErrorMessages : public MessageBox {
   public:
    MessageAnswer Show(const std::string& text, MessageButtons buttons, MessageIcon icon) override;
  };

  // A run that only takes a picture may stand beside a running program and leaves no trace but the
  // picture: no lock, no setting, no change of the events file, nothing on the desktop.
  [[nodiscard]] bool OnlyPicture() const { return !arguments_.grab.isEmpty(); }
  [[nodiscard]] SettingsStore& Settings();
  [[nodiscard]] MessageBox& Messages();
  [[nodiscard]] NotificationArea& Area();
  [[nodiscard]] ShiftKey& Shift();
  [[nodiscard]] std::optional<ExitCode> LookAtSettings();
  [[nodiscard]] std::optional<ExitCode> LookAtLayout();
  [[nodiscard]] int Grab();
  [[nodiscard]] int ShowWindows();
  [[nodiscard]] EditorOfProgram::Parts EditorParts(frmReminder& window);
  void ConnectTray(frmReminder& window);
  void Print(const std::vector<EventRow>& rows);
  void EndWithOptions();
  void ShowAlarm();
  void SoundAlarm();
  void CloseAlarm();

  const Arguments& arguments_;
  std::unique_ptr<FileSystem> files_;
  std::unique_ptr<Clock> systemClock_;
  StartClock clock_;
  std::unique_ptr<RegionalFormats> formats_;
  std::unique_ptr<SettingsStore> settings_;
  SettingsInMemory settingsOfPicture_;
  QtMessageBox boxes_;
  StandardErrorMessages lines_;
  std::unique_ptr<ShiftKey> shiftKey_;
  MemoryShiftKey heldShift_;
  std::unique_ptr<PreviousInstance> instance_;
  ProgramTray tray_;
  MemoryNotificationArea noArea_;
  SplitMixNumbers random_;
  std::unique_ptr<SoundPlayer> sound_;
  std::unique_ptr<Shell> shell_;
  std::unique_ptr<ProgramEnd> end_;
  EditorOfProgram editor_;
  AlarmSession alarms_;
  ReminderSession session_;
  std::unique_ptr<frmAlarm> alarmWindow_;  // once the first alarm has gone off
};

}  // namespace tidewarden
