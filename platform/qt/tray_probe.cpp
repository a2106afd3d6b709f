#include "platform/qt/tray_probe.h"

#include <xcb/xcb.h>

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QSystemTrayIcon>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace tidewarden {
namespace {

constexpr int kMostMilliseconds = 3000;

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};

bool HasNotifierHost() {
  const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
  QDBusMessage question = QDBusMessage::createMethodCall(
      watcher, QStringLiteral("/StatusNotifierWatcher"),
      QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  question << watcher << QStringLiteral("IsStatusNotifierHostRegistered");
  // A panel is not started for the sake of the question.
  question.setAutoStartService(false);
  const QDBusMessage answer =
      QDBusConnection::sessionBus().call(question, QDBus::Block, kMostMilliseconds);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return false;
  return answer.arguments().constFirst().value<QDBusVariant>().variant().toBool();
}

// The freedesktop.org "System Tray Protocol": the tray owns a selection of its screen.
bool HasSystemTrayOfX11() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr || x11->connection() == nullptr) return false;
  xcb_connection_t* const connection = x11->connection();
  int screen = 0;
  char* host = nullptr;
  int display = 0;
  if (xcb_parse_display(nullptr, &host, &display, &screen) != 0) std::free(host);
  const QByteArray name = "_NET_SYSTEM_TRAY_S" + QByteArray::number(screen);
  const std::unique_ptr<xcb_intern_atom_reply_t, Free> atom(xcb_intern_atom_reply(
      connection,
      xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.constData()),
      nullptr));
  if (atom == nullptr || atom->atom == XCB_ATOM_NONE) return false;
  const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> tray(xcb_get_selection_owner_reply(
      connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
  return tray != nullptr && tray->owner != XCB_WINDOW_NONE;
}

}  // namespace

bool DesktopHasTray() {
  return HasNotifierHost() || HasSystemTrayOfX11();
}

bool QtHasTray() {
  return DesktopHasTray() && QSystemTrayIcon::isSystemTrayAvailable();
}

}  // namespace tidewarden
