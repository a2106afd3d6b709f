// The controls of the events editor: what they are, and where they stand.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <array>

#include "core/window_placement.h"
#include "editor/frm_edit.h"
#include "editor/frm_edit_columns.h"
#include "editor/frm_edit_model.h"
#include "editor/frm_symbol_font.h"

namespace tidewarden {
namespace {

constexpr int kTextSize = 12;  // pixels: what has a fixed place must have a fixed size
constexpr int kLabelSize = 11;
constexpr int kSmallestSize = 9;
constexpr int kSymbolSize = 24;
constexpr int kSmallSymbolSize = 16;

// Left edges and sizes, in twips.
constexpr int kMargin = 120;
constexpr int kInnerWidth = kEditorWidth - 2 * kMargin;
constexpr int kIdleButtonHeight = 735;
constexpr int kBoxHeight = 360;
constexpr int kLabelHeight = 240;
constexpr int kSaveButtonHeight = 495;

QFont TextFont(int size) {
  QFont font;
  font.setPixelSize(size);
  return font;
}

// A font of a few sizes, the narrower the less room there is. Some desktops' fonts have lines that
// are higher than the place of a label.
QFont FittingFont(const QString& text, QSize place, int largest) {
  const int room = place.width();
  QFont font = TextFont(largest);
  const auto isTooHigh = [&font, place] { return QFontMetrics(font).height() > place.height(); };
  while (isTooHigh() && font.pixelSize() > kSmallestSize) font.setPixelSize(font.pixelSize() - 1);
  largest = font.pixelSize();
  for (const int size : {largest, largest - 1}) {
    font.setPixelSize(size);
    for (const int stretch : {100, 95, 90}) {
      font.setStretch(stretch);
      if (QFontMetrics(font).horizontalAdvance(text) < room) return font;
    }
  }
  for (const int stretch : {85, 80, 75, 70, 65, 60}) {
    font.setStretch(stretch);
    if (QFontMetrics(font).horizontalAdvance(text) < room) return font;
  }
  return font;
}

void SetFont(QWidget* widget, const QFont& font) {
  if (widget->font() != font) widget->setFont(font);
}

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(QLatin1String(name));
  return widget;
}

QPushButton* MakeButton(QWidget* parent, const char* name) {
  auto* const button = Named(new QPushButton(parent), name);
  button->setFont(TextFont(kTextSize));
  return button;
}

// The rule on the button itself keeps a skin from giving it a font without the pictures.
QPushButton* MakeGlyphButton(QWidget* parent, const char* name, int size) {
  QPushButton* const button = MakeButton(parent, name);
  button->setFont(SymbolFont(size));
  button->setStyleSheet(QStringLiteral("QPushButton { font: %1px \"%2\"; padding: 0; }")
                            .arg(size)
                            .arg(QLatin1String(kSymbolFontFamily)));
  return button;
}

QLabel* MakeLabel(QWidget* parent, const char* name) {
  auto* const label = Named(new QLabel(parent), name);
  label->setTextFormat(Qt::PlainText);
  label->setFont(TextFont(kLabelSize));
  return label;
}

QLineEdit* MakeBox(QWidget* parent, const char* name) {
  auto* const box = Named(new QLineEdit(parent), name);
  box->setFont(TextFont(kTextSize));
  return box;
}

// Drops a list with a scroll bar on every desktop; a menu of all items would fill the screen.
QComboBox* MakeDropDown(QWidget* parent, const char* name) {
  auto* const box = Named(new QComboBox(parent), name);
  constexpr int kRowsShown = 16;
  box->setMaxVisibleItems(kRowsShown);
  box->setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0; }"));
  return box;
}

// The longest text that a date box is made for.
QString LongestDate(std::size_t maxLength) {
  constexpr std::size_t kHalf = 2;
  if (maxLength <= kHalf) return QStringLiteral("00");
  return maxLength <= kDateLength ? QStringLiteral("00.00") : QStringLiteral("00.00.0000");
}

