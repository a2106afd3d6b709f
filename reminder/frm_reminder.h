// The reminder window: today's list, the date under it, and nothing that computes.
#pragma once

#include <QWidget>

class QLabel;
class QListView;

namespace tidewarden {

class ListModel;
class ReminderSession;

class frmReminder : public QWidget {
  Q_OBJECT

 public:
  // The session outlives the window.
  explicit frmReminder(ReminderSession& session, QWidget* parent = nullptr);

  // Builds the list and shows it. False when the program is to end because nothing is in range.
  [[nodiscard]] bool Rebuild();

 private:
  void Render();

  ReminderSession& session_;
  ListModel* model_;
  QListView* List1;
  QLabel* sknDate;
};

}  // namespace tidewarden
