#include "app/arguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <array>
#include <cstdio>

#include "app/start_clock.h"
#include "dates/regional_text.h"

namespace tidewarden {
namespace {

struct Option {
  const char* name;
  const char* description;
  const char* value;
};

constexpr std::array<Option, 6> kOptions{
    {{"file", "The events file; else the one in the settings.", "path"},
     {"settings", "A settings file in place of your own; created when missing.", "path"},
     {"today", "Start on this day; the clock runs on from there.", "YYYY-MM-DD"},
     {"now", "Start at this time of day; the clock runs on from there.", "HH:MM[:SS]"},
     {"short-date", "Write dates like this, for example dd.MM.yyyy.", "pattern"},
     {"grab", "Write a picture of the reminder window and end.", "FILE.png"}}};

// Where Qt sees no console it would show a box to press OK in, to a waiting script too; a box is
// for those alone who have no standard output.
void ShowHelp(QCommandLineParser& parser) {
  const std::string text = parser.helpText().toStdString();
  if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) parser.showHelp(kDone);
}

void ShowVersion(QCommandLineParser& parser) {
  const std::string text = QCoreApplication::applicationName().toStdString() + " " +
                           QCoreApplication::applicationVersion().toStdString() + "\n";
  if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) parser.showVersion();
}

}  // namespace

void Complain(const std::string& text) {
  const std::string line = "tidewarden: " + text + "\n";
  // Nobody is left to hear that standard error is closed.
  static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

std::optional<ExitCode> ReadArguments(Arguments& out) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Tidewarden shows what is coming."));
  parser.addHelpOption();
  parser.addVersionOption();
  for (const Option& option : kOptions) {
    parser.addOption({QString::fromLatin1(option.name), QString::fromLatin1(option.description),
                      QString::fromLatin1(option.value)});
  }
  if (!parser.parse(QCoreApplication::arguments())) {
    Complain(parser.errorText().toStdString() + "; --help tells what there is");
    return kUsage;
  }
  if (parser.isSet(QStringLiteral("help"))) {
    ShowHelp(parser);
    return kDone;
  }
  if (parser.isSet(QStringLiteral("version"))) {
    ShowVersion(parser);
    return kDone;
  }
  if (!parser.positionalArguments().isEmpty()) {
    Complain("\"" + parser.positionalArguments().constFirst().toStdString() +
             "\" is not an option; an events file is named by --file");
    return kUsage;
  }
  const auto value = [&](const char* name) { return parser.value(QString::fromLatin1(name)); };
  for (const Option& option : kOptions) {
    // An empty text is more likely a slip in a script than an option left out on purpose.
    if (parser.isSet(QString::fromLatin1(option.name)) && value(option.name).isEmpty()) {
      Complain(std::string("--") + option.name + " must not be empty");
      return kUsage;
    }
  }
  out.file = value("file");
  out.settings = value("settings");
  out.shortDate = value("short-date");
  out.grab = value("grab");
  const std::string today = value("today").toStdString();
  const std::string now = value("now").toStdString();
  out.today = ReadIsoDate(today);
  out.now = ReadStartTime(now);
  if (!today.empty() && (!out.today || YearOf(*out.today) < 1 || YearOf(*out.today) >= kLastYear)) {
    Complain("--today takes a date such as 2026-12-31, not \"" + today + "\"");
    return kUsage;
  }
  if (!now.empty() && !out.now) {
    Complain("--now takes a time such as 08:30, not \"" + now + "\"");
    return kUsage;
  }
  return std::nullopt;
}

}  // namespace tidewarden