void PlaceAt(QWidget* widget, int left, int top, int width, int height) {
  widget->setGeometry(PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width),
                      PixelsFromTwips(height));
}

}  // namespace

void frmEdit::MakeList() {
  model_ = new EventListModel(session_, this);
  List1 = Named(new QListView(this), "List1");
  List1->setModel(model_);
  List1->setFont(EventListFont());
  List1->setItemDelegate(new EventColumnsDelegate(List1));
  List1->setUniformItemSizes(true);
  List1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  List1->setContextMenuPolicy(Qt::NoContextMenu);
  // A control of its own in Qt's eyes: the mouse is heard here.
  List1->viewport()->installEventFilter(this);

  Text1 = Named(new ColumnHeadings(List1, this), "Text1");
  QFont verdana(QStringLiteral("Verdana"));
  verdana.setStyleHint(QFont::SansSerif);
  verdana.setPixelSize(kLabelSize);
  Text1->setFont(verdana);
  Text1->setText(QString::fromLatin1(kEditorHeader.data(), kEditorHeader.size()));
}

void frmEdit::MakeMenu() {
  mnuPop = Named(new QMenu(this), "mnuPop");
  const auto item = [this](const char* name, const QString& text) {
    QAction* const action = mnuPop->addAction(text);
    action->setObjectName(QLatin1String(name));
    return action;
  };
  mnuPopupEdit = item("mnuPopupEdit", tr("Edit"));
  mnuPopupDelete = item("mnuPopupDelete", tr("Delete"));
  mnuPopupCancel = item("mnuPopupCancel", tr("Cancel"));
}

void frmEdit::MakeIdleButtons() {
  cmdAdd = MakeButton(this, "cmdAdd");
  cmdEdit = MakeButton(this, "cmdEdit");
  cmdHelp = MakeButton(this, "cmdHelp");
  cmdPrint = MakeGlyphButton(this, "cmdPrint", kSymbolSize);
  cmdOptions = MakeGlyphButton(this, "cmdOptions", kSymbolSize);
  cmdDonate = MakeGlyphButton(this, "cmdDonate", kSymbolSize);
  cmdClose = MakeButton(this, "cmdClose");
}

// They carry the Alt keys of the buttons whose captions are pictures. Qt gives a hidden button no
// key, so they are shown where nobody sees them.
void frmEdit::MakeHiddenButtons() {
  const auto make = [this](const char* name, const QString& caption) {
    auto* const button = Named(new QPushButton(caption, this), name);
    button->setFocusPolicy(Qt::NoFocus);
    button->setGeometry(-kTwipsPerPixel, -kTwipsPerPixel, 0, 0);
    return button;
  };
  cmdHiddenPrint = make("cmdHiddenPrint", tr("hidden &print button"));
  cmdHiddenOptions = make("cmdHiddenOptions", tr("hidden &options button"));
  cmdHiddenDonate = make("cmdHiddenDonate", tr("hidden &donate button"));
  cmdHiddenSave = make("cmdHiddenSave", tr("hidden &save button"));
}

