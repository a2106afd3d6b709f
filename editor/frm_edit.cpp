#include "editor/frm_edit.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <functional>
#include <utility>

#include "core/frm_skin.h"
#include "core/window_placement.h"
#include "editor/frm_edit_model.h"

namespace tidewarden {
namespace {

std::vector<WindowArea> ConnectedScreens() {
  std::vector<WindowArea> screens;
  const auto add = [&](const QScreen* screen) {
    const QRect area = screen->geometry();
    screens.push_back({TwipsFromPixels(area.left()), TwipsFromPixels(area.top()),
                       TwipsFromPixels(area.width()), TwipsFromPixels(area.height())});
  };
  const QScreen* const primary = QGuiApplication::primaryScreen();
  add(primary);
  for (const QScreen* const screen : QGuiApplication::screens()) {
    if (screen != primary) add(screen);
  }
  return screens;
}

bool IsReturn(const QKeyEvent* key) {
  return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

bool IsMenuKey(const QKeyEvent* key) {
  return key->key() == Qt::Key_Menu ||
         (key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier);
}

bool IsAltLetter(const QKeyEvent* key) {
  const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::ShiftModifier;
  return modifiers == Qt::AltModifier && !key->text().isEmpty() && key->text().front().isPrint();
}

bool ActsOnRelease(int key) {
  return key == Qt::Key_F1 || key == Qt::Key_Escape || key == Qt::Key_Delete;
}

}  // namespace

frmEdit::frmEdit(EditSession& session, const QString& skin, QWidget* parent)
    : QWidget(parent),
      session_(session),
      skin_(ReadableSkin(skin)),
      normalHeight_(PixelsFromTwips(kEditorLeastHeight)) {
  setObjectName(QStringLiteral("frmEdit"));
  setFixedWidth(PixelsFromTwips(kEditorWidth));
  setMinimumHeight(PixelsFromTwips(kEditorLeastHeight));
  MakeList();
  MakeMenu();
  MakeIdleButtons();
  MakeEntryRow();
  MakeHiddenButtons();
  NameControls();
  OrderTabs();
  ConnectButtons();
  ConnectList();
  ConnectEntryRow();
  installEventFilter(this);
  for (QWidget* const control : findChildren<QWidget*>()) {
    // Not the menu and the drop-down lists: their keys are their own.
    if (control->window() == this) control->installEventFilter(this);
  }
  Render();
}

// Calls one function of the session, with whatever it returns, and shows what has come of it.
template <typename Function>
void frmEdit::Act(Function function) {
  std::invoke(function, session_);
  Render();
}

void frmEdit::Open(long RequestedEditLine, const std::string& rawLine, bool RequestedAdd) {
  const bool wasLoaded = session_.isLoaded();
  session_.Request(RequestedEditLine, rawLine, RequestedAdd);
  if (wasLoaded) {
    Render();
    if (isMinimized()) showNormal();
  } else {
    const WindowArea place = session_.Load(ConnectedScreens());
    move(PixelsFromTwips(place.left), PixelsFromTwips(place.top));
    resize(PixelsFromTwips(place.width), PixelsFromTwips(place.height));
    setWindowState(Qt::WindowNoState);
    phase_ = Phase::kNormal;
    ApplySkin();
    FillBoxes();
    Render();
    show();
    Act(&EditSession::Shown);
  }
  raise();
  activateWindow();
}

void frmEdit::Unload() {
  if (!session_.isLoaded()) return;
  session_.Closed(PlaceToSave(), EditorClosing::kProgramEnds);
  hide();
}

void frmEdit::Reload() {
  Act(&EditSession::Reload);
}

void frmEdit::ScreensChanged() {
  const std::optional<EditorPlace> here = PlaceToSave();
  // For a moment there may be no screen at all.
  if (QGuiApplication::primaryScreen() == nullptr) return;
  if (!session_.isLoaded() || !here || !here->left || !here->top) return;
  const WindowArea area{*here->left, *here->top, TwipsFromPixels(width()), here->height};
  const WindowArea seen = OntoAScreen(area, ConnectedScreens());
  if (seen != area) move(PixelsFromTwips(seen.left), PixelsFromTwips(seen.top));
}

frmEdit::Phase frmEdit::CurrentPhase() const {
  if (isMinimized()) return Phase::kMinimized;
  return isMaximized() || isFullScreen() ? Phase::kMaximized : Phase::kNormal;
}

std::optional<EditorPlace> frmEdit::PlaceToSave() const {
  if (CurrentPhase() != Phase::kNormal) return std::nullopt;
  EditorPlace place;
  place.height = TwipsFromPixels(height());
  // A Wayland client does not learn where it is.
  if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
    place.left = TwipsFromPixels(x());
    place.top = TwipsFromPixels(y());
  }
  return place;
}

void frmEdit::closeEvent(QCloseEvent* event) {
  event->accept();
  if (session_.isLoaded()) session_.Closed(PlaceToSave(), EditorClosing::kReturnToReminders);
}

void frmEdit::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || CurrentPhase() == phase_) return;
  const Phase before = std::exchange(phase_, CurrentPhase());
  if (phase_ == Phase::kNormal) LayOut();
  if (!session_.isLoaded()) return;
  // A window that is only about to be shown has not been minimized in this session.
  if (before == Phase::kMinimized && isVisible()) {
    Q_EMIT Restored();
  } else if (phase_ != Phase::kNormal) {
    Q_EMIT LeftNormalState();
  }
}

