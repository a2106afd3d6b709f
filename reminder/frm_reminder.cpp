#include "reminder/frm_reminder.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <algorithm>

#include "core/frm_skin.h"
#include "reminder/frm_reminder_list.h"
#include "reminder/frm_reminder_look.h"
#include "reminder/frm_reminder_model.h"
#include "reminder/frm_reminder_quit.h"
#include "reminder/reminder_session.h"

namespace tidewarden {
namespace {

constexpr int kMargin = 5;
constexpr int kGap = 4;
constexpr int kFrameMilliseconds = 200;
constexpr int kQuoteHeight = PixelsFromTwips(DailyQuote::kReserveTwips) - kGap;

WindowArea InTwips(const QRect& area) {
  return {TwipsFromPixels(area.x()), TwipsFromPixels(area.y()), TwipsFromPixels(area.width()),
          TwipsFromPixels(area.height())};
}

QRect InPixels(const WindowArea& area) {
  return {PixelsFromTwips(area.left), PixelsFromTwips(area.top), PixelsFromTwips(area.width),
          PixelsFromTwips(area.height)};
}

void SetSheet(QWidget* widget, const QString& sheet) {
  if (widget->styleSheet() != sheet) widget->setStyleSheet(sheet);
}

}  // namespace

frmReminder::frmReminder(ReminderSession& session, QWidget* parent)
    : QWidget(parent),
      session_(session),
      model_(new ListModel(session, this)),
      List1(new ReminderListView(this)),
      sknDate(new QLabel(this)),
      cmdGoToEdit(new QPushButton(this)),
      cmdTray(new QToolButton(this)),
      txtDailyQuote(new QPlainTextEdit(this)),
      tmrAlarm(new QTimer(this)),
      tmrDelay(new QTimer(this)),
      tmrMinute(new QTimer(this)),
      tmrFrame(new QTimer(this)),
      tmrState(new QTimer(this)),
      tmrShown(new QTimer(this)),
      quitListener_(new QuitListener(this)),
      mnuPop(new QMenu(this)) {
  setObjectName(QStringLiteral("frmReminder"));
  MakeControls();
  MakeMenu();
  Connect();
  Render();
}

void frmReminder::MakeControls() {
  List1->setObjectName(QStringLiteral("List1"));
  List1->setAccessibleName(tr("Reminders"));
  List1->setModel(model_);

  sknDate->setObjectName(QStringLiteral("sknDate"));
  sknDate->setAccessibleName(tr("Today's date"));
  sknDate->setTextFormat(Qt::PlainText);
  sknDate->setAlignment(Qt::AlignCenter);

  cmdGoToEdit->setObjectName(QStringLiteral("cmdGoToEdit"));
  cmdGoToEdit->setText(tr("&EDIT"));
  cmdGoToEdit->setToolTip(tr("Open the Events Editor (Alt + E)"));
  cmdGoToEdit->setAccessibleName(tr("Open the events editor"));
  cmdGoToEdit->setAutoDefault(true);

  cmdTray->setObjectName(QStringLiteral("cmdTray"));
  cmdTray->setToolTip(tr("Send to the tray"));
  cmdTray->setAccessibleName(tr("Send to the tray"));
  cmdTray->setFocusPolicy(Qt::TabFocus);

  txtDailyQuote->setObjectName(QStringLiteral("txtDailyQuote"));
  txtDailyQuote->setAccessibleName(tr("Quote of the day"));
  txtDailyQuote->hide();
  txtDailyQuote->setReadOnly(true);
  txtDailyQuote->setUndoRedoEnabled(false);
  txtDailyQuote->setContextMenuPolicy(Qt::NoContextMenu);
  txtDailyQuote->setTabChangesFocus(true);
  txtDailyQuote->setToolTip(tr("Click for another quote"));
  txtDailyQuote->installEventFilter(this);
  txtDailyQuote->viewport()->installEventFilter(this);

  tmrAlarm->setObjectName(QStringLiteral("tmrAlarm"));
  tmrDelay->setObjectName(QStringLiteral("tmrDelay"));
  tmrDelay->setSingleShot(true);
  tmrMinute->setObjectName(QStringLiteral("tmrMinute"));
  tmrMinute->setSingleShot(true);
  tmrState->setObjectName(QStringLiteral("tmrState"));
  tmrState->setSingleShot(true);
  tmrShown->setObjectName(QStringLiteral("tmrShown"));
  tmrShown->setSingleShot(true);
  tmrFrame->setObjectName(QStringLiteral("tmrFrame"));
  tmrFrame->setInterval(kFrameMilliseconds);
  tmrFrame->setSingleShot(true);

  const QString skin = ReadableSkin(QString::fromStdString(session_.skin()));
  DressTrayButton(*cmdTray, skin);
  SetSheet(this, skin);
  setTabOrder(List1, cmdTray);
  setTabOrder(cmdTray, cmdGoToEdit);
  setTabOrder(cmdGoToEdit, txtDailyQuote);
}

void frmReminder::MakeMenu() {
  mnuPop->setObjectName(QStringLiteral("mnuPop"));
  mnuPop->setTitle(tr("Popup Menu"));
  mnuPop->setAccessibleName(tr("Popup Menu"));
  const auto item = [this](const char* name, const QString& text) {
    QAction* const action = text.isEmpty() ? mnuPop->addSeparator() : mnuPop->addAction(text);
    action->setObjectName(QLatin1String(name));
    return action;
  };
  mnuHideThis = item("mnuHideThis", tr("Hide Until Next Occurrence"));
  mnuLine0 = item("mnuLine0", {});
  mnuEditEvent = item("mnuEditEvent", tr("Edit this Event"));
  mnuDeleteEvent = item("mnuDeleteEvent", tr("Delete this Event"));
  mnuLine1 = item("mnuLine1", {});
  const std::array<QString, 5> sizes{tr("Smallest Text"), tr("Small Text"), tr("Medium Text"),
                                     tr("Large Text"), tr("Largest Text")};
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    mnuFontSize.at(i) = item("mnuFontSize", sizes.at(i));
    mnuFontSize.at(i)->setObjectName(QStringLiteral("mnuFontSize%1").arg(i));
    mnuFontSize.at(i)->setData(static_cast<int>(i));
  }
  mnuLine2 = item("mnuLine2", {});
  mnuCancel = item("mnuCancel", tr("Cancel (Return to Reminders)"));
}

