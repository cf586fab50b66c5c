#pragma once

#include "benchmarks/screen/PeerData.hpp"
#include "benchmarks/screen/PeerHost.hpp"

#include <optional>

#include <QAbstractListModel>
#include <QStringList>

namespace vemra::bench {

/// The people of a snapshot for Qt Quick, and what the page around them shows.
class PeopleModel final : public QAbstractListModel {
  Q_OBJECT
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QString path READ path CONSTANT)
  Q_PROPERTY(QString footer READ footer CONSTANT)
  Q_PROPERTY(QStringList choices READ choices CONSTANT)

 public:
  explicit PeopleModel(const GoalResultSnapshotV1& snapshot) : data_(snapshot) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  QString title() const { return toQString(data_.snapshot().goal().title); }
  QString path() const { return data_.path(); }
  QString footer() const { return data_.footer(); }
  QStringList choices() const;

  void update(const GoalResultSnapshotV1& snapshot);
  Q_INVOKABLE void setEditing(int row, bool editing);
  Q_INVOKABLE void openPerson() { ++host_.openedPeople; }
  Q_INVOKABLE void showSource() { ++host_.shownSources; }
  Q_INVOKABLE void focusPath() { ++host_.focusedPaths; }
  Q_INVOKABLE void recordOutcome() { ++host_.recordedOutcomes; }
  Q_INVOKABLE bool canSave(int choice, const QString& note) const;

 private:
  enum Role {
    nameRole = Qt::UserRole,
    whyRole,
    prefixRole,
    sourceRole,
    outcomeRole,
    correctedRole,
    noteRole,
    editingRole
  };

  PeerData data_;
  PeerHost host_;
  std::optional<std::size_t> editing_;
};

}  // namespace vemra::bench
