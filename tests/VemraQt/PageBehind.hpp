#pragma once

#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/accessibility/AccessiblePage.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

/// \file
/// The page and the accessible tree of a widget, which no public function returns.

namespace vemra::qttest {

inline qt::AccessibleTree& treeOf(const qt::ViewWidget& widget) {
  return *qt::accessibleTreeOf(&widget);
}

inline qt::Page& pageOf(const qt::ViewWidget& widget) {
  return treeOf(widget).page();
}

}  // namespace vemra::qttest
