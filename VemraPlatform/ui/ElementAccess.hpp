#pragma once

#include "VemraPlatform/ui/Element.hpp"

/// \file
/// Internal to the view graph.

namespace vemra::ui {

/// Gives the graph the view that an element was made from. Only the graph may use it: a renderer
/// with access to the view could call a handler that a newer description has replaced.
struct ElementAccess {
  static const View& view(const Element& element) { return element.view_; }
  static const Description& description(const Element& element) { return element.description(); }
};

}  // namespace vemra::ui
