// Rows that nobody sees: described for a look, put to sleep, woken with their state.

#include "VemraPlatform/ui/Rows.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace vemra::ui {

namespace {

// Rows that are described for a look only are kept for the next look, up to so many.
constexpr std::size_t maximumLookedAt = 64;

/// Says whether a row is there only because it could not be described.
bool isStandIn(const Node& row) {
  return !row.identity.type;
}

/// The way down from `top`, which is above it, to `node`.
IdentityPath pathFrom(const Node& top, const Node& node) {
  IdentityPath path;
  for (const Node* place = &node; place != &top; place = place->parent) {
    path.push_back(place->identity);
  }
  std::ranges::reverse(path);
  return path;
}

}  // namespace

/// The row, or the composite in it, below which state is being woken, and what there was. What
/// finds no place again is gone in the end.
struct ViewGraph::Restoring {
  Restoring(ViewGraph& owner, const Node& waking, SavedState saved)
      : graph(owner), top(waking), state(std::move(saved)), outer(owner.restoring_) {
    graph.restoring_ = this;
  }
  ~Restoring() { graph.restoring_ = outer; }
  Restoring(const Restoring&) = delete;
  Restoring& operator=(const Restoring&) = delete;

  ViewGraph& graph;
  const Node& top;
  SavedState state;
  Restoring* outer;
};

NodeID ViewGraph::lookAtRow(NodeID id, std::size_t index) {
  Node* forEach = mutableNode(id);
  if (!forEach || !forEach->rows || index >= forEach->rows->source->count()) return {};
  const auto shown = std::ranges::lower_bound(forEach->children, index, {}, &Node::rowIndex);
  if (shown != forEach->children.end() && (*shown)->rowIndex == index) return (*shown)->id;
  const std::vector<Node*>& lookedAt = forEach->rows->lookedAt;
  const auto found = std::ranges::find(lookedAt, index, &Node::rowIndex);
  if (found != lookedAt.end()) return (*found)->id;
  if (busy_) return {};

  busy_ = true;  // a row's closure may ask the graph for something: after this
  NodeID row;
  try {
    row = lookAt(*forEach, index);
  } catch (...) {
    rememberError();
    abandonTree();
  }
  settle();
  return row;
}

NodeID ViewGraph::lookAt(Node& forEach, std::size_t index) {
  Node& row = allocateRow(forEach, index, describeRow(forEach, index));
  row.isShown = false;
  std::vector<Node*>& lookedAt = forEach.rows->lookedAt;
  lookedAt.push_back(&row);
  WakingRows waking = wakeRows(forEach, {&row});
  mountRow(row, waking, {}, Emission::silent);
  if (lookedAt.size() > maximumLookedAt) {
    Node& oldest = *lookedAt.front();
    lookedAt.erase(lookedAt.begin());
    sleepRows(forEach, {&oldest});
  }
  return row.id;
}

std::vector<std::size_t> ViewGraph::rowsWithState(NodeID id) {
  const Node* forEach = find(id);
  if (!forEach || !forEach->rows) return {};
  std::vector<std::size_t> indexes;
  const Rows& rows = *forEach->rows;
  for (const auto* present : {&forEach->children, &rows.lookedAt}) {
    for (const Node* row : *present) {
      if (hasState(*row)) indexes.push_back(row->rowIndex);
    }
  }
  if (!rows.asleep.empty()) {
    ++work_.idPasses;
    std::vector<RowIdentity> identities;
    for (const auto& [key, occurrences] : rows.asleep) {
      for (const auto& [occurrence, row] : occurrences) identities.push_back({key, occurrence});
    }
    for (const std::size_t index : locateRows(*rows.source, identities)) {
      if (index != absentRow) indexes.push_back(index);
    }
  }
  std::ranges::sort(indexes);
  const auto repeated = std::ranges::unique(indexes);
  indexes.erase(repeated.begin(), repeated.end());
  return indexes;
}

/// Mounts a new row, with what it had when it went to sleep.
void ViewGraph::mountRow(Node& row, WakingRows& waking, NodeID after, Emission emission) {
  const auto woken = waking.find(row.id);
  Restoring restoring(*this, row, woken == waking.end() ? SavedState() : std::move(woken->second));
  mount(row, after, emission);
}

/// Takes out what these rows (ascending) left behind when they went to sleep. A row that cannot be
/// described leaves it there for the next try.
ViewGraph::WakingRows ViewGraph::wakeRows(Node& forEach, std::vector<Node*> rows) {
  SleepingRows& asleep = forEach.rows->asleep;
  WakingRows waking;
  std::erase_if(rows,
                [&](const Node* row) { return isStandIn(*row) || !asleep.contains(row->rowID); });
  if (rows.empty()) return waking;
  ++work_.idPasses;
  std::vector<std::size_t> indexes;
  indexes.reserve(rows.size());
  for (const Node* row : rows) indexes.push_back(row->rowIndex);
  const std::vector<RowIdentity> identities = rowIdentities(*forEach.rows->source, indexes);
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

/// Gives a node of a waking row what stood in its place before.
void ViewGraph::restoreState(Node& node) {
  if (!restoring_ || restoring_->state.isEmpty()) return;
  const IdentityPath path = pathFrom(restoring_->top, node);
  const auto atPath = [&](const auto& saved) { return saved.first == path; };
  SavedState& state = restoring_->state;
  if (node.rows) {
    const auto list = std::ranges::find_if(state.lists, atPath);
    if (list == state.lists.end()) return;
    node.rows->asleep = std::move(list->second);
    state.lists.erase(list);
  } else {
    const auto cell = std::ranges::find_if(state.cells, atPath);
    if (cell == state.cells.end()) return;
    node.state = std::move(cell->second);
    state.cells.erase(cell);
  }
}

/// Resolves what a composite is made of, with what is still asleep below it.
void ViewGraph::resolveBody(Node& node, const View& body, Emission emission) {
  const auto below = std::exchange(node.asleepBelow, nullptr);
  std::optional<Restoring> restoring;
  if (below) restoring.emplace(*this, node, std::move(*below));
  resolveChildren(node, {&body, 1}, emission);
}

/// Leaves what slept below a composite of a waking row there, for a body that does not throw.
void ViewGraph::keepAsleepBelow(Node& node) {
  if (!restoring_ || restoring_->state.isEmpty()) return;
  SavedState below = restoring_->state.splitBelow(pathFrom(restoring_->top, node));
  if (!below.isEmpty()) node.asleepBelow = std::make_shared<SavedState>(std::move(below));
}

/// Takes the rows' nodes away and keeps what state has left its initial value.
void ViewGraph::sleepRows(Node& forEach, const std::vector<Node*>& rows) {
  work_.idPasses += putToSleep(*forEach.rows, rows);
  for (Node* row : rows) destroy(*row);
}

void ViewGraph::forgetLookedAtRows(Node& forEach) {
  sleepRows(forEach, std::exchange(forEach.rows->lookedAt, {}));
}

}  // namespace vemra::ui
