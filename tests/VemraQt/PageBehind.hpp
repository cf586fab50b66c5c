#pragma once

#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/accessibility/AccessiblePage.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

/// \file
/// What stands behind a widget, which no public function returns.

namespace vemra::qt {

class PageBehind {
 public:
  static Page& of(const ViewWidget& widget) { return *widget.page_; }
};

}  // namespace vemra::qt

namespace vemra::qttest {

inline qt::Page& pageOf(const qt::ViewWidget& widget) {
  return qt::PageBehind::of(widget);
}

inline qt::AccessibleTree& treeOf(const qt::ViewWidget& widget) {
  return *qt::accessibleTreeOf(&widget);
}

}  // namespace vemra::qttest