void frmEdit::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
}

void frmEdit::ConnectButtons() {
  const auto onClick = [this](const QPushButton* button, auto function) {
    connect(button, &QPushButton::clicked, this, [this, function] { Act(function); });
  };
  onClick(cmdAdd, &EditSession::Add);
  onClick(cmdEdit, &EditSession::Edit);
  onClick(cmdHelp, &EditSession::Help);
  onClick(cmdPrint, &EditSession::Print);
  onClick(cmdOptions, [this](EditSession& session) { session.Options(PlaceToSave()); });
  onClick(cmdDonate, &EditSession::Donate);
  onClick(cmdDelete, &EditSession::Delete);
  onClick(cmdSave, &EditSession::Save);
  onClick(cmdCancel, &EditSession::Cancel);
  onClick(cmdHiddenPrint, &EditSession::HiddenPrint);
  onClick(cmdHiddenOptions, [this](EditSession& session) { session.HiddenOptions(PlaceToSave()); });
  onClick(cmdHiddenDonate, &EditSession::HiddenDonate);
  onClick(cmdHiddenSave, &EditSession::HiddenSave);
  connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
  // Later, because the reminder window cannot well come up while the state of this one changes.
  const auto handBack = [this] {
    if (session_.isLoaded()) Act(&EditSession::LeftNormalState);
  };
  connect(this, &frmEdit::LeftNormalState, this, handBack, Qt::QueuedConnection);
  const auto takeOver = [this] {
    if (session_.isLoaded()) Act(&EditSession::Restored);
  };
  connect(this, &frmEdit::Restored, this, takeOver, Qt::QueuedConnection);
}

void frmEdit::ConnectList() {
  connect(List1->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (rendering_) return;
    const QModelIndexList selected = List1->selectionModel()->selectedIndexes();
    const int row = selected.isEmpty() ? -1 : selected.first().row();
    Act([row](EditSession& session) { session.RowSelected(row); });
  });
  const auto onTriggered = [this](const QAction* item, auto function) {
    connect(item, &QAction::triggered, this, [this, function] { Act(function); });
  };
  onTriggered(mnuPopupEdit, &EditSession::PopupEdit);
  onTriggered(mnuPopupDelete, &EditSession::PopupDelete);
  onTriggered(mnuPopupCancel, &EditSession::PopupCancel);
}

void frmEdit::ConnectTyping(QLineEdit* box, void (EditSession::*typed)(std::string_view)) {
  connect(box, &QLineEdit::textEdited, this, [this, box, typed](const QString& text) {
    // What the session does not take was put in just before the caret.
    const qsizetype behind = text.size() - box->cursorPosition();
    Act([&](EditSession& session) { (session.*typed)(text.toStdString()); });
    if (box->text() != text) {
      box->setCursorPosition(static_cast<int>(box->text().size() - behind));
    }
  });
}

void frmEdit::ConnectEntryRow() {
  ConnectTyping(txtEventInput, &EditSession::EventInputTyped);
  ConnectTyping(txtDateInput, &EditSession::DateInputTyped);
  ConnectTyping(txtAdvanceInput, &EditSession::AdvanceInputTyped);
  ConnectTyping(txtEveryInput, &EditSession::EveryInputTyped);
  connect(chkEveryMonth, &QCheckBox::clicked, this, [this](bool checked) {
    Act([checked](EditSession& session) { session.EveryMonthClicked(checked); });
  });
  connect(cmbOccursInput, &QComboBox::activated, this, [this](int index) {
    Act([index](EditSession& session) { session.OccursPicked(index); });
  });
  connect(cmbPopular, &QComboBox::activated, this, [this](int index) {
    Act([index](EditSession& session) { session.PopularPicked(index); });
  });
}

