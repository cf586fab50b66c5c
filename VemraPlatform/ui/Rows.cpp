#include "VemraPlatform/ui/Rows.hpp"

#include <algorithm>
#include <cstddef>
#include <span>

namespace vemra::ui {

namespace {

std::uint64_t collectState(Node& node, IdentityPath& path, SavedState& saved) {
  auto& memory = memoryOf(node);
  if (memory.state && !memory.state->isInitial()) {
    memory.state->sleep();
    saved.cells.emplace_back(path, std::exchange(memory.state, nullptr));
  }
  if (memory.asleepBelow) saved.takeBelow(path, *std::exchange(memory.asleepBelow, nullptr));
  if (memory.rows) {
    std::vector<Node*> rows = childNodesOf(node);
    rows.insert(rows.end(), memory.rows->peeked.begin(), memory.rows->peeked.end());
    const std::uint64_t idPasses = putToSleep(*memory.rows, std::move(rows));
    if (!memory.rows->asleep.empty()) {
      saved.lists.emplace_back(path, std::exchange(memory.rows->asleep, {}));
    }
    return idPasses;
  }
  std::uint64_t idPasses = 0;
  for (Node* child : childNodesOf(node)) {
    path.push_back(child->identity);
    idPasses += collectState(*child, path, saved);
    path.pop_back();
  }
  return idPasses;
}

}  // namespace

SavedState::SavedState() = default;
SavedState::SavedState(SavedState&& other) noexcept = default;

SavedState& SavedState::operator=(SavedState&& other) noexcept {
  // `other`'s destructor detaches our old cells.
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

void SavedState::takeBelow(const IdentityPath& path, SavedState& other) {
  const auto take = [&path](auto& to, auto& from) {
    for (auto& [below, what] : from) {
      IdentityPath whole = path;
      whole.insert(whole.end(), below.begin(), below.end());
      to.emplace_back(std::move(whole), std::move(what));
    }
    from.clear();
  };
  take(cells, other.cells);
  take(lists, other.lists);
}

SavedState SavedState::splitBelow(const IdentityPath& path) {
  SavedState below;
  const auto split = [&path](auto& from, auto& to) {
    const auto others = std::ranges::stable_partition(from, [&path](const auto& saved) {
      return saved.first.size() < path.size() ||
             !std::ranges::equal(path, std::span(saved.first).first(path.size()));
    });
    for (auto& [whole, what] : others) {
      whole.erase(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(path.size()));
      to.emplace_back(std::move(whole), std::move(what));
    }
    from.erase(others.begin(), others.end());
  };
  split(cells, below.cells);
  split(lists, below.lists);
  return below;
}

bool hasState(const Node& node) {
  const auto has = [](const Node* other) { return hasState(*other); };
  const auto& memory = memoryOf(node);
  if (memory.state && !memory.state->isInitial()) return true;
  if (memory.asleepBelow) return true;
  if (memory.rows && !memory.rows->asleep.empty()) return true;
  if (memory.rows && std::ranges::any_of(memory.rows->peeked, has)) return true;
  return std::ranges::any_of(node.children, has);
}

std::uint64_t putToSleep(Rows& list, std::vector<Node*> rows) {
  std::erase_if(rows, [](const Node* row) { return !hasState(*row); });
  if (rows.empty()) return 0;
  std::ranges::sort(rows, {}, &Node::rowIndex);
  std::vector<std::size_t> indexes;
  indexes.reserve(rows.size());
  for (const Node* row : rows) indexes.push_back(row->rowIndex);
  const std::vector<RowIdentity> identities = rowIdentities(*list.source, indexes);
  std::uint64_t idPasses = 1;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SleepingRow sleeping{rows[i]->identity, {}};
    IdentityPath path;
    idPasses += collectState(*rows[i], path, sleeping.state);
    list.asleep[rows[i]->rowID].insert_or_assign(identities[i].occurrence, std::move(sleeping));
  }
  return idPasses;
}

}  // namespace vemra::ui
