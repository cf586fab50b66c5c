#include "VemraPlatform/ui/ViewGraph.hpp"

#include "VemraPlatform/ui/ProgrammerError.hpp"
#include "VemraPlatform/ui/Rows.hpp"

#include <algorithm>
#include <utility>

namespace vemra::ui {

namespace {

// More passes than any screen needs to come to rest; a loop of writes is a programmer's error.
constexpr int maximumPasses = 10'000;

}  // namespace

ViewGraph::ViewGraph(Environment environment) : environment_(std::move(environment)) {}

ViewGraph::~ViewGraph() {
  if (busy_) programmerError("a view graph was destroyed by what it called", root_);
  busy_ = true;  // what goes with the nodes may still write state
  if (root_) destroy(*std::exchange(root_, nullptr));
  rootView_ = View();
  bury();
}

void ViewGraph::attach(Renderer& renderer) {
  pendingRenderer_ = &renderer;
  if (!busy_) settle();
}

void ViewGraph::detach(const Renderer& renderer) {
  if (pendingRenderer_ == &renderer) pendingRenderer_ = nullptr;
  if (renderer_ != &renderer) return;
  renderer_ = nullptr;
  shownRoot_ = {};
}

void ViewGraph::detach() {
  pendingRenderer_ = nullptr;
  if (renderer_) detach(*renderer_);
}

void ViewGraph::setRoot(View root) {
  pendingRoot_ = std::move(root);
  if (!busy_) settle();
}

void ViewGraph::setEnvironment(Environment environment) {
  pendingEnvironment_ = std::move(environment);
  if (!busy_) settle();
}

void ViewGraph::showRows(NodeID forEach, std::vector<RowRange> ranges) {
  pendingRows_.push_back({forEach, std::move(ranges)});
  if (!busy_) settle();
}

Delivery ViewGraph::deliver(NodeID node, Event event) {
  if (busy_) {
    pendingEvents_.push_back({node, std::move(event)});
    return Delivery::queued;
  }
  busy_ = true;
  const Delivery delivery = actCatching(node, event);
  settle();
  return delivery;
}

Delivery ViewGraph::actCatching(NodeID node, const Event& event) {
  try {
    return act(node, event);
  } catch (...) {
    rememberError();
    return Delivery::acted;
  }
}

Delivery ViewGraph::act(NodeID id, const Event& event) const {
  const Node* node = find(id);
  if (!node) return Delivery::gone;
  if (!node->element.style().enabled) return Delivery::disabled;
  // Held: the action may make the description go that holds its handler.
  const View held = node->element.view();
  const Content& content = held.description().content;
  if (auto* button = std::get_if<ButtonContent>(&content)) {
    if (!std::holds_alternative<Press>(event)) return Delivery::refused;
    if (button->action) button->action();
    return Delivery::acted;
  }
  if (auto* picker = std::get_if<PickerContent>(&content)) {
    auto* select = std::get_if<Select>(&event);
    if (!select) return Delivery::refused;
    picker->selection.set(select->tag);
    return Delivery::acted;
  }
  if (auto* field = std::get_if<TextFieldContent>(&content)) {
    if (std::holds_alternative<Submit>(event)) return Delivery::acted;
    auto* edit = std::get_if<EditText>(&event);
    if (!edit) return Delivery::refused;
    field->text.set(edit->text);
    return Delivery::acted;
  }
  return Delivery::refused;
}

/// Works until nothing waits, one event after the other. What was remembered as an error comes out
/// at the end.
void ViewGraph::settle() {
  busy_ = true;
  int passes = 0;
  for (;;) {
    bury();
    if (somethingWaits()) {
      if (++passes > maximumPasses) {
        const Node* restless = dirty_.empty() ? nullptr : find(dirty_.front());
        programmerError("the tree never comes to rest", restless ? restless : root_);
      }
      runPass();
    } else if (!pendingEvents_.empty()) {
      const QueuedEvent next = std::move(pendingEvents_.front());
      pendingEvents_.pop_front();
      passes = 0;
      actCatching(next.node, next.event);
    } else {
      break;
    }
  }
  busy_ = false;
  if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
}

bool ViewGraph::somethingWaits() const {
  return pendingRenderer_ || pendingRoot_ || pendingEnvironment_ || !dirty_.empty() ||
         !pendingRows_.empty() || !patches_.empty();
}

/// Takes up what waits, in one go, and tells the renderer.
void ViewGraph::runPass() {
  ++pass_;
  try {
    takeUp();
  } catch (...) {
    rememberError();
    abandonTree();
  }
  try {
    flushPatches();
  } catch (...) {
    rememberError();
  }
}

void ViewGraph::takeUp() {
  if (pendingRenderer_) changeRenderer();
  if (pendingEnvironment_) {
    environment_ = *std::exchange(pendingEnvironment_, std::nullopt);
    if (!pendingRoot_) pendingRoot_ = rootView_;
  }
  if (pendingRoot_) {
    rootView_ = *std::exchange(pendingRoot_, std::nullopt);
    resolveRoot(rootView_);
  }
  describeDirty();
  while (!pendingRows_.empty()) {
    const RowRequest request = std::move(pendingRows_.front());
    pendingRows_.pop_front();
    applyRowRequest(request);
  }
}

void ViewGraph::changeRenderer() {
  Renderer* const next = std::exchange(pendingRenderer_, nullptr);
  if (next == renderer_) return;
  Renderer* const last = std::exchange(renderer_, next);
  const NodeID shown = std::exchange(shownRoot_, {});
  patches_.clear();  // what was meant for the last one
  if (last && shown) {
    try {
      last->apply({{Patch::Kind::remove, shown, {}, {}, std::nullopt}});
    } catch (...) {
      rememberError();
    }
  }
  if (renderer_ && root_) emitInserted(*root_, {});
  // It may demand rows that the last renderer did not.
  if (!pendingRoot_) pendingRoot_ = rootView_;
}

void ViewGraph::describeDirty() {
  std::vector<NodeID> dirty = std::exchange(dirty_, {});
  // Outer ones first: describing one may describe, or remove, those inside it. A node is made after
  // those above it and stays below them, so that its id is larger than theirs.
  std::ranges::sort(dirty);
  for (const NodeID id : dirty) {
    Node* node = mutableNode(id);
    if (node && node->describedInPass != pass_) describeComposite(*node, emissionOf(*node));
  }
}

void ViewGraph::flushPatches() {
  const std::vector<Patch> patches = std::exchange(patches_, {});
  const bool rowsReplaced = std::exchange(rowsReplaced_, false);
  if (!renderer_) return;
  if (!patches.empty()) {
    shownRoot_ = root_ ? root_->id : NodeID{};
    work_.patches += patches.size();
    renderer_->apply(patches);
  }
  // It may have been detached from inside `apply`.
  if (rowsReplaced && renderer_) renderer_->rowsReplaced();
}

/// The way out when resolving broke off halfway: lists of children, nodes and patches no longer
/// agree, so that nothing is left of them. The renderer is told to take away what it was told last.
void ViewGraph::abandonTree() {
  NodeTable<Node> nodes = std::exchange(nodes_, {});
  nodes.forEach([](const Node& node) {
    if (node.state) node.state->detach();
  });
  root_ = nullptr;
  rootView_ = View();
  gone_.clear();
  dirty_.clear();
  patches_.clear();
  if (shownRoot_) patches_.push_back({Patch::Kind::remove, shownRoot_, {}, {}, std::nullopt});
}

void ViewGraph::rememberError() {
  if (!error_) error_ = std::current_exception();
}

void ViewGraph::stateChanged(StateCell& cell) {
  Node* node = mutableNode(NodeID{cell.place()});
  if (describing_) programmerError("state was written while a view was being described", node);
  if (!node) return;  // asleep: the value waits there for the row's return
  // Also one that was described in this very pass has to be described again.
  node->describedInPass = 0;
  dirty_.push_back(node->id);
  if (!busy_) settle();
}

const Node* ViewGraph::find(NodeID node) const {
  const Node* const found = nodes_.find(node);
  return found && !found->isGone ? found : nullptr;
}

Node* ViewGraph::mutableNode(NodeID id) {
  Node* const found = nodes_.find(id);
  return found && !found->isGone ? found : nullptr;
}

Properties ViewGraph::properties(NodeID id) const {
  const Node* node = find(id);
  if (!node) return {};
  auto* composite = std::get_if<CompositeContent>(&node->element.description().content);
  return composite ? composite->composite->properties(node->state.get()) : Properties{};
}

}  // namespace vemra::ui
