// The state behind the reminder window, without the window: start-up, the list, its menu, the
// daily rebuild, the way into the notification area and back, and closing.
//
// The window reads its controls, calls one function of the session, does what the returned
// WindowChange says, and shows what the session then holds.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "alarm/alarm_session.h"
#include "alarm/tray_icon.h"
#include "core/clock.h"
#include "core/events_path.h"
#include "core/file_system.h"
#include "core/message_box.h"
#include "core/random_numbers.h"
#include "core/settings_store.h"
#include "core/window_placement.h"
#include "dates/regional_formats.h"
#include "reminder/daily_quote.h"
#include "reminder/editor_window.h"
#include "reminder/event_actions.h"
#include "reminder/list_appearance.h"
#include "reminder/list_builder.h"
#include "reminder/previous_instance.h"
#include "reminder/reminder_placement.h"
#include "reminder/shift_key.h"

namespace tidewarden {

// What the session asks of the world. Everything outlives the session.
struct ReminderPorts {
  SettingsStore& settings;
  FileSystem& files;
  const Clock& clock;
  MessageBox& messages;
  ShiftKey& shiftKey;
  const RegionalFormats& formats;
  PreviousInstance& instance;
  NotificationArea& area;
  RandomNumbers& random;
  EditorWindow& editor;
  AlarmSession& alarms;
  ProgramFolders folders;
};

// What the window has to do with itself before it shows the session's state.
enum class WindowChange {
  kNone,
  kPlace,          // stand where placement() says
  kMinimize,       // as if the user had minimized it
  kHide,           // into the notification area, or behind the editor
  kShowMinimized,  // the notification area is gone: back into the task list
  kRestore,        // show, maximized if startsMaximized(), and come to the front
  kPopUp,          // show in normal size, above all other windows from now on; then StartNewDay
  kEnd,            // end the program without a question
};

// What the program is started for.
enum class StartFor {
  kUse,
  kPicture,  // of the list: beside any other copy, and the events file is only read
};

// The items of the popup menu that come and go; the text sizes and "Cancel" are always there.
struct PopupMenu {
  bool mnuHideThis = false;
  bool mnuLine0 = false;
  bool mnuEditEvent = false;
  bool mnuDeleteEvent = false;
  bool mnuLine1 = false;
};

class ReminderSession {
 public:
  static constexpr int kNoRow = -1;

  explicit ReminderSession(ReminderPorts ports);

  // Starts up, in a fixed order, and builds the first list. kEnd, after a message where there is
  // something to say: another copy runs, the user's date layout is not supported, or there is
  // nothing to show. `eventsFile` is a full path in place of the one in the settings; empty
  // for that. To be called once, before everything else.
  [[nodiscard]] WindowChange Load(const Screens& screens, const std::string& eventsFile,
                                  StartFor startFor = StartFor::kUse);

  // False until Load has come to its end; what happens to the window before then is not counted.
  [[nodiscard]] bool isLoaded() const { return isLoaded_; }

  // The window is on the screen for the first time; only from now on do its size and state count.
  void Shown() { isShown_ = true; }
  [[nodiscard]] bool isShown() const { return isShown_; }

  // --- What the window shows.
  [[nodiscard]] const std::string& caption() const { return builder_->options().titlebarText; }
  [[nodiscard]] const std::vector<std::string_view>& List1() const { return builder_->List1(); }
  [[nodiscard]] const std::string& dateLabel() const { return builder_->dateLabel(); }
  [[nodiscard]] bool showsDateLabel() const { return showsDateLabel_; }
  [[nodiscard]] const ListFont& listFont() const { return listFont_; }
  [[nodiscard]] const ListColours& listColours() const { return listColours_; }
  [[nodiscard]] const std::string& skin() const { return skin_; }
  [[nodiscard]] const StoredPlacement& placement() const { return placement_; }
  [[nodiscard]] const DailyQuote& quote() const { return quote_; }

  // The least height that the user can give the window, in twips.
  [[nodiscard]] int leastHeight() const { return kLeastReminderHeight + quote_.reserveTwips(); }

  // Counts the builds, so that a window knows when its rows are others.
  [[nodiscard]] int builds() const { return builds_; }

  // --- The timer `tmrAlarm`: its interval, and how long to wait before it is started, both in
  // milliseconds.
  [[nodiscard]] int timerInterval() const { return timerInterval_; }
  [[nodiscard]] int timerDelay() const;

  // A tick of the timer, and of the second one that sees to it that no minute goes by without a
  // tick: how long that is to wait, in milliseconds.
  [[nodiscard]] WindowChange Tick(WindowState window);
  [[nodiscard]] int untilNextMinute() const;

  // Builds the list for a new day, once the window that a tick has fetched can be seen: what there
  // is to say or to ask then comes before it.
  [[nodiscard]] WindowChange StartNewDay();

  // --- The window itself.
  // The window has become normal, minimized or maximized.
  [[nodiscard]] WindowChange StateChanged(WindowState window);

  // The mouse was released over the bare window.
  void SurfaceReleased(const WindowPlacement& window);

