#pragma once

#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/accessibility/AccessiblePage.hpp"
#include "VemraQt/page/Page.hpp"

/// \file
/// The page and the accessible tree of a widget, which no public function returns.

namespace vemra::qttest {

inline qt::AccessiblePage& accessiblePageOf(const qt::ViewWidget& widget) {
  return *qt::AccessiblePage::in(&widget);
}

inline qt::IdentifierSearch& identifiersOf(const qt::ViewWidget& widget) {
  return accessiblePageOf(widget).identifiers();
}

inline qt::Page& pageOf(const qt::ViewWidget& widget) {
  return accessiblePageOf(widget).tree().page();
}

}  // namespace vemra::qttest
