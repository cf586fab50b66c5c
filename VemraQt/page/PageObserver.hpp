#pragma once

#include "VemraPlatform/ui/Patch.hpp"

namespace vemra::page {
struct Node;
}  // namespace vemra::page

namespace vemra::qt {

/// Hears what a page does with its tree, so that the page need not know who is interested.
///
/// `removing` and `patched` come in the middle of a change, before anything is laid out. Main thread
/// only.
class PageObserver {
 public:
  /// The page has carried out these changes. What they removed was handed to `removing` before.
  virtual void patched(const ui::Changes& changes) = 0;
  /// The node and all below it go; they are still in their places.
  virtual void removing(const page::Node& node) = 0;
  /// Everything is laid out, widgets are placed, and rows have scrolled in or out.
  virtual void settled() = 0;

 protected:
  ~PageObserver() = default;
};

}  // namespace vemra::qt
