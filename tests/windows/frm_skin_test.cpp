// Which texts count as a skin: those that are style sheets from the beginning to the end.
#include "core/frm_skin.h"

#include <QLabel>
#include <QTest>

#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

int complaints = 0;

void Count(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
  if (message.contains(QStringLiteral("parse"))) ++complaints;
}

// What Qt says when a window gets the text itself. It does not speak of every mistake.
bool QtIsContentWith(const QString& text) {
  complaints = 0;
  QWidget window;
  window.setStyleSheet(text);
  window.ensurePolished();
  return complaints == 0;
}

}  // namespace

class FrmSkinTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void initTestCase() { qInstallMessageHandler(Count); }
  void cleanupTestCase() { qInstallMessageHandler(nullptr); }
  void takesWhatQtReadsAndNothingElse_data();
  void takesWhatQtReadsAndNothingElse();
};

void FrmSkinTest::takesWhatQtReadsAndNothingElse_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<bool>("readable");
  QTest::newRow("the program's") << QString::fromStdString(SkinOfTheProgram()) << true;
  const struct {
    const char* text;
    bool readable;
  } cases[] = {
      {"QLabel { color: red; }", true},
      {"QLabel { color: red }", true},
      {"QLabel{color:red}QLabel:hover{color:blue}\n", true},
      {"/* Mine. */ QLabel { color: red; } /* The end. */", true},
      {"/* Nothing yet. */", true},
      {" \n", true},
      {"QLabel { no-such-thing: 3; }", true},
      {"QWidget { background-image: url(none.png); }", true},
      {"color: red", true},
      {"color: red; background: blue;", true},
      {"Dear diary, today", false},
      {"QLabel", false},
      {"QLabel,", false},
      {"QLabel {", false},
      {"QLabel { color: red;", false},
      {"QLabel { color", false},
      {"QLabel { color: red; } QLabel", false},
      {"QLabel { color: red; } QLabel,", false},
      {"QLabel { color: red; } }", false},
      {"QLabel { color: red; } color: blue;", false},
      {"QLabel { color: red; } ; QLabel { color: blue; }", false},
      {"QLabel { color: red; } /* The end", false},
      {"}", false},
      {"a }", false},
      {"a } b {", false},
      {"@media none {", false},
      {"@foo", false},
      {"\"Dear diary", false},
      {"Dear diary: today; was fine", false},
      {"<html></html>", false},
  };
  for (const auto& [text, readable] : cases) {
    QTest::newRow(text) << QString::fromLatin1(text) << readable;
  }
}

void FrmSkinTest::takesWhatQtReadsAndNothingElse() {
  QFETCH(QString, text);
  QFETCH(bool, readable);
  complaints = 0;
  QCOMPARE(ReadableSkin(text), readable ? text : QString());
  QCOMPARE(complaints, 0);
  if (readable) QVERIFY(QtIsContentWith(text));
  QCOMPARE(ReadableSkin(QString()), QString());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmSkinTest)
#include "frm_skin_test.moc"
