// customizer: the options program. It changes the settings of the reminder program, which it can
// also start.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QProcess>
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/start_clock.h"
#include "app/system_adapters.h"
#include "app/words_to_caller.h"
#include "core/ini_settings_store.h"
#include "customizer/frm_customizer.h"
#include "customizer/options_session.h"
#include "dates/regional_text.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_reminder.h"
#include "platform/qt/box_outline.h"
#include "platform/qt/program_icon.h"
#include "platform/qt/qt_ports.h"
#include "platform/qt/window_picture.h"
#include "platform/system.h"
#include "tidewarden_version.h"

namespace tidewarden {
namespace {

enum ExitCode { kDone = 0, kNoDisplay = 1, kUsage = 2, kCannotRead = 3, kCannotWrite = 4 };

struct Arguments {
  QString settings;
  QString file;
  QString grab;
  std::optional<CivilDate> today;
  std::optional<int> now;  // seconds since midnight
  OptionPage page = OptionPage::kList;
};

void Complain(const std::string& text) {
  const std::string line = "customizer: " + text + "\n";
  // Nobody is left to hear that standard error is closed.
  static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

std::string PageWords() {
  std::string words;
  for (const PageName& page : AllPages()) {
    words += (words.empty() ? "" : ", ") + std::string(page.word);
  }
  return words;
}

bool ReadPage(const std::string& word, OptionPage& page) {
  const auto pages = AllPages();
  const auto found = std::find_if(pages.begin(), pages.end(),
                                  [&word](const PageName& name) { return name.word == word; });
  if (found != pages.end()) page = found->page;
  return found != pages.end();
}

struct Argument {
  const char* name;
  const char* description;
  const char* value;
};

constexpr std::array<Argument, 6> kArguments{
    {{"settings", "A settings file in place of your own; created when missing.", "path"},
     {"file", "The events file of the preview; else the one in the settings.", "path"},
     {"page", "Begin with this page: ", "page"},
     {"today", "The day of the preview; the clock runs on from there.", "YYYY-MM-DD"},
     {"now", "The time of day of the preview; the clock runs on from there.", "HH:MM[:SS]"},
     {"grab", "Write a picture of the window and end.", "FILE.png"}}};

// Puts the texts of the command line together; what is wrong with them, or nothing.
std::string ReadTexts(const QCommandLineParser& parser, Arguments& out) {
  if (!parser.positionalArguments().isEmpty()) {
    return "\"" + parser.positionalArguments().constFirst().toStdString() + "\" is not an option";
  }
  const auto value = [&](const char* name) { return parser.value(QString::fromLatin1(name)); };
  for (const Argument& argument : kArguments) {
    // An empty text is more likely a slip in a script than an option left out on purpose.
    if (parser.isSet(QString::fromLatin1(argument.name)) && value(argument.name).isEmpty()) {
      return std::string("--") + argument.name + " must not be empty";
    }
  }
  out.settings = value("settings");
  out.file = value("file");
  out.grab = value("grab");
  const std::string today = value("today").toStdString();
  out.today = ReadIsoDate(today);
  if (!today.empty() && !out.today) {
    return "--today takes a date such as 2026-12-31, not \"" + today + "\"";
  }
  const std::string now = value("now").toStdString();
  out.now = ReadStartTime(now);
  if (!now.empty() && !out.now) {
    return "--now takes a time such as 08:30, not \"" + now + "\"";
  }
  const std::string page = value("page").toStdString();
  if (!page.empty() && !ReadPage(page, out.page)) {
    return "--page takes one of " + PageWords() + ", not \"" + page + "\"";
  }
  return {};
}

std::optional<ExitCode> ReadArguments(Arguments& out) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("The options of Tidewarden."));
  parser.addHelpOption();
  parser.addVersionOption();
  for (const Argument& argument : kArguments) {
    QString description = QString::fromLatin1(argument.description);
    if (argument.name == std::string_view("page")) {
      description += QString::fromStdString(PageWords()) + QLatin1Char('.');
    }
    parser.addOption(
        {QString::fromLatin1(argument.name), description, QString::fromLatin1(argument.value)});
  }
  std::string fault;
  if (!parser.parse(QCoreApplication::arguments())) {
    fault = parser.errorText().toStdString();
  } else {
    if (const auto code = AnswerAboutProgram(parser)) return static_cast<ExitCode>(*code);
    fault = ReadTexts(parser, out);
  }
  if (fault.empty()) return std::nullopt;
  TellRefusal("customizer: " + fault + "; --help tells what there is");
  return kUsage;
}

class Customizer {
 public:
  explicit Customizer(const Arguments& arguments)
      : arguments_(arguments),
        files_(MakeSystemFiles()),
        systemClock_(MakeSystemClock()),
        clock_(*systemClock_, arguments.today, arguments.now),
        formats_(MakeSystemFormats({})),
        settings_(SettingsOf(arguments, *files_)),
        sound_(MakeSystemSound([this](const std::string& text) { TellSoundProblem(text); })),
        autostart_(MakeAutostart(*files_)) {}

