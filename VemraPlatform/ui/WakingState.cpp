#include "VemraPlatform/ui/WakingState.hpp"

#include "VemraPlatform/ui/WorkCount.hpp"

#include <algorithm>
#include <memory>
#include <utility>

namespace vemra::ui {

namespace {

/// Whether a row is only a stand-in, because its description failed.
bool isStandIn(const Node& row) {
  return !row.identity.type;
}

/// The identities from below `top`, an ancestor, down to `node`.
IdentityPath pathFrom(const Node& top, const Node& node) {
  IdentityPath path;
  for (const Node* place = &node; place != &top; place = place->parent) {
    path.push_back(place->identity);
  }
  std::ranges::reverse(path);
  return path;
}

}  // namespace

WakingState::Scope::Scope(WakingState& waking, const Node& top, std::optional<SavedState> state)
    : waking_(waking), outer_(waking.scope_), top_(top), state_(std::move(state)) {
  if (state_) waking_.scope_ = this;
}

WakingState::OfRows WakingState::take(Node& forEach, std::vector<Node*> rows) {
  SleepingRows& asleep = memoryOf(forEach).rows->asleep;
  OfRows waking;
  std::erase_if(rows,
                [&](const Node* row) { return isStandIn(*row) || !asleep.contains(row->rowID); });
  if (rows.empty()) return waking;
  ++work_.idPasses;
  std::vector<std::size_t> indexes;
  indexes.reserve(rows.size());
  for (const Node* row : rows) indexes.push_back(row->rowIndex);
  const std::vector<RowIdentity> identities =
      rowIdentities(*memoryOf(forEach).rows->source, indexes);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto sameID = asleep.find(rows[i]->rowID);
    if (sameID == asleep.end()) continue;
    auto taken = sameID->second.extract(identities[i].occurrence);
    if (sameID->second.empty()) asleep.erase(sameID);
    if (taken && sameKind(taken.mapped().content, rows[i]->identity)) {
      waking.emplace(rows[i]->id, std::move(taken.mapped().state));
    }
  }
  return waking;
}

std::optional<SavedState> WakingState::takeBelow(Node& composite) {
  const auto below = std::exchange(memoryOf(composite).asleepBelow, nullptr);
  if (!below) return std::nullopt;
  return std::move(*below);
}

void WakingState::restore(Node& node) {
  if (!scope_ || scope_->state_->isEmpty()) return;
  const IdentityPath path = pathFrom(scope_->top_, node);
  const auto atPath = [&](const auto& saved) { return saved.first == path; };
  SavedState& state = *scope_->state_;
  if (memoryOf(node).rows) {
    const auto list = std::ranges::find_if(state.lists, atPath);
    if (list == state.lists.end()) return;
    memoryOf(node).rows->asleep = std::move(list->second);
    state.lists.erase(list);
  } else {
    const auto cell = std::ranges::find_if(state.cells, atPath);
    if (cell == state.cells.end()) return;
    memoryOf(node).state = std::move(cell->second);
    state.cells.erase(cell);
  }
}

void WakingState::keepBelow(Node& composite) {
  if (!scope_ || scope_->state_->isEmpty()) return;
  SavedState below = scope_->state_->splitBelow(pathFrom(scope_->top_, composite));
  if (!below.isEmpty())
    memoryOf(composite).asleepBelow = std::make_shared<SavedState>(std::move(below));
}

}  // namespace vemra::ui
