#include "customizer/frm_customizer_preview.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStringListModel>

#include "customizer/list_preview.h"
#include "reminder/frm_reminder_look.h"

namespace tidewarden {

namespace {

constexpr int kListHeight = 112;
constexpr int kLeastListHeight = 40;
constexpr int kQuoteHeight = 52;
constexpr int kLeastQuoteHeight = 32;
constexpr int kTitleMargin = 6;

}  // namespace

TitleStrip::TitleStrip(QWidget* parent) : QWidget(parent) {
  QFont bold = font();
  bold.setBold(true);
  setFont(bold);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void TitleStrip::SetText(const QString& text) {
  text_ = text;
  setAccessibleName(tr("Title of the window: %1").arg(text));
  update();
}

QSize TitleStrip::sizeHint() const {
  return {0, fontMetrics().height() + 2 * kTitleMargin};
}

void TitleStrip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect inner = rect().adjusted(kTitleMargin, 0, -kTitleMargin, 0);
  painter.drawText(inner, static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine),
                   fontMetrics().elidedText(text_, Qt::ElideRight, inner.width()));
}

PreviewPanel::PreviewPanel(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("pnlPreview"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);

  auto* const heading = new QHBoxLayout;
  auto* const caption = new QLabel(tr("This is how the list will look:"), this);
  caption->setTextFormat(Qt::PlainText);
  chkExamples = new QCheckBox(tr("With &example events"), this);
  chkExamples->setObjectName(QStringLiteral("chkExamples"));
  chkExamples->setAccessibleName(tr("Show example events in place of your own"));
  heading->addWidget(caption, 1);
  heading->addWidget(chkExamples);
  column->addLayout(heading);

  auto* const frame = new QFrame(this);
  frame->setFrameShape(QFrame::StyledPanel);
  auto* const window = new QVBoxLayout(frame);
  window->setContentsMargins(1, 1, 1, 1);
  window->setSpacing(0);
  lblPreviewTitle = new TitleStrip(frame);
  lblPreviewTitle->setObjectName(QStringLiteral("lblPreviewTitle"));
  lstPreview = new QListView(frame);
  lstPreview->setObjectName(QStringLiteral("lstPreview"));
  lstPreview->setAccessibleName(tr("The list as it will look"));
  lstPreview->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lstPreview->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  lstPreview->setMinimumHeight(kLeastListHeight);
  lstPreview->setMaximumHeight(kListHeight);
  rows_ = new QStringListModel(this);
  lstPreview->setModel(rows_);
  lblPreviewDate = new QLabel(frame);
  lblPreviewDate->setObjectName(QStringLiteral("lblPreviewDate"));
  lblPreviewDate->setTextFormat(Qt::PlainText);
  lblPreviewDate->setMargin(kTitleMargin);
  txtPreviewQuote = new QPlainTextEdit(frame);
  txtPreviewQuote->setObjectName(QStringLiteral("txtPreviewQuote"));
  txtPreviewQuote->setAccessibleName(tr("A quote as it will look"));
  txtPreviewQuote->setReadOnly(true);
  txtPreviewQuote->setTabChangesFocus(true);
  txtPreviewQuote->setMinimumHeight(kLeastQuoteHeight);
  txtPreviewQuote->setMaximumHeight(kQuoteHeight);
  window->addWidget(lblPreviewTitle);
  window->addWidget(lstPreview);
  window->addWidget(lblPreviewDate);
  window->addWidget(txtPreviewQuote);
  column->addWidget(frame);
  connect(chkExamples, &QCheckBox::toggled, this, &PreviewPanel::ExamplesWanted);
}

void PreviewPanel::Render(const ListPreview& preview, bool showsExamples) {
  chkExamples->setChecked(showsExamples);
  lblPreviewTitle->SetText(QString::fromStdString(preview.title));
  QStringList rows;
  for (const std::string& row : preview.rows) rows << QString::fromStdString(row);
  if (rows != rows_->stringList()) rows_->setStringList(rows);
  const QString sheet = ListSheet(preview.colours);
  if (lstPreview->styleSheet() != sheet) lstPreview->setStyleSheet(sheet);
  const QFont font = FontOf(preview.font);
  lstPreview->setFont(font);
  QString quote = QString::fromStdString(preview.quote);
  quote.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  if (txtPreviewQuote->toPlainText() != quote) txtPreviewQuote->setPlainText(quote);
  txtPreviewQuote->setFont(font);
  txtPreviewQuote->setVisible(!quote.isEmpty());
  lblPreviewDate->setText(QString::fromStdString(preview.dateLabel));
  lblPreviewDate->setVisible(!preview.dateLabel.empty());
}

}  // namespace tidewarden
