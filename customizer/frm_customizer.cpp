#include "customizer/frm_customizer.h"

#include <QApplication>
#include <QCloseEvent>
#include <QColorDialog>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>

#include "core/frm_skin.h"
#include "customizer/frm_customizer_field.h"
#include "customizer/frm_customizer_preview.h"
#include "customizer/options_session.h"

namespace tidewarden {
namespace {

QColor Shown(const Colour& colour) {
  return {colour.red, colour.green, colour.blue};
}

Colour Chosen(const QColor& colour) {
  return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
          static_cast<std::uint8_t>(colour.blue())};
}

}  // namespace

QString SoundFilter(const std::vector<std::string>& endings) {
  QStringList patterns;
  for (const std::string& ending : endings)
    patterns << QStringLiteral("*.") + QString::fromStdString(ending);
  return QObject::tr("Sounds (%1);;All files (*)").arg(patterns.join(QLatin1Char(' ')));
}

frmCustomizer::frmCustomizer(OptionsSession& session, QWidget* parent)
    : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("frmCustomizer"));
  setWindowTitle(tr("Tidewarden Options"));
  setAccessibleName(tr("Options"));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowMinMaxButtonsHint, true);
  MakePages();
  pnlPreview = new PreviewPanel(this);
  MakeButtons();
  Connect();
  Arrange();
  Render();
  qApp->installEventFilter(this);
}

// A box that loses the focus with the window still tells so.
frmCustomizer::~frmCustomizer() {
  hide();
}

void frmCustomizer::Connect() {
  connect(lstPages, &QListWidget::currentRowChanged, this, [this](int row) {
    session_.LookAtAutostart();
    stkPages->setCurrentIndex(row);
    Render();
  });
  connect(pnlPreview, &PreviewPanel::ExamplesWanted, this, [this](bool examples) {
    if (rendering_) return;
    session_.ShowExamples(examples);
    Render();
  });
  connect(cmdOk, &QPushButton::clicked, this, &frmCustomizer::SaveAndLeave);
  connect(cmdApply, &QPushButton::clicked, this, &frmCustomizer::Save);
  connect(cmdReminder, &QPushButton::clicked, this, &frmCustomizer::Return);
  connect(cmdCancel, &QPushButton::clicked, this,
          [this] { static_cast<void>(Leave(OptionsClosing::kDone)); });
  const auto turn = [this](QKeySequence::StandardKey standard, const char* other, int step) {
    for (const QKeySequence& key : {QKeySequence(standard), QKeySequence(QLatin1String(other))}) {
      if (key.isEmpty()) continue;
      connect(new QShortcut(key, this), &QShortcut::activated, this,
              [this, step] { NextPage(step); });
    }
  };
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
          [this] { session_.ShowHelp(); });
  turn(QKeySequence::NextChild, "Ctrl+PgDown", 1);
  turn(QKeySequence::PreviousChild, "Ctrl+PgUp", -1);
}

void frmCustomizer::ShowPage(OptionPage page) {
  lstPages->setCurrentRow(static_cast<int>(page));
}

void frmCustomizer::NextPage(int step) {
  const int count = lstPages->count();
  lstPages->setCurrentRow((lstPages->currentRow() + step + count) % count);
}

void frmCustomizer::Save() {
  const SaveOutcome outcome = session_.Save();
  saidSaved_ = outcome == SaveOutcome::kSaved;
  Render();
  if (outcome == SaveOutcome::kRefused) ShowRefused();
}

void frmCustomizer::SaveAndLeave() {
  Save();
  if (saidSaved_) static_cast<void>(Leave(OptionsClosing::kDone));
}

void frmCustomizer::Return() {
  const bool mayLeave = session_.ReturnToReminder();
  Render();
  if (session_.firstRefused()) ShowRefused();
  if (mayLeave) static_cast<void>(Leave(OptionsClosing::kDone));
}

// Brings the first wrong value under the user's fingers.
void frmCustomizer::ShowRefused() {
  const auto option = session_.firstRefused();
  if (!option) return;
  ShowPage(AllOptions()[*option].page);
  OptionField* const field = fields_[*option];
  auto* const scroll = qobject_cast<QScrollArea*>(stkPages->currentWidget());
  field->TakeFocus();
  scroll->ensureWidgetVisible(field);
}

void frmCustomizer::PickColour(bool background) {
  const ListColours shown = session_.ShownColours();
  const QColor colour = QColorDialog::getColor(
      Shown(background ? *shown.background : *shown.text), this,
      background ? tr("The colour behind the text") : tr("The colour of the text"));
  if (!colour.isValid()) return;
  saidSaved_ = false;
  session_.SetOwnColours(background ? *shown.text : Chosen(colour),
                         background ? Chosen(colour) : *shown.background);
  Render();
}

