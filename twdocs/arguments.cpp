#include "twdocs/arguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

namespace tidewarden {
namespace {

bool Print(const QString& text, std::FILE* where) {
  const QByteArray bytes = text.toUtf8();
  const auto size = static_cast<std::size_t>(bytes.size());
  return std::fwrite(bytes.constData(), 1, size, where) == size && std::fflush(where) == 0;
}

ExitCode ListTopics(const Guide& guide) {
  QString text;
  for (const GuideTopic& topic : guide.topics()) {
    text += QString::fromStdString(topic.name).leftJustified(16) + QLatin1Char(' ') +
            QString::fromStdString(topic.title) + QLatin1Char('\n');
  }
  if (Print(text, stdout)) return kDone;
  Complain(QStringLiteral("standard output cannot be written"));
  return kCannotWrite;
}

}  // namespace

void Complain(const QString& text) {
  // Nobody is left to hear that standard error is closed.
  static_cast<void>(Print(QStringLiteral("twdocs: %1\n").arg(text), stderr));
}

std::optional<ExitCode> ReadArguments(const Guide& guide, Arguments& out) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("The guide to Tidewarden."));
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption listTopics(QStringLiteral("list-topics"),
                                      QStringLiteral("Print the topics, one a line, and end."));
  const QCommandLineOption grab(QStringLiteral("grab"),
                                QStringLiteral("Write a picture of the window and end."),
                                QStringLiteral("FILE.png"));
  parser.addOptions({listTopics, grab});
  parser.addPositionalArgument(QStringLiteral("topic"),
                               QStringLiteral("Where to open the guide, such as alarms or "
                                              "options#files-and-backups; else at the contents."),
                               QStringLiteral("[topic]"));
  if (!parser.parse(QCoreApplication::arguments())) {
    Complain(parser.errorText() + QStringLiteral("; --help tells what there is"));
    return kUsage;
  }
  if (parser.isSet(QStringLiteral("help"))) parser.showHelp(kDone);
  if (parser.isSet(QStringLiteral("version"))) parser.showVersion();
  if (parser.isSet(listTopics)) return ListTopics(guide);
  if (parser.positionalArguments().size() > 1) {
    Complain(QStringLiteral("one topic at a time; --list-topics tells which there are"));
    return kUsage;
  }
  // An empty text is more likely a slip in a script than an option left out on purpose.
  if (parser.isSet(grab) && parser.value(grab).isEmpty()) {
    Complain(QStringLiteral("--grab must not be empty"));
    return kUsage;
  }
  out.topic = parser.positionalArguments().value(0);
  out.grab = parser.value(grab);
  return std::nullopt;
}

}  // namespace tidewarden
