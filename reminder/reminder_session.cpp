#include "reminder/reminder_session.h"

#include <algorithm>
#include <utility>

#include "core/settings_keys.h"
#include "core/skin.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

using namespace modGetSetSaveSet;

constexpr std::string_view kTrayTooltip =
    "For \"always on\" computers,\r\nTidewarden reminders pop up each day.";
constexpr std::string_view kRestartMessage =
    "Please close and then restart the Tidewarden for your changes to take effect.";
constexpr std::string_view kRunningMessage = "The Tidewarden is already running.";

constexpr int kMinuteInMilliseconds = 60'000;

// Set for the time of a block.
class Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Busy() { flag_ = before_; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  bool& flag_;
  bool before_;
};

bool Contains(const std::string& text, std::string_view part) {
  return ToLower(text).find(part) != std::string::npos;
}

// A count of days past or to come, whose hiding would mean nothing.
bool IsCounter(const std::string& text) {
  const std::string lower = ToLower(text);
  return lower.ends_with("past)") || lower.ends_with("future)");
}

}  // namespace

ReminderSession::ReminderSession(ReminderPorts ports)
    : ports_(std::move(ports)),
      tIcon_(ports_.area),
      quote_(ports_.settings, ports_.files, ports_.random, ports_.folders) {}

WindowChange ReminderSession::Load(const Screens& screens, const std::string& eventsFile,
                                   StartFor startFor) {
  const Busy busy(isBusy_);
  isLoaded_ = false;
  startFor_ = startFor;
  screens_ = screens;
  if (startFor == StartFor::kUse && !IsOnlyCopy()) return WindowChange::kEnd;
  startMaximized_ = isTrue(Get(ports_.settings, settings::kMaximized));
  SetUpTray();
  const std::string path = eventsFile.empty()
                               ? LocateEventsFile(ports_.settings, ports_.files, ports_.folders)
                               : eventsFile;
  lastListDate_ = ports_.clock.Now().date;

  listFont_ = ApplyListFont(ports_.settings);
  const std::string preface = ReadTodayPreface(ports_.settings);
  auto format = DetectRegionalDateFormat(ports_.formats.ShortDate(kProbeDate), ports_.formats);
  if (!format) {
    ports_.messages.Show(std::string(kUnsupportedLayoutMessage), MessageButtons::kOk,
                         MessageIcon::kNone);
    return WindowChange::kEnd;
  }
  skin_ = ReadSkin(ports_.settings, ports_.files, ports_.folders);
  builder_.emplace(ListPorts{ports_.settings, ports_.files, ports_.clock, ports_.messages,
                             ports_.shiftKey, ports_.folders.userData},
                   std::move(*format), path, preface);
  if (Rebuild() == WindowChange::kEnd) return WindowChange::kEnd;
  placement_ = LoadWindowPlacement(ports_.settings, screens_);
  listColours_ = DrawnColours();
  SetTimerInterval();
  showsDateLabel_ = isNotFalse(Get(ports_.settings, settings::kShowTodaysDateBeneathReminders));
  isLoaded_ = true;
  return WindowChange::kNone;
}

bool ReminderSession::IsOnlyCopy() {
  const auto tell = [this](std::string_view text) {
    ports_.messages.Show(std::string(text), MessageButtons::kOk, MessageIcon::kNone);
  };
  const bool isOnly = ports_.instance.Claim();
  const std::string justExited = Get(ports_.settings, settings::kJustExited);
  if (isOnly) {
    if (!justExited.empty()) Delete(ports_.settings, settings::kJustExited);
  } else if (isTrue(justExited)) {
    Delete(ports_.settings, settings::kJustExited);
    tell(kRestartMessage);
  } else if (isNotFalse(justExited)) {
    tell(kRunningMessage);
  }
  return isOnly;
}

void ReminderSession::SetUpTray() {
  tIcon_.Tooltip(kTrayTooltip);
}

ListColours ReminderSession::DrawnColours() {
  return ApplyListColors(ports_.settings, ports_.random, ports_.clock.Now());
}

