#include "benchmarks/screen/PageModel.hpp"

namespace vemra::bench {

int PageModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(data_.size()) + 5;
}

PageModel::RowKind PageModel::kind(int row) const {
  if (row == 0) return RowKind::title;
  if (row == 1) return RowKind::headline;
  switch (row - static_cast<int>(data_.size())) {
    case 2:
      return RowKind::pathHeadline;
    case 3:
      return RowKind::path;
    case 4:
      return RowKind::footer;
    default:
      return RowKind::person;
  }
}

QString PageModel::text(int row) const {
  switch (kind(row)) {
    case RowKind::title:
      return toQString(data_.snapshot().goal().title);
    case RowKind::headline:
      return QStringLiteral("People worth considering");
    case RowKind::person:
      return data_.name(personAt(row));
    case RowKind::pathHeadline:
      return QStringLiteral("Supported path");
    case RowKind::path:
      return data_.path();
    case RowKind::footer:
      return data_.footer();
  }
  return {};
}

QVariant PageModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) return text(index.row());
  return {};
}

Qt::ItemFlags PageModel::flags(const QModelIndex& index) const {
  return kind(index.row()) == RowKind::person ? Qt::ItemIsEnabled | Qt::ItemIsEditable
                                              : Qt::ItemIsEnabled;
}

PeerData::Change PageModel::update(const GoalResultSnapshotV1& snapshot) {
  const PeerData::Change change = data_.update(snapshot);
  if (change == PeerData::Change::people) {
    beginResetModel();
    endResetModel();
  } else {
    Q_EMIT dataChanged(indexOf(0), indexOf(data_.size() - 1));
  }
  return change;
}

}  // namespace vemra::bench
