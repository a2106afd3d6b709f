// What Qt makes of a request to the desktop's shell.
#include "platform/qt/qt_shell.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

namespace tidewarden {

// Stands in for the browser.
class UrlTaker : public QObject {
  Q_OBJECT

 public:
  UrlTaker() {
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Take");
    QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "Take");
  }
  ~UrlTaker() override {
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
  }

  QStringList urls;

 public Q_SLOTS:
  void Take(const QUrl& url) { urls << QString::fromLatin1(url.toEncoded()); }
};

namespace {

void WriteScript(const QString& path, const QByteArray& text) {
  QFile script(path);
  QVERIFY(script.open(QIODevice::WriteOnly));
  script.write(text);
  script.close();
  QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

}  // namespace

class QtShellTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void opensADocumentByAUrlThatIsItsPath_data();
  void opensADocumentByAUrlThatIsItsPath();
  void opensAWebPageByItsAddress();
  void startsAProgramInASessionOfItsOwn();
  void searchesForNoProgram();
};

void QtShellTest::opensADocumentByAUrlThatIsItsPath_data() {
  QTest::addColumn<QString>("path");
  QTest::addColumn<QString>("url");
  QTest::newRow("plain") << "/home/ann/print.htm"
                         << "file:///home/ann/print.htm";
  QTest::newRow("blank") << "/home/ann b/print.htm"
                         << "file:///home/ann%20b/print.htm";
  QTest::newRow("fragment") << "/a#b?c/print.htm"
                            << "file:///a%23b%3Fc/print.htm";
  QTest::newRow("percent") << "/100%25/print.htm"
                           << "file:///100%2525/print.htm";
  QTest::newRow("letters") << QStringLiteral("/Zoë/Ж/print.htm")
                           << "file:///Zo%C3%AB/%D0%96/print.htm";
  QTest::newRow("quotes") << "/a'b\"c;$(d)`e`/print.htm"
                          << "file:///a'b%22c;$(d)%60e%60/print.htm";
}

void QtShellTest::opensADocumentByAUrlThatIsItsPath() {
  QFETCH(QString, path);
  QFETCH(QString, url);
  UrlTaker browser;
  QtShell shell;
  shell.Execute(RequestFor(ShellTarget::kDocument, path.toStdString(), PathStyle::kPosix));
  QCOMPARE(browser.urls, QStringList{url});
}

void QtShellTest::opensAWebPageByItsAddress() {
  UrlTaker browser;
  QtShell shell;
  shell.Execute(
      RequestFor(ShellTarget::kWebPage, "https://example.org/a%20b?c=d&e=1", PathStyle::kPosix));
  QCOMPARE(browser.urls, QStringList{QStringLiteral("https://example.org/a%20b?c=d&e=1")});
}

// The program tells its working folder, how many arguments it got and its session.
void QtShellTest::startsAProgramInASessionOfItsOwn() {
  const QTemporaryDir folder;
  QVERIFY(folder.isValid());
  const QString path = folder.filePath(QStringLiteral("the program's $(name)"));
  WriteScript(path,
              "#!/bin/sh\nset -- $(pwd) $# $(cut -d' ' -f1,5,6 /proc/$$/stat)\n"
              "echo \"$*\" >\"${0%/*}/new\" && mv \"${0%/*}/new\" \"${0%/*}/told\"\n");
  QtShell shell;
  shell.Execute(RequestFor(ShellTarget::kProgram, path.toStdString(), PathStyle::kPosix));
  QFile told(folder.filePath(QStringLiteral("told")));
  QTRY_VERIFY(told.exists());
  QVERIFY(told.open(QIODevice::ReadOnly));
  const QList<QByteArray> words = told.readAll().trimmed().split(' ');
  QCOMPARE(words.size(), 5);
  QCOMPARE(words.at(0), QByteArray("/"));
  QCOMPARE(words.at(1), QByteArray("0"));
  QFile own(QStringLiteral("/proc/self/stat"));
  QVERIFY(own.open(QIODevice::ReadOnly));
  // Behind the name: state, parent, process group, session.
  const QByteArray stat = own.readAll();
  const QList<QByteArray> ownWords = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
  QVERIFY(words.at(3) != ownWords.at(2));
  QVERIFY(words.at(4) != ownWords.at(3));
}

// A program of the same name is in the search path and is not taken for the missing one.
void QtShellTest::searchesForNoProgram() {
  const QTemporaryDir folder;
  QDir(folder.path()).mkdir(QStringLiteral("bin"));
  const QString elsewhere = folder.filePath(QStringLiteral("bin/twdocs"));
  WriteScript(elsewhere, "#!/bin/sh\n: >\"${0%/*}/started\"\n");
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", folder.filePath(QStringLiteral("bin")).toUtf8() + ':' + path);
  QtShell shell;
  const QString missing = folder.filePath(QStringLiteral("twdocs"));
  shell.Execute(RequestFor(ShellTarget::kProgram, missing.toStdString(), PathStyle::kPosix));
  qputenv("PATH", path);
  QTest::qWait(200);
  const QString started = folder.filePath(QStringLiteral("bin/started"));
  QVERIFY(!QFile::exists(started));
  shell.Execute(RequestFor(ShellTarget::kProgram, elsewhere.toStdString(), PathStyle::kPosix));
  QTRY_VERIFY(QFile::exists(started));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::QtShellTest)
#include "qt_shell_test.moc"
