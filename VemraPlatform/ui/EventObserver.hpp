#pragma once

#include "VemraPlatform/ui/Event.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace vemra::ui {

struct Node;
class EventObservers;

/// Hears of an event just before its element handles it, on the main thread.
///
/// It hears every event that an element accepts, in the order in which they are handled, however
/// it came: from a person, assistive technology or a callback. It does not hear events for elements
/// that are gone, disabled, or of another kind. The node is valid during the call. The graph counts
/// as busy, so that requests to it wait until the event has been handled. What the observer throws
/// comes out of the call that delivered the event, which the element handles all the same.
using EventObserver = std::function<void(const Node& element, const Event& event)>;

/// Lasts as long as an observer hears the events of a graph: its destructor ends that.
///
///     const auto hearing = graph.observeEvents([](const ui::Node& element, const ui::Event& event) {
///       if (std::holds_alternative<ui::Press>(event)) {
///         std::cout << element.element.accessibilityIdentifier() << " was pressed\n";
///       }
///     });
///
/// May outlive its graph, and may be destroyed by an observer. Main thread only.
class [[nodiscard]] EventObservation {
 public:
  /// An object that observes no graph.
  EventObservation() = default;
  EventObservation(EventObservation&&) noexcept = default;
  EventObservation& operator=(EventObservation&&) noexcept = default;
  EventObservation(const EventObservation&) = delete;
  EventObservation& operator=(const EventObservation&) = delete;
  ~EventObservation() = default;

 private:
  friend EventObservers;
  explicit EventObservation(std::shared_ptr<const EventObserver> end) : end_(std::move(end)) {}

  std::shared_ptr<const EventObserver> end_;  ///< its deleter removes the observer from its graph
};

}  // namespace vemra::ui
