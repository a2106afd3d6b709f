// The controls of the options window, and where they stand.
#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStyle>

#include "customizer/frm_customizer.h"
#include "customizer/frm_customizer_field.h"
#include "customizer/frm_customizer_preview.h"
#include "customizer/options_session.h"
#include "reminder/frm_first_size.h"

namespace tidewarden {
namespace {

constexpr int kBetweenOptions = 12;
constexpr int kAboveGroup = 10;
constexpr int kBetweenPages = 3;
constexpr int kPageMargin = 12;  // with the field's own
constexpr int kLeastPageHeight = 220;
constexpr int kButtonHeight = 28;
constexpr int kButtonWidth = 76;
constexpr QSize kFirstSize{760, 640};

QString TextOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QLabel* MakeHeading(const QString& text, double size, QWidget* parent) {
  auto* const label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setContentsMargins(kFieldMargin, 0, 0, 0);
  QFont font = label->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * size);
  label->setFont(font);
  return label;
}

}  // namespace

void frmCustomizer::MakePages() {
  lstPages = new QListWidget(this);
  lstPages->setObjectName(QStringLiteral("lstPages"));
  lstPages->setAccessibleName(tr("Kinds of options"));
  stkPages = new QStackedWidget(this);
  stkPages->setObjectName(QStringLiteral("stkPages"));
  // A page scrolls; what is below it keeps its height for as long as there is room.
  stkPages->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
  stkPages->setMinimumHeight(kLeastPageHeight);
  fields_.assign(AllOptions().size(), nullptr);
  for (const PageName& page : AllPages()) {
    lstPages->addItem(TextOf(page.heading));
    MakePage(page.page);
  }
  lstPages->setSpacing(kBetweenPages);
  lstPages->setFixedWidth(lstPages->sizeHintForColumn(0) + 2 * lstPages->frameWidth() +
                          2 * kPageMargin);
  lstPages->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lstPages->setCurrentRow(0);
}

void frmCustomizer::MakePage(OptionPage page) {
  auto* const scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // The keys reach what is in it; the page itself is nothing to stand on.
  scroll->setFocusPolicy(Qt::NoFocus);
  auto* const content = new QWidget(scroll);
  auto* const column = new QVBoxLayout(content);
  column->setContentsMargins(kPageMargin - kFieldMargin, 0, kPageMargin, 0);
  column->setSpacing(kBetweenOptions);
  const QString heading = TextOf(AllPages()[static_cast<std::size_t>(page)].heading);
  scroll->setAccessibleName(heading);
  content->setAccessibleName(heading);
  if (page == OptionPage::kStart) MakeAutostart(content, column);
  for (std::size_t i = 0; i < AllOptions().size(); ++i) {
    if (AllOptions()[i].page == page) MakeField(i, content, column);
  }
  column->addStretch();
  scroll->setWidget(content);
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  scroll->setMinimumWidth(content->minimumSizeHint().width() + bar);
  stkPages->addWidget(scroll);
}

void frmCustomizer::MakeField(std::size_t option, QWidget* page, QVBoxLayout* column) {
  constexpr double kGroupSize = 1.15;
  const Option& o = AllOptions()[option];
  if (!o.group.empty()) {
    if (column->count() > 0) column->addSpacing(kAboveGroup);
    column->addWidget(MakeHeading(TextOf(o.group), kGroupSize, page));
  }
  auto* const field = new OptionField(o, QString::fromStdString(session_.Help(option)), page);
  fields_[option] = field;
  column->addWidget(field);
  const auto change = [this](auto&& function) {
    if (rendering_) return;
    saidSaved_ = false;
    function();
    Render();
  };
  connect(field, &OptionField::Switched, this,
          [this, change, option](bool on) { change([&] { session_.SetOn(option, on); }); });
  connect(field, &OptionField::Edited, this, [this, change, option](const QString& text) {
    change([&] { session_.SetText(option, text.toStdString()); });
  });
  connect(field, &OptionField::OwnChosen, this,
          [this, change] { change([&] { session_.UseOwnColours(); }); });
  connect(field, &OptionField::Left, this, [this, option] {
    session_.Look(option);
    Render();
  });
  if (o.kind == OptionKind::kColours) AddColourButtons(*field);
  AddPathButtons(option, *field);
}

