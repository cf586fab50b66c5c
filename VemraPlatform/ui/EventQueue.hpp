#pragma once

#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/Event.hpp"
#include "VemraPlatform/ui/EventObservers.hpp"
#include "VemraPlatform/ui/Patch.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <deque>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

class FirstError;
class Reconciler;

/// Handles the requests to a view graph one after the other, each completely before the next.
///
/// A request that arrives while another is handled (an action sets a root, a renderer asks for
/// rows) is queued, so that nothing is dropped and nothing recurses. Of roots, environments and
/// renderers only the last one counts; events and row requests keep their order.
class EventQueue {
 public:
  EventQueue(Reconciler& reconciler, FirstError& errors)
      : reconciler_(reconciler), errors_(errors) {}

  bool isBusy() const { return busy_; }
  /// Stops the queue: it queues later requests and never handles them.
  void close() { busy_ = true; }

  void attach(Renderer& renderer);
  void detach(const Renderer& renderer);
  void detach();
  void setRoot(View root);
  void setEnvironment(Environment environment);
  void showRows(NodeID forEach, std::vector<RowRange> ranges);
  Delivery deliver(NodeID node, Event event);
  EventObservation observe(EventObserver observer) { return observers_->add(std::move(observer)); }
  void stateChanged(NodeID node);

  /// Runs `work`, which changes the tree and records no patch, and then handles the requests that
  /// arrived meanwhile. Must not be called while a request is being handled. When `work` throws,
  /// the tree is abandoned.
  template <class Work>
  void run(const Work& work) {
    busy_ = true;
    try {
      work();
    } catch (...) {
      abandon();
    }
    settle();
  }

 private:
  struct QueuedEvent {
    NodeID node;
    Event event;
  };
  struct RowRequest {
    NodeID forEach;
    std::vector<RowRange> ranges;
  };

  Delivery act(NodeID node, const Event& event);
  void settleUnlessBusy();
  void settle();
  bool somethingWaits() const;
  void runPass();
  void takeUp();
  void abandon();

  Reconciler& reconciler_;
  FirstError& errors_;
  std::shared_ptr<EventObservers> observers_ = std::make_shared<EventObservers>();
  bool busy_ = false;
  Renderer* renderer_ = nullptr;
  std::optional<View> root_;
  std::optional<Environment> environment_;
  std::deque<RowRequest> rows_;
  std::deque<QueuedEvent> events_;
};

}  // namespace vemra::ui