void ReminderSession::SetTimerInterval() {
  constexpr double kLeast = 1000;
  const double wanted = LeadingNumber(Get(ports_.settings, settings::kTimerInterval));
  timerInterval_ = static_cast<int>(std::clamp(wanted, kLeast, double{kMinuteInMilliseconds}));
}

int ReminderSession::timerDelay() const {
  // Ticks that come right at a change of minute would now and then fall on its other side.
  const int second = ports_.clock.Now().second;
  const bool atChange = second == 0 || second == 59;
  return timerInterval_ == kMinuteInMilliseconds && atChange ? 2000 : 0;
}

WindowChange ReminderSession::Rebuild() {
  const Busy busy(isBusy_);
  const Busy building(isBuilding_);
  const FileAccess access = startFor_ == StartFor::kPicture ? FileAccess::kReadOnly
                            : ports_.editor.IsLoaded()      ? FileAccess::kShared
                                                            : FileAccess::kUpdate;
  const BuildOutcome outcome = builder_->BuildReminderList(access);
  ++builds_;
  selectedRow_ = kNoRow;
  TellFileProblems();
  if (builder_->readStatus().ok()) {
    // What would have rung while the list could not be read is made up for.
    ports_.alarms.ListBuilt(builder_->alarms(), unreadSince_.value_or(builder_->builtAt()));
    unreadSince_.reset();
  } else if (!unreadSince_) {
    unreadSince_ = builder_->builtAt();
  }
  if (outcome == BuildOutcome::kEnd) {
    tIcon_.Visible(false);
    return WindowChange::kEnd;
  }
  quote_.LoadDailyQuote(builder_->builtAt());
  return WindowChange::kNone;
}

void ReminderSession::TellFileProblems() {
  if (!Complain) return;
  if (!builder_->readStatus().ok() && !builder_->couldNotCreate() && !unreadSince_) {
    Complain(EventsFilePath() + ": " + DescribeStatus(builder_->readStatus()));
  }
  if (!builder_->writeStatus().ok()) {
    Complain(EventsFilePath() + ": cannot be changed: " + DescribeStatus(builder_->writeStatus()));
  }
}

int ReminderSession::untilNextMinute() const {
  return ports_.alarms.MillisecondsToNextTick(ports_.clock.Now());
}

WindowChange ReminderSession::Tick(WindowState window) {
  // An alarm whose minute comes while a list is being built rings in the next tick.
  if (!isBuilding_) {
    const ListOptions& options = builder_->options();
    const AlarmTick tick =
        ports_.alarms.Tick(builder_->alarms(), builder_->List1(),
                           {options.alarmSound, options.alarmBeepEachMinute, options.disableAlarms},
                           ports_.clock.Now());
    if (tick.showsMessages && ShowAlarm) ShowAlarm();
    if (tick.sounds && SoundAlarm) {
      SoundAlarm();
    } else if (tick.sounds) {
      ports_.alarms.PlayAlarmSound();
    }
    if (!tick.checksForNewDay) return WindowChange::kNone;
  }
  if (inTray_ && !ports_.area.IsAvailable()) {
    inTray_ = false;
    // An area that comes back is not to show the icon of a window that no longer needs it.
    tIcon_.Visible(false);
    const WindowChange change = CheckForNewDay(WindowState::kMinimized);
    return change == WindowChange::kNone ? WindowChange::kShowMinimized : change;
  }
  return CheckForNewDay(window);
}

WindowChange ReminderSession::CheckForNewDay(WindowState window) {
  if (isBusy_) return WindowChange::kNone;
  const LocalTime now = ports_.clock.Now();
  const bool isNewDay = DaysBetween(lastListDate_, now.date) > 0 &&
                        builder_->options().newDateOffset <= now.FourDigit();
  if (!isNewDay) return MayBeReadableNow() ? Rebuild() : WindowChange::kNone;
  const bool popsUp = !behindEditor_ && (inTray_ || window == WindowState::kMinimized);
  if (!popsUp) return StartNewDay();
  inTray_ = false;
  tIcon_.Visible(false);
  return WindowChange::kPopUp;
}

WindowChange ReminderSession::StartNewDay() {
  if (isBusy_) return WindowChange::kNone;
  lastListDate_ = ports_.clock.Now().date;
  return Rebuild();
}

