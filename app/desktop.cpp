#include "app/desktop.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

#include <chrono>

#include "alarm/frm_alarm.h"
#include "app/order_page.h"
#include "app/words_to_caller.h"
#include "core/ini_settings_store.h"
#include "core/skin.h"
#include "editor/launchers.h"
#include "editor/page_printer.h"
#include "platform/qt/qt_screens.h"
#include "platform/qt/window_picture.h"
#include "platform/system.h"
#include "reminder/frm_reminder.h"
#include "tidewarden_version.h"

namespace tidewarden {
namespace {

using namespace std::chrono_literals;

// The first sound loads its libraries and opens the device, and nothing is painted meanwhile.
constexpr auto kUntilPainted = 150ms;

std::unique_ptr<SettingsStore> SettingsOf(const Arguments& arguments, FileSystem& files) {
  if (arguments.settings.isEmpty()) return MakeSystemSettings(files);
  return std::make_unique<IniSettingsStore>(files, arguments.settings.toStdString());
}

// Only a copy that is used counts; the mere making of the lock leaves a file.
std::unique_ptr<PreviousInstance> InstanceOf(const Arguments& arguments, FileSystem& files) {
  if (!arguments.grab.isEmpty()) return std::make_unique<MemoryPreviousInstance>();
  return MakePreviousInstance(files, arguments.settings.toStdString());
}

}  // namespace

MessageAnswer Desktop::StandardErrorMessages::Show(const std::string& text,
                                                   MessageButtons /*buttons*/,
                                                   MessageIcon /*icon*/) {
  Complain(text);
  return MessageAnswer::kOk;
}

Desktop::Desktop(const Arguments& arguments)
    : arguments_(arguments),
      files_(MakeSystemFiles()),
      systemClock_(MakeSystemClock()),
      clock_(*systemClock_, arguments.today, arguments.now),
      formats_(MakeSystemFormats(arguments.shortDate.toStdString())),
      settings_(SettingsOf(arguments, *files_)),
      settingsOfPicture_(*settings_),
      shiftKey_(MakeSystemShiftKey()),
      instance_(InstanceOf(arguments, *files_)),
      tray_(MakeProgramTray()),
      sound_(MakeSystemSound(Complain)),
      shell_(MakeSystemShell()),
      end_(MakeProgramEnd()),
      editor_({Settings(), *files_, clock_, Messages()}),
      alarms_({Settings(), *files_, *sound_, Messages()}, SystemFolders()),
      session_({Settings(), *files_, clock_, Messages(), Shift(), *formats_, *instance_, Area(),
                random_, editor_, alarms_, SystemFolders()}) {
  session_.Complain = Complain;
  heldShift_.down = true;
}

Desktop::~Desktop() = default;

MessageBox& Desktop::Messages() {
  return OnlyPicture() ? static_cast<MessageBox&>(lines_) : boxes_;
}

SettingsStore& Desktop::Settings() {
  return OnlyPicture() ? static_cast<SettingsStore&>(settingsOfPicture_) : *settings_;
}

NotificationArea& Desktop::Area() {
  return OnlyPicture() ? static_cast<NotificationArea&>(noArea_) : *tray_.area;
}

// Who asks for a picture wants to see it, as one who holds Shift wants to see an empty list.
ShiftKey& Desktop::Shift() {
  return OnlyPicture() ? static_cast<ShiftKey&>(heldShift_) : *shiftKey_;
}

int Desktop::Run() {
  if (const auto code = LookAtSettings()) return *code;
  if (const auto code = LookAtLayout()) return *code;
  const StartFor startFor = OnlyPicture() ? StartFor::kPicture : StartFor::kUse;
  if (session_.Load(DesktopScreens(), arguments_.file.toStdString(), startFor) ==
      WindowChange::kEnd) {
    // Without a picture the one that was asked for is missing.
    return OnlyPicture() ? kUsage : kDone;
  }
  return OnlyPicture() ? Grab() : ShowWindows();
}

int Desktop::ShowWindows() {
  LeaveCaller();
  frmReminder window(session_);
  ConnectTray(window);
  const QtScreenWatch screens;
  QObject::connect(&screens, &QtScreenWatch::Changed, &window, [this, &window] {
    window.ScreensChanged(DesktopScreens());
    if (alarmWindow_) alarmWindow_->ScreensChanged();
    editor_.ScreensChanged();
  });
  // An alarm that waits for its OK stays above the list of the new day.
  QObject::connect(&window, &frmReminder::PoppedUp, [this] {
    if (alarmWindow_ && alarmWindow_->isVisible()) alarmWindow_->ComeForward();
  });
  session_.ShowAlarm = [this] { ShowAlarm(); };
  QTimer untilPainted;
  untilPainted.setSingleShot(true);
  untilPainted.setInterval(kUntilPainted);
  QObject::connect(&untilPainted, &QTimer::timeout, &window, [this] { SoundAlarm(); });
  session_.SoundAlarm = [&untilPainted] { untilPainted.start(); };
  editor_.MakeParts = [this, &window] { return EditorParts(window); };
  QObject::connect(&window, &frmReminder::Ended, [this] {
    CloseAlarm();
    QApplication::exit(kDone);
  });
  window.Start();
  return QApplication::exec();
}

void Desktop::ConnectTray(frmReminder& window) {
  TrayIcon& icon = session_.tIcon();
  icon.Icon(tray_.icon);
  icon.MouseUp = [&window](TrayButton /*button*/) { window.RestoreFromTray(); };
  tray_.area->Mouse = [&icon](IconMouseMessage message) {
    icon.HandleCallback(static_cast<double>(message), 1);
  };
}

EditorOfProgram::Parts Desktop::EditorParts(frmReminder& window) {
  EditorOfProgram::Parts parts;
  parts.hooks.print = [this](const std::vector<EventRow>& rows) { Print(rows); };
  parts.hooks.help = [this] { StartHelp(*shell_, SystemFolders()); };
  parts.hooks.options = [this] { EndWithOptions(); };
  if (IsOrderPage(kOrderPage)) {
    parts.hooks.donate = [this] { OpenOrderPage(*shell_, kOrderPage, SystemFolders().style); };
  }
  parts.hooks.showReminder = [&window] { window.Return(); };
  parts.hooks.hideReminder = [&window] { window.EditorRestored(); };
  parts.format = session_.builder().format();
  parts.setup.eventsFilePath = session_.EventsFilePath();
  parts.setup.rescueFolder = SystemFolders().userData;
  parts.setup.majorVersion = TIDEWARDEN_VERSION_MAJOR;
  parts.setup.minorVersion = TIDEWARDEN_VERSION_MINOR;
  parts.skin = session_.skin();
  return parts;
}

void Desktop::Print(const std::vector<EventRow>& rows) {
  PrintEvents({*settings_, *files_, *formats_, Messages(), *shell_}, rows,
              session_.builder().format(),
              {GetCommonDataFolder(), GetLocalDataFolder(), SystemFolders().style});
}

void Desktop::EndWithOptions() {
  settings_->Flush();
  const auto release = [this] {
    session_.tIcon().Visible(false);
    instance_->Release();
  };
  ChangeToOptions({*files_, *shell_, *end_, release}, SystemFolders());
}

void Desktop::ShowAlarm() {
  if (!alarmWindow_) alarmWindow_ = std::make_unique<frmAlarm>(alarms_);
  if (!alarmWindow_->isVisible()) {
    alarmWindow_->ApplySkin(QString::fromStdString(ReadSkin(*settings_, *files_, SystemFolders())));
  }
  alarmWindow_->ShowMessages();
}

void Desktop::SoundAlarm() {
  if (!alarms_.AlarmText().empty()) alarms_.PlayAlarmSound();
}

// Messages that nobody has acknowledged go with the program.
void Desktop::CloseAlarm() {
  if (alarmWindow_) alarmWindow_->close();
}

// A settings file that was asked for must be readable; without the user's own the program runs
// with defaults and says so.
std::optional<ExitCode> Desktop::LookAtSettings() {
  std::string anyValue;
  const Status status = settings_->Read("Settings", "Path", anyValue);
  if (status.ok()) return std::nullopt;
  if (!arguments_.settings.isEmpty()) {
    return Refuse(kCannotRead, arguments_.settings.toStdString() + ": " + DescribeStatus(status));
  }
  Complain("your settings cannot be read, so the defaults are used: " + DescribeStatus(status));
  return std::nullopt;
}

// A layout of the command line is answered there, not as the system's.
std::optional<ExitCode> Desktop::LookAtLayout() {
  if (arguments_.shortDate.isEmpty() ||
      DetectRegionalDateFormat(formats_->ShortDate(kProbeDate), *formats_)) {
    return std::nullopt;
  }
  return Refuse(kUsage,
                "--short-date \"" + arguments_.shortDate.toStdString() +
                    "\" is not supported; use day, month and year in digits, such as MM/dd/yyyy");
}

int Desktop::Grab() {
  // Of a file that cannot be read there is nothing to see; the session has told why.
  if (!session_.builder().readStatus().ok()) return kCannotRead;
  frmReminder window(session_);
  window.setAttribute(Qt::WA_DontShowOnScreen);
  window.Start();
  // Off the screen nobody makes it as large as the screen.
  if (session_.placement().maximized) {
    window.resize(QApplication::primaryScreen()->availableSize());
  }
  QApplication::processEvents();
  if (SaveWindowPicture(window, *files_, arguments_.grab.toStdString()).ok()) return kDone;
  Complain(arguments_.grab.toStdString() + ": the picture cannot be written");
  return kCannotWrite;
}

}  // namespace tidewarden
