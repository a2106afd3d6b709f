// The events editor's window on a desk of its own: settings, files, clock and messages in memory,
// on 22 December 2014.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <memory>
#include <string>

#include "editor/edit_session.h"
#include "editor/frm_edit.h"
#include "platform/memory/memory_ports.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

inline constexpr char kEventsPath[] = "/home/someone/dates.txt";

// What the editor asked other parts of the program for.
struct AskedFor {
  int print = 0;
  std::size_t printedRows = 0;
  int help = 0;
  int options = 0;
  int donate = 0;
  int showReminder = 0;
  int hideReminder = 0;
};

class EditWindowDesk {
 public:
  explicit EditWindowDesk(const std::string& events, RegionalDateFormat format = MonthFirst(),
                          bool hasOrderPage = true)
      : format_(std::move(format)), hasOrderPage_(hasOrderPage) {
    files.files[kEventsPath] = events;
  }

  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryClock clock;
  MemoryMessageBox messages;
  AskedFor asked;

  void Set(std::string_view section, std::string_view name, std::string_view value) {
    QVERIFY(settings.Write(section, name, value).ok());
  }

  // Opens the window, which is made at the first call, and waits until it has the keyboard.
  void Open(long line = -1, const std::string& rawLine = {}, bool add = false) {
    Window().Open(line, rawLine, add);
    QVERIFY(QTest::qWaitForWindowActive(&Window()));
  }
  void OpenAdding() { Open(-1, {}, true); }

  frmEdit& Window(const QString& skin = {}) {
    if (!session_) {
      EditorHooks hooks;
      hooks.print = [this](const std::vector<EventRow>& rows) {
        ++asked.print;
        asked.printedRows = rows.size();
      };
      hooks.help = [this] { ++asked.help; };
      hooks.options = [this] { ++asked.options; };
      if (hasOrderPage_) hooks.donate = [this] { ++asked.donate; };
      hooks.showReminder = [this] { ++asked.showReminder; };
      hooks.hideReminder = [this] { ++asked.hideReminder; };
      constexpr int kMajor = 1;
      constexpr int kMinor = 2;
      session_ = std::make_unique<EditSession>(
          EditPorts{settings, files, clock, OtherMessages ? *OtherMessages : messages}, hooks,
          format_,
          EditorSetup{kEventsPath, "/home/someone/.local/share/Tideward", kMajor, kMinor, 0});
      window_ = std::make_unique<frmEdit>(*session_, skin);
    }
    return *window_;
  }
  EditSession& Session() {
    Window();
    return *session_;
  }

  // Set before the window is made, to answer in place of `messages`.
  MessageBox* OtherMessages = nullptr;

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* const widget = Window().findChild<Widget*>(QLatin1String(name));
    if (widget == nullptr) qFatal("no control %s", name);
    return widget;
  }
  QListView* List() { return Find<QListView>("List1"); }
  QLineEdit* Box(const char* name) { return Find<QLineEdit>(name); }
  QPushButton* Button(const char* name) { return Find<QPushButton>(name); }
  QLabel* Label(const char* name) { return Find<QLabel>(name); }
  QComboBox* DropDown(const char* name) { return Find<QComboBox>(name); }
  QCheckBox* Tick() { return Find<QCheckBox>("chkEveryMonth"); }
  QString Text(const char* box) { return Box(box)->text(); }

  void Click(const char* button) { QTest::mouseClick(Button(button), Qt::LeftButton); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* const focus = Window().focusWidget();
    QTest::keyClick(focus ? focus : &Window(), key, modifiers);
  }
  // Types into a box, which gets the focus; its text is marked first, so that it is replaced.
  void Type(const char* box, const QString& text) {
    Box(box)->setFocus();
    Box(box)->selectAll();
    QTest::keyClick(Box(box), Qt::Key_Backspace);
    QTest::keyClicks(Box(box), text);
  }
  // What the user does in the drop-down list.
  void PickKind(int index) {
    DropDown("cmbOccursInput")->setFocus();
    Q_EMIT DropDown("cmbOccursInput")->activated(index);
  }
  void PickObservance(int index) { Q_EMIT DropDown("cmbPopular")->activated(index); }
  void Select(int row) { List()->setCurrentIndex(List()->model()->index(row, 0)); }

  [[nodiscard]] int SelectedRow() {
    const QModelIndexList rows = List()->selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
  }
  [[nodiscard]] QString FocusName() {
    const QWidget* const focus = Window().focusWidget();
    return focus ? focus->objectName() : QString();
  }
  [[nodiscard]] QStringList Rows() {
    QStringList rows;
    for (int row = 0; row < List()->model()->rowCount(); ++row) {
      rows << List()->model()->index(row, 0).data().toString();
    }
    return rows;
  }
  [[nodiscard]] QStringList Shown() const {
    QStringList texts;
    for (const std::string& text : messages.shown) texts << QString::fromStdString(text);
    return texts;
  }
  [[nodiscard]] std::string File() const { return files.files.at(kEventsPath); }

 private:
  RegionalDateFormat format_;
  bool hasOrderPage_;
  std::unique_ptr<EditSession> session_;
  std::unique_ptr<frmEdit> window_;
};

}  // namespace tidewarden::test
