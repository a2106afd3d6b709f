// tidewarden: the desktop program.
#include <QApplication>
#include <QDesktopServices>
#include <QIcon>
#include <QPixmap>
#include <QTimer>
#include <QUrl>

#include "app/arguments.h"
#include "app/start_clock.h"
#include "core/ini_settings_store.h"
#include "platform/memory/memory_notification_area.h"
#include "platform/memory/memory_reminder.h"
#include "platform/memory/memory_sound.h"
#include "platform/qt/program_icon.h"
#include "platform/qt/qt_notification_area.h"
#include "platform/qt/qt_ports.h"
#include "platform/qt/qt_screens.h"
#include "platform/system.h"
#include "reminder/frm_reminder.h"
#include "reminder/reminder_session.h"
#include "tidewarden_version.h"

namespace {

using namespace tidewarden;

// For a run that only takes a picture: there is nobody to press OK.
class StandardErrorMessages : public MessageBox {
 public:
  MessageAnswer Show(const std::string& text, MessageButtons /*buttons*/,
                     MessageIcon /*icon*/) override {
    Complain(text);
    return MessageAnswer::kOk;
  }
};

// The desktop's own program for text files, which is never "loaded": the reminder window stays
// beside it.
class TextFileEditor : public MemoryEditorWindow {
 public:
  std::string path;
  void Open(const EditorRequest& /*request*/) override {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
  }
};

// Everything that the windows stand on.
class Desktop {
 public:
  explicit Desktop(const Arguments& arguments)
      : arguments_(arguments),
        clock_(*systemClock_, arguments.today, arguments.now),
        formats_(MakeSystemFormats(arguments.shortDate.toStdString())),
        settings_(arguments.settings.isEmpty() ? MakeSystemSettings(*files_)
                                               : std::make_unique<IniSettingsStore>(
                                                     *files_, arguments.settings.toStdString())),
        instance_(MakePreviousInstance(*files_, arguments.settings.toStdString())),
        alarms_({*settings_, *files_, sound_, Messages()}, SystemFolders()),
        session_({*settings_, *files_, clock_, Messages(), shiftKey_, *formats_, Instance(), Area(),
                  random_, editor_, alarms_, SystemFolders()}) {
    session_.Complain = Complain;
  }

  int Run() {
    if (session_.Load(DesktopScreens(), arguments_.file.toStdString()) == WindowChange::kEnd) {
      return kDone;
    }
    editor_.path = session_.EventsFilePath();
    frmReminder window(session_);
    if (OnlyPicture()) return Grab(window);

    TrayIcon& icon = session_.tIcon();
    icon.Icon(area_.AddIcon(QApplication::windowIcon()));
    icon.MouseUp = [&window](TrayButton /*button*/) { window.RestoreFromTray(); };
    area_.Mouse = [&icon](IconMouseMessage message) {
      icon.HandleCallback(static_cast<double>(message), 1);
    };
    QObject::connect(&window, &frmReminder::Ended, [] { QApplication::exit(kDone); });
    window.Start();
    return QApplication::exec();
  }

 private:
  [[nodiscard]] bool OnlyPicture() const { return !arguments_.grab.isEmpty(); }

  // A picture can be taken beside a running program, and leaves no trace on the desktop.
  MessageBox& Messages() { return OnlyPicture() ? static_cast<MessageBox&>(lines_) : boxes_; }
  PreviousInstance& Instance() {
    return OnlyPicture() ? static_cast<PreviousInstance&>(noInstance_) : *instance_;
  }
  NotificationArea& Area() {
    return OnlyPicture() ? static_cast<NotificationArea&>(noArea_) : area_;
  }

  int Grab(frmReminder& window) {
    window.Start();
    QApplication::processEvents();
    if (window.grab().save(arguments_.grab)) return kDone;
    Complain(arguments_.grab.toStdString() + ": the picture cannot be written");
    return kCannotWrite;
  }

  const Arguments& arguments_;
  std::unique_ptr<FileSystem> files_ = MakeSystemFiles();
  std::unique_ptr<Clock> systemClock_ = MakeSystemClock();
  StartClock clock_;
  std::unique_ptr<RegionalFormats> formats_;
  std::unique_ptr<SettingsStore> settings_;
  QtMessageBox boxes_;
  StandardErrorMessages lines_;
  QtShiftKey shiftKey_;
  std::unique_ptr<PreviousInstance> instance_;
  MemoryPreviousInstance noInstance_;
  QtNotificationArea area_;
  MemoryNotificationArea noArea_;
  SplitMixNumbers random_;
  TextFileEditor editor_;
  MemorySoundPlayer sound_;
  AlarmSession alarms_;
  ReminderSession session_;
};

}  // namespace

int main(int argc, char** argv) {
  // Only X11 lets a window choose its place and stay above others; Wayland where there is no X11.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    const bool hasX11 = !qEnvironmentVariableIsEmpty("DISPLAY");
    qputenv("QT_QPA_PLATFORM", hasX11 ? "xcb;wayland" : "wayland;xcb");
  }
  QApplication app(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("tidewarden"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TIDEWARDEN_VERSION));
  QGuiApplication::setDesktopFileName(QStringLiteral("tidewarden"));
  // The reminder window may be in the notification area while another one closes.
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ProgramIcon());
  Arguments arguments;
  if (const auto code = ReadArguments(app, arguments)) return *code;
  return Desktop(arguments).Run();
}