void frmCustomizer::Browse(std::size_t option) {
  const QString present = QString::fromStdString(session_.Text(option));
  QString path;
  switch (AllOptions()[option].kind) {
    case OptionKind::kEventsFile:
      // It may be a file that is not there yet.
      path =
          QFileDialog::getSaveFileName(this, tr("Events file"), present, tr("Text files (*.txt)"),
                                       nullptr, QFileDialog::DontConfirmOverwrite);
      break;
    case OptionKind::kSoundFile:
      path = QFileDialog::getOpenFileName(this, tr("Sound file"), present,
                                          SoundFilter(session_.SoundEndings()));
      break;
    default:
      path = QFileDialog::getOpenFileName(this, tr("Quotes file"), present,
                                          tr("Text files (*.txt);;All files (*)"));
  }
  if (path.isEmpty()) return;
  saidSaved_ = false;
  session_.SetText(option, QDir::toNativeSeparators(path).toStdString());
  session_.Look(option);
  Render();
}

bool frmCustomizer::Leave(OptionsClosing why) {
  if (hasLeft_) return true;
  if (!session_.Close(why)) return false;
  hasLeft_ = true;
  hide();
  Q_EMIT Ended();
  return true;
}

void frmCustomizer::reject() {
  static_cast<void>(Leave(OptionsClosing::kByHand));
}

void frmCustomizer::closeEvent(QCloseEvent* event) {
  event->setAccepted(
      Leave(qApp->isSavingSession() ? OptionsClosing::kLoginSessionEnds : OptionsClosing::kByHand));
}

// Nothing in this program itself quits it. While the session only asks, another program may refuse
// to end, and this window is to be there still.
bool frmCustomizer::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qApp && event->type() == QEvent::Quit) {
    static_cast<void>(Leave(OptionsClosing::kLoginSessionEnds));
  }
  return QDialog::eventFilter(watched, event);
}

// Another program may have changed the entry while this window was in the background.
void frmCustomizer::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow() || hasLeft_) return;
  session_.LookAtAutostart();
  session_.LookAtReminder();
  Render();
}

void frmCustomizer::Render() {
  rendering_ = true;
  RenderSkin();
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const OptionKind kind = AllOptions()[i].kind;
    FieldState state;
    state.text = QString::fromStdString(session_.Text(i));
    if (kind == OptionKind::kSwitch) state.on = session_.IsOn(i);
    if (kind == OptionKind::kChoice || kind == OptionKind::kColours) {
      state.choices = session_.Choices(i);
      state.chosen = session_.ChosenOf(i);
    }
    fields_[i]->Render(state);
    if (kind == OptionKind::kColours) fields_[i]->RenderColours(session_.OwnColours());
    const OptionNote& note = session_.Note(i);
    fields_[i]->RenderNote(QString::fromStdString(note.text), note.refuses);
  }
  FieldState autostart;
  autostart.on = session_.startsWithComputer();
  autostart_->Render(autostart);
  autostart_->RenderNote({}, false);
  RenderPreview();
  cmdApply->setEnabled(session_.hasChanges());
  RenderWayBack();
  rendering_ = false;
}

// The gear button ends the reminder program, and neither OK nor Cancel starts it again.
void frmCustomizer::RenderWayBack() {
  const bool saves = session_.hasChanges();
  const QString caption = saves ? tr("Save and show the &reminders") : tr("Show the &reminders");
  cmdReminder->setText(caption);
  cmdReminder->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
  QString status = saidSaved_ ? tr("Saved.") : QString();
  if (status.isEmpty() && !session_.reminderRuns()) {
    status = tr("Tidewarden is not running. OK and Cancel leave it so.");
  }
  lblStatus->setText(status);
}

void frmCustomizer::RenderSkin() {
  const QString skin = ReadableSkin(QString::fromStdString(session_.skin()));
  if (styleSheet() != skin) setStyleSheet(skin);
}

// Only where the options have to do with it; elsewhere its room is better used.
void frmCustomizer::RenderPreview() {
  const auto page = static_cast<OptionPage>(lstPages->currentRow());
  const bool isShown = page == OptionPage::kList || page == OptionPage::kLooks;
  pnlPreview->setVisible(isShown);
  if (isShown) pnlPreview->Render(session_.preview(), session_.showsExamples());
}

}  // namespace tidewarden