  // Into the notification area, by the button `cmdTray`: at once, because not every desktop tells
  // a window that it has been minimized. Without an area the window is only minimized. Nothing
  // when the window is there already.
  [[nodiscard]] WindowChange SendToTray();

  // Other screens, or the same in another order or size, while the window stands in `area`. A
  // window that is on none of them any more gets a new place; the settings stay.
  [[nodiscard]] WindowChange ScreensChanged(const Screens& screens, const WindowPlacement& window);

  // Where a window is to come up that stood in `area` last: there, or on a screen if none shows
  // that any more. Where windows cannot choose their place, there.
  [[nodiscard]] WindowArea AreaOnAScreen(const WindowArea& area) const;

  // A click on the icon in the notification area, and the editor's return.
  [[nodiscard]] WindowChange Restore();

  // The editor is back in its place after it was minimized: it takes the place of this window
  // again.
  [[nodiscard]] WindowChange EditorRestored();

  // The window is about to close. False when it is to stay open, for the sake of an alarm.
  [[nodiscard]] bool Close(WindowState window, CloseReason reason);

  // --- The list. `row` is a row of List1 or kNoRow.
  void SelectRow(int row) { selectedRow_ = row; }
  [[nodiscard]] int selectedRow() const { return selectedRow_; }

  // Opens the editor: on the selected event, or ready for a new one from today's line; from the
  // button `cmdGoToEdit` without either.
  [[nodiscard]] WindowChange DoubleClick(const WindowPlacement& window);
  [[nodiscard]] WindowChange GoToEdit(const WindowPlacement& window);

  // Selects `row` and tells which items of the menu it has. The items act on the event that the
  // row shows at this moment, whatever becomes of the list.
  PopupMenu OpenMenu(int row);
  [[nodiscard]] WindowChange EditEvent(const WindowPlacement& window);
  [[nodiscard]] WindowChange HideThis();
  [[nodiscard]] WindowChange DeleteThis();

  // `size` counts from 0, "Smallest Text", to 4, "Largest Text".
  void SetTextSize(int size);

  // A click on the quote: another one. Does nothing while none is shown.
  void ShowAnotherQuote() { quote_.ShowAnother(); }

  [[nodiscard]] const ListBuilder& builder() const { return *builder_; }
  [[nodiscard]] const std::string& EventsFilePath() const { return builder_->EventsFilePath(); }
  [[nodiscard]] TrayIcon& tIcon() { return tIcon_; }

  // Called when an alarm has gone off: show the alarm window with its messages.
  std::function<void()> ShowAlarm;

  // Called after that, and again each minute: play the session's sound. Without it the sound begins
  // at once.
  std::function<void()> SoundAlarm;

  // Called with each thing that is wrong with the events file and that no message box tells.
  std::function<void(const std::string& text)> Complain;

 private:
  // What a row was when it was chosen.
  struct Target {
    std::string text;
    ListedEvent event;
  };

  [[nodiscard]] bool IsOnlyCopy();
  [[nodiscard]] bool CanChangeFile() const;
  void SetUpTray();
  [[nodiscard]] WindowChange HideInTray(WindowChange otherwise);
  [[nodiscard]] std::optional<Target> TargetOf(int row) const;
  [[nodiscard]] WindowChange Rebuild();
  [[nodiscard]] WindowChange CheckForNewDay(WindowState window);
  [[nodiscard]] bool MayBeReadableNow() const;
  [[nodiscard]] WindowChange OpenEditor(const EditorRequest& request,
                                        const WindowPlacement& window);
  [[nodiscard]] WindowChange OpenEditorOn(const std::optional<Target>& target,
                                          const WindowPlacement& window);
  [[nodiscard]] WindowChange ChangeTarget(Status (*change)(FileSystem&, const std::string&,
                                                           const std::string&, const ListedEvent&));
  [[nodiscard]] ListColours DrawnColours();
  void SetTimerInterval();
  void TellFileProblems();

  ReminderPorts ports_;
  Screens screens_;
  TrayIcon tIcon_;
  DailyQuote quote_;
  std::optional<ListBuilder> builder_;

  CivilDate lastListDate_{};  // the day for which the list was last built anew
  // When the events file first could not be read, as long as it cannot.
  std::optional<LocalTime> unreadSince_;
  StartFor startFor_ = StartFor::kUse;
  bool isLoaded_ = false;
  bool isShown_ = false;
  bool startMaximized_ = false;
  bool inTray_ = false;
  bool behindEditor_ = false;
  bool isBusy_ = false;      // while a list is built or the file changed: nothing else may do so
  bool isBuilding_ = false;  // while a list is built

  ListFont listFont_;
  ListColours listColours_;
  std::string skin_;
  StoredPlacement placement_;
  int timerInterval_ = 0;
  int builds_ = 0;
  bool showsDateLabel_ = false;

  int selectedRow_ = kNoRow;
  std::optional<Target> menuTarget_;
  PopupMenu menu_;  // as it was opened
};

}  // namespace tidewarden
