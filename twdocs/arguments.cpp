#include "twdocs/arguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

#include "app/words_to_caller.h"

namespace tidewarden {
namespace {

ExitCode Refuse(ExitCode code, const QString& text) {
  TellRefusal("twdocs: " + text.toStdString());
  return code;
}

ExitCode ListTopics(const Guide& guide) {
  QString text;
  for (const GuideTopic& topic : guide.topics()) {
    text += QString::fromStdString(topic.name).leftJustified(16) + QLatin1Char(' ') +
            QString::fromStdString(topic.title) + QLatin1Char('\n');
  }
  if (Tell(text.toStdString())) return kDone;
  return Refuse(kCannotWrite, QStringLiteral("standard output cannot be written"));
}

}  // namespace

void Complain(const QString& text) {
  const QByteArray line = QStringLiteral("twdocs: %1\n").arg(text).toUtf8();
  // Nobody is left to hear that standard error is closed.
  static_cast<void>(
      std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr));
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
    return Refuse(kUsage, parser.errorText() + QStringLiteral("; --help tells what there is"));
  }
  if (const auto code = AnswerAboutProgram(parser)) return static_cast<ExitCode>(*code);
  if (parser.isSet(listTopics)) return ListTopics(guide);
  if (parser.positionalArguments().size() > 1) {
    return Refuse(kUsage,
                  QStringLiteral("one topic at a time; --list-topics tells which there are"));
  }
  // An empty text is more likely a slip in a script than an option left out on purpose.
  if (parser.isSet(grab) && parser.value(grab).isEmpty()) {
    return Refuse(kUsage, QStringLiteral("--grab must not be empty"));
  }
  out.topic = parser.positionalArguments().value(0);
  out.grab = parser.value(grab);
  return std::nullopt;
}

}  // namespace tidewarden
