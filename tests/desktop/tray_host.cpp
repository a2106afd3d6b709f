// A notification area without a picture, for tests: what a panel does for StatusNotifierItems, on
// the session bus.
//   tray_host serve      keeps the list of items, as watcher and host in one, until it is ended
//   tray_host list       a line for each item: id, status, title, what its icon holds and what the
//                        tooltip says, with "|" for a new line
//   tray_host activate   the left button on the first item
//   tray_host menu       the right button on the first item
// The protocol is that of freedesktop.org's "Status Notifier Item" draft.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QStringList>
#include <cstdio>

namespace {

constexpr char kWatcher[] = "org.kde.StatusNotifierWatcher";
constexpr char kWatcherPath[] = "/StatusNotifierWatcher";
constexpr char kItem[] = "org.kde.StatusNotifierItem";
constexpr char kItemPath[] = "/StatusNotifierItem";

QString Text(const char* text) {
  return QString::fromLatin1(text);
}

}  // namespace

class Watcher : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(QStringList RegisteredStatusNotifierItems MEMBER items_)
  Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost_)
  Q_PROPERTY(int ProtocolVersion MEMBER version_)

 public:
  Watcher() {
    gone_.setConnection(QDBusConnection::sessionBus());
    gone_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&gone_, &QDBusServiceWatcher::serviceUnregistered, this, [this](const QString& name) {
      items_.removeAll(name);
      gone_.removeWatchedService(name);
    });
  }

 public Q_SLOTS:
  // By the name of a service, or by a path of whoever calls.
  void RegisterStatusNotifierItem(const QString& service) {
    const QString name = service.startsWith(u'/') ? message().service() : service;
    if (items_.contains(name)) return;
    items_ << name;
    gone_.addWatchedService(name);
  }
  void RegisterStatusNotifierHost(const QString& /*service*/) {}

 private:
  QStringList items_;
  bool hasHost_ = true;
  int version_ = 0;
  QDBusServiceWatcher gone_;
};

namespace {

int Serve(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  Watcher watcher;
  QDBusConnection bus = QDBusConnection::sessionBus();
  const bool serves =
      bus.registerObject(Text(kWatcherPath), &watcher,
                         QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties) &&
      bus.registerService(Text(kWatcher));
  if (!serves) {
    std::fprintf(stderr, "tray_host: there is no session bus, or another host on it\n");
    return 1;
  }
  return QCoreApplication::exec();
}

QStringList Items() {
  const QDBusInterface watcher(Text(kWatcher), Text(kWatcherPath), Text(kWatcher));
  return watcher.property("RegisteredStatusNotifierItems").toStringList();
}

QVariant Property(const QString& item, const char* name) {
  QDBusMessage call = QDBusMessage::createMethodCall(
      item, Text(kItemPath), Text("org.freedesktop.DBus.Properties"), Text("Get"));
  call << Text(kItem) << Text(name);
  const QDBusReply<QVariant> reply = QDBusConnection::sessionBus().call(call);
  return reply.isValid() ? reply.value() : QVariant();
}

// "22x22:310" for a picture of 22 by 22 pixels of which 310 can be seen.
QStringList Pictures(const QString& item) {
  QStringList pictures;
  const auto list = Property(item, "IconPixmap").value<QDBusArgument>();
  list.beginArray();
  while (!list.atEnd()) {
    int width = 0;
    int height = 0;
    QByteArray argb;
    list.beginStructure();
    list >> width >> height >> argb;
    list.endStructure();
    int seen = 0;
    for (qsizetype i = 0; i + 3 < argb.size(); i += 4) seen += argb[i] != '\0' ? 1 : 0;
    pictures << QStringLiteral("%1x%2:%3").arg(width).arg(height).arg(seen);
  }
  list.endArray();
  return pictures;
}

// Title and text of the tooltip.
QString ToolTip(const QString& item) {
  const auto parts = Property(item, "ToolTip").value<QDBusArgument>();
  QString iconName;
  QString title;
  QString text;
  parts.beginStructure();
  parts >> iconName;
  parts.beginArray();
  while (!parts.atEnd()) {
    int width = 0;
    int height = 0;
    QByteArray argb;
    parts.beginStructure();
    parts >> width >> height >> argb;
    parts.endStructure();
  }
  parts.endArray();
  parts >> title >> text;
  parts.endStructure();
  title += text;
  return title.replace(u'\n', u'|');
}

int List() {
  for (const QString& item : Items()) {
    const QString line =
        QStringLiteral("id=%1 status=%2 title=%3 icon=%4 tip=%5")
            .arg(Property(item, "Id").toString(), Property(item, "Status").toString(),
                 Property(item, "Title").toString(), Pictures(item).join(u','), ToolTip(item));
    std::printf("%s\n", qPrintable(line));
  }
  return 0;
}

int Press(const char* button) {
  const QStringList items = Items();
  if (items.isEmpty()) return 1;
  QDBusMessage call =
      QDBusMessage::createMethodCall(items.first(), Text(kItemPath), Text(kItem), Text(button));
  call << 0 << 0;
  return QDBusConnection::sessionBus().call(call).type() == QDBusMessage::ErrorMessage ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
  const QByteArray what = argc == 2 ? argv[1] : "";
  if (what == "serve") return Serve(argc, argv);
  if (what == "list") return List();
  if (what == "activate") return Press("Activate");
  if (what == "menu") return Press("ContextMenu");
  return 2;
}

#include "tray_host.moc"
