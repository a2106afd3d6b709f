// The rows of the events editor as Qt's views ask for them. It holds none itself.
#pragma once

#include <QAbstractListModel>

namespace tidewarden {

class EditSession;

class EventListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  // The session outlives the model.
  explicit EventListModel(const EditSession& session, QObject* parent = nullptr);

  // The session has other rows now.
  void Rebuilt();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

  // The row as it is listed; for screen readers the fields without their padding.
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  const EditSession& session_;
};

}  // namespace tidewarden