void frmCustomizer::AddColourButtons(OptionField& field) {
  QPushButton* const text = field.AddButton(QStringLiteral("cmdTextColour"), tr("Te&xt…"),
                                            tr("Choose the colour of the text"));
  QPushButton* const background = field.AddButton(
      QStringLiteral("cmdBackColour"), tr("Back&ground…"), tr("Choose the colour behind the text"));
  connect(text, &QPushButton::clicked, this, [this] { PickColour(false); });
  connect(background, &QPushButton::clicked, this, [this] { PickColour(true); });
}

void frmCustomizer::AddPathButtons(std::size_t option, OptionField& field) {
  const Option& o = AllOptions()[option];
  const bool isSound = o.kind == OptionKind::kSoundFile;
  if (!isSound && o.kind != OptionKind::kEventsFile && o.kind != OptionKind::kQuotesFile) return;
  QPushButton* const browse =
      field.AddButton(QStringLiteral("cmdBrowse") + TextOf(NameOf(o)), tr("Browse…"),
                      tr("Look for a file: %1").arg(TextOf(o.label)));
  connect(browse, &QPushButton::clicked, this, [this, option] { Browse(option); });
  if (!isSound) return;
  QPushButton* const play =
      field.AddButton(QStringLiteral("cmdPlay"), tr("&Play"), tr("Play the sound"));
  QPushButton* const stop =
      field.AddButton(QStringLiteral("cmdStop"), tr("&Stop"), tr("Stop the sound"));
  connect(play, &QPushButton::clicked, this, [this] {
    session_.PlaySound();
    Render();
  });
  connect(stop, &QPushButton::clicked, this, [this] { session_.StopSound(); });
}

void frmCustomizer::MakeAutostart(QWidget* page, QVBoxLayout* column) {
  static constexpr Option kAutostart{
      {"Autostart", "False"}, OptionKind::kSwitch,       OptionPage::kStart,
      "The computer",         "Start with the computer", "The reminders come up when you log in."};
  constexpr double kGroupSize = 1.15;
  column->addWidget(MakeHeading(TextOf(kAutostart.group), kGroupSize, page));
  autostart_ = new OptionField(kAutostart, TextOf(kAutostart.help) + tr(" Default: off."), page);
  column->addWidget(autostart_);
  connect(autostart_, &OptionField::Switched, this, [this](bool on) {
    if (rendering_) return;
    saidSaved_ = false;
    session_.SetStartsWithComputer(on);
    Render();
  });
}

void frmCustomizer::MakeButtons() {
  const auto make = [this](const char* name, const QString& caption, const QString& accessible) {
    auto* const button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(accessible);
    button->setMinimumHeight(kButtonHeight);
    return button;
  };
  cmdReminder =
      make("cmdReminder", tr("Save and show the &reminders"), tr("Save and show the reminders"));
  lblStatus = new QLabel(this);
  lblStatus->setObjectName(QStringLiteral("lblStatus"));
  lblStatus->setTextFormat(Qt::PlainText);
  lblStatus->setWordWrap(true);
  cmdOk = make("cmdOk", tr("OK"), tr("Save and close"));
  // Every other button takes the Return key over for as long as it has the focus.
  cmdOk->setDefault(true);
  cmdCancel = make("cmdCancel", tr("Cancel"), tr("Close without saving"));
  cmdApply = make("cmdApply", tr("&Apply"), tr("Save and go on"));
  for (QPushButton* const button : {cmdOk, cmdCancel, cmdApply}) {
    button->setMinimumWidth(kButtonWidth);
  }
}

void frmCustomizer::Arrange() {
  auto* const pages = new QHBoxLayout;
  pages->addWidget(lstPages);
  pages->addWidget(stkPages, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(cmdReminder);
  buttons->addWidget(lblStatus, 1);
  buttons->addWidget(cmdOk);
  buttons->addWidget(cmdCancel);
  buttons->addWidget(cmdApply);
  auto* const window = new QVBoxLayout(this);
  window->addLayout(pages, 1);
  window->addWidget(pnlPreview);
  window->addLayout(buttons);
  resize(FirstSize(*this, kFirstSize).expandedTo(minimumSizeHint()));
}

}  // namespace tidewarden
