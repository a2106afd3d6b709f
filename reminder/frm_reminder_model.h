// The reminder list as a model for a list view: a look at the session's rows, nothing of its own.
#pragma once

#include <QAbstractListModel>

namespace tidewarden {

class ReminderSession;

class ListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  // The session outlives the model.
  explicit ListModel(const ReminderSession& session, QObject* parent = nullptr);

  // The session has built its list anew.
  void Rebuilt();

  // The rows are the same; some of their texts may have changed.
  void TextsChanged();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  const ReminderSession& session_;
};

}  // namespace tidewarden