  int Run() {
    std::string anyValue;
    const Status status = settings_->Read("Settings", "Path", anyValue);
    if (!status.ok()) return TellUnreadable(status);
    reminder_ = ReminderOf(arguments_, *files_);
    session_.emplace(CustomizerPorts{*settings_, *files_, examples_, clock_, *formats_, *sound_,
                                     boxes_, *autostart_, *reminder_, SystemFolders()},
                     arguments_.file.toStdString());
    session_->StartReminder = [this] { return StartReminder(); };
    session_->StartHelp = &StartHelp;
    frmCustomizer window(*session_);
    window.ShowPage(arguments_.page);
    window.show();
    if (!arguments_.grab.isEmpty()) return Grab(window);
    QObject::connect(&window, &frmCustomizer::Ended, [] { QApplication::exit(kDone); });
    LeaveCaller();
    return QApplication::exec();
  }

 private:
  static std::unique_ptr<SettingsStore> SettingsOf(const Arguments& arguments, FileSystem& files) {
    if (arguments.settings.isEmpty()) return MakeSystemSettings(files);
    return std::make_unique<IniSettingsStore>(files, arguments.settings.toStdString());
  }

  static std::unique_ptr<PreviousInstance> ReminderOf(const Arguments& arguments,
                                                      FileSystem& files) {
    // A picture leaves no file behind but itself.
    if (!arguments.grab.isEmpty()) return std::make_unique<MemoryPreviousInstance>();
    return MakePreviousInstance(files, arguments.settings.toStdString());
  }

  // Without the settings there is nothing to show, and nothing may be written.
  int TellUnreadable(const Status& status) {
    const std::string named =
        arguments_.settings.isEmpty() ? "" : " in " + arguments_.settings.toStdString();
    const std::string text =
        "The settings" + named + " cannot be read: " + DescribeStatus(status) + ".";
    Complain(text);
    if (arguments_.grab.isEmpty()) {
      boxes_.Show(text, MessageButtons::kOk, MessageIcon::kExclamation);
    }
    return kCannotRead;
  }

  // On the same settings and events, and for as long as it likes.
  [[nodiscard]] bool StartReminder() const {
    QStringList same;
    const auto pass = [&same](const char* name, const QString& path) {
      // The reminder runs in another folder.
      if (!path.isEmpty()) same << QString::fromLatin1(name) << QDir().absoluteFilePath(path);
    };
    pass("--settings", arguments_.settings);
    pass("--file", arguments_.file);
    return QProcess::startDetached(QString::fromStdString(ReminderProgram()), same,
                                   QDir::rootPath());
  }

  [[nodiscard]] static bool StartHelp() {
    const ProgramFolders folders = SystemFolders();
    // Windows need not add the ending to a name with a folder.
    const bool hasEnding = folders.style == PathStyle::kWindows;
    const std::string program =
        JoinPath(folders.program, hasEnding ? "twdocs.exe" : "twdocs", folders.style);
    return QProcess::startDetached(QString::fromStdString(program), {QStringLiteral("options")},
                                   QDir::rootPath());
  }

  void TellSoundProblem(const std::string& text) {
    Complain(text);
    if (session_) session_->TellSoundProblem(text);
  }

  int Grab(frmCustomizer& window) {
    QApplication::processEvents();
    if (SaveWindowPicture(window, *files_, arguments_.grab.toStdString()).ok()) return kDone;
    Complain(arguments_.grab.toStdString() + ": the picture cannot be written");
    return kCannotWrite;
  }

  const Arguments& arguments_;
  std::unique_ptr<FileSystem> files_;
  MemoryFileSystem examples_;
  std::unique_ptr<Clock> systemClock_;
  StartClock clock_;
  std::unique_ptr<RegionalFormats> formats_;
  std::unique_ptr<SettingsStore> settings_;
  std::unique_ptr<SoundPlayer> sound_;
  QtMessageBox boxes_;
  std::unique_ptr<Autostart> autostart_;
  std::unique_ptr<PreviousInstance> reminder_;
  std::optional<OptionsSession> session_;
};

}  // namespace
}  // namespace tidewarden

int main(int argc, char** argv) {
  using namespace tidewarden;
  if (!PrepareDesktop(argc, argv, WindowPlaces::kDesktop)) {
    Complain(
        "there is no display to open a window on; man tidewarden-settings tells how to write the "
        "settings yourself");
    return kNoDisplay;
  }
  QApplication app(argc, argv);
  SettleDesktop(app);
  OutlineCheckBoxes(app);
  QCoreApplication::setApplicationName(QStringLiteral("customizer"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TIDEWARDEN_VERSION));
  QGuiApplication::setDesktopFileName(QStringLiteral("customizer"));
  // The window tells itself when it has gone; a message box before it is not the last.
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ProgramIcon());
  Arguments arguments;
  if (const auto code = ReadArguments(arguments)) return *code;
  return Customizer(arguments).Run();
}
