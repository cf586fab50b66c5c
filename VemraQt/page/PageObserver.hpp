#pragma once

#include "VemraPlatform/ui/Patch.hpp"

namespace vemra::page {
struct Node;
}  // namespace vemra::page

namespace vemra::qt {

/// Gets notified of changes to a page's tree, so that the page does not depend on its observers.
///
/// The page calls `removing` and `patched` in the middle of a change, before it lays anything out.
/// Main thread only.
class PageObserver {
 public:
  /// The page has applied these changes. It has already called `removing` for the removed nodes.
  virtual void patched(const ui::Changes& changes) = 0;
  /// The page is about to remove the node and its subtree; all are still in their places.
  virtual void removing(const page::Node& node) = 0;
  /// The page is laid out, its widgets are placed, and rows have scrolled in or out.
  virtual void settled() = 0;

 protected:
  ~PageObserver() = default;
};

}  // namespace vemra::qt
