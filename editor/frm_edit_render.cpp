// What the events editor shows: the only code that changes its controls once they are made.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

#include "editor/frm_edit.h"
#include "editor/frm_edit_columns.h"
#include "editor/frm_edit_model.h"

namespace tidewarden {
namespace {

QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// What a button does, in plain words: its tooltip, else its caption, without the key.
QString SpokenName(const QPushButton* button) {
  QString text = button->toolTip().isEmpty() ? button->text() : button->toolTip();
  text.remove(QLatin1Char('&'));
  return text.section(QStringLiteral(" ("), 0, 0);
}

void ShowState(QPushButton* button, const ButtonState& state) {
  button->setText(ToQString(state.caption));
  button->setToolTip(ToQString(state.tooltip));
  button->setAccessibleName(SpokenName(button));
  button->setEnabled(state.enabled);
  button->setVisible(state.visible);
}

void ShowState(QLabel* label, const LabelState& state) {
  label->setText(ToQString(state.caption));
  label->setEnabled(state.enabled);
  label->setVisible(state.visible);
}

void ShowState(QLineEdit* box, const TextBoxState& state) {
  const QString text = ToQString(state.text);
  if (box->text() != text) box->setText(text);
  box->setEnabled(state.enabled);
  box->setVisible(state.visible);
}

void ShowState(QComboBox* box, const ComboBoxState& state) {
  if (box->currentIndex() != state.index) box->setCurrentIndex(state.index);
  box->setEnabled(state.enabled);
  box->setVisible(state.visible);
}

void ShowState(QCheckBox* box, const CheckBoxState& state) {
  box->setText(ToQString(state.caption));
  box->setChecked(state.checked);
  box->setEnabled(state.enabled);
  box->setVisible(state.visible);
}

// Makes the drop-down list as wide as its widest item.
void WidenDropDown(const QComboBox* box) {
  QAbstractItemView* const view = box->view();
  int widest = 0;
  for (int item = 0; item < box->count(); ++item) {
    widest = std::max(widest, view->fontMetrics().horizontalAdvance(box->itemText(item)));
  }
  constexpr int kMargins = 16;
  const int scrollBar = view->verticalScrollBar()->sizeHint().width();
  view->setMinimumWidth(widest + scrollBar + kMargins);
}

}  // namespace

void frmEdit::Render() {
  const QScopedValueRollback<bool> guard(rendering_, true);
  setWindowTitle(ToQString(session_.caption()));
  RenderList();
  RenderEntryRow();
  RenderButtons();
  LayOut();
  RenderFocus();
}

void frmEdit::RenderList() {
  bool scroll = false;
  if (shownVersion_ != session_.listVersion()) {
    shownVersion_ = session_.listVersion();
    const int top = List1->verticalScrollBar()->value();
    model_->Rebuilt();
    List1->verticalScrollBar()->setValue(top);
    scroll = true;
  }
  List1->setEnabled(session_.isListEnabled());

  QItemSelectionModel* const selection = List1->selectionModel();
  const QModelIndex wanted = model_->index(session_.selectedRow(), 0);
  if (!wanted.isValid()) {
    selection->clear();
    return;
  }
  if (!selection->isSelected(wanted) || selection->currentIndex() != wanted) {
    selection->setCurrentIndex(wanted, QItemSelectionModel::ClearAndSelect);
    scroll = true;
  }
  if (scroll) List1->scrollTo(wanted);
}

void frmEdit::RenderEntryRow() {
  const EntryRow& row = session_.entry();
  ShowState(cmdDelete, row.cmdDelete);
  ShowState(lblEvent, row.lblEvent);
  ShowState(txtEventInput, row.txtEventInput);
  ShowState(cmbPopular, row.cmbPopular);
  ShowState(lblPopularObservances, row.lblPopularObservances);
  ShowState(lblDate, row.lblDate);
  ShowState(txtDateInput, row.txtDateInput);
  ShowState(lblAdvance, row.lblAdvance);
  ShowState(txtAdvanceInput, row.txtAdvanceInput);
  ShowState(lblOccurs, row.lblOccurs);
  ShowState(cmbOccursInput, row.cmbOccursInput);
  ShowState(lblEvery, row.lblEvery);
  ShowState(txtEveryInput, row.txtEveryInput);
  ShowState(lblDays, row.lblDays);
  ShowState(chkEveryMonth, row.chkEveryMonth);
  ShowState(cmdSave, row.cmdSave);
  ShowState(cmdCancel, row.cmdCancel);
  ShowState(lblDateExample, row.lblDateExample);
  // "Date:", "Day:" or "Month:": the same words for those who do not see it beside the box.
  const QString name = lblDate->text().remove(QLatin1Char(':'));
  lblDate->setAccessibleName(name);
  txtDateInput->setAccessibleName(name);
}

void frmEdit::RenderButtons() {
  ShowState(cmdAdd, session_.cmdAdd());
  ShowState(cmdEdit, session_.cmdEdit());
  ShowState(cmdHelp, session_.cmdHelp());
  ShowState(cmdPrint, session_.cmdPrint());
  ShowState(cmdOptions, session_.cmdOptions());
  ShowState(cmdDonate, session_.cmdDonate());
  ShowState(cmdClose, session_.cmdClose());
}

void frmEdit::RenderFocus() {
  switch (session_.TakeFocus()) {
    case EditorFocus::kNone:
      break;
    case EditorFocus::kList1:
      List1->setFocus();
      break;
    case EditorFocus::kEventInput:
      txtEventInput->setFocus();
      break;
    case EditorFocus::kDateInput:
      txtDateInput->setFocus();
      break;
    case EditorFocus::kAdvanceInput:
      txtAdvanceInput->setFocus();
      break;
  }
}

void frmEdit::ApplySkin() {
  Skinned = session_.wantsSkin() && !skin_.isEmpty();
  const QString sheet = Skinned ? skin_ : QString();
  if (styleSheet() != sheet) setStyleSheet(sheet);
}

// The items of the two lists, which stay the same while the window is open.
void frmEdit::FillBoxes() {
  cmbOccursInput->clear();
  for (const std::string& item : OccurrenceItems()) cmbOccursInput->addItem(ToQString(item));
  cmbPopular->clear();
  for (const std::string& item : session_.observances()) cmbPopular->addItem(ToQString(item));

  QFont courier = EventListFont();
  constexpr int kPixels = 12;
  courier.setPixelSize(kPixels);
  QFont designed = courier;
  designed.setPixelSize(kPixels - 1);
  cmbPopular->setFont(designed);
  cmbPopular->view()->setFont(courier);
  for (const QComboBox* const box : {cmbOccursInput, cmbPopular}) WidenDropDown(box);
}

}  // namespace tidewarden