void frmReminder::Connect() {
  connect(List1, &ReminderListView::RowSelected, this,
          [this](int row) { session_.SelectRow(row); });
  connect(List1, &ReminderListView::OpenWanted, this,
          [this] { Apply(session_.DoubleClick(Here())); });
  connect(List1, &ReminderListView::MenuWanted, this, &frmReminder::ShowMenu);
  connect(cmdGoToEdit, &QPushButton::clicked, this, [this] { Apply(session_.GoToEdit(Here())); });
  connect(cmdTray, &QToolButton::clicked, this, [this] { Apply(session_.SendToTray()); });
  connect(tmrAlarm, &QTimer::timeout, this, &frmReminder::Tick);
  connect(tmrDelay, &QTimer::timeout, this, [this] { tmrAlarm->start(session_.timerInterval()); });
  connect(tmrMinute, &QTimer::timeout, this, &frmReminder::Tick);
  connect(tmrShown, &QTimer::timeout, this, [this] { session_.Shown(); });
  connect(tmrState, &QTimer::timeout, this, [this] { Apply(session_.StateChanged(State())); });
  connect(tmrFrame, &QTimer::timeout, this, [this] {
    if (State() == WindowState::kNormal) Place();
  });
  connect(mnuHideThis, &QAction::triggered, this, [this] { Apply(session_.HideThis()); });
  connect(mnuEditEvent, &QAction::triggered, this, [this] { Apply(session_.EditEvent(Here())); });
  connect(mnuDeleteEvent, &QAction::triggered, this, [this] { Apply(session_.DeleteThis()); });
  for (QAction* const size : mnuFontSize) {
    connect(size, &QAction::triggered, this, [this, size] {
      session_.SetTextSize(size->data().toInt());
      Render();
    });
  }
}

void frmReminder::Start() {
  Place();
  if (session_.placement().maximized) setWindowState(Qt::WindowMaximized);
  show();
  tmrDelay->start(session_.timerDelay());
  AwaitMinute();
}

