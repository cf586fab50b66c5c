#pragma once

#include "VemraPlatform/ui/EventObserver.hpp"

#include <cstddef>
#include <memory>
#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

/// The observers of a graph, in the order in which they were added.
class EventObservers : public std::enable_shared_from_this<EventObservers> {
 public:
  EventObservation add(EventObserver observer);

  /// Calls `attempt` with a function for each observer, which runs it. An observer that is added
  /// meanwhile hears the next event; one that is removed meanwhile is not called any more.
  template <class Attempt>
  void call(const Node& element, const Event& event, const Attempt& attempt) {
    const std::size_t count = observers_.size();
    calling_ = true;
    for (std::size_t i = 0; i < count; ++i) {
      // Keeps an observer alive that removes itself.
      const std::shared_ptr<const EventObserver> observer = observers_[i];
      if (observer && *observer) attempt([&] { (*observer)(element, event); });
    }
    calling_ = false;
    if (count > 0) std::erase(observers_, nullptr);
  }

 private:
  void remove(const EventObserver* observer);

  std::vector<std::shared_ptr<const EventObserver>> observers_;  ///< null: removed during a call
  bool calling_ = false;
};

}  // namespace vemra::ui
