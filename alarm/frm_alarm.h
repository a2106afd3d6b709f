// The alarm window: the messages of the alarms that went off, above all other windows until the
// user presses OK.
//
// One object serves for all alarms. ShowMessages opens the window when it is not there; closing
// it, in whatever way, acknowledges the messages.
#pragma once

#include <QWidget>

#include "core/window_placement.h"

class QLabel;
class QPushButton;
class QScrollArea;
class QTimer;

namespace tidewarden {

class AlarmMessageLabel;
class AlarmPanel;
class AlarmSession;
struct AlarmWindowState;

class frmAlarm : public QWidget {
  Q_OBJECT

 public:
  // The session outlives the window.
  explicit frmAlarm(AlarmSession& session, QWidget* parent = nullptr);
  ~frmAlarm() override;

  // The looks of the window: a style sheet of Qt; an empty one gives the desktop's own. For the
  // next opening, and at once when the window is open.
  void ApplySkin(const QString& styleSheet);

  // Shows the session's messages. Opens the window at its stored place, in front and active; one
  // that is minimized comes forward where it was, and one that can be seen only changes its text.
  void ShowMessages();

  // Above all other windows, and active; no longer minimized.
  void ComeForward();

  // A screen was added, removed or changed: an open window that none of them shows any more goes
  // to where it would open.
  void ScreensChanged();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void SetUpControls();
  void Load();
  void ApplyAlarmFont();
  void TakeFocusFromButton();
  void LoadAlarmPlacement();
  void PlaceNormally();
  void Unload();
  void LayOut();
  void LayOutMessages();
  void Render();
  [[nodiscard]] static Screens ScreensNow();
  [[nodiscard]] AlarmWindowState StateNow() const;

  AlarmSession& session_;
  QTimer* placeLater_;
  bool isLoaded_ = false;
  bool layoutReady_ = false;
  bool isMaximizedKnown_ = false;
  bool opensMaximized_ = false;
  QRect normalPlace_;  // where the opening has put it
  QSize programSize_;  // the size that the program has given last

  AlarmPanel* Picture1;
  QLabel* Label1;
  QScrollArea* messages_;
  AlarmMessageLabel* lblAlarmMessage;
  QPushButton* cmdOK;
};

}  // namespace tidewarden
