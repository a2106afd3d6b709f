// The events editor: the list of events, the entry row under it and its buttons. Nothing in it
// computes: each handler calls one function of the session and shows what the session then holds.
#pragma once

#include <QHash>
#include <QWidget>
#include <optional>
#include <string>

#include "editor/edit_session.h"

class QAction;
class QCheckBox;
class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QListView;
class QMenu;
class QMouseEvent;
class QPushButton;

namespace tidewarden {

class EventListModel;

class frmEdit : public QWidget {
  Q_OBJECT

 public:
  // `skin` is a style sheet for the window, used when the settings want one; empty for none. The
  // session outlives the window. Nothing is shown yet.
  explicit frmEdit(EditSession& session, const QString& skin = {}, QWidget* parent = nullptr);

  // Shows the editor for what is asked, as EditSession::Request. When it is open already it comes
  // to the front.
  void Open(long RequestedEditLine, const std::string& rawLine, bool RequestedAdd);

  // Closes it without bringing the reminder window back; an entry under way is given up.
  void Unload();

  // Shows the file as it is now, unless an entry is under way.
  void Reload();

  // A screen was added, removed or changed: an open window that none of them shows any more comes
  // onto one. What is typed stays.
  void ScreensChanged();

  [[nodiscard]] bool IsLoaded() const { return session_.isLoaded(); }
  [[nodiscard]] bool IsEntryUnderWay() const { return session_.isEntryUnderWay(); }

  // The place to save; nothing unless the window is in its normal state.
  [[nodiscard]] std::optional<EditorPlace> PlaceToSave() const;

 Q_SIGNALS:
  // The window has been minimized or maximized.
  void LeftNormalState();
  // The window is no longer minimized.
  void Restored();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Phase { kNormal, kMinimized, kMaximized };

  void MakeList();
  void MakeMenu();
  void MakeIdleButtons();
  void MakeHiddenButtons();
  void MakeEntryRow();
  void NameControls();
  void OrderTabs();
  void ConnectButtons();
  void ConnectList();
  void ConnectEntryRow();
  void ConnectTyping(QLineEdit* box, void (EditSession::*typed)(std::string_view));

  template <typename Function>
  void Act(Function function);

  void Render();
  void RenderList();
  void RenderEntryRow();
  void RenderButtons();
  void RenderFocus();
  void ApplySkin();
  void FillBoxes();
  void LayOut();
  void LayOutIdleRow(const EditorTops& tops);
  void LayOutEntryRow(const EditorTops& tops);

  [[nodiscard]] bool IsRepeat(const QKeyEvent* key) const;
  bool KeyPressed(QObject* watched, QKeyEvent* key);
  void KeyReleased(QObject* watched, const QKeyEvent* key);
  bool ListKeyPressed(const QKeyEvent* key);
  bool DateKeyPressed(const QString& text);
  bool PopularKeyPressed(QKeyEvent* key);
  bool ListMousePressed(const QMouseEvent* event);
  void ShowMenu(int row, const QPoint& globalPosition);
  [[nodiscard]] Phase CurrentPhase() const;

  EditSession& session_;
  QString skin_;
  bool Skinned = false;
  Phase phase_ = Phase::kNormal;
  int normalHeight_;  // the height that the controls are laid out for
  bool rendering_ = false;
  std::uint64_t shownVersion_ = 0;  // of the list
  QHash<int, QObject*> pressed_;    // keys that go off when released, and where they went down
  int releasedKey_ = 0;             // the last one, whatever it was pressed for
  quint64 releaseTime_ = 0;         // when, by the keyboard's clock

  EventListModel* model_;
  QListView* List1;
  QLineEdit* Text1;
  QMenu* mnuPop;
  QAction* mnuPopupEdit;
  QAction* mnuPopupDelete;
  QAction* mnuPopupCancel;

  QPushButton* cmdAdd;
  QPushButton* cmdEdit;
  QPushButton* cmdHelp;
  QPushButton* cmdPrint;
  QPushButton* cmdOptions;
  QPushButton* cmdDonate;
  QPushButton* cmdClose;
  QPushButton* cmdHiddenPrint;
  QPushButton* cmdHiddenOptions;
  QPushButton* cmdHiddenDonate;
  QPushButton* cmdHiddenSave;

  QPushButton* cmdDelete;
  QLabel* lblEvent;
  QLineEdit* txtEventInput;
  QComboBox* cmbPopular;
  QLabel* lblPopularObservances;
  QLabel* lblDate;
  QLineEdit* txtDateInput;
  QLabel* lblAdvance;
  QLineEdit* txtAdvanceInput;
  QLabel* lblOccurs;
  QComboBox* cmbOccursInput;
  QLineEdit* txtEveryInput;
  QLabel* lblEvery;
  QLabel* lblDays;
  QCheckBox* chkEveryMonth;
  QPushButton* cmdSave;
  QPushButton* cmdCancel;
  QLabel* lblDateExample;
};

}  // namespace tidewarden
