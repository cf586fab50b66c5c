#pragma once

#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/accessibility/Announcements.hpp"
#include "VemraQt/accessibility/IdentifierSearch.hpp"

namespace vemra::qt {

/// A page for assistive technology, connected with Qt's widgets while it lives. Main thread only.
///
/// Qt gets the tree's objects as the children of the page's scroll area, and in place of the page's
/// widgets, whose events are sent for the elements that they show. Make it after QApplication and
/// before Qt first asks for the scroll area's accessible object.
class AccessiblePage final {
 public:
  AccessiblePage(QAbstractScrollArea& area, Page& page);
  ~AccessiblePage();
  AccessiblePage(const AccessiblePage&) = delete;
  AccessiblePage& operator=(const AccessiblePage&) = delete;

  AccessibleTree& tree() { return tree_; }
  IdentifierSearch& identifiers() { return identifiers_; }
  Announcements& announcements() { return announcements_; }

  /// While true, the page has the focus only on the way to another widget, and its focus is not
  /// reported to clients.
  void setFocusLeaving(bool isLeaving) { isFocusLeaving_ = isLeaving; }
  bool isFocusLeaving() const { return isFocusLeaving_; }

  /// The page in that scroll area; nullptr when `area` is null or has no such page.
  static AccessiblePage* in(const QObject* area);

 private:
  AccessibleTree tree_;
  IdentifierSearch identifiers_{tree_};
  Announcements announcements_{tree_};
  bool isFocusLeaving_ = false;
};

}  // namespace vemra::qt
