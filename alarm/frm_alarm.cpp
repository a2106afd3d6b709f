#include "alarm/frm_alarm.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

#include "alarm/alarm_session.h"
#include "alarm/frm_alarm_parts.h"
#include "core/frm_list_font.h"
#include "core/frm_skin.h"

namespace tidewarden {
namespace {

constexpr int Px(int twips) {
  return PixelsFromTwips(twips);
}

constexpr QSize kLeastSize{Px(kLeastAlarmWidth), Px(kLeastAlarmHeight)};
constexpr int kDesignedPoints = 8;
constexpr int kHeadingPoints = 10;

WindowArea InTwips(const QRect& area) {
  return {TwipsFromPixels(area.x()), TwipsFromPixels(area.y()), TwipsFromPixels(area.width()),
          TwipsFromPixels(area.height())};
}

}  // namespace

frmAlarm::frmAlarm(AlarmSession& session, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint),
      session_(session),
      placeLater_(new QTimer(this)),
      Picture1(new AlarmPanel(this)),
      Label1(new QLabel(Picture1)),
      messages_(new QScrollArea(Picture1)),
      lblAlarmMessage(new AlarmMessageLabel(nullptr)),
      cmdOK(new QPushButton(this)) {
  placeLater_->setSingleShot(true);
  connect(placeLater_, &QTimer::timeout, this, &frmAlarm::PlaceNormally);
  setObjectName(QStringLiteral("frmAlarm"));
  setWindowTitle(tr("Your Tidewarden Alarm Messages."));
  // The program waits in the notification area while this may be its only window.
  setAttribute(Qt::WA_QuitOnClose, false);
  SetUpControls();
  connect(cmdOK, &QPushButton::clicked, this, &QWidget::close);
}

frmAlarm::~frmAlarm() {
  Unload();
}

void frmAlarm::SetUpControls() {
  const QFont heading(QStringLiteral("Arial"), kHeadingPoints, QFont::Bold);
  const QFont designed(QStringLiteral("Arial"), kDesignedPoints, QFont::Bold);

  Picture1->setObjectName(QStringLiteral("Picture1"));
  Picture1->setAccessibleName(tr("A ringing bell"));
  // A click on a control is none on the window.
  Picture1->setAttribute(Qt::WA_NoMousePropagation);
  cmdOK->setAttribute(Qt::WA_NoMousePropagation);

  Label1->setObjectName(QStringLiteral("Label1"));
  Label1->setTextFormat(Qt::PlainText);
  Label1->setText(tr("You Have a Tidewarden Alarm . . ."));
  Label1->setAccessibleName(Label1->text());
  Label1->setFont(heading);
  Label1->setForegroundRole(QPalette::Text);

  lblAlarmMessage->setObjectName(QStringLiteral("lblAlarmMessage"));
  lblAlarmMessage->setFont(designed);

  messages_->setObjectName(QStringLiteral("scrAlarmMessage"));
  messages_->setAccessibleName(tr("Alarm messages"));
  messages_->setFrameShape(QFrame::NoFrame);
  messages_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  messages_->viewport()->setAutoFillBackground(false);
  messages_->setWidget(lblAlarmMessage);
  lblAlarmMessage->setAutoFillBackground(false);

  cmdOK->setObjectName(QStringLiteral("cmdOK"));
  cmdOK->setText(tr("OK"));
  cmdOK->setAccessibleName(tr("OK, I have read the alarm messages"));
  // Return presses it where it has the focus, and only there.
  cmdOK->setAutoDefault(true);
}

void frmAlarm::ApplySkin(const QString& styleSheet) {
  setStyleSheet(ReadableSkin(styleSheet));
}

void frmAlarm::ShowMessages() {
  if (!isLoaded_) Load();
  Render();
  if (isVisible()) {
    // Minimized it would keep the new message to itself.
    if (isMinimized()) ComeForward();
    return;
  }
  // While a message box waits for an answer, a window that is not modal could not be closed.
  setWindowModality(QApplication::activeModalWidget() != nullptr ? Qt::ApplicationModal
                                                                 : Qt::NonModal);
  TakeFocusFromButton();
  show();
  ComeForward();
  // Where not all messages can be seen, the empty line before the first is no loss.
  messages_->verticalScrollBar()->setValue(messages_->verticalScrollBar()->singleStep());
}

// Keys that were meant for another window must not press the button.
void frmAlarm::TakeFocusFromButton() {
  messages_->setFocus();
}

void frmAlarm::ComeForward() {
  if (isMinimized()) {
    TakeFocusFromButton();
    setWindowState(windowState() & ~Qt::WindowMinimized);
  }
  raise();
  activateWindow();
}

void frmAlarm::ScreensChanged() {
  const AlarmWindowState here = StateNow();
  const Screens screens = ScreensNow();
  if (!here.visible || here.state == WindowState::kMaximized || !screens.canPlaceWindows ||
      MeetsAScreen(here.area, screens)) {
    return;
  }
  LoadAlarmPlacement();
  ComeForward();
}

void frmAlarm::Load() {
  ApplyAlarmFont();
  layoutReady_ = false;
  // Each opening is a window of its own for the system, which else keeps states of the one before.
  if (testAttribute(Qt::WA_WState_Created)) destroy();
  LoadAlarmPlacement();
  layoutReady_ = true;
  isLoaded_ = true;
  LayOut();
}

void frmAlarm::ApplyAlarmFont() {
  lblAlarmMessage->setFont(FontOf(session_.ReadAlarmFont(), kDesignedPoints));
}

void frmAlarm::LoadAlarmPlacement() {
  const AlarmPlacement placement = session_.LoadAlarmPlacement(ScreensNow());
  const WindowArea& area = placement.area;
  normalPlace_ = QRect(Px(area.left), Px(area.top), Px(area.width), Px(area.height));
  setWindowState(Qt::WindowNoState);
  PlaceNormally();
  isMaximizedKnown_ = placement.maximized;
  opensMaximized_ = placement.maximized;
  if (placement.maximized) setWindowState(Qt::WindowMaximized);
}

void frmAlarm::PlaceNormally() {
  if (isMaximized()) return;
  setMinimumSize(0, 0);
  programSize_ = normalPlace_.size();
  resize(normalPlace_.size());
  move(normalPlace_.topLeft());
}

void frmAlarm::Unload() {
  if (!isLoaded_) return;
  isLoaded_ = false;
  session_.Unload(StateNow(), ScreensNow());
}

void frmAlarm::closeEvent(QCloseEvent* event) {
  Unload();
  event->accept();
}

void frmAlarm::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (!layoutReady_ || isMinimized()) return;
  layoutReady_ = false;
  // The toolkit's least size comes with the user's first change and not before, because the window
  // opens smaller than that.
  if (!isMaximized() && event->size() != programSize_) setMinimumSize(kLeastSize);
  LayOut();
  layoutReady_ = true;
}

