#include "guide/frm_docs.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTimer>
#include <limits>

#include "guide/frm_docs_page.h"
#include "guide/frm_docs_rows.h"
#include "guide/frm_docs_text.h"
#include "reminder/frm_first_size.h"

namespace tidewarden {
namespace {

constexpr QSize kSize{1000, 700};
constexpr QSize kLeastSize{480, 320};
constexpr int kListWidth = 250;
constexpr std::size_t kNoTopic = std::numeric_limits<std::size_t>::max();
// Dark text on yellow can be read on every desktop.
constexpr QRgb kMatchBackground = 0xFFFFE08A;
constexpr QRgb kMatchText = 0xFF000000;

void Name(QWidget* widget, const char* name, const QString& accessibleName) {
  widget->setObjectName(QString::fromLatin1(name));
  widget->setAccessibleName(accessibleName);
}

}  // namespace

frmDocs::frmDocs(DocsSession& session, QWidget* parent)
    : QWidget(parent, Qt::Window),
      session_(session),
      scrollLater_(new QTimer(this)),
      shownTopic_(kNoTopic),
      cmdBack(new QPushButton(tr("&Back"), this)),
      cmdForward(new QPushButton(tr("F&orward"), this)),
      cmdContents(new QPushButton(tr("&Contents"), this)),
      cmdSmaller(new QPushButton(tr("A−"), this)),
      cmdLarger(new QPushButton(tr("A+"), this)),
      txtSearch(new QLineEdit(this)),
      lblFound(new QLabel(this)),
      lstTopics(new QListWidget(this)),
      txtText(new DocsText(this)) {
  setObjectName(QStringLiteral("frmDocs"));
  setMinimumSize(kLeastSize);
  resize(FirstSize(*this, kSize));
  SetUpControls();
  SetUpKeys();
  LayOut();
  scrollLater_->setSingleShot(true);
  connect(scrollLater_, &QTimer::timeout, this, &frmDocs::ScrollToPlace);
  Render();
  txtText->setFocus();
}

void frmDocs::SetUpControls() {
  Name(cmdBack, "cmdBack", tr("Back to where you were before"));
  cmdBack->setToolTip(tr("Back (Alt + Left)"));
  Name(cmdForward, "cmdForward", tr("Forward again"));
  cmdForward->setToolTip(tr("Forward (Alt + Right)"));
  Name(cmdContents, "cmdContents", tr("Contents of the guide"));
  cmdContents->setToolTip(tr("Contents (Alt + Home)"));
  Name(cmdSmaller, "cmdSmaller", tr("Smaller text"));
  cmdSmaller->setToolTip(tr("Smaller text (Ctrl + minus)"));
  Name(cmdLarger, "cmdLarger", tr("Larger text"));
  cmdLarger->setToolTip(tr("Larger text (Ctrl + plus)"));
  Name(txtSearch, "txtSearch", tr("Words to look for in the guide"));
  txtSearch->setPlaceholderText(tr("Search (Ctrl + F)"));
  txtSearch->setClearButtonEnabled(true);
  Name(lblFound, "lblFound", {});
  lblFound->setTextFormat(Qt::PlainText);
  Name(lstTopics, "lstTopics", {});
  lstTopics->setItemDelegate(new DocsRows(lstTopics));
  // Rows are as high as their texts are long in the width that there is.
  lstTopics->setResizeMode(QListView::Adjust);
  lstTopics->setSpacing(1);
  lstTopics->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lstTopics->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  Name(txtText, "txtText", {});

  for (QPushButton* const button : {cmdBack, cmdForward, cmdContents, cmdSmaller, cmdLarger}) {
    // Return presses the one that has the focus; outside dialogs it does so only when asked to.
    button->setAutoDefault(true);
  }
  connect(cmdBack, &QPushButton::clicked, this, [this] {
    session_.Back();
    Render();
  });
  connect(cmdForward, &QPushButton::clicked, this, [this] {
    session_.Forward();
    Render();
  });
  connect(cmdContents, &QPushButton::clicked, this, [this] {
    session_.Open("index");
    Render();
  });
  connect(cmdSmaller, &QPushButton::clicked, this, [this] {
    session_.Reduce();
    Render();
  });
  connect(cmdLarger, &QPushButton::clicked, this, [this] {
    session_.Enlarge();
    Render();
  });
  connect(txtSearch, &QLineEdit::textChanged, this, &frmDocs::Ask);
  connect(txtSearch, &QLineEdit::returnPressed, this, &frmDocs::OpenFirstRow);
  connect(lstTopics, &QListWidget::itemClicked, this, [this] { OpenRow(lstTopics->currentRow()); });
  connect(lstTopics, &QListWidget::itemActivated, this,
          [this] { OpenRow(lstTopics->currentRow()); });
  connect(txtText, &QTextBrowser::anchorClicked, this, &frmDocs::FollowLink);
  connect(txtText, &DocsText::PaletteChanged, this, [this] {
    shownTopic_ = kNoTopic;
    Render();
  });
}

void frmDocs::ApplySkin(const QString& styleSheet) {
  setStyleSheet(styleSheet);
  // The sheet makes a placeholder of its own out of the colour of the text.
  txtSearch->ensurePolished();
  ColourPlaceholder();
}

void frmDocs::SetUpKeys() {
  const auto key = [this](const QKeySequence& keys, auto&& action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  key(QKeySequence::Find, [this] {
    txtSearch->setFocus(Qt::ShortcutFocusReason);
    txtSearch->selectAll();
  });
  key(Qt::Key_F3, [this] { FindNext(); });
  key(Qt::SHIFT | Qt::Key_F3, [this] { FindPrevious(); });
  key(Qt::ALT | Qt::Key_Left, [this] { cmdBack->click(); });
  key(Qt::ALT | Qt::Key_Right, [this] { cmdForward->click(); });
  key(Qt::ALT | Qt::Key_Home, [this] { cmdContents->click(); });
  key(Qt::CTRL | Qt::Key_Plus, [this] { cmdLarger->click(); });
  key(Qt::CTRL | Qt::Key_Equal, [this] { cmdLarger->click(); });
  key(Qt::CTRL | Qt::Key_Minus, [this] { cmdSmaller->click(); });
  key(Qt::CTRL | Qt::Key_0, [this] {
    session_.ResetZoom();
    Render();
  });
  key(Qt::Key_Escape, [this] {
    if (txtSearch->hasFocus() && !txtSearch->text().isEmpty()) {
      txtSearch->clear();
    } else {
      close();
    }
  });
}

void frmDocs::LayOut() {
  auto* const buttons = new QHBoxLayout;
  for (QPushButton* const button : {cmdBack, cmdForward, cmdContents}) buttons->addWidget(button);
  buttons->addStretch();
  for (QPushButton* const button : {cmdSmaller, cmdLarger}) buttons->addWidget(button);

  auto* const left = new QWidget(this);
  auto* const leftLayout = new QVBoxLayout(left);
  leftLayout->setContentsMargins(0, 0, 0, 0);
  leftLayout->addWidget(txtSearch);
  leftLayout->addWidget(lblFound);
  leftLayout->addWidget(lstTopics);

  auto* const halves = new QSplitter(this);
  halves->addWidget(left);
  halves->addWidget(txtText);
  halves->setStretchFactor(1, 1);
  halves->setSizes({kListWidth, width() - kListWidth});
  halves->setChildrenCollapsible(false);

  auto* const all = new QVBoxLayout(this);
  all->addLayout(buttons);
  all->addWidget(halves, 1);
}

void frmDocs::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  // Only now has the text its width, and with it its height.
  scrollLater_->start(0);
}

void frmDocs::Ask() {
  session_.Search(txtSearch->text().toStdString());
  Render();
}

void frmDocs::OpenRow(int row) {
  if (row < 0) return;
  session_.OpenRow(static_cast<std::size_t>(row));
  Render();
}

void frmDocs::OpenFirstRow() {
  if (!session_.IsSearching()) return;
  session_.OpenRow(0);
  Render();
}

void frmDocs::FollowLink(const QUrl& link) {
  const QString address = link.toString();
  if (session_.Follow(address.toStdString()) == LinkKind::kOutside && OpenOutside) {
    OpenOutside(address);
  }
  Render();
}

void frmDocs::FindNext() {
  SelectMatch(true);
}

void frmDocs::FindPrevious() {
  SelectMatch(false);
}

void frmDocs::Render() {
  setWindowTitle(tr("%1 - Tidewarden Help").arg(QString::fromStdString(session_.topic().title)));
  cmdBack->setEnabled(session_.CanGoBack());
  cmdForward->setEnabled(session_.CanGoForward());
  cmdSmaller->setEnabled(session_.zoom() > DocsSession::kLeastZoom);
  cmdLarger->setEnabled(session_.zoom() < DocsSession::kMostZoom);
  ColourPlaceholder();
  RenderRows();
  RenderText();
}

// Qt leaves the placeholder dark on a desktop that is dark.
void frmDocs::ColourPlaceholder() {
  constexpr int kOpacity = 180;  // of 255; still 4.5 to 1 on its ground
  QPalette palette = txtSearch->palette();
  QColor colour = palette.color(QPalette::Text);
  colour.setAlpha(kOpacity);
  if (palette.color(QPalette::PlaceholderText) == colour) return;
  palette.setColor(QPalette::PlaceholderText, colour);
  txtSearch->setPalette(palette);
}

void frmDocs::RenderRows() {
  const QString summary = QString::fromStdString(session_.Summary());
  lblFound->setText(summary);
  lblFound->setAccessibleName(summary);
  lblFound->setVisible(session_.IsSearching());
  lstTopics->setAccessibleName(session_.IsSearching() ? tr("Places found") : tr("Topics"));
  const std::vector<DocsRow>& rows = session_.rows();
  // Clearing would lose the place in the list, so it is done only for other rows.
  bool isSame = static_cast<std::size_t>(lstTopics->count()) == rows.size();
  for (std::size_t i = 0; isSame && i < rows.size(); ++i) {
    const QListWidgetItem* item = lstTopics->item(static_cast<int>(i));
    isSame = item->text().toStdString() == rows[i].title &&
             item->data(DocsRows::kDetailRole).toString().toStdString() == rows[i].detail;
  }
  if (!isSame) FillRows();
  const auto row = session_.CurrentRow();
  lstTopics->setCurrentRow(row ? static_cast<int>(*row) : -1);
  if (isSame) return;
  // The list keeps the place to which it was scrolled for the rows before.
  lstTopics->doItemsLayout();
  lstTopics->scrollToTop();
  if (row) lstTopics->scrollToItem(lstTopics->currentItem());
}

void frmDocs::FillRows() {
  lstTopics->clear();
  for (const DocsRow& row : session_.rows()) {
    auto* const item = new QListWidgetItem(QString::fromStdString(row.title), lstTopics);
    const QString detail = QString::fromStdString(row.detail);
    item->setData(DocsRows::kDetailRole, detail);
    item->setData(Qt::AccessibleTextRole, QString(item->text() + QLatin1Char('\n') + detail));
  }
}

void frmDocs::RenderText() {
  const bool isNew = shownTopic_ != session_.place().topic || shownZoom_ != session_.zoom();
  if (isNew) {
    QFont font = txtText->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * session_.zoom() / 100);
    txtText->document()->setDefaultFont(font);
    FillPage(*txtText->document(), session_.topic().markdown, txtText->palette());
    txtText->FitPictures();
    shownTopic_ = session_.place().topic;
    shownZoom_ = session_.zoom();
    txtText->setAccessibleName(QString::fromStdString(session_.topic().title));
  }
  RenderMatches();
  if (!isNew && shownPlace_ == session_.place()) return;
  shownPlace_ = session_.place();
  ScrollToPlace();
}

