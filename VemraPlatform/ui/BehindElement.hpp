#pragma once

#include "VemraPlatform/ui/Element.hpp"

/// \file
/// Internal to the view graph.

namespace vemra::ui {

/// The way from an element back to the view it was made of. For the graph alone: a renderer that had it
/// could call a handler that a newer description has replaced.
struct BehindElement {
  static const View& view(const Element& element) { return element.view_; }
  static const Description& description(const Element& element) { return element.description(); }
};

}  // namespace vemra::ui
