#include "editor/frm_edit_model.h"

#include "dates/text.h"
#include "editor/edit_session.h"

namespace tidewarden {
namespace {

QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString SpokenRow(std::string_view row) {
  const RowCells cells = CellsOf(row);
  QStringList spoken;
  for (const std::string_view cell : {cells.date, cells.title, cells.advance, cells.occurs}) {
    if (!Trim(cell).empty()) spoken << ToQString(Trim(cell));
  }
  return spoken.join(QStringLiteral(", "));
}

}  // namespace

EventListModel::EventListModel(const EditSession& session, QObject* parent)
    : QAbstractListModel(parent), session_(session) {}

void EventListModel::Rebuilt() {
  beginResetModel();
  endResetModel();
}

int EventListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(session_.List1().size());
}

QVariant EventListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const std::string& text = session_.List1()[static_cast<std::size_t>(index.row())].text;
  if (role == Qt::DisplayRole) return ToQString(text);
  if (role == Qt::AccessibleTextRole) return SpokenRow(text);
  return {};
}

}  // namespace tidewarden
