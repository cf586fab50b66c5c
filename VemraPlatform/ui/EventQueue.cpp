#include "VemraPlatform/ui/EventQueue.hpp"

#include "VemraPlatform/ui/ElementAccess.hpp"
#include "VemraPlatform/ui/ProgrammerError.hpp"
#include "VemraPlatform/ui/Reconciler.hpp"

#include <utility>

namespace vemra::ui {

namespace {

// More passes than any screen needs until nothing changes; beyond it, state writes form a loop,
// which is a programmer's error.
constexpr int maximumPasses = 10'000;

/// What comes of an event, as long as nothing changes before the element handles it.
Delivery answerOf(const Node* node, const Event& event) {
  if (!node) return Delivery::gone;
  if (!node->element.style().enabled) return Delivery::disabled;
  const bool isAccepted = [&] {
    switch (node->element.kind()) {
      case ElementKind::button:
        return std::holds_alternative<Press>(event);
      case ElementKind::picker:
        return std::holds_alternative<Select>(event);
      case ElementKind::textField:
        return std::holds_alternative<EditText>(event) || std::holds_alternative<Submit>(event);
      default:
        return false;
    }
  }();
  return isAccepted ? Delivery::acted : Delivery::refused;
}

/// Runs the handler of an element for an event that it accepts.
void actOn(const Node& node, const Event& event) {
  // Keeps the description alive: the action may replace the description that holds its handler.
  const View held = ElementAccess::view(node.element);
  const Content& content = held.description().content;
  if (auto* button = std::get_if<ButtonContent>(&content)) {
    if (button->action) button->action();
  } else if (auto* picker = std::get_if<PickerContent>(&content)) {
    picker->selection.set(std::get<Select>(event).tag);
  } else if (auto* edit = std::get_if<EditText>(&event)) {
    std::get<TextFieldContent>(content).text.set(edit->text);
  } else if (const Action& submit = std::get<TextFieldContent>(content).submit) {
    submit();
  }
}

}  // namespace

void EventQueue::attach(Renderer& renderer) {
  renderer_ = &renderer;
  settleUnlessBusy();
}

void EventQueue::detach(const Renderer& renderer) {
  if (renderer_ == &renderer) renderer_ = nullptr;
  if (reconciler_.patches().renderer() == &renderer) reconciler_.patches().disconnect();
}

void EventQueue::detach() {
  renderer_ = nullptr;
  reconciler_.patches().disconnect();
}

void EventQueue::setRoot(View root) {
  root_ = std::move(root);
  settleUnlessBusy();
}

void EventQueue::setEnvironment(Environment environment) {
  environment_ = std::move(environment);
  settleUnlessBusy();
}

void EventQueue::showRows(NodeID forEach, std::vector<RowRange> ranges) {
  rows_.push_back({forEach, std::move(ranges)});
  settleUnlessBusy();
}

Delivery EventQueue::deliver(NodeID node, Event event) {
  if (busy_) {
    events_.push_back({node, std::move(event)});
    return Delivery::queued;
  }
  busy_ = true;
  const Delivery delivery = act(node, event);
  settle();
  return delivery;
}

void EventQueue::stateChanged(NodeID id) {
  Node* const node = reconciler_.find(id);
  if (reconciler_.isDescribing()) {
    programmerError("state was written while a view was being described", node);
  }
  if (!node) return;  // the row is asleep; its state keeps the value until it returns
  reconciler_.markOutOfDate(*node);
  settleUnlessBusy();
}

Delivery EventQueue::act(NodeID id, const Event& event) {
  const Node* const node = reconciler_.find(id);
  const Delivery delivery = answerOf(node, event);
  if (delivery != Delivery::acted) return delivery;
  const auto attempt = [this](const auto& work) {
    try {
      work();
    } catch (...) {
      errors_.remember();
    }
  };
  observers_->call(*node, event, attempt);
  attempt([&] { actOn(*node, event); });
  return delivery;
}

void EventQueue::settleUnlessBusy() {
  if (!busy_) settle();
}

/// Handles one request after the other until none waits, then rethrows the first exception.
void EventQueue::settle() {
  busy_ = true;
  int passes = 0;
  for (;;) {
    reconciler_.freeRemoved();
    if (somethingWaits()) {
      if (++passes > maximumPasses) {
        const Node* restless = reconciler_.outOfDate();
        programmerError("the tree never comes to rest", restless ? restless : reconciler_.root());
      }
      runPass();
    } else if (!events_.empty()) {
      const QueuedEvent next = std::move(events_.front());
      events_.pop_front();
      passes = 0;
      act(next.node, next.event);
    } else {
      break;
    }
  }
  busy_ = false;
  errors_.rethrow();
}

bool EventQueue::somethingWaits() const {
  return renderer_ || root_ || environment_ || !reconciler_.isUpToDate() || !rows_.empty() ||
         !reconciler_.patches().isEmpty();
}

/// Handles all waiting requests in one pass and hands the renderer the patches.
void EventQueue::runPass() {
  reconciler_.beginPass();
  try {
    takeUp();
  } catch (...) {
    abandon();
  }
  try {
    reconciler_.patches().flush(reconciler_.root(), reconciler_.environment(), reconciler_.work());
  } catch (...) {
    errors_.remember();
  }
}

void EventQueue::takeUp() {
  if (Renderer* const next = std::exchange(renderer_, nullptr)) {
    const bool isAnother = reconciler_.patches().connect(next, reconciler_.root(), errors_);
    // The new renderer may demand rows that the previous renderer did not.
    if (isAnother && !root_) root_ = reconciler_.rootView();
  }
  if (environment_) {
    reconciler_.setEnvironment(*std::exchange(environment_, std::nullopt));
    if (!root_) root_ = reconciler_.rootView();
  }
  if (root_) reconciler_.setRoot(*std::exchange(root_, std::nullopt));
  reconciler_.update();
  while (!rows_.empty()) {
    RowRequest request = std::move(rows_.front());
    rows_.pop_front();
    Node* const forEach = reconciler_.find(request.forEach);
    RowStore& rows = reconciler_.rows();
    if (forEach && memoryOf(*forEach).rows && !rows.demandsEverything(*forEach)) {
      rows.show(*forEach, std::move(request.ranges));
    }
  }
}

void EventQueue::abandon() {
  errors_.remember();
  reconciler_.abandon();
}

}  // namespace vemra::ui
