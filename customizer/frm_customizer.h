// The options window: the pages on the left, the options of a page beside them, the list as it
// would look below, and the buttons. Nothing in it computes: each handler calls one function of the
// session and shows what the session then holds.
#pragma once

#include <QDialog>
#include <cstddef>
#include <string>
#include <vector>

#include "customizer/options.h"

class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

namespace tidewarden {

class OptionField;
class OptionsSession;
class PreviewPanel;
enum class OptionsClosing;

// What the dialog for a sound file offers: files with these endings, or all.
[[nodiscard]] QString SoundFilter(const std::vector<std::string>& endings);

class frmCustomizer : public QDialog {
  Q_OBJECT

 public:
  // The session outlives the window.
  explicit frmCustomizer(OptionsSession& session, QWidget* parent = nullptr);
  ~frmCustomizer() override;

  void ShowPage(OptionPage page);

 Q_SIGNALS:
  // The window has gone, and word is left for the reminder program. At the end of the login
  // session too, of which the application hears by QEvent::Quit; nothing is asked then.
  void Ended();

 public Q_SLOTS:
  void reject() override;  // Escape, or the window's own button

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakePages();
  void MakePage(OptionPage page);
  void MakeField(std::size_t option, QWidget* page, QVBoxLayout* column);
  void MakeAutostart(QWidget* page, QVBoxLayout* column);
  void AddColourButtons(OptionField& field);
  void AddPathButtons(std::size_t option, OptionField& field);
  void MakeButtons();
  void Arrange();
  void Connect();

  void Save();
  void SaveAndLeave();
  void Return();
  void ShowRefused();
  void PickColour(bool background);
  void Browse(std::size_t option);
  void NextPage(int step);
  [[nodiscard]] bool Leave(OptionsClosing why);

  void Render();
  void RenderSkin();
  void RenderWayBack();
  void RenderPreview();

  OptionsSession& session_;
  std::vector<OptionField*> fields_;  // by the options' indexes
  OptionField* autostart_ = nullptr;
  bool rendering_ = false;
  bool hasLeft_ = false;
  bool saidSaved_ = false;

  QListWidget* lstPages;
  QStackedWidget* stkPages;
  PreviewPanel* pnlPreview;
  QLabel* lblStatus;
  QPushButton* cmdReminder;
  QPushButton* cmdOk;
  QPushButton* cmdCancel;
  QPushButton* cmdApply;
};

}  // namespace tidewarden
