// The alarm window, offscreen: its messages, how it closes, its looks.
#include <QDir>
#include <QMessageBox>

#include "tests/windows/alarm_world.h"

namespace tidewarden {

using namespace test;

class FrmAlarmTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void staysAboveOtherWindowsAndTakesTheFocusWithoutRisk();
  void showsEveryMessageFollowedByAnEmptyLine();
  void aFurtherAlarmOnlyChangesTheText();
  void comesBackForAFurtherAlarmWhenItIsMinimized();
  void comesForwardWhenItIsMinimized();
  void startsAFreshListAfterItWasClosed();
  void keepsTheMessagesWhenItIsOnlyHidden();
  void closesInEveryWayByTheSameSteps();
  void hasTheFontOfTheList();
  void prefersASubstituteOfTheFont();
  void keepsTheDesignedSizeForASizeThatIsNone();
  void showsMarkupAndAmpersandsAsTheyWereTyped();
  void scrollsToWhatDoesNotFit();
  void breaksWordsThatAreWiderThanTheWindow();
  void bringsNewMessagesIntoView();
  void staysQuickWithThousandsOfMessages();
  void canBeClosedWhileAMessageBoxWaits();
  void doesNotEndTheProgram();
  void takesASkin();
  void namesEveryControlForScreenReaders();
  void drawsABell();
};

void FrmAlarmTest::staysAboveOtherWindowsAndTakesTheFocusWithoutRisk() {
  AlarmWorld world;
  world.Ring({"Dentist"});
  QVERIFY(world.window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  QVERIFY(world.window.isActiveWindow());
  QVERIFY(!world.Find<QPushButton>("cmdOK")->hasFocus());
  QVERIFY(!world.Find<QPushButton>("cmdOK")->isDefault());
  // What a user types who has not yet noticed the window.
  for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_A}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
  }
  QVERIFY(world.window.isVisible());
  // The button is a key away all the same.
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QVERIFY(world.Find<QPushButton>("cmdOK")->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  QVERIFY(!world.window.isVisible());
  world.Ring({"Bus"});
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  QVERIFY(!world.window.isVisible());
}

void FrmAlarmTest::showsEveryMessageFollowedByAnEmptyLine() {
  AlarmWorld world;
  world.Ring({"Dentist", "Bus"});
  QCOMPARE(world.Text(), QStringLiteral("\nDentist 8:01\n\nBus 8:01\n"));
  QCOMPARE(world.window.windowTitle(), QStringLiteral("Your Tidewarden Alarm Messages."));
  QCOMPARE(world.Find<QLabel>("Label1")->text(),
           QStringLiteral("You Have a Tidewarden Alarm . . ."));
  QCOMPARE(world.Find<QPushButton>("cmdOK")->text(), QStringLiteral("OK"));
}

void FrmAlarmTest::aFurtherAlarmOnlyChangesTheText() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 6000, 3000);
  world.Ring({"Dentist"});
  world.window.move(100, 110);
  world.window.resize(500, 250);
  QWidget other;
  other.show();
  other.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&other));
  world.Ring({"Bus"});
  QCOMPARE(world.Text(), QStringLiteral("\nDentist 8:01\n\nBus 8:02\n"));
  QCOMPARE(world.window.pos(), QPoint(100, 110));
  QCOMPARE(world.window.size(), QSize(500, 250));
  QVERIFY(other.isActiveWindow());
}

void FrmAlarmTest::comesBackForAFurtherAlarmWhenItIsMinimized() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 6000, 3000);
  world.Ring({"Dentist"});
  world.window.move(100, 110);
  world.window.resize(500, 250);
  world.Find<QPushButton>("cmdOK")->setFocus();
  world.window.showMinimized();
  QTRY_VERIFY(world.window.isMinimized());
  world.Ring({"Bus"});
  QVERIFY(!world.window.isMinimized());
  QVERIFY(world.window.isVisible());
  QVERIFY(QTest::qWaitForWindowActive(&world.window));
  QCOMPARE(world.Text(), QStringLiteral("\nDentist 8:01\n\nBus 8:02\n"));
  QTRY_COMPARE(world.window.pos(), QPoint(100, 110));
  QCOMPARE(world.window.size(), QSize(500, 250));
  // It has come by itself, so that a key may be meant for another window.
  QVERIFY(!world.Find<QPushButton>("cmdOK")->hasFocus());
}

