// The list view of the reminder window: rows to read, to choose and to ask a menu for. It decides
// nothing; what a row is, only the session knows.
#pragma once

#include <QListView>

namespace tidewarden {

class ReminderListView : public QListView {
  Q_OBJECT

 public:
  static constexpr int kNoRow = -1;

  explicit ReminderListView(QWidget* parent);

  // The selected row, or kNoRow.
  [[nodiscard]] int SelectedRow() const;

  // Selects a row; kNoRow selects none.
  void Select(int row);

  void doItemsLayout() override;

 Q_SIGNALS:
  // The selected row is another one, or there is none any more.
  void RowSelected(int /*row*/);

  // The right button was pressed on a row, or beside all rows; or the menu key, for the
  // selected row. Row (kNoRow beside all) and place on the screen.
  void MenuWanted(int /*row*/, const QPoint& /*place*/);

  // A double click with the left button, wherever in the list.
  void OpenWanted();

 protected:
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void ShowWholeRow(const QModelIndex& index, const QPoint& place);
};

}  // namespace tidewarden