// Sees what happens in every control before the control does. True when it is not to see it.
bool frmEdit::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      return KeyPressed(watched, static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
      KeyReleased(watched, static_cast<QKeyEvent*>(event));
      return false;
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
      pressed_.clear();
      return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return watched == List1->viewport() && ListMousePressed(static_cast<QMouseEvent*>(event));
    case QEvent::FocusOut:
      if (watched == txtDateInput && !rendering_) Act(&EditSession::DateInputLeft);
      return false;
    case QEvent::InputMethod: {
      const QString text = static_cast<QInputMethodEvent*>(event)->commitString();
      if (watched != txtDateInput || text.isEmpty() || !DateKeyPressed(text)) return false;
      QInputMethodEvent nothing;
      txtDateInput->event(&nothing);
      return true;
    }
    case QEvent::Wheel:
      // A turn of the wheel over the closed box would fill the whole entry row.
      return watched == cmbPopular;
    default:
      return QWidget::eventFilter(watched, event);
  }
}

// A held key sends releases and presses. X11 does not always mark those that go on here after a box
// has closed, but a repeat's press has the same time as its release.
bool frmEdit::IsRepeat(const QKeyEvent* key) const {
  // Events that another program makes up may have no time.
  const bool followsItsRelease =
      key->timestamp() != 0 && key->timestamp() == releaseTime_ && key->key() == releasedKey_;
  return key->isAutoRepeat() || followsItsRelease;
}

bool frmEdit::KeyPressed(QObject* watched, QKeyEvent* key) {
  if (ActsOnRelease(key->key()) && !IsRepeat(key) && !pressed_.contains(key->key())) {
    pressed_.insert(key->key(), watched);
  }
  if (watched == List1) return ListKeyPressed(key);
  if (watched == cmbPopular) return PopularKeyPressed(key);
  if (auto* const button = qobject_cast<QPushButton*>(watched)) {
    if (!IsReturn(key)) return false;
    if (!IsRepeat(key)) button->click();
    return true;
  }
  // Alt with the letter of a button that cannot be pressed now is no text either.
  if (IsAltLetter(key)) return true;
  return watched == txtDateInput && DateKeyPressed(key->text());
}

// F1, Esc and Delete act when they are let go, if they went down in this window: a key that
// closes a message box or a drop-down list goes up here, too.
void frmEdit::KeyReleased(QObject* watched, const QKeyEvent* key) {
  releasedKey_ = key->key();
  releaseTime_ = key->timestamp();
  if (key->isAutoRepeat() || !pressed_.contains(key->key())) return;
  const QObject* const wherePressed = pressed_.take(key->key());
  if (key->key() == Qt::Key_F1) Act(&EditSession::Help);
  if (key->key() == Qt::Key_Escape) Act(&EditSession::EscapeReleased);
  if (key->key() == Qt::Key_Delete && watched == List1 && wherePressed == List1) {
    Act(&EditSession::ListDeleteReleased);
  }
}

bool frmEdit::ListKeyPressed(const QKeyEvent* key) {
  if (IsReturn(key)) {
    if (!IsRepeat(key)) Act(&EditSession::ListEnterPressed);
    return true;
  }
  if (!IsMenuKey(key)) return false;
  const int row = session_.selectedRow();
  const QPoint place = List1->visualRect(model_->index(row, 0)).bottomLeft();
  ShowMenu(row, List1->viewport()->mapToGlobal(place));
  return true;
}

// Each key helps with a month's name that stands in the box; a letter may complete one.
bool frmEdit::DateKeyPressed(const QString& text) {
  KeyUse use = KeyUse::kPassOn;
  if (!text.isEmpty() && text.front().isPrint()) {
    Act([&](EditSession& session) { use = session.DateInputKey(text.toStdString()); });
  } else {
    Act(&EditSession::DateInputLeft);
  }
  return use == KeyUse::kConsumed;
}

// Opens the list in place of picking unseen: a pick fills the entry row and takes the focus away.
bool frmEdit::PopularKeyPressed(QKeyEvent* key) {
  switch (key->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      cmbPopular->showPopup();
      return true;
    default:
      // The same for what would search the list by its first characters.
      if (key->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier)) return false;
      if (key->text().isEmpty() || !key->text().front().isLetterOrNumber()) return false;
      cmbPopular->showPopup();
      return true;
  }
}

bool frmEdit::ListMousePressed(const QMouseEvent* event) {
  const QModelIndex index = List1->indexAt(event->position().toPoint());
  if (event->button() == Qt::RightButton) {
    ShowMenu(index.isValid() ? index.row() : -1, event->globalPosition().toPoint());
    return true;
  }
  if (event->type() == QEvent::MouseButtonDblClick) {
    if (event->button() == Qt::LeftButton) Act(&EditSession::RowDoubleClicked);
    return true;
  }
  // A click beside the rows leaves the selection as it is.
  if (!index.isValid()) List1->setFocus(Qt::MouseFocusReason);
  return !index.isValid();
}

void frmEdit::ShowMenu(int row, const QPoint& globalPosition) {
  bool shown = false;
  Act([&](EditSession& session) { shown = session.RowRightPressed(row); });
  if (shown) mnuPop->popup(globalPosition);
}

}  // namespace tidewarden
