#pragma once

#include "VemraPlatform/ui/Event.hpp"

#include <functional>

namespace vemra::ui {

struct Node;

/// Hears of an event just before its element handles it, on the main thread.
///
/// It hears every event that an element accepts, in the order in which they are handled, however
/// it came: from a person, assistive technology or a callback. It does not hear events for elements
/// that are gone, disabled, or of another kind. The node is valid during the call. The graph counts
/// as busy, so that requests to it wait until the event has been handled. What the observer throws
/// comes out of the call that delivered the event, which the element handles all the same.
using EventObserver = std::function<void(const Node& element, const Event& event)>;

}  // namespace vemra::ui
