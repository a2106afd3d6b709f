// The entries that the editor refuses and saves, put into its window as a user does, and the
// backups that its saves leave.
#include <QApplication>
#include <QClipboard>

#include "editor/events_writer.h"
#include "tests/editor/entry_cases.h"
#include "tests/windows/edit_window_desk.h"

namespace tidewarden {
namespace {

using test::Accepted;
using test::EditWindowDesk;
using test::Refusal;

constexpr char kEvents[] = "12.24,Eve,7,yearly\r\n";
constexpr int kCountdownKind = 7;

// Pasting keeps what single keys would change, such as line ends.
void Paste(EditWindowDesk& desk, const char* box, const std::string& text) {
  QLineEdit* const edit = desk.Box(box);
  QVERIFY(edit->isVisible());
  edit->setFocus();
  edit->selectAll();
  QTest::keyClick(edit, Qt::Key_Backspace);
  QApplication::clipboard()->setText(QString::fromStdString(text));
  if (!text.empty()) edit->paste();
}

void PasteIfEnabled(EditWindowDesk& desk, const char* box, const std::string& text) {
  if (desk.Box(box)->isEnabled()) Paste(desk, box, text);
}

QString NameOf(EditorFocus focus) {
  switch (focus) {
    case EditorFocus::kEventInput:
      return QStringLiteral("txtEventInput");
    case EditorFocus::kDateInput:
      return QStringLiteral("txtDateInput");
    case EditorFocus::kAdvanceInput:
      return QStringLiteral("txtAdvanceInput");
    default:
      return {};
  }
}

}  // namespace

class FrmEditChecksTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void refusesAnEntry_data();
  void refusesAnEntry();
  void savesAnEntry_data();
  void savesAnEntry();
  void keepsAsManyBackupsAsAreWanted_data();
  void keepsAsManyBackupsAsAreWanted();
};

void FrmEditChecksTest::refusesAnEntry_data() {
  QTest::addColumn<std::size_t>("number");
  const auto cases = test::Refusals();
  for (std::size_t i = 0; i < cases.size(); ++i) {
    // A month's name becomes its number when the box is left, which no refusal follows.
    if (cases[i].date == "dec31") continue;
    QTest::addRow("%zu %s", i, cases[i].name.c_str()) << i;
  }
}

void FrmEditChecksTest::refusesAnEntry() {
  QFETCH(std::size_t, number);
  const Refusal c = test::Refusals()[number];
  EditWindowDesk desk(kEvents, c.format);
  desk.OpenAdding();
  desk.PickKind(c.kind);
  Paste(desk, "txtDateInput", c.date);
  Paste(desk, "txtEventInput", c.title);
  PasteIfEnabled(desk, "txtAdvanceInput", c.advance);
  if (c.kind == kEveryKind) Paste(desk, "txtEveryInput", c.count);
  desk.Click("cmdSave");
  QCOMPARE(desk.Shown(), QStringList{QString::fromStdString(c.message)});
  QVERIFY(desk.messages.boxes[0].buttons == MessageButtons::kOk);
  QVERIFY(desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.Text("txtDateInput"), QString::fromStdString(c.date));
  if (const QString focus = NameOf(c.focus); !focus.isEmpty()) QCOMPARE(desk.FocusName(), focus);
  QCOMPARE(desk.File(), std::string(kEvents));
  QCOMPARE(desk.files.CountCalls("commit"), 0);
}

void FrmEditChecksTest::savesAnEntry_data() {
  QTest::addColumn<std::size_t>("number");
  const auto cases = test::AcceptedEntries();
  for (std::size_t i = 0; i < cases.size(); ++i) {
    QTest::addRow("%zu %s", i, cases[i].line.c_str()) << i;
  }
}

void FrmEditChecksTest::savesAnEntry() {
  QFETCH(std::size_t, number);
  const Accepted c = test::AcceptedEntries()[number];
  EditWindowDesk desk("", c.format);
  desk.OpenAdding();
  // A longer date than the kind takes comes from another kind.
  desk.PickKind(kCountdownKind);
  Paste(desk, "txtDateInput", c.date);
  desk.PickKind(c.kind);
  Paste(desk, "txtEventInput", c.title);
  PasteIfEnabled(desk, "txtAdvanceInput", c.advance);
  if (c.kind == kEveryKind) Paste(desk, "txtEveryInput", c.count);
  desk.Click("cmdSave");
  QStringList messages;
  for (const std::string& text : c.messages) messages << QString::fromStdString(text);
  QCOMPARE(desk.Shown(), messages);
  QVERIFY(!desk.Window().IsEntryUnderWay());
  QCOMPARE(test::WithSmallKinds(desk.File(), c.kind), c.line + "\r\n");
  QCOMPARE(desk.Rows().size(), 2);  // beside the row of today
}

void FrmEditChecksTest::keepsAsManyBackupsAsAreWanted_data() {
  QTest::addColumn<std::string>("levels");
  QTest::addColumn<int>("kept");
  QTest::newRow("none") << std::string("0") << 0;
  QTest::newRow("three") << std::string("3") << 3;
  QTest::newRow("more than there are") << std::string("20") << kMostBackups;
}

void FrmEditChecksTest::keepsAsManyBackupsAsAreWanted() {
  QFETCH(std::string, levels);
  QFETCH(int, kept);
  EditWindowDesk desk(kEvents);
  desk.Set("Options", "LevelsOfBackup", levels);
  desk.Open();
  constexpr int kSaves = kMostBackups + 2;
  std::vector<std::string> states{desk.File()};
  for (int i = 1; i <= kSaves; ++i) {
    desk.Click("cmdAdd");
    desk.PickKind(0);
    Paste(desk, "txtDateInput", "06.01");
    Paste(desk, "txtEventInput", "Event " + std::to_string(i));
    desk.Click("cmdSave");
    QVERIFY(!desk.Window().IsEntryUnderWay());
    states.push_back(desk.File());
    // Backup 1 is the state before this save, backup 2 the one before that.
    for (int k = 1; k <= kSaves; ++k) {
      const auto backup = desk.files.files.find(BackupPath(test::kEventsPath, k));
      const bool there = backup != desk.files.files.end();
      QCOMPARE(there, k <= std::min(i, kept));
      if (there) QCOMPARE(backup->second, states[static_cast<std::size_t>(i - k)]);
    }
  }
  QCOMPARE(desk.Shown(), QStringList());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmEditChecksTest)
#include "frm_edit_checks_test.moc"