// A share that is not there yet, or a file that another program holds, must not cost the alarms of
// a day.
bool ReminderSession::MayBeReadableNow() const {
  if (!unreadSince_) return false;
  const StatusKind kind = builder_->readStatus().kind();
  // A build would tell of the missing file once more, and make an empty one of it.
  FileStamp stamp;
  if (kind == StatusKind::kNotFound) return ports_.files.GetStamp(EventsFilePath(), stamp).ok();
  return kind != StatusKind::kNotText && kind != StatusKind::kTooLarge;
}

WindowChange ReminderSession::StateChanged(WindowState window) {
  if (!isLoaded_ || !isShown_) return WindowChange::kNone;
  switch (window) {
    case WindowState::kMinimized:
      if (inTray_) return WindowChange::kHide;
      if (behindEditor_ || !ports_.area.IsAvailable()) return WindowChange::kNone;
      return HideInTray(WindowChange::kNone);
    case WindowState::kMaximized:
      Save(ports_.settings, settings::kMaximized, "True");
      return WindowChange::kNone;
    case WindowState::kNormal:
      break;
  }
  if (!isTrue(Get(ports_.settings, settings::kMaximized))) return WindowChange::kNone;
  Save(ports_.settings, settings::kMaximized, "False");
  if (!std::exchange(startMaximized_, false)) return WindowChange::kNone;
  placement_ = LoadWindowPlacement(ports_.settings, screens_);
  return WindowChange::kPlace;
}

void ReminderSession::SurfaceReleased(const WindowPlacement& window) {
  SaveWindowPlacement(ports_.settings, window, screens_);
}

WindowChange ReminderSession::SendToTray() {
  if (inTray_) return WindowChange::kNone;
  if (!ports_.area.IsAvailable()) return WindowChange::kMinimize;
  return HideInTray(WindowChange::kMinimize);
}

WindowChange ReminderSession::HideInTray(WindowChange otherwise) {
  tIcon_.Visible(true);
  // An area that does not take the icon could not give the window back.
  if (!ports_.area.IsAvailable()) {
    tIcon_.Visible(false);
    return otherwise;
  }
  inTray_ = true;
  return WindowChange::kHide;
}

WindowChange ReminderSession::ScreensChanged(const Screens& screens,
                                             const WindowPlacement& window) {
  screens_ = screens;
  // A maximized window is seen to by the desktop.
  if (window.state == WindowState::kMaximized) return WindowChange::kNone;
  const WindowArea seen = AreaOnAScreen(window.area);
  if (seen == window.area) return WindowChange::kNone;
  placement_ = {false, seen};
  return WindowChange::kPlace;
}

WindowArea ReminderSession::AreaOnAScreen(const WindowArea& area) const {
  const bool stays = !screens_.canPlaceWindows || MeetsAScreen(area, screens_);
  return stays ? area : InTheMiddle(area, screens_);
}

WindowChange ReminderSession::Restore() {
  inTray_ = false;
  behindEditor_ = false;
  tIcon_.Visible(false);
  // A second build inside a first one, which only waits for an answer, would be one too many.
  if (!isBusy_ && Rebuild() == WindowChange::kEnd) return WindowChange::kEnd;
  listColours_ = DrawnColours();
  placement_.maximized = isTrue(Get(ports_.settings, settings::kMaximized));
  return WindowChange::kRestore;
}

WindowChange ReminderSession::EditorRestored() {
  // In the tray it is out of the way already, and a question needs the window that asks it.
  if (!ports_.editor.IsLoaded() || inTray_ || isBusy_) return WindowChange::kNone;
  behindEditor_ = true;
  return WindowChange::kHide;
}

bool ReminderSession::Close(WindowState window, CloseReason reason) {
  if (inTray_) window = WindowState::kMinimized;
  if (!ports_.alarms.MayClose(builder_->alarms(), ports_.clock.Now(), window, reason)) return false;
  if (ports_.editor.IsLoaded()) ports_.editor.Unload();
  tIcon_.Visible(false);
  ports_.instance.Release();
  return true;
}

