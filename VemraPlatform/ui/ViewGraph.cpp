#include "VemraPlatform/ui/ViewGraph.hpp"

#include "VemraPlatform/ui/Rows.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace vemra::ui {

namespace {

// More passes than any screen needs to come to rest; a loop of writes is a programmer's error.
constexpr int maximumPasses = 10'000;

[[noreturn]] void programmerError(const char* what, std::string_view view) {
  std::fprintf(stderr, "vemra::ui: %s (in %.*s)\n", what, static_cast<int>(view.size()),
               view.data());
  std::abort();
}

int depthOf(const Node* node) {
  int depth = 0;
  for (; node->parent; node = node->parent) ++depth;
  return depth;
}

}  // namespace

ViewGraph::ViewGraph(Environment environment) : environment_(std::move(environment)) {}

ViewGraph::~ViewGraph() {
  if (root_) destroy(*root_);
}

void ViewGraph::attach(Renderer& renderer) {
  renderer_ = &renderer;
  if (!root_) return;
  emitInserted(*root_, {});
  pendingRoot_ = rootView_;  // the new renderer may demand rows that the last one did not
  if (!busy_) settle();
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
  Delivery delivery = Delivery::gone;
  std::exception_ptr error;
  try {
    delivery = act(node, event);
  } catch (...) {
    error = std::current_exception();
  }
  settle(error);
  return delivery;
}

Delivery ViewGraph::act(NodeID id, const Event& event) {
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

/// Works until nothing waits. An exception of an action or a body does not stop the rest; the first
/// one comes out at the end.
void ViewGraph::settle(std::exception_ptr error) {
  busy_ = true;
  int passes = 0;
  for (;;) {
    try {
      if (runPass()) {
        if (++passes > maximumPasses) programmerError("the tree never comes to rest", "settle");
        continue;
      }
      if (pendingEvents_.empty()) break;
      QueuedEvent next = std::move(pendingEvents_.front());
      pendingEvents_.pop_front();
      act(next.node, next.event);
    } catch (...) {
      if (!error) error = std::current_exception();
    }
  }
  busy_ = false;
  if (error) std::rethrow_exception(error);
}

/// Takes up what waits, in one go, and tells the renderer. False when nothing waited.
bool ViewGraph::runPass() {
  if (!pendingRoot_ && !pendingEnvironment_ && dirty_.empty() && pendingRows_.empty() &&
      patches_.empty()) {
    return false;
  }
  ++pass_;
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
    RowRequest request = std::move(pendingRows_.front());
    pendingRows_.pop_front();
    applyRowRequest(request);
  }
  flushPatches();
  return true;
}

void ViewGraph::describeDirty() {
  std::vector<std::pair<int, NodeID>> dirty;
  for (NodeID id : std::exchange(dirty_, {})) {
    if (const Node* node = find(id)) dirty.emplace_back(depthOf(node), id);
  }
  // Outer ones first: describing one may describe, or remove, those inside it.
  std::ranges::sort(dirty);
  for (const auto& [depth, id] : dirty) {
    Node* node = mutableNode(id);
    if (node && node->describedInPass != pass_) describeComposite(*node, emits(*node));
  }
}

void ViewGraph::flushPatches() {
  if (patches_.empty()) return;
  const std::vector<Patch> patches = std::exchange(patches_, {});
  work_.patches += patches.size();
  if (renderer_) renderer_->apply(patches);
}

void ViewGraph::stateChanged(StateCell& cell) {
  const Node* node = find(NodeID{cell.place()});
  if (describing_) {
    programmerError("state was written while a body was being described",
                    node ? node->element.compositeName() : "a sleeping row");
  }
  if (!node) return;  // asleep: the value waits there for the row's return
  dirty_.push_back(node->id);
  if (!busy_) settle();
}

const Node* ViewGraph::find(NodeID node) const {
  return mutableNode(node);
}

Node* ViewGraph::mutableNode(NodeID id) const {
  auto found = nodes_.find(id);
  return found == nodes_.end() ? nullptr : found->second.get();
}

Properties ViewGraph::properties(NodeID id) const {
  const Node* node = find(id);
  if (!node) return {};
  auto* composite = std::get_if<CompositeContent>(&node->element.description().content);
  return composite ? composite->composite->properties(node->state.get()) : Properties{};
}

}  // namespace vemra::ui
