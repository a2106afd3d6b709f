#include "app/words_to_caller.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSysInfo>

namespace tidewarden {

std::optional<int> AnswerAboutProgram(QCommandLineParser& parser) {
  constexpr int kCannotWrite = 4;
  const auto asks = [&parser](const char* option) {
    return parser.isSet(QString::fromLatin1(option));
  };
  const bool asksForHelp = asks("help") || asks("help-all");
  // Only Qt can tell its own options, and it ends the program; but on Windows it would show a box
  // to press OK in to a waiting script, too.
  if (asks("help-all") && QSysInfo::kernelType() != QStringLiteral("winnt")) {
    parser.process({QCoreApplication::applicationFilePath(), QStringLiteral("--help-all")});
  }
  std::string text;
  if (asksForHelp) {
    text = parser.helpText().toStdString();
  } else if (asks("version")) {
    text = QCoreApplication::applicationName().toStdString() + " " +
           QCoreApplication::applicationVersion().toStdString() + "\n";
  } else {
    return std::nullopt;
  }
  if (Tell(text)) return 0;
  TellRefusal(QCoreApplication::applicationName().toStdString() +
              ": standard output cannot be written");
  return kCannotWrite;
}

}  // namespace tidewarden
