#include "VemraPlatform/ui/EventObservers.hpp"

#include <algorithm>
#include <utility>

namespace vemra::ui {

EventObservation EventObservers::add(EventObserver observer) {
  observers_.push_back(std::make_shared<const EventObserver>(std::move(observer)));
  const auto end = [all = weak_from_this()](const EventObserver* ended) {
    if (const auto still = all.lock()) still->remove(ended);
  };
  return EventObservation(std::shared_ptr<const EventObserver>(observers_.back().get(), end));
}

void EventObservers::remove(const EventObserver* observer) {
  const auto found =
      std::ranges::find(observers_, observer, &std::shared_ptr<const EventObserver>::get);
  if (found == observers_.end()) return;
  // The observer's destructor may run any code, so the list is in order before it.
  const std::shared_ptr<const EventObserver> removed = std::exchange(*found, nullptr);
  if (!calling_) observers_.erase(found);
}

}  // namespace vemra::ui
