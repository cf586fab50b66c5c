#pragma once

#include "benchmarks/screen/PeerData.hpp"

#include <optional>

#include <QAbstractListModel>

namespace vemra::bench {

/// The whole page as the rows of a list: a title, a headline, the people, and the parts below them.
class PageModel final : public QAbstractListModel {
 public:
  enum class RowKind { title, headline, person, pathHeadline, path, footer };

  explicit PageModel(const GoalResultSnapshotV1& snapshot) : data_(snapshot) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  RowKind kind(int row) const;
  std::size_t personAt(int row) const { return static_cast<std::size_t>(row - 2); }
  QModelIndex indexOf(std::size_t person) const { return index(static_cast<int>(person) + 2); }
  const PeerData& peer() const { return data_; }
  QString text(int row) const;

  /// The person whose editor is open.
  std::optional<std::size_t> editing() const { return editing_; }
  void setEditing(std::optional<std::size_t> person) { editing_ = person; }

  PeerData::Change update(const GoalResultSnapshotV1& snapshot);

 private:
  PeerData data_;
  std::optional<std::size_t> editing_;
};

}  // namespace vemra::bench