void frmEdit::MakeEntryRow() {
  cmdDelete = MakeGlyphButton(this, "cmdDelete", kSmallSymbolSize);
  lblEvent = MakeLabel(this, "lblEvent");
  txtEventInput = MakeBox(this, "txtEventInput");
  cmbPopular = MakeDropDown(this, "cmbPopular");
  cmbPopular->setPlaceholderText(tr("Popular Observances"));
  lblPopularObservances = MakeLabel(this, "lblPopularObservances");
  lblPopularObservances->setWordWrap(true);
  lblPopularObservances->setAlignment(Qt::AlignLeft | Qt::AlignTop);

  lblDate = MakeLabel(this, "lblDate");
  txtDateInput = MakeBox(this, "txtDateInput");
  lblAdvance = MakeLabel(this, "lblAdvance");
  txtAdvanceInput = MakeBox(this, "txtAdvanceInput");
  lblOccurs = MakeLabel(this, "lblOccurs");
  cmbOccursInput = MakeDropDown(this, "cmbOccursInput");
  cmbOccursInput->setFont(TextFont(kTextSize));
  lblEvery = MakeLabel(this, "lblEvery");
  txtEveryInput = MakeBox(this, "txtEveryInput");
  lblDays = MakeLabel(this, "lblDays");
  chkEveryMonth = Named(new QCheckBox(this), "chkEveryMonth");
  chkEveryMonth->setFont(TextFont(kTextSize));
  cmdSave = MakeGlyphButton(this, "cmdSave", kSymbolSize);
  cmdCancel = MakeGlyphButton(this, "cmdCancel", kSymbolSize);
  lblDateExample = MakeLabel(this, "lblDateExample");
}

// What screen readers say. Buttons are named after their tooltips when they are shown.
void frmEdit::NameControls() {
  setAccessibleName(tr("Events editor"));
  List1->setAccessibleName(tr("Events"));
  Text1->setAccessibleName(tr("Headings of the columns"));
  mnuPop->setAccessibleName(tr("What to do with the event"));
  txtEventInput->setAccessibleName(tr("Title of the event"));
  cmbPopular->setAccessibleName(tr("Popular observances"));
  lblPopularObservances->setAccessibleName(tr("Pick one of the popular observances"));
  txtAdvanceInput->setAccessibleName(tr("Advance notice in days"));
  cmbOccursInput->setAccessibleName(tr("How often the event occurs"));
  txtEveryInput->setAccessibleName(tr("Number of days from one occurrence to the next"));
  chkEveryMonth->setAccessibleName(tr("Every month"));
  lblEvent->setAccessibleName(tr("Title of the event"));
  lblAdvance->setAccessibleName(tr("Advance notice in days"));
  lblOccurs->setAccessibleName(tr("How often the event occurs"));
  lblEvery->setAccessibleName(tr("Every so many days"));
  lblDays->setAccessibleName(tr("Days"));
  lblDateExample->setAccessibleName(tr("Examples of a date"));
  cmdHiddenPrint->setAccessibleName(tr("Print by Alt and P"));
  cmdHiddenOptions->setAccessibleName(tr("Options by Alt and O"));
  cmdHiddenDonate->setAccessibleName(tr("Donate by Alt and D"));
  cmdHiddenSave->setAccessibleName(tr("Save by Alt and S"));
}

void frmEdit::OrderTabs() {
  const std::array<QWidget*, 18> order{
      List1,           cmdAdd,         cmdEdit,       cmdHelp,       cmdPrint,   cmdOptions,
      cmdDonate,       cmdClose,       cmdDelete,     txtEventInput, cmbPopular, txtDateInput,
      txtAdvanceInput, cmbOccursInput, txtEveryInput, chkEveryMonth, cmdSave,    cmdCancel};
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order.at(i - 1), order.at(i));
}

void frmEdit::LayOut() {
  // A maximized window keeps the places of its controls.
  if (CurrentPhase() == Phase::kNormal) normalHeight_ = height();
  const EditorTops tops = LayOutEditor(TwipsFromPixels(normalHeight_),
                                       Skinned ? EditorLook::kSkinned : EditorLook::kPlain);
  constexpr int kHeadingsTop = 105;
  constexpr int kListTop = 360;
  PlaceAt(Text1, kMargin, kHeadingsTop, kInnerWidth, kListTop - kHeadingsTop);
  PlaceAt(List1, kMargin, kListTop, kInnerWidth, tops.List1Height);
  LayOutIdleRow(tops);
  LayOutEntryRow(tops);
}