// A precise timer keeps some systems awake, Windows a thousand times a second. Only a wait that
// ends at the edge of the minute needs it, so that an alarm rings in its minute's first second.
void frmReminder::AwaitMinute() {
  const int wait = session_.untilNextMinute();
  tmrMinute->setTimerType(wait < kLongestTickWait ? Qt::PreciseTimer : Qt::CoarseTimer);
  tmrMinute->start(wait);
}

// At the end of the login session the editor closes, too, and nothing may come up for that.
void frmReminder::Return() {
  if (!IsLoggingOut()) Apply(session_.Restore());
}

void frmReminder::EditorRestored() {
  Apply(session_.EditorRestored());
}

void frmReminder::RestoreFromTray() {
  Apply(session_.Restore());
}

void frmReminder::ScreensChanged(const Screens& screens) {
  Apply(session_.ScreensChanged(screens, Here()));
}

void frmReminder::Apply(WindowChange change) {
  switch (change) {
    case WindowChange::kNone:
      break;
    case WindowChange::kPlace:
      Place();
      tmrFrame->start();
      break;
    case WindowChange::kMinimize:
    case WindowChange::kShowMinimized:
      showMinimized();
      break;
    case WindowChange::kHide:
      hide();
      break;
    case WindowChange::kRestore:
      setWindowState(session_.placement().maximized ? Qt::WindowMaximized : Qt::WindowNoState);
      show();
      raise();
      activateWindow();
      break;
    case WindowChange::kPopUp:
      PopUp();
      Apply(session_.StartNewDay());
      return;
    case WindowChange::kEnd:
      StopTimers();
      hide();
      Q_EMIT Ended();
      return;
  }
  // A list that has been built anew may want its tick at once.
  if (tmrMinute->isActive()) AwaitMinute();
  Render();
}

// Each tick sets the next one to the edge of the minute, whichever timer it comes from: after a
// sleep, or when the clock has been set, the old edge is none.
void frmReminder::Tick() {
  const WindowChange change = session_.Tick(State());
  if (change != WindowChange::kEnd) AwaitMinute();
  Apply(change);
}

void frmReminder::StopTimers() {
  for (QTimer* const timer : {tmrDelay, tmrAlarm, tmrMinute}) timer->stop();
}

void frmReminder::Place() {
  const QRect place = InPixels(session_.placement().area);
  move(place.topLeft());
  resize(place.size());
}

// Changing the flag hides the window, and some window managers place a window anew that comes
// back. The screen on which a maximized window was normal may have gone meanwhile.
void frmReminder::PopUp() {
  const QRect normal = isMaximized() ? normalGeometry() : geometry();
  const QRect place = InPixels(session_.AreaOnAScreen(InTwips(normal)));
  setWindowFlag(Qt::WindowStaysOnTopHint);
  setWindowState(Qt::WindowNoState);
  setGeometry(place);
  show();
  raise();
  activateWindow();
  Q_EMIT PoppedUp();
}

void frmReminder::Render() {
  // Qt would take "[*]" for its own mark of unsaved changes.
  QString title = QString::fromStdString(session_.caption());
  setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
  RenderList();
  sknDate->setText(QString::fromStdString(session_.dateLabel()));
  sknDate->setVisible(session_.showsDateLabel());
  sknDate->setAccessibleName(tr("Today's date: %1").arg(sknDate->text()));
  QString quote = QString::fromStdString(session_.quote().text());
  quote.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  if (txtDailyQuote->toPlainText() != quote) txtDailyQuote->setPlainText(quote);
  txtDailyQuote->setVisible(session_.quote().visible());
  LayOut();
}

void frmReminder::RenderList() {
  if (builtRows_ != session_.builds()) {
    builtRows_ = session_.builds();
    const int top = List1->verticalScrollBar()->value();
    model_->Rebuilt();
    List1->verticalScrollBar()->setValue(top);
  } else {
    model_->TextsChanged();
  }
  SetSheet(List1, ListSheet(session_.listColours()));

  const QFont font = FontOf(session_.listFont());
  if (List1->font() != font) List1->setFont(font);
  if (txtDailyQuote->font() != font) txtDailyQuote->setFont(font);
}

