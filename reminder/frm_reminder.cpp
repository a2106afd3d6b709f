#include "reminder/frm_reminder.h"

#include <QLabel>
#include <QListView>
#include <QVBoxLayout>

#include "reminder/frm_reminder_model.h"
#include "reminder/reminder_session.h"

namespace tidewarden {
namespace {

// 15 twips are one device-independent pixel.
constexpr int kTwipsPerPixel = 15;
constexpr int kWidthTwips = 4425;
constexpr int kHeightTwips = 2025;

}  // namespace

frmReminder::frmReminder(ReminderSession& session, QWidget* parent)
    : QWidget(parent),
      session_(session),
      model_(new ListModel(session, this)),
      List1(new QListView(this)),
      sknDate(new QLabel(this)) {
  setObjectName(QStringLiteral("frmReminder"));
  resize(kWidthTwips / kTwipsPerPixel, kHeightTwips / kTwipsPerPixel);

  List1->setObjectName(QStringLiteral("List1"));
  List1->setAccessibleName(tr("Reminders"));
  List1->setModel(model_);
  // Rows are cut by the window's edge rather than shortened with dots, and can be scrolled to.
  List1->setTextElideMode(Qt::ElideNone);
  List1->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  List1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  List1->setLayoutMode(QListView::Batched);

  sknDate->setObjectName(QStringLiteral("sknDate"));
  sknDate->setAccessibleName(tr("Today's date"));
  sknDate->setTextFormat(Qt::PlainText);
  sknDate->setAlignment(Qt::AlignCenter);

  auto* const layout = new QVBoxLayout(this);
  constexpr int kMargin = 4;
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kMargin);
  layout->addWidget(List1);
  layout->addWidget(sknDate);
}

bool frmReminder::Rebuild() {
  const BuildOutcome outcome = session_.BuildReminderList();
  Render();
  return outcome == BuildOutcome::kShow;
}

void frmReminder::Render() {
  // Qt would take "[*]" for its own mark of unsaved changes.
  QString title = QString::fromStdString(session_.options().titlebarText);
  setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
  model_->Rebuilt();
  sknDate->setText(QString::fromStdString(session_.dateLabel()));
}

}  // namespace tidewarden
