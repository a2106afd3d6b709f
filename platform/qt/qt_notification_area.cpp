#include "platform/qt/qt_notification_area.h"

#include <QSystemTrayIcon>
#include <QTextDocument>
#include <QTimer>
#include <utility>

namespace tidewarden {
namespace {

constexpr int kSearchMilliseconds = 5000;

QString PlainTooltip(std::string_view tooltip) {
  QString text = QString::fromUtf8(tooltip.data(), static_cast<qsizetype>(tooltip.size()));
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

}  // namespace

QtNotificationArea::QtNotificationArea(std::function<bool()> isAvailable, QObject* parent)
    : QObject(parent),
      isAvailable_(isAvailable ? std::move(isAvailable) : QSystemTrayIcon::isSystemTrayAvailable),
      search_(new QTimer(this)) {
  search_->setInterval(kSearchMilliseconds);
  search_->setTimerType(Qt::VeryCoarseTimer);
  connect(search_, &QTimer::timeout, this, &QtNotificationArea::LookForTray);
}

IconHandle QtNotificationArea::AddIcon(const QIcon& icon) {
  icons_.push_back(icon);
  return static_cast<IconHandle>(icons_.size());
}

void QtNotificationArea::NotifyIcon(NotifyIconMessage message, const NotifyIconRecord& record,
                                    std::string_view tooltip) {
  if (message == NotifyIconMessage::kDelete) {
    search_->stop();
    if (icon_ != nullptr) icon_->hide();
    return;
  }
  const bool isKnown = record.hIcon > 0 && record.hIcon <= icons_.size();
  picture_ = isKnown ? icons_[record.hIcon - 1] : QIcon();
  toolTip_ = PlainTooltip(tooltip);
  if (message == NotifyIconMessage::kAdd && IsAvailable()) {
    ShowIcon();
    return;
  }
  if (message == NotifyIconMessage::kAdd) search_->start();
  Dress();
}

void QtNotificationArea::Dress() {
  if (icon_ == nullptr) return;
  icon_->setIcon(picture_);
  icon_->setToolTip(toolTip_);
}

void QtNotificationArea::ShowIcon() {
  if (icon_ == nullptr) {
    icon_ = new QSystemTrayIcon(this);
    connect(icon_, &QSystemTrayIcon::activated, this, &QtNotificationArea::Activated);
  }
  Dress();
  icon_->show();
}

bool QtNotificationArea::IsAvailable() {
  return isAvailable_();
}

void QtNotificationArea::LookForTray() {
  if (!IsAvailable()) return;
  search_->stop();
  ShowIcon();
  const auto appeared = Appeared;
  if (appeared) appeared();
}

void QtNotificationArea::Activated(int reason) {
  // A listener may take itself away while it listens, so a copy of it is called.
  const auto send = [this](IconMouseMessage message) {
    const auto mouse = Mouse;
    if (mouse) mouse(message);
  };
  switch (reason) {
    case QSystemTrayIcon::Trigger:
      send(IconMouseMessage::kLeftDown);
      send(IconMouseMessage::kLeftUp);
      break;
    case QSystemTrayIcon::DoubleClick:
      // Qt has told of the first click before, as a trigger.
      send(IconMouseMessage::kLeftDoubleClick);
      break;
    case QSystemTrayIcon::Context:
      send(IconMouseMessage::kRightDown);
      send(IconMouseMessage::kRightUp);
      break;
    default:
      break;
  }
}

}  // namespace tidewarden