void FrmAlarmTest::comesForwardWhenItIsMinimized() {
  AlarmWorld world;
  world.Ring({"Dentist"});
  world.window.showMaximized();
  QTRY_VERIFY(world.window.isMaximized());
  world.window.showMinimized();
  QTRY_VERIFY(world.window.isMinimized());
  world.window.ComeForward();
  QVERIFY(QTest::qWaitForWindowActive(&world.window));
  QTRY_VERIFY(world.window.isMaximized());
  QVERIFY(!world.window.isMinimized());
}

void FrmAlarmTest::startsAFreshListAfterItWasClosed() {
  AlarmWorld world;
  world.Ring({"Dentist"});
  QTest::mouseClick(world.Find<QPushButton>("cmdOK"), Qt::LeftButton);
  QVERIFY(!world.window.isVisible());
  QVERIFY(world.session.AlarmText().empty());
  world.Ring({"Bus"});
  QVERIFY(world.window.isVisible());
  QCOMPARE(world.Text(), QStringLiteral("\nBus 8:02\n"));
}

void FrmAlarmTest::keepsTheMessagesWhenItIsOnlyHidden() {
  AlarmWorld world;
  world.Ring({"Dentist"});
  world.window.hide();
  QVERIFY(!world.session.AlarmText().empty());
  world.Ring({"Bus"});
  QVERIFY(world.window.isVisible());
  QCOMPARE(world.Text(), QStringLiteral("\nDentist 8:01\n\nBus 8:02\n"));
}

void FrmAlarmTest::closesInEveryWayByTheSameSteps() {
  for (const char* const way : {"OK", "X", "end"}) {
    MemorySettingsStore settings;
    MemoryFileSystem files;
    MemorySoundPlayer sound;
    MemoryMessageBox messages;
    AlarmSession session({settings, files, sound, messages}, {});
    AlarmSchedule schedule;
    std::vector<std::string_view> list;
    const LocalTime now{On(2014, 12, 22), 9, 0, 0, 0};
    schedule.ScheduleAlarm("Tea 9:00", now.date);
    QVERIFY(session.Tick(schedule, list, {}, now).showsMessages);
    auto window = std::make_unique<frmAlarm>(session);
    window->ShowMessages();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    window->resize(400, 200);
    if (way == std::string_view("OK")) {
      window->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    } else if (way == std::string_view("X")) {
      window->close();
    }
    window.reset();
    QVERIFY2(session.AlarmText().empty(), way);
    QVERIFY2(sound.calls.back() == "stop", way);
    QVERIFY2(std::count(sound.calls.begin(), sound.calls.end(), "stop") == 1, way);
    QCOMPARE(settings.At("Alarm", "Width"), std::string("6000"));
  }
}

void FrmAlarmTest::hasTheFontOfTheList() {
  AlarmWorld world;
  QVERIFY(world.settings.Write("Settings", "FontName", "DejaVu Sans").ok());
  QVERIFY(world.settings.Write("Settings", "FontBold", "true").ok());
  QVERIFY(world.settings.Write("Settings", "FontItalic", "True").ok());
  QVERIFY(world.settings.Write("Settings", "FontSize", "13.5").ok());
  world.Ring({"Dentist"});
  QFont font = world.Find<QLabel>("lblAlarmMessage")->font();
  QCOMPARE(font.family(), QStringLiteral("DejaVu Sans"));
  QVERIFY(font.bold());
  QVERIFY(font.italic());
  QCOMPARE(font.pointSize(), 14);
  QCOMPARE(font.styleHint(), QFont::SansSerif);
  QVERIFY(world.Find<QLabel>("Label1")->font().bold());
  QCOMPARE(world.Find<QLabel>("Label1")->font().family(), QStringLiteral("Arial"));

  // Read afresh at each opening.
  world.window.close();
  QVERIFY(world.settings.Write("Settings", "FontBold", "false").ok());
  world.Ring({"Bus"});
  font = world.Find<QLabel>("lblAlarmMessage")->font();
  QVERIFY(!font.bold());
}

