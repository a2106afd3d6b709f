#include "app/arguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

#include "dates/regional_text.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

// "HH:MM" or "HH:MM:SS" as seconds since midnight.
std::optional<int> ReadSeconds(std::string_view text) {
  int seconds = 0;
  if (text.size() == 8 && text[5] == ':') {
    seconds = DigitsValue(text.substr(6));
    text = text.substr(0, 5);
  }
  const auto time = ReadClockTime(text);
  if (!time || seconds < 0 || seconds > 59) return std::nullopt;
  return (*time / 100 * 60 + *time % 100) * 60 + seconds;
}

}  // namespace

void Complain(const std::string& text) {
  const std::string line = "tidewarden: " + text + "\n";
  // Nobody is left to hear that standard error is closed.
  static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

std::optional<ExitCode> ReadArguments(const QCoreApplication& app, Arguments& out) {
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
  option("today", "Start on this day; the clock runs on from there.", "YYYY-MM-DD");
  option("now", "Start at this time of day; the clock runs on from there.", "HH:MM[:SS]");
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
  out.now = ReadSeconds(now);
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
