// tidewarden: the desktop program.
#include <QApplication>
#include <QCommandLineParser>
#include <QPixmap>
#include <cstdio>

#include "core/ini_settings_store.h"
#include "dates/regional_text.h"
#include "platform/memory/memory_ports.h"
#include "platform/qt/qt_ports.h"
#include "platform/system.h"
#include "reminder/frm_reminder.h"
#include "reminder/reminder_session.h"
#include "tidewarden_version.h"

namespace {

using namespace tidewarden;

enum ExitCode { kDone = 0, kUsage = 2, kCannotRead = 3, kCannotWrite = 4 };

void Complain(const std::string& text) {
  const std::string line = "tidewarden: " + text + "\n";
  // Nobody is left to hear that standard error is closed.
  static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

// For a run that only takes a picture: there is nobody to press OK.
class StandardErrorMessages : public MessageBox {
 public:
  MessageAnswer Show(const std::string& text, MessageButtons /*buttons*/,
                     MessageIcon /*icon*/) override {
    Complain(text);
    return MessageAnswer::kOk;
  }
};

// The system's clock, or one that stands at the day and time of the command line.
class StartClock : public Clock {
 public:
  StartClock(const Clock& system, std::optional<CivilDate> today, std::optional<int> now)
      : system_(system), today_(today), now_(now) {}

  [[nodiscard]] LocalTime Now() const override {
    LocalTime time = system_.Now();
    if (today_) time.date = *today_;
    if (now_) time = {time.date, *now_ / 100, *now_ % 100, 0};
    return time;
  }

 private:
  const Clock& system_;
  std::optional<CivilDate> today_;
  std::optional<int> now_;
};

struct Arguments {
  QString file;
  QString settings;
  QString shortDate;
  QString grab;
  std::optional<CivilDate> today;
  std::optional<int> now;
};

// Reads the command line, or explains what is wrong with it and gives the exit code. --help and
// --version end the program here.
std::optional<ExitCode> ReadArguments(const QApplication& app, Arguments& out) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Tidewarden shows what is coming."));
  parser.addHelpOption();
  parser.addVersionOption();
  const auto option = [&](const char* name, const char* description, const char* value) {
    parser.addOption(
        {QString::fromLatin1(name), QString::fromLatin1(description), QString::fromLatin1(value)});
  };
  option("file", "The events file; else the one in the settings.", "path");
  option("settings", "A settings file in place of your own.", "path");
  option("today", "Take this day for today.", "YYYY-MM-DD");
  option("now", "Take this time of day for now.", "HH:MM");
  option("short-date", "Write dates like this, for example dd.MM.yyyy.", "pattern");
  option("grab", "Write a picture of the reminder window and end.", "FILE.png");
  parser.process(app);
  const auto value = [&](const char* name) { return parser.value(QString::fromLatin1(name)); };
  out.file = value("file");
  out.settings = value("settings");
  out.shortDate = value("short-date");
  out.grab = value("grab");
  const std::string today = value("today").toStdString();
  const std::string now = value("now").toStdString();
  out.today = ReadIsoDate(today);
  out.now = ReadClockTime(now);
  if (!today.empty() && !out.today) {
    Complain("--today takes a date such as 2026-12-31, not \"" + today + "\"");
    return kUsage;
  }
  if (!now.empty() && !out.now) {
    Complain("--now takes a time such as 08:30, not \"" + now + "\"");
    return kUsage;
  }
  return std::nullopt;
}

int Run(const Arguments& arguments) {
  const bool onlyPicture = !arguments.grab.isEmpty();
  const auto files = MakeSystemFiles();
  const auto systemClock = MakeSystemClock();
  const StartClock clock(*systemClock, arguments.today, arguments.now);
  const auto formats = MakeSystemFormats(arguments.shortDate.toStdString());
  QtMessageBox boxes;
  StandardErrorMessages lines;
  MessageBox& messages = onlyPicture ? static_cast<MessageBox&>(lines) : boxes;
  QtShiftKey shiftKey;

  std::unique_ptr<SettingsStore> settings =
      arguments.settings.isEmpty()
          ? MakeSystemSettings(*files)
          : std::make_unique<IniSettingsStore>(*files, arguments.settings.toStdString());
  const std::string path = arguments.file.isEmpty()
                               ? LocateEventsFile(*settings, *files, SystemFolders())
                               : arguments.file.toStdString();
  const auto format = DetectRegionalDateFormat(formats->ShortDate(kProbeDate), *formats);
  if (!format) {
    messages.Show(std::string(kUnsupportedLayoutMessage), MessageButtons::kOk, MessageIcon::kNone);
    return kDone;
  }

  ReminderSession session({*settings, *files, clock, messages, shiftKey}, *format, path,
                          FileAccess::kUpdate);
  session.ReadTodayPreface();
  frmReminder window(session);
  const bool shown = window.Rebuild();
  if (!session.readStatus().ok()) {
    Complain(path + ": " + DescribeStatus(session.readStatus()));
  }
  if (!session.writeStatus().ok()) {
    Complain(path + ": cannot be changed: " + DescribeStatus(session.writeStatus()));
  }
  if (!shown) return kDone;
  if (onlyPicture) {
    window.show();
    QApplication::processEvents();
    if (window.grab().save(arguments.grab)) return kDone;
    Complain(arguments.grab.toStdString() + ": the picture cannot be written");
    return kCannotWrite;
  }
  window.show();
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("tidewarden"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TIDEWARDEN_VERSION));
  Arguments arguments;
  if (const auto code = ReadArguments(app, arguments)) return *code;
  return Run(arguments);
}
