// The notification area through Qt, for desktops that follow the freedesktop standards: the
// StatusNotifierItem where there is a host for it, else the system tray of X11.
//
// Pictures have numbers here: AddIcon gives them out. Nothing is asked of the desktop before the
// first call of NotifyIcon or IsAvailable, and no Qt icon is made while there is no tray: one that
// is made then never finds a panel that comes later.
#pragma once

#include <QIcon>
#include <QObject>
#include <QString>
#include <functional>
#include <string_view>
#include <vector>

#include "alarm/notification_area.h"

class QSystemTrayIcon;
class QTimer;

namespace tidewarden {

class QtNotificationArea : public QObject, public NotificationArea {
  Q_OBJECT

 public:
  // `isAvailable` tells whether the desktop has a tray now; without it QSystemTrayIcon is asked,
  // which may keep its first answer.
  explicit QtNotificationArea(std::function<bool()> isAvailable = {}, QObject* parent = nullptr);
  ~QtNotificationArea() override = default;
  QtNotificationArea(const QtNotificationArea&) = delete;
  QtNotificationArea& operator=(const QtNotificationArea&) = delete;

  // The number by which a record asks for this picture, 1 or more.
  [[nodiscard]] IconHandle AddIcon(const QIcon& icon);

  // The record's window, flags and callback message say nothing here: the mouse is heard through
  // Mouse. Tooltips are shown whole, as plain text. An unknown number shows an empty picture.
  void NotifyIcon(NotifyIconMessage message, const NotifyIconRecord& record,
                  std::string_view tooltip) override;

  // On a desktop without a tray the icon waits, and Appeared tells when it shows after all.
  [[nodiscard]] bool IsAvailable() override;

 private:
  void Activated(int reason);
  void LookForTray();
  void Dress();
  void ShowIcon();

  std::function<bool()> isAvailable_;
  std::vector<QIcon> icons_;
  QIcon picture_;  // of the record
  QString toolTip_;
  QSystemTrayIcon* icon_ = nullptr;
  QTimer* search_;
};

}  // namespace tidewarden
