#include "reminder/frm_reminder_model.h"

#include "reminder/reminder_session.h"

namespace tidewarden {

ListModel::ListModel(const ReminderSession& session, QObject* parent)
    : QAbstractListModel(parent), session_(session) {}

void ListModel::Rebuilt() {
  beginResetModel();
  endResetModel();
}

void ListModel::TextsChanged() {
  if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

int ListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(session_.List1().size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
  const std::string_view text = session_.List1()[static_cast<std::size_t>(index.row())];
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace tidewarden
