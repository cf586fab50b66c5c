#include "VemraPlatform/ui/Rows.hpp"

#include <algorithm>

namespace vemra::ui {

namespace {

void collectRows(Node& forEach, const std::vector<Node*>& rows, std::vector<SleepingRow>& asleep) {
  for (Node* row : rows) {
    if (hasState(*row)) asleep.push_back(putToSleep(*forEach.rows->source, *row));
  }
}

void collectState(Node& node, IdentityPath& path, SavedState& saved) {
  if (node.state && !node.state->isInitial()) {
    node.state->sleep();
    saved.cells.emplace_back(path, std::exchange(node.state, nullptr));
  }
  if (node.rows) {
    std::vector<SleepingRow> asleep = std::exchange(node.rows->asleep, {});
    collectRows(node, node.children, asleep);
    collectRows(node, node.rows->lookedAt, asleep);
    if (!asleep.empty()) saved.lists.emplace_back(path, std::move(asleep));
    return;
  }
  for (Node* child : node.children) {
    path.push_back(child->identity);
    collectState(*child, path, saved);
    path.pop_back();
  }
}

}  // namespace

SavedState::SavedState() = default;
SavedState::SavedState(SavedState&& other) noexcept = default;

SavedState& SavedState::operator=(SavedState&& other) noexcept {
  // What was here ends with `other`, so that its cells are told.
  std::swap(cells, other.cells);
  std::swap(lists, other.lists);
  return *this;
}

SavedState::~SavedState() {
  for (auto& [path, cell] : cells) cell->detach();
}

bool SavedState::isEmpty() const {
  return cells.empty() && lists.empty();
}

bool hasState(const Node& node) {
  const auto has = [](const Node* other) { return hasState(*other); };
  if (node.state && !node.state->isInitial()) return true;
  if (node.rows && !node.rows->asleep.empty()) return true;
  if (node.rows && std::ranges::any_of(node.rows->lookedAt, has)) return true;
  return std::ranges::any_of(node.children, has);
}

SleepingRow putToSleep(const RowSource& rows, Node& row) {
  const RowIdentity identity = rowIdentities(rows, {row.rowIndex}).front();
  SleepingRow sleeping{row.rowID, identity.occurrence, row.identity, {}};
  IdentityPath path;
  collectState(row, path, sleeping.state);
  return sleeping;
}

}  // namespace vemra::ui