// Both are installed, so that Qt alone would take the face itself.
void FrmAlarmTest::prefersASubstituteOfTheFont() {
  const QString face = QStringLiteral("DejaVu Sans Mono");
  const QString substitute = QStringLiteral("DejaVu Sans");
  QVERIFY(QFontInfo(QFont(face)).family() == face && QFontInfo(QFont(substitute)).exactMatch());
  QFont::insertSubstitution(face, substitute);
  const auto restore = qScopeGuard([&] { QFont::removeSubstitutions(face); });
  AlarmWorld world;
  QVERIFY(world.settings.Write("Settings", "FontName", face.toStdString()).ok());
  world.Ring({"Dentist"});
  QCOMPARE(QFontInfo(world.Find<QLabel>("lblAlarmMessage")->font()).family(), substitute);
  QCOMPARE(world.settings.At("Settings", "FontName"), face.toStdString());
}

void FrmAlarmTest::keepsTheDesignedSizeForASizeThatIsNone() {
  AlarmWorld world;
  QVERIFY(world.settings.Write("Settings", "FontSize", "0").ok());
  QVERIFY(world.settings.Write("Settings", "FontName", "No Such Face").ok());
  world.Ring({"Dentist"});
  QCOMPARE(world.Find<QLabel>("lblAlarmMessage")->font().pointSize(), 8);
  QCOMPARE(world.settings.At("Settings", "FontName"), std::string("No Such Face"));
}

void FrmAlarmTest::showsMarkupAndAmpersandsAsTheyWereTyped() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 9000, 6000);
  world.Ring({"<b>x</b> & <img src=x.png>"});
  auto* const label = world.Find<QLabel>("lblAlarmMessage");
  QCOMPARE(label->textFormat(), Qt::PlainText);
  QVERIFY(world.Text().contains(QStringLiteral("<b>x</b> & <img")));
  // What is painted differs from the text without its mark-up.
  const QImage marked = label->grab().toImage();
  world.window.close();
  world.Ring({"x & "});
  QVERIFY(label->grab().toImage() != marked);
}

void FrmAlarmTest::scrollsToWhatDoesNotFit() {
  AlarmWorld world;
  world.Ring({"Dentist"});
  QVERIFY(!world.Bar()->isVisible());
  world.window.close();
  world.Ring(Many(40));
  QVERIFY(world.Bar()->isVisible());
  // Only the empty line before the first message is out of sight.
  QVERIFY(world.Bar()->value() <= world.Find<QLabel>("lblAlarmMessage")->fontMetrics().height());
  const auto* const label = world.Find<QLabel>("lblAlarmMessage");
  const auto* const area = world.Find<QScrollArea>("scrAlarmMessage");
  // The text keeps its width, and its last line can be reached with the keys.
  QCOMPARE(label->width(), world.Find<QWidget>("Picture1")->width() - 570 / kTwips);
  QVERIFY(area->viewport()->width() >= label->width());
  const int before = world.Bar()->value();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
  QVERIFY(world.Bar()->value() > before);
  world.Bar()->setValue(world.Bar()->maximum());
  const QPoint bottom(0, label->height());
  QVERIFY(label->mapTo(area->viewport(), bottom).y() <= area->viewport()->height());
  // A window that is large enough shows all of it.
  world.window.resize(400, 2200);
  QVERIFY(!world.Bar()->isVisible());
}

void FrmAlarmTest::breaksWordsThatAreWiderThanTheWindow() {
  AlarmWorld world;
  world.Ring({std::string(300, 'W')});
  const auto* const label = world.Find<QLabel>("lblAlarmMessage");
  const int lines =
      label->fontMetrics().horizontalAdvance(QString(300, QLatin1Char('W'))) / label->width();
  QVERIFY(lines > 3);
  QVERIFY(label->height() >= lines * label->fontMetrics().height());
  QVERIFY(world.Bar()->isVisible());
  QVERIFY(world.Find<QScrollArea>("scrAlarmMessage")->horizontalScrollBar()->maximum() == 0);
}

void FrmAlarmTest::bringsNewMessagesIntoView() {
  AlarmWorld world;
  world.Ring(Many(10));
  const int first = world.Bar()->value();
  world.Ring({"The newest"});
  QVERIFY(world.Bar()->maximum() > first);
  QCOMPARE(world.Bar()->value(), world.Bar()->maximum());
  world.window.close();
  world.Ring(Many(10));
  QCOMPARE(world.Bar()->value(), first);
}

