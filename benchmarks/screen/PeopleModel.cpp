#include "benchmarks/screen/PeopleModel.hpp"

#include "benchmarks/data/SampleResult.hpp"

namespace vemra::bench {

int PeopleModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(data_.size());
}

QVariant PeopleModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  const GoalOutcomeDTO* outcome = role >= outcomeRole ? data_.outcome(row) : nullptr;
  switch (role) {
    case nameRole:
      return data_.name(row);
    case whyRole:
      return data_.why(row);
    case prefixRole:
      return toQString(identifierPrefixOf(row));
    case sourceRole:
      return data_.hasSource(row);
    case outcomeRole:
      return outcome ? labelOf(outcome->value) : QString();
    case correctedRole:
      return outcome && outcome->correctsOutcomeID.has_value();
    case noteRole:
      return outcome ? toQString(outcome->note.value_or("")) : QString();
    case editingRole:
      return editing_ == row;
    default:
      return {};
  }
}

QHash<int, QByteArray> PeopleModel::roleNames() const {
  return {{nameRole, "name"},        {whyRole, "why"},         {prefixRole, "prefix"},
          {sourceRole, "hasSource"}, {outcomeRole, "outcome"}, {correctedRole, "corrected"},
          {noteRole, "note"},        {editingRole, "editing"}};
}

QStringList PeopleModel::choices() const {
  QStringList labels;
  for (const GoalOutcomeValue value : allGoalOutcomeValues) labels.append(labelOf(value));
  return labels;
}

void PeopleModel::update(const GoalResultSnapshotV1& snapshot) {
  if (data_.update(snapshot) == PeerData::Change::people) {
    beginResetModel();
    endResetModel();
  } else if (data_.size() > 0) {
    // The view asks again only for the rows that it has.
    Q_EMIT dataChanged(index(0), index(rowCount() - 1), {outcomeRole, correctedRole, noteRole});
  }
}

void PeopleModel::setEditing(int row, bool editing) {
  const auto last = std::exchange(
      editing_, editing ? std::optional(static_cast<std::size_t>(row)) : std::nullopt);
  for (const auto& changed : {last, editing_}) {
    if (!changed) continue;
    const QModelIndex at = index(static_cast<int>(*changed));
    Q_EMIT dataChanged(at, at, {editingRole});
  }
}

bool PeopleModel::canSave(int choice, const QString& note) const {
  return GoalOutcomeRecordingFormLogic::canSave(static_cast<GoalOutcomeValue>(choice),
                                                note.toStdString());
}

}  // namespace vemra::bench
