#include "customizer/frm_customizer_field.h"

#include <QAbstractItemView>
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <algorithm>

#include "reminder/list_appearance.h"

namespace tidewarden {
namespace {

constexpr int kFieldWidth = 360;
constexpr int kNumberWidth = 96;
constexpr int kPictureSize = 16;

QString TextOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Between the letters of a path no line may otherwise end.
QString Breakable(QString text) {
  return text.replace(QStringLiteral("/"), QStringLiteral("/\u200B"));
}

QLabel* PlainLabel(const QString& name, QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128;
}

QColor Mixed(const QColor& one, const QColor& other, double share) {
  const auto mix = [share](double a, double b) { return a * share + b * (1 - share); };
  return QColor::fromRgbF(static_cast<float>(mix(one.redF(), other.redF())),
                          static_cast<float>(mix(one.greenF(), other.greenF())),
                          static_cast<float>(mix(one.blueF(), other.blueF())));
}

QColor ColourOf(const std::optional<Colour>& colour, const QColor& otherwise) {
  return colour ? QColor(colour->red, colour->green, colour->blue) : otherwise;
}

void SetTextColour(QLabel* label, const QColor& colour) {
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, colour);
  label->setPalette(palette);
}

}  // namespace

QIcon ColourPicture(const ListColours& colours, const QPalette& palette) {
  QIcon icon;
  for (const int scale : {1, 2, 3}) {
    QPixmap pixmap(kPictureSize * scale, kPictureSize * scale);
    pixmap.fill(ColourOf(colours.background, palette.color(QPalette::Base)));
    QPainter painter(&pixmap);
    painter.scale(scale, scale);
    painter.setPen(palette.color(QPalette::WindowText));
    painter.drawRect(0, 0, kPictureSize - 1, kPictureSize - 1);
    const QColor text = ColourOf(colours.text, palette.color(QPalette::Text));
    for (const int line : {4, 7, 10}) painter.fillRect(3, line, line == 10 ? 7 : 10, 2, text);
    painter.end();
    pixmap.setDevicePixelRatio(scale);
    icon.addPixmap(pixmap);
  }
  return icon;
}

QColor QuietColour(const QPalette& palette) {
  constexpr double kShareOfText = 0.74;
  return Mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), kShareOfText);
}

OptionField::OptionField(const Option& option, const QString& help, QWidget* parent)
    : QWidget(parent), option_(option), name_(TextOf(NameOf(option))), help_(help) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kFieldMargin, 0, 0, 0);
  column->setSpacing(3);
  if (option.kind == OptionKind::kSwitch) {
    MakeSwitch(TextOf(option.label));
  } else {
    MakeLabel(TextOf(option.label));
  }
  row_ = new QHBoxLayout;
  column->addLayout(row_);
  switch (option.kind) {
    case OptionKind::kSwitch:
      break;
    case OptionKind::kChoice:
    case OptionKind::kColours:
      MakeList();
      break;
    case OptionKind::kFont:
      MakeFontList();
      break;
    default:
      MakeBox();
  }
  row_->addWidget(control_);
  // Long texts have the whole row.
  if (box_ == nullptr || box_->maximumWidth() == kNumberWidth) row_->addStretch();
  control_->installEventFilter(this);
  control_->setAccessibleName(TextOf(option.label));
  MakeTexts(help);
}

void OptionField::MakeSwitch(const QString& label) {
  check_ = new QCheckBox(label, this);
  check_->setObjectName(QStringLiteral("chk") + name_);
  connect(check_, &QCheckBox::toggled, this, &OptionField::Switched);
  control_ = check_;
}

void OptionField::MakeLabel(const QString& label) {
  QLabel* const caption = PlainLabel(QStringLiteral("lbl") + name_, this);
  caption->setText(label);
  layout()->addWidget(caption);
}

void OptionField::MakeList() {
  list_ = new QComboBox(this);
  list_->setObjectName(QStringLiteral("cmb") + name_);
  list_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list_->setMinimumWidth(kFieldWidth);
  list_->setFocusPolicy(Qt::StrongFocus);
  list_->view()->setAccessibleName(TextOf(option_.label));
  connect(list_, &QComboBox::activated, this, [this](int index) {
    const QVariant stored = list_->itemData(index);
    if (stored.isValid()) {
      Q_EMIT Edited(stored.toString());
    } else {
      Q_EMIT OwnChosen();
    }
  });
  control_ = list_;
}

// Fonts that are not installed can be typed: the file may serve several computers.
void OptionField::MakeFontList() {
  MakeList();
  disconnect(list_, &QComboBox::activated, this, nullptr);
  list_->setEditable(true);
  list_->setInsertPolicy(QComboBox::NoInsert);
  // A proposal in the box would look as if it were typed, and not be stored.
  list_->setCompleter(nullptr);
  list_->addItems(QFontDatabase::families());
  list_->lineEdit()->setObjectName(QStringLiteral("txt") + name_);
  list_->lineEdit()->setAccessibleName(TextOf(option_.label));
  connect(list_, &QComboBox::textActivated, this, &OptionField::Edited);
  connect(list_->lineEdit(), &QLineEdit::textEdited, this, &OptionField::Edited);
}

