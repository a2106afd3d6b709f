// The options window over options in memory, for its tests.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <memory>
#include <string>

#include "customizer/frm_customizer.h"
#include "tests/customizer/options_desk.h"
#include "tests/support/source_folder.h"

namespace tidewarden::test {

// On the screen once it is opened.
struct CustomizerDesk : OptionsDesk {
  std::unique_ptr<frmCustomizer> window;

  frmCustomizer& Open() {
    window = std::make_unique<frmCustomizer>(session());
    window->show();
    [this] { QVERIFY(QTest::qWaitForWindowExposed(window.get())); }();
    return *window;
  }

  template <typename Widget>
  Widget* The(const char* name) {
    auto* const found = window->findChild<Widget*>(QLatin1String(name));
    [&] { QVERIFY2(found != nullptr, name); }();
    return found;
  }
  void Click(const char* name) { QTest::mouseClick(The<QAbstractButton>(name), Qt::LeftButton); }
  void Enter(const char* name, const char* text) {
    auto* const box = The<QLineEdit>(name);
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, QLatin1String(text));
  }
  [[nodiscard]] QString Label(const char* name) { return The<QLabel>(name)->text(); }
  [[nodiscard]] QStringList PreviewRows() {
    QStringList rows;
    const auto* const model = The<QListView>("lstPreview")->model();
    for (int i = 0; i < model->rowCount(); ++i) rows << model->index(i, 0).data().toString();
    return rows;
  }
  [[nodiscard]] QString Word() {
    return QString::fromStdString(settings.At("Customizer", "JustExited"));
  }
};

// Picks an item of a list as a user does.
inline void Pick(QComboBox* list, const QString& text) {
  list->setCurrentIndex(list->findText(text));
  QVERIFY(QMetaObject::invokeMethod(list, "activated", Q_ARG(int, list->currentIndex())));
}

inline std::string SkinOfTheProgram() {
  QFile file(QString::fromStdString((SourceFolder() / "skin/winaqua.skn").string()));
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

}  // namespace tidewarden::test
