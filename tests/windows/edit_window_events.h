// A small events file, the list that it gives, and where things are in the editor's window.
#pragma once

#include <QApplication>
#include <QListView>
#include <QMenu>
#include <QString>
#include <QStringList>
#include <cmath>

namespace tidewarden::test {

inline constexpr char kEvents[] =
    "12.25,Christmas Day,7,yearly\r\n"
    "this is no event\r\n"
    "01.01,New Year's Day,1,yearly\r\n"
    "01.26,<1788> Australia Day,0,dp-1788\r\n"
    "12.30,Pay rent,365,monthly\r\n";

inline const QStringList kListed{
    QStringLiteral("01.01 New Year's Day                         1 day    yearly"),
    QStringLiteral("01.26 <1788> Australia Day                   (always) dp-1788"),
    QStringLiteral("12.22  <TODAY>"),
    QStringLiteral("12.25 Christmas Day                          7 days   yearly"),
    QStringLiteral("12.30 Pay rent                               365 days monthly"),
};
inline constexpr int kNewYear = 0;
inline constexpr int kToday = 2;
inline constexpr int kChristmas = 3;

inline const QString kPleaseSelect =
    QStringLiteral("Please select which event you would like to edit!");
inline const QString kTodayIsNone = QStringLiteral("Today is not an event which you can edit!");
inline const QString kDeleteChristmas =
    QStringLiteral("Are you sure you want to delete the event \"Christmas Day\"???");

inline int Pixels(double twips) {
  constexpr double kTwipsPerPixel = 15;
  return static_cast<int>(std::floor(twips / kTwipsPerPixel + 0.5));
}

inline QPoint RowCentre(QListView* list, int row) {
  return list->visualRect(list->model()->index(row, 0)).center();
}

// A place in the list where no row is.
inline QPoint BelowTheRows(QListView* list) {
  return {list->viewport()->width() / 2, list->viewport()->height() - 3};
}

inline QMenu* OpenMenu() {
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

inline void Trigger(QMenu* menu, const char* item) {
  for (QAction* const action : menu->actions()) {
    if (action->objectName() == QLatin1String(item)) {
      menu->close();
      action->trigger();
      return;
    }
  }
  qFatal("no menu item %s", item);
}

}  // namespace tidewarden::test