void frmEdit::LayOutIdleRow(const EditorTops& tops) {
  PlaceAt(cmdAdd, 120, tops.idleButtons, 1095, kIdleButtonHeight);
  PlaceAt(cmdEdit, 1320, tops.idleButtons, 1095, kIdleButtonHeight);
  PlaceAt(cmdHelp, 2760, tops.idleButtons, 1095, kIdleButtonHeight);
  PlaceAt(cmdPrint, 3960, tops.idleButtons, 855, kIdleButtonHeight);
  PlaceAt(cmdOptions, 4920, tops.idleButtons, 855, kIdleButtonHeight);
  PlaceAt(cmdDonate, 5880, tops.idleButtons, 855, kIdleButtonHeight);
  PlaceAt(cmdClose, 7680, tops.cmdClose, 1215, kSaveButtonHeight);
}

void frmEdit::LayOutEntryRow(const EditorTops& tops) {
  PlaceAt(cmdDelete, 120, tops.cmdDelete, 450, 375);
  PlaceAt(lblEvent, 660, tops.lblEvent, 585, kLabelHeight);
  // Without the observances beside it the title has the whole line.
  const int titleWidth = session_.entry().cmbPopular.visible ? 3975 : kMargin + kInnerWidth - 1260;
  PlaceAt(txtEventInput, 1260, tops.titleRow, titleWidth, kBoxHeight);
  PlaceAt(cmbPopular, 5325, tops.titleRow, 2340, kBoxHeight);
  PlaceAt(lblPopularObservances, 7740, tops.titleRow, 1155, 2 * kLabelHeight);

  const DateInputPlace& date = session_.entry().datePlace;
  const auto maxLength = static_cast<std::size_t>(session_.entry().txtDateInput.maxLength);
  // A little wider than it has to be for a day and a month, around the same centre.
  constexpr int kWiderForDayAndMonth = 240;
  const int wider = maxLength == kDateLength ? kWiderForDayAndMonth : 0;
  const int dateLeft = date.boxLeft - wider / 2;
  PlaceAt(lblDate, date.labelLeft, tops.entryLabels, dateLeft - date.labelLeft, kLabelHeight);
  PlaceAt(txtDateInput, dateLeft, tops.entryRow, date.boxWidth + wider, kBoxHeight);
  PlaceAt(lblAdvance, 1920, tops.entryLabels, 825, kLabelHeight);
  PlaceAt(txtAdvanceInput, 2760, tops.entryRow, 570, kBoxHeight);
  PlaceAt(lblOccurs, 3390, tops.entryLabels, 675, kLabelHeight);
  PlaceAt(cmbOccursInput, 4080, tops.entryRow, 1350, kBoxHeight);
  PlaceAt(lblEvery, 5520, tops.lblEvery, 600, tops.txtEveryInput - tops.lblEvery);
  PlaceAt(txtEveryInput, 5520, tops.txtEveryInput, 600, kBoxHeight);
  PlaceAt(lblDays, 6165, tops.lblDays, 600, kLabelHeight);
  PlaceAt(chkEveryMonth, 5520, tops.entryRow, 1695, kBoxHeight);
  PlaceAt(cmdSave, 7560, tops.saveButtons, 600, kSaveButtonHeight);
  PlaceAt(cmdCancel, 8280, tops.saveButtons, 600, kSaveButtonHeight);
  PlaceAt(lblDateExample, 420, tops.lblDateExample, 2700, kLabelHeight);

  for (QLabel* const label : {lblEvent, lblDate, lblAdvance, lblOccurs, lblEvery, lblDays}) {
    SetFont(label, FittingFont(label->text(), label->size(), kLabelSize));
  }
  // The frame of the box and the room for its caret.
  constexpr int kPlainFrame = 9;
  constexpr int kSkinnedFrame = 15;
  const QSize room(txtDateInput->width() - (Skinned ? kSkinnedFrame : kPlainFrame),
                   txtDateInput->height());
  SetFont(txtDateInput, FittingFont(LongestDate(maxLength), room, kTextSize));
}

}  // namespace tidewarden