void OptionField::MakeBox() {
  box_ = new QLineEdit(this);
  box_->setObjectName(QStringLiteral("txt") + name_);
  if (option_.kind == OptionKind::kNumber || option_.kind == OptionKind::kTime) {
    box_->setFixedWidth(kNumberWidth);
  } else {
    box_->setMinimumWidth(kFieldWidth / 2);
  }
  connect(box_, &QLineEdit::textEdited, this, &OptionField::Edited);
  connect(box_, &QLineEdit::editingFinished, this, &OptionField::Left);
  control_ = box_;
}

void OptionField::MakeTexts(const QString& help) {
  helpLabel_ = PlainLabel(QStringLiteral("lbl%1Help").arg(name_), this);
  helpLabel_->setText(Breakable(help));
  note_ = PlainLabel(QStringLiteral("lbl%1Note").arg(name_), this);
  note_->hide();
  QFont bold = note_->font();
  bold.setBold(true);
  note_->setFont(bold);
  for (QLabel* const label : {helpLabel_, note_}) layout()->addWidget(label);
  IndentTexts();
  ColourTexts();
}

QPushButton* OptionField::AddButton(const QString& name, const QString& caption,
                                    const QString& accessibleName) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setAccessibleName(accessibleName);
  const bool endsInStretch = row_->itemAt(row_->count() - 1)->spacerItem() != nullptr;
  row_->insertWidget(row_->count() - (endsInStretch ? 1 : 0), button);
  return button;
}

void OptionField::Render(const FieldState& state) {
  if (check_ != nullptr) check_->setChecked(state.on);
  // A text that is the same keeps the place of the caret.
  if (box_ != nullptr && box_->text() != state.text) box_->setText(state.text);
  if (list_ == nullptr) return;
  if (!list_->isEditable()) {
    FillList(state);
  } else if (list_->currentText() != state.text) {
    list_->setEditText(state.text);
  }
}

void OptionField::FillList(const FieldState& state) {
  const bool hasOwn = option_.kind == OptionKind::kColours;
  const int count = static_cast<int>(state.choices.size()) + (hasOwn ? 1 : 0);
  const bool isSame =
      list_->count() == count && list_->itemText(0) == TextOf(state.choices.front().label);
  if (!isSame) {
    list_->clear();
    for (const Choice& choice : state.choices) {
      list_->addItem(TextOf(choice.label), TextOf(choice.stored));
      if (!hasOwn || choice.stored == "random") continue;
      list_->setItemIcon(list_->count() - 1, ColourPicture(ColoursOf(choice.stored), palette()));
    }
    if (hasOwn) list_->addItem(tr("Your own colours"));
  }
  list_->setCurrentIndex(static_cast<int>(state.chosen));
}

void OptionField::RenderColours(const ListColours& own) {
  const bool isOwn = own.text && own.background;
  const int last = list_->count() - 1;
  list_->setItemIcon(last, isOwn ? ColourPicture(own, palette()) : QIcon());
}

void OptionField::RenderNote(const QString& text, bool refuses) {
  refuses_ = refuses;
  if (note_->text() != text) note_->setText(Breakable(text));
  note_->setVisible(!text.isEmpty());
  IndentTexts();
  control_->setAccessibleDescription(text.isEmpty() ? help_ : help_ + QLatin1Char(' ') + text);
  ColourTexts();
}

void OptionField::TakeFocus() {
  control_->setFocus(Qt::OtherFocusReason);
  if (box_ != nullptr) box_->selectAll();
}

// Over a list the wheel is meant for the page, unless the user is at work on the list.
bool OptionField::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel && list_ != nullptr && !list_->hasFocus()) {
    event->ignore();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void OptionField::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && note_ != nullptr) ColourTexts();
}

// The box of a switch below the beginnings of other fields, and the texts below its words, wherever
// the style of the moment puts box and words.
void OptionField::IndentTexts() {
  if (check_ == nullptr) return;
  QStyleOptionButton option;
  option.initFrom(check_);
  const QRect box = check_->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, check_);
  layout()->setContentsMargins(std::max(0, kFieldMargin - box.left()), 0, 0, 0);
  const int indent =
      check_->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, check_).left();
  for (QLabel* const label : {helpLabel_, note_}) label->setContentsMargins(indent, 0, 0, 0);
}

void OptionField::ColourTexts() {
  const QColor wrong = IsDark(palette()) ? QColor(0xFF, 0x9A, 0x8F) : QColor(0xA8, 0x12, 0x1E);
  SetTextColour(helpLabel_, QuietColour(palette()));
  SetTextColour(note_, refuses_ ? wrong : palette().color(QPalette::WindowText));
}

}  // namespace tidewarden
