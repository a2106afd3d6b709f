// The reminder window: the list, the date under it, the way to the editor and into the
// notification area, the daily quote. Nothing in it computes.
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>

class QAction;
class QLabel;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QToolButton;

namespace tidewarden {

class ListModel;
class QuitListener;
class ReminderListView;
class ReminderSession;
struct Screens;
struct WindowPlacement;
enum class WindowChange;
enum class WindowState;

class frmReminder : public QWidget {
  Q_OBJECT

 public:
  // The session has been loaded and outlives the window. Nothing is shown yet, and no timer runs.
  explicit frmReminder(ReminderSession& session, QWidget* parent = nullptr);

  // Takes its place, shows itself and starts the timer.
  void Start();

  // Shows itself again after the editor, with a fresh list.
  void Return();

  // Fetches the window back from the notification area.
  void RestoreFromTray();

  // The editor is back from where it was minimized.
  void EditorRestored();

  // The desktop has other screens, or places them differently.
  void ScreensChanged(const Screens& screens);

 Q_SIGNALS:
  // The program is to end: the window was closed, or there is nothing to show.
  void Ended();

  // The window has come up by itself, in front of all others.
  void PoppedUp();

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeControls();
  void MakeMenu();
  void Connect();
  void Render();
  void RenderList();
  void LayOut();
  void Apply(WindowChange change);
  void Tick();
  void AwaitMinute();
  void StopTimers();
  void Place();
  void PopUp();
  void ShowMenu(int row, const QPoint& globalPosition);
  [[nodiscard]] WindowPlacement Here() const;
  [[nodiscard]] WindowState State() const;
  [[nodiscard]] bool IsLoggingOut() const;

  ReminderSession& session_;
  ListModel* model_;
  int builtRows_ = 0;  // the build whose rows are shown

  ReminderListView* List1;
  QLabel* sknDate;
  QPushButton* cmdGoToEdit;
  QToolButton* cmdTray;
  QPlainTextEdit* txtDailyQuote;
  QTimer* tmrAlarm;
  QTimer* tmrDelay;   // starts tmrAlarm
  QTimer* tmrMinute;  // ticks just after each full minute
  QTimer* tmrFrame;   // some window managers give another frame just after another state
  QTimer* tmrState;   // a window cannot hide itself while its state is being changed
  QTimer* tmrShown;   // the window has been shown

  QuitListener* quitListener_;

  QMenu* mnuPop;
  QAction* mnuHideThis;
  QAction* mnuLine0;
  QAction* mnuEditEvent;
  QAction* mnuDeleteEvent;
  QAction* mnuLine1;
  std::array<QAction*, 5> mnuFontSize{};
  QAction* mnuLine2;
  QAction* mnuCancel;
};

}  // namespace tidewarden
