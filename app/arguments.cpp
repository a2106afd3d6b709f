#include "app/arguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <array>
#include <cstdio>

#include "app/start_clock.h"
#include "app/words_to_caller.h"
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

}  // namespace

void Complain(const std::string& text) {
  const std::string line = "tidewarden: " + text + "\n";
  // Nobody is left to hear that standard error is closed.
  static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

ExitCode Refuse(ExitCode code, const std::string& text) {
  TellRefusal("tidewarden: " + text);
  return code;
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
    return Refuse(kUsage, parser.errorText().toStdString() + "; --help tells what there is");
  }
  if (const auto code = AnswerAboutProgram(parser)) return static_cast<ExitCode>(*code);
  if (!parser.positionalArguments().isEmpty()) {
    return Refuse(kUsage, "\"" + parser.positionalArguments().constFirst().toStdString() +
                              "\" is not an option; an events file is named by --file");
  }
  const auto value = [&](const char* name) { return parser.value(QString::fromLatin1(name)); };
  for (const Option& option : kOptions) {
    // An empty text is more likely a slip in a script than an option left out on purpose.
    if (parser.isSet(QString::fromLatin1(option.name)) && value(option.name).isEmpty()) {
      return Refuse(kUsage, std::string("--") + option.name + " must not be empty");
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
    return Refuse(kUsage, "--today takes a date such as 2026-12-31, not \"" + today + "\"");
  }
  if (!now.empty() && !out.now) {
    return Refuse(kUsage, "--now takes a time such as 08:30, not \"" + now + "\"");
  }
  return std::nullopt;
}

}  // namespace tidewarden