void frmAlarm::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || !isLoaded_ || isMinimized()) return;
  if (isMaximized() && !isMaximizedKnown_) session_.Maximized();
  isMaximizedKnown_ = isMaximized();
  if (isMaximized() || !opensMaximized_) return;
  // It has never been normal before, and not every system then knows how large that is. Later, when
  // the system has done what it does.
  opensMaximized_ = false;
  placeLater_->start(0);
}

void frmAlarm::mouseReleaseEvent(QMouseEvent* event) {
  QWidget::mouseReleaseEvent(event);
  if (isLoaded_) session_.SaveAlarmPlacement(StateNow(), ScreensNow());
}

void frmAlarm::LayOut() {
  const int width = TwipsFromPixels(this->width());
  const int height = TwipsFromPixels(this->height());
  Picture1->setGeometry(Px(120), Px(120), Px(width - 240), Px(height - 720));
  Label1->setGeometry(Px(345), Px(60), Picture1->width() - Px(345 + 120), Px(420));
  cmdOK->setGeometry(Px(width - 1335), Px(height - 495), Px(1215), Px(375));
  LayOutMessages();
}

void frmAlarm::LayOutMessages() {
  const QSize size(std::max(0, Picture1->width() - Px(570)),
                   std::max(0, Picture1->height() - Px(720)));
  const int neededHeight = lblAlarmMessage->heightForWidth(size.width());
  const bool scrolls = neededHeight > size.height();
  QScrollBar* const bar = messages_->verticalScrollBar();
  // The bar stands in the margin, so that the text keeps its width.
  const int barWidth = scrolls ? bar->sizeHint().width() : 0;
  messages_->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  messages_->setGeometry(Px(345), Px(480), size.width() + barWidth, size.height());
  lblAlarmMessage->resize(size.width(), std::max(size.height(), neededHeight));
  bar->setSingleStep(lblAlarmMessage->fontMetrics().lineSpacing());
}

void frmAlarm::Render() {
  const QString messages = QString::fromStdString(session_.alarmMessages());
  const QString before = lblAlarmMessage->text();
  if (messages == before) return;
  lblAlarmMessage->setText(messages);
  // A name of its own would keep the text from being read out.
  lblAlarmMessage->setAccessibleName(tr("Alarm messages: %1").arg(messages.simplified()));
  LayOutMessages();
  // The text grows at its end; what is new comes into view.
  if (isVisible())
    messages_->verticalScrollBar()->setValue(messages_->verticalScrollBar()->maximum());
}

Screens frmAlarm::ScreensNow() {
  Screens screens;
  if (const QScreen* primary = QGuiApplication::primaryScreen()) {
    screens.primary = InTwips(primary->geometry());
  }
  for (const QScreen* screen : QGuiApplication::screens()) {
    screens.all.push_back(InTwips(screen->geometry()));
  }
  screens.canPlaceWindows = !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
  return screens;
}

AlarmWindowState frmAlarm::StateNow() const {
  const WindowState state = isMinimized()   ? WindowState::kMinimized
                            : isMaximized() ? WindowState::kMaximized
                                            : WindowState::kNormal;
  return {state, isVisible(), InTwips(QRect(pos(), size()))};
}

}  // namespace tidewarden