std::optional<ReminderSession::Target> ReminderSession::TargetOf(int row) const {
  if (row < 0 || static_cast<std::size_t>(row) >= List1().size()) return std::nullopt;
  const auto at = static_cast<std::size_t>(row);
  return Target{std::string(List1()[at]),
                {builder_->ReminderLineMap()[at], std::string(builder_->rows()[at].rawLine)}};
}

WindowChange ReminderSession::DoubleClick(const WindowPlacement& window) {
  return OpenEditorOn(TargetOf(selectedRow_), window);
}

WindowChange ReminderSession::GoToEdit(const WindowPlacement& window) {
  return OpenEditor({}, window);
}

WindowChange ReminderSession::EditEvent(const WindowPlacement& window) {
  return OpenEditorOn(menuTarget_, window);
}

WindowChange ReminderSession::OpenEditorOn(const std::optional<Target>& target,
                                           const WindowPlacement& window) {
  if (!target) return WindowChange::kNone;
  if (Contains(target->text, "   <today")) {
    return OpenEditor({-1, true, {}}, window);
  }
  const auto line = FindEvent(ports_.files, EventsFilePath(), target->event);
  if (!line) return Rebuild();
  return OpenEditor({*line, false, target->event.rawLine}, window);
}

WindowChange ReminderSession::OpenEditor(const EditorRequest& request,
                                         const WindowPlacement& window) {
  SaveWindowPlacement(ports_.settings, window, screens_);
  ports_.editor.Open(request);
  // Where the editor cannot be shown, this window must not go.
  behindEditor_ = ports_.editor.IsLoaded();
  return behindEditor_ ? WindowChange::kHide : WindowChange::kNone;
}

PopupMenu ReminderSession::OpenMenu(int row) {
  selectedRow_ = row;
  menu_ = {};
  menuTarget_ = TargetOf(row);
  if (menuTarget_ && Contains(menuTarget_->text, "  <today")) menuTarget_.reset();
  if (!menuTarget_) return menu_;
  menu_.mnuEditEvent = true;
  menu_.mnuLine1 = true;
  menu_.mnuDeleteEvent = CanChangeFile();
  menu_.mnuHideThis = menu_.mnuDeleteEvent && !IsCounter(menuTarget_->text);
  menu_.mnuLine0 = menu_.mnuHideThis;
  return menu_;
}

// The editor's next save would undo a change that is made while an entry is under way.
bool ReminderSession::CanChangeFile() const {
  return !ports_.editor.IsLoaded() || !ports_.editor.IsEntryUnderWay();
}

WindowChange ReminderSession::HideThis() {
  return menu_.mnuHideThis ? ChangeTarget(HideEvent) : WindowChange::kNone;
}

WindowChange ReminderSession::DeleteThis() {
  return menu_.mnuDeleteEvent ? ChangeTarget(DeleteEvent) : WindowChange::kNone;
}

WindowChange ReminderSession::ChangeTarget(Status (*change)(FileSystem&, const std::string&,
                                                            const std::string&,
                                                            const ListedEvent&)) {
  if (!menuTarget_ || isBusy_ || !CanChangeFile()) return WindowChange::kNone;
  const Busy busy(isBusy_);
  const Status status =
      change(ports_.files, EventsFilePath(), ports_.folders.userData, menuTarget_->event);
  if (status.ok() && change == HideEvent) builder_->EventHidden(menuTarget_->event.rawLine);
  menuTarget_.reset();
  // Of a file that is gone the rebuild tells, but not while the editor works on it.
  if (!status.ok() && (status.kind() != StatusKind::kNotFound || ports_.editor.IsLoaded())) {
    ports_.messages.Show("The events file could not be changed:\n" + EventsFilePath(),
                         MessageButtons::kOk, MessageIcon::kExclamation);
  }
  // An editor that stands minimized or beside this window would go on with the old rows.
  if (status.ok() && ports_.editor.IsLoaded()) ports_.editor.Reload();
  return Rebuild();
}

void ReminderSession::SetTextSize(int size) {
  int points = (size + 4) * 2;
  if (points == 16) points = 18;
  Save(ports_.settings, settings::kFontSize, std::to_string(points));
  listFont_ = ApplyListFont(ports_.settings);
}

}  // namespace tidewarden
