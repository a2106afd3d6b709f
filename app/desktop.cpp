#include "app/desktop.h"

#include <QApplication>

#include "alarm/frm_alarm.h"
#include "core/ini_settings_store.h"
#include "core/skin.h"
#include "platform/qt/qt_screens.h"
#include "platform/qt/window_picture.h"
#include "platform/system.h"
#include "reminder/frm_reminder.h"
#include "tidewarden_version.h"

namespace tidewarden {
namespace {

std::unique_ptr<SettingsStore> SettingsOf(const Arguments& arguments, FileSystem& files) {
  if (arguments.settings.isEmpty()) return MakeSystemSettings(files);
  return std::make_unique<IniSettingsStore>(files, arguments.settings.toStdString());
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
      shiftKey_(MakeSystemShiftKey()),
      instance_(MakePreviousInstance(*files_, arguments.settings.toStdString())),
      tray_(MakeProgramTray()),
      sound_(MakeSystemSound(Complain)),
      editor_({*settings_, *files_, clock_, Messages()}),
      alarms_({*settings_, *files_, *sound_, Messages()}, SystemFolders()),
      session_({*settings_, *files_, clock_, Messages(), *shiftKey_, *formats_, Instance(), Area(),
                random_, Editor(), alarms_, SystemFolders()}) {
  session_.Complain = Complain;
}

Desktop::~Desktop() = default;

// A picture can be taken beside a running program, and leaves no trace on the desktop.
MessageBox& Desktop::Messages() {
  return OnlyPicture() ? static_cast<MessageBox&>(lines_) : boxes_;
}

PreviousInstance& Desktop::Instance() {
  return OnlyPicture() ? static_cast<PreviousInstance&>(noInstance_) : *instance_;
}

NotificationArea& Desktop::Area() {
  return OnlyPicture() ? static_cast<NotificationArea&>(noArea_) : *tray_.area;
}

// For a picture the file stays as it is, as if an editor worked on it.
EditorWindow& Desktop::Editor() {
  noEditor_.loaded = OnlyPicture();
  return OnlyPicture() ? static_cast<EditorWindow&>(noEditor_) : editor_;
}

int Desktop::Run() {
  if (const auto code = LookAtSettings()) return *code;
  if (const auto code = LookAtLayout()) return *code;
  if (session_.Load(DesktopScreens(), arguments_.file.toStdString()) == WindowChange::kEnd) {
    return kDone;
  }
  return ShowWindows();
}

int Desktop::ShowWindows() {
  frmReminder window(session_);
  if (OnlyPicture()) return Grab(window);
  ConnectTray(window);
  session_.ShowAlarm = [this] { ShowAlarm(); };
  editor_.MakeParts = [this, &window] { return EditorParts(window); };
  QObject::connect(&window, &frmReminder::Ended, [this] {
    CloseAlarm();
    QApplication::exit(kDone);
  });
  window.Start();
  session_.tIcon().OwnerForm = static_cast<WindowHandle>(window.winId());
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
  const auto notYet = [this](const char* what) {
    return [this, what] {
      Messages().Show(std::string(what) + " not there yet.", MessageButtons::kOk,
                      MessageIcon::kNone);
    };
  };
  parts.hooks.print = notYet("Printing is");
  parts.hooks.help = notYet("The help program is");
  parts.hooks.options = notYet("The options program is");
  parts.hooks.showReminder = [&window] { window.Return(); };
  parts.format = session_.builder().format();
  parts.setup.eventsFilePath = session_.EventsFilePath();
  parts.setup.rescueFolder = SystemFolders().userData;
  parts.setup.majorVersion = TIDEWARDEN_VERSION_MAJOR;
  parts.setup.minorVersion = TIDEWARDEN_VERSION_MINOR;
  parts.skin = session_.skin();
  return parts;
}

void Desktop::ShowAlarm() {
  if (!alarmWindow_) alarmWindow_ = std::make_unique<frmAlarm>(alarms_);
  if (!alarmWindow_->isVisible()) {
    alarmWindow_->ApplySkin(QString::fromStdString(ReadSkin(*settings_, *files_, SystemFolders())));
  }
  alarmWindow_->ShowMessages();
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
    Complain(arguments_.settings.toStdString() + ": " + DescribeStatus(status));
    return kCannotRead;
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
  Complain("--short-date \"" + arguments_.shortDate.toStdString() +
           "\" is not supported; use day, month and year in digits, such as MM/dd/yyyy");
  return kUsage;
}

int Desktop::Grab(frmReminder& window) {
  window.Start();
  QApplication::processEvents();
  if (SaveWindowPicture(window, *files_, arguments_.grab.toStdString()).ok()) return kDone;
  Complain(arguments_.grab.toStdString() + ": the picture cannot be written");
  return kCannotWrite;
}

}  // namespace tidewarden
