// Rows that nobody sees: described for a look, put to sleep, woken with their state.

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/ui/Rows.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <algorithm>
#include <utility>

namespace vemra::ui {

namespace {

// Rows that are described for a look only are kept for the next look, up to so many.
constexpr std::size_t maximumLookedAt = 64;

}  // namespace

/// The row that is being woken, and what it had. What finds no place again is gone in the end.
struct ViewGraph::Restoring {
  Restoring(ViewGraph& owner, const Node& waking, SavedState saved)
      : graph(owner), row(waking), state(std::move(saved)), outer(owner.restoring_) {
    graph.restoring_ = this;
  }
  ~Restoring() { graph.restoring_ = outer; }
  Restoring(const Restoring&) = delete;
  Restoring& operator=(const Restoring&) = delete;

  ViewGraph& graph;
  const Node& row;
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
  ++pass_;
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
  Node& row = allocateRow(forEach, index, describeRow(forEach, index).value_or(Group({})));
  row.isShown = false;
  std::vector<Node*>& lookedAt = forEach.rows->lookedAt;
  lookedAt.push_back(&row);
  mountRow(forEach, row, {}, false);
  if (lookedAt.size() > maximumLookedAt) {
    Node& oldest = *lookedAt.front();
    lookedAt.erase(lookedAt.begin());
    sleepRow(forEach, oldest);
  }
  return row.id;
}

void ViewGraph::mountRow(Node& forEach, Node& row, NodeID after, bool emitting) {
  Restoring restoring(*this, row, wake(forEach, row));
  mount(row, after, emitting);
}

/// Takes out what a row left behind when it went to sleep; nothing when it did not.
SavedState ViewGraph::wake(Node& forEach, const Node& row) {
  std::vector<SleepingRow>& asleep = forEach.rows->asleep;
  const auto hasKey = [&](const SleepingRow& other) { return text::equal(other.key, row.rowID); };
  if (std::ranges::none_of(asleep, hasKey)) return {};
  ++work_.idPasses;
  const auto occurrence = rowIdentities(*forEach.rows->source, {row.rowIndex}).front().occurrence;
  const auto same = std::ranges::find_if(asleep, [&](const SleepingRow& other) {
    return other.occurrence == occurrence && hasKey(other);
  });
  if (same == asleep.end()) return {};
  SleepingRow sleeping = std::move(*same);
  asleep.erase(same);
  return sameKind(sleeping.content, row.identity) ? std::move(sleeping.state) : SavedState();
}

/// Gives a node of a waking row what stood in its place before.
void ViewGraph::restoreState(Node& node) {
  if (!restoring_ || restoring_->state.isEmpty()) return;
  IdentityPath path;
  for (const Node* place = &node; place != &restoring_->row; place = place->parent) {
    path.push_back(place->identity);
  }
  std::ranges::reverse(path);
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

/// Takes a row's nodes away and keeps what state has left its initial value.
void ViewGraph::sleepRow(Node& forEach, Node& row) {
  if (hasState(row)) {
    ++work_.idPasses;
    forEach.rows->asleep.push_back(putToSleep(*forEach.rows->source, row));
  }
  destroy(row);
}

void ViewGraph::forgetLookedAtRows(Node& forEach) {
  for (Node* row : std::exchange(forEach.rows->lookedAt, {})) sleepRow(forEach, *row);
}

}  // namespace vemra::ui