void frmReminder::LayOut() {
  const int right = width() - kMargin;
  const int rowHeight = std::max(cmdGoToEdit->sizeHint().height(), kTrayButtonSize);
  int bottom = height() - kMargin;
  if (!txtDailyQuote->isHidden()) {
    // A low window keeps one row of the list.
    const int row = std::max(List1->fontMetrics().height(), List1->sizeHintForRow(0));
    const int oneRow = row + 2 * List1->frameWidth();
    const int room = bottom - kMargin - oneRow - kGap - rowHeight - kGap;
    const int quoteHeight = std::clamp(room, 0, kQuoteHeight);
    txtDailyQuote->setGeometry(kMargin, bottom - quoteHeight, right - kMargin, quoteHeight);
    bottom -= quoteHeight + kGap;
  }
  const int rowTop = bottom - rowHeight;
  const int editWidth = cmdGoToEdit->sizeHint().width();
  cmdGoToEdit->setGeometry(right - editWidth, rowTop, editWidth, rowHeight);
  const int trayLeft = right - editWidth - kGap - kTrayButtonSize;
  cmdTray->setGeometry(trayLeft, rowTop + (rowHeight - kTrayButtonSize) / 2, kTrayButtonSize,
                       kTrayButtonSize);
  sknDate->setGeometry(kMargin, rowTop, trayLeft - kGap - kMargin, rowHeight);
  List1->setGeometry(kMargin, kMargin, right - kMargin, rowTop - kGap - kMargin);
}

WindowState frmReminder::State() const {
  if (isMinimized()) return WindowState::kMinimized;
  return isMaximized() ? WindowState::kMaximized : WindowState::kNormal;
}

WindowPlacement frmReminder::Here() const {
  return {State(), InTwips(QRect(pos(), size()))};
}

bool frmReminder::event(QEvent* event) {
  if (event->type() == QEvent::WinIdChange) {
    session_.tIcon().OwnerForm = static_cast<WindowHandle>(internalWinId());
  }
  const bool isHandled = QWidget::event(event);
  if (event->type() == QEvent::ApplicationPaletteChange) Render();
  return isHandled;
}

void frmReminder::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  // The size and state that showing itself brings are not the user's.
  if (!event->spontaneous()) tmrShown->start();
}

void frmReminder::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
  if (!session_.isShown()) return;
  const QSize least(PixelsFromTwips(kLeastReminderWidth), PixelsFromTwips(session_.leastHeight()));
  if (minimumSize() != least) setMinimumSize(least);
}

void frmReminder::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  tmrState->start();
}

void frmReminder::mouseReleaseEvent(QMouseEvent* event) {
  QWidget::mouseReleaseEvent(event);
  // Controls that make nothing of a release pass it on.
  if (childAt(event->position().toPoint()) == nullptr) session_.SurfaceReleased(Here());
}

bool frmReminder::IsLoggingOut() const {
  return quitListener_->Heard();
}

void frmReminder::closeEvent(QCloseEvent* event) {
  const auto reason = IsLoggingOut() ? CloseReason::kLoginSessionEnds : CloseReason::kUser;
  if (!session_.Close(State(), reason)) {
    event->ignore();
    return;
  }
  event->accept();
  StopTimers();
  Q_EMIT Ended();
}

bool frmReminder::eventFilter(QObject* watched, QEvent* event) {
  const bool isClick = watched == txtDailyQuote->viewport() &&
                       event->type() == QEvent::MouseButtonRelease &&
                       txtDailyQuote->viewport()->rect().contains(
                           static_cast<const QMouseEvent*>(event)->position().toPoint());
  const bool isKey = watched == txtDailyQuote && event->type() == QEvent::KeyPress &&
                     static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Space;
  if (isClick || isKey) {
    session_.ShowAnotherQuote();
    Render();
  }
  return isKey || QWidget::eventFilter(watched, event);
}

void frmReminder::ShowMenu(int row, const QPoint& globalPosition) {
  List1->Select(row);
  const PopupMenu menu = session_.OpenMenu(row);
  mnuHideThis->setVisible(menu.mnuHideThis);
  mnuLine0->setVisible(menu.mnuLine0);
  mnuEditEvent->setVisible(menu.mnuEditEvent);
  mnuDeleteEvent->setVisible(menu.mnuDeleteEvent);
  mnuLine1->setVisible(menu.mnuLine1);
  mnuPop->popup(globalPosition);
}

}  // namespace tidewarden
