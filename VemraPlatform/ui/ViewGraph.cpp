#include "VemraPlatform/ui/ViewGraph.hpp"

#include "VemraPlatform/ui/ElementAccess.hpp"
#include "VemraPlatform/ui/EventQueue.hpp"
#include "VemraPlatform/ui/NodeAccess.hpp"
#include "VemraPlatform/ui/ProgrammerError.hpp"
#include "VemraPlatform/ui/Reconciler.hpp"

#include <utility>

namespace vemra::ui {

namespace {

/// The rows of a `ForEach`; nullptr for other nodes.
const Rows* rowsOf(const Node* node) {
  return node ? memoryOf(*node).rows.get() : nullptr;
}

}  // namespace

struct ViewGraph::Parts final : StateCell::Owner {
  explicit Parts(Environment environment) : reconciler(*this, errors, std::move(environment)) {}
  void stateChanged(StateCell& cell) override { queue.stateChanged(NodeID{cell.place()}); }

  FirstError errors;
  Reconciler reconciler;
  EventQueue queue{reconciler, errors};
};

ViewGraph::ViewGraph(Environment environment)
    : parts_(std::make_unique<Parts>(std::move(environment))) {}

ViewGraph::~ViewGraph() {
  if (parts_->queue.isBusy()) {
    programmerError("a view graph was destroyed by what it called", root());
  }
  parts_->queue.close();  // destructors of the nodes' contents may still write state
  parts_->reconciler.clear();
}

void ViewGraph::attach(Renderer& renderer) {
  parts_->queue.attach(renderer);
}

void ViewGraph::detach(const Renderer& renderer) {
  parts_->queue.detach(renderer);
}

void ViewGraph::detach() {
  parts_->queue.detach();
}

void ViewGraph::setRoot(View root) {
  parts_->queue.setRoot(std::move(root));
}

void ViewGraph::setEnvironment(Environment environment) {
  parts_->queue.setEnvironment(std::move(environment));
}

const Environment& ViewGraph::environment() const {
  return parts_->reconciler.environment();
}

Delivery ViewGraph::deliver(NodeID node, Event event) {
  return parts_->queue.deliver(node, std::move(event));
}

EventObservation ViewGraph::observeEvents(EventObserver observer) {
  return parts_->queue.observe(std::move(observer));
}

void ViewGraph::showRows(NodeID forEach, std::vector<RowRange> ranges) {
  parts_->queue.showRows(forEach, std::move(ranges));
}

NodeID ViewGraph::peekRow(NodeID id, std::size_t index) {
  Node* const forEach = parts_->reconciler.find(id);
  const Rows* const rows = rowsOf(forEach);
  if (!rows || index >= rows->source->count()) return {};
  if (const Node* const there = RowStore::find(*forEach, index)) return there->id;
  if (parts_->queue.isBusy()) return {};
  NodeID row;
  // A row's closure may send requests to the graph; handle them after `peek`.
  parts_->queue.run([&] { row = parts_->reconciler.rows().peek(*forEach, index).id; });
  return row;
}

std::shared_ptr<const RowIDs> ViewGraph::rowIDs(NodeID id) const {
  const Rows* const rows = rowsOf(find(id));
  return rows ? rows->source : nullptr;
}

std::vector<std::size_t> ViewGraph::rowsWithState(NodeID id) {
  const Node* const forEach = find(id);
  if (!rowsOf(forEach)) return {};
  return parts_->reconciler.rows().withState(*forEach);
}

const Node* ViewGraph::find(NodeID node) const {
  return std::as_const(parts_->reconciler).find(node);
}

const Node* ViewGraph::root() const {
  return parts_->reconciler.root();
}

Properties ViewGraph::properties(NodeID id) const {
  const Node* const node = find(id);
  if (!node) return {};
  auto* composite =
      std::get_if<CompositeContent>(&ElementAccess::description(node->element).content);
  return composite ? composite->composite->properties(memoryOf(*node).state.get()) : Properties{};
}

const WorkCount& ViewGraph::work() const {
  return parts_->reconciler.work();
}

}  // namespace vemra::ui