void FrmAlarmTest::staysQuickWithThousandsOfMessages() {
  AlarmWorld world;
  world.Ring(Many(5'000));
  world.Bar()->setValue(world.Bar()->maximum() / 2);
  QVERIFY(!world.window.grab().isNull());
  world.window.resize(500, 300);
  QVERIFY(world.Find<QLabel>("lblAlarmMessage")->height() > 5'000 * 2 * 8);
}

void FrmAlarmTest::canBeClosedWhileAMessageBoxWaits() {
  AlarmWorld world;
  QMessageBox box;
  box.setText(QStringLiteral("A question"));
  box.setModal(true);
  box.show();
  QVERIFY(QTest::qWaitForWindowExposed(&box));
  world.Ring({"Dentist"});
  QTest::mouseClick(world.window.windowHandle(), Qt::LeftButton, {},
                    world.Find<QPushButton>("cmdOK")->geometry().center());
  QTRY_VERIFY(!world.window.isVisible());
  QVERIFY(box.isVisible());
  box.close();
  world.Ring({"Bus"});
  QCOMPARE(world.window.windowModality(), Qt::NonModal);
}

void FrmAlarmTest::doesNotEndTheProgram() {
  AlarmWorld world;
  QWidget reminder;
  reminder.show();
  world.Ring({"Dentist"});
  reminder.hide();
  bool ended = false;
  const auto connection = connect(qApp, &QApplication::lastWindowClosed, [&] { ended = true; });
  world.window.close();
  QTest::qWait(20);
  disconnect(connection);
  QVERIFY(!ended);
}

void FrmAlarmTest::takesASkin() {
  AlarmWorld world;
  world.window.ApplySkin(
      QStringLiteral("#Picture1 { background: #102030; }"
                     "#Picture1 QLabel { color: #FFEEDD; }"));
  world.Ring({"WWWWWWWWWW"});
  const QImage picture = world.Find<QWidget>("Picture1")->grab().toImage();
  const QPoint empty(picture.width() - 6, picture.height() - 6);
  QCOMPARE(picture.pixelColor(empty), QColor(0x10, 0x20, 0x30));
  bool isLight = false;
  const QRect message = world.Find<QWidget>("lblAlarmMessage")->parentWidget()->geometry();
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = picture.height() / 2; y < picture.height(); ++y) {
      isLight = isLight || picture.pixelColor(x, y) == QColor(0xFF, 0xEE, 0xDD);
    }
  }
  QVERIFY(message.isValid());
  QVERIFY(isLight);
  QCOMPARE(world.Find<QLabel>("lblAlarmMessage")->font().pointSize(), 8);
  world.window.ApplySkin(QStringLiteral("#Picture1 { background: #102030; } #Picture1"));
  QCOMPARE(world.window.styleSheet(), QString());
  QVERIFY(world.Find<QWidget>("Picture1")->grab().toImage().pixelColor(empty) !=
          QColor(0x10, 0x20, 0x30));
}

void FrmAlarmTest::namesEveryControlForScreenReaders() {
  AlarmWorld world;
  world.Ring({"Dentist", "Bus"});
  for (const char* const name : {"Picture1", "Label1", "scrAlarmMessage", "cmdOK"}) {
    QVERIFY2(!world.Find<QWidget>(name)->accessibleName().isEmpty(), name);
  }
  QCOMPARE(world.Find<QLabel>("lblAlarmMessage")->accessibleName(),
           QStringLiteral("Alarm messages: Dentist 8:01 Bus 8:01"));
}

void FrmAlarmTest::drawsABell() {
  for (const bool dark : {false, true}) {
    AlarmWorld world;
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Base, dark ? QColor(30, 30, 30) : QColor(Qt::white));
    world.window.setPalette(palette);
    world.Ring({"Dentist"});
    const QImage corner = world.Find<QWidget>("Picture1")->grab(QRect(3, 3, 20, 24)).toImage();
    int coloured = 0;
    for (int x = 0; x < corner.width(); ++x) {
      for (int y = 0; y < corner.height(); ++y) {
        const QColor color = corner.pixelColor(x, y);
        if (color.hsvSaturation() > 100) ++coloured;
      }
    }
    QVERIFY(coloured > 80);
    // Picture by picture, for whoever wants to look.
    const QString folder = qEnvironmentVariable("TIDEWARDEN_TEST_PICTURES");
    if (!folder.isEmpty()) {
      world.window.grab().save(QDir(folder).filePath(dark ? QStringLiteral("alarm-dark.png")
                                                          : QStringLiteral("alarm-light.png")));
    }
  }
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmAlarmTest)
#include "frm_alarm_test.moc"
