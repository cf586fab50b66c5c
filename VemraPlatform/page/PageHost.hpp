#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Layout.hpp"
#include "VemraPlatform/page/Placement.hpp"
#include "VemraPlatform/ui/Patch.hpp"

#include <exception>

namespace vemra::page {

/// Why an element gets the focus.
enum class FocusReason {
  forward,   ///< a person went on to the next control
  backward,  ///< a person went back to the one before
  other,     ///< a program asked for it, or the element that had the focus went
};

/// What draws a `Page`: it measures texts and controls, shows what the page places, and has the
/// keyboard. A renderer derives from it.
///
/// The page calls it during its passes. Main thread only. None of these functions may throw.
class VEMRA_EXPORT PageHost : public LeafMetrics {
 public:
  /// Whether the page is seen. While it is not, its passes wait.
  virtual bool isShown() const { return true; }
  /// The size of the viewport now.
  virtual Size viewportSize() const = 0;
  /// Takes up how far the page can be scrolled, and where it is. May change `viewportSize`, for
  /// example by showing a scroll bar, but must not call `Page::scrolled`.
  virtual void showScrollRange(int maximum, int position) = 0;
  /// The rows are certain to reach past the viewport: a scroll bar may come before they are measured.
  virtual void expectScrolling() {}
  /// Scrolls as a person does: to the nearest possible position, with a call of `Page::scrolled` when
  /// that is another one.
  virtual void scrollTo(int position) = 0;

  /// Draws the placed leaves, each where it stands now, and no longer the released ones.
  virtual void place(const Placements& placements) = 0;
  /// The node goes, with everything below it; it is still in its place.
  virtual void removing(Node& node) = 0;

  /// The element that has the keyboard focus; none when it is elsewhere.
  virtual ui::NodeID focused() const = 0;
  /// Gives the focus to a control that is drawn.
  virtual void giveFocus(const Node& control, FocusReason reason) = 0;
  /// The focused element has gone, and no other control takes the focus.
  virtual void loseFocus() = 0;

  /// \name What an observer may want to know @{
  /// The tree has changed and is not laid out yet.
  virtual void patched(const ui::Changes&) {}
  /// Everything is in its place; the focus goes on next, when its element went.
  virtual void placed() {}
  /// The page is at rest.
  virtual void atRest() {}
  /// @}

  /// Takes what a description or an action threw. The page goes on.
  virtual void failed(std::exception_ptr error) = 0;

 protected:
  ~PageHost() = default;
};

}  // namespace vemra::page