void frmDocs::RenderMatches() {
  QList<QTextEdit::ExtraSelection> selections;
  const PageText text(*txtText->document());
  for (const TextRange& range : session_.MatchesIn(text.utf8())) {
    QTextEdit::ExtraSelection selection;
    selection.cursor = QTextCursor(txtText->document());
    selection.cursor.setPosition(text.PositionOf(range.begin));
    selection.cursor.setPosition(text.PositionOf(range.end), QTextCursor::KeepAnchor);
    selection.format.setBackground(QColor(kMatchBackground));
    selection.format.setForeground(QColor(kMatchText));
    selections.append(selection);
  }
  txtText->setExtraSelections(selections);
}

void frmDocs::ScrollToPlace() {
  const std::size_t section = session_.guide().SectionOf(session_.place());
  QTextCursor cursor(txtText->document());
  cursor.setPosition(section == 0 ? 0 : PositionOfSection(*txtText->document(), section));
  txtText->setTextCursor(cursor);
  QScrollBar* const bar = txtText->verticalScrollBar();
  bar->setValue(section == 0 ? 0 : bar->value() + txtText->cursorRect(cursor).top());
  if (session_.IsSearching()) SelectMatch(true);
}

// From the cursor on, round the end of the text if need be.
void frmDocs::SelectMatch(bool forward) {
  const QList<QTextEdit::ExtraSelection> matches = txtText->extraSelections();
  if (matches.isEmpty()) return;
  const QTextCursor now = txtText->textCursor();
  QTextCursor found = forward ? matches.constFirst().cursor : matches.constLast().cursor;
  for (const QTextEdit::ExtraSelection& match : matches) {
    if (forward && match.cursor.selectionStart() >= now.selectionEnd()) {
      found = match.cursor;
      break;
    }
    if (!forward && match.cursor.selectionEnd() <= now.selectionStart()) found = match.cursor;
  }
  txtText->setTextCursor(found);
  txtText->ensureCursorVisible();
}

}  // namespace tidewarden
