#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Layout.hpp"
#include "VemraPlatform/page/Placement.hpp"
#include "VemraPlatform/ui/Patch.hpp"

#include <exception>

namespace vemra::page {

/// Why an element gets the focus.
enum class FocusReason {
  forward,   ///< a person moved on to the next control
  backward,  ///< a person moved back to the previous control
  other,     ///< a program asked for it, or the focused element was removed
};

/// Draws a `Page`: it measures texts and controls, shows the placed elements, and handles the
/// keyboard focus. Renderers derive from it.
///
/// The page calls these functions during its passes. Main thread only. They must not throw.
/// References to nodes are valid only during the call; keep the id of a node instead.
class VEMRA_EXPORT PageHost : public LeafMetrics {
 public:
  /// Whether the page is visible. While it is not, its passes wait.
  virtual bool isShown() const { return true; }
  /// The present size of the viewport.
  virtual Size viewportSize() const = 0;
  /// Sets the scroll range and position. May change `viewportSize`, for example by showing a scroll
  /// bar, but must not call `Page::scrolled`.
  virtual void showScrollRange(int maximum, int position) = 0;
  /// The rows will certainly extend past the viewport: the host may show a scroll bar before they
  /// are measured.
  virtual void expectScrolling() {}
  /// Scrolls as a person does: to the nearest possible position; calls `Page::scrolled` when the
  /// position changes.
  virtual void scrollTo(int position) = 0;

  /// The tree has another environment: the host takes its reading direction, its colour scheme and
  /// its text scale. Called for the first environment too, and before the leaves are measured
  /// again. May change `viewportSize`. Needs no call of `Page::restyled`.
  virtual void environmentChanged(const ui::Environment&) {}

  /// Draws the placed leaves at their present frames, and stops drawing the released ones. Called
  /// at the end of every pass with all leaves that are to be drawn, whether or not they have
  /// changed: compare with what is drawn. A leaf has changed when `measure` was called for it. A
  /// leaf may be placed outside the viewport.
  virtual void place(const Placements& placements) = 0;
  /// The node and its subtree are about to be removed; all are still in their places. The host
  /// stops drawing their leaves (`forEachLeaf`), which no later `Placements` releases. If one of
  /// them has the focus, its widget should keep the focus until `giveFocus`, `loseFocus` or
  /// `atRest`.
  virtual void removing(Node& node) = 0;

  /// The element with the keyboard focus; none when the focus is elsewhere. May be an element that
  /// is being removed, or has been: the page looks the id up.
  virtual ui::NodeID focused() const = 0;
  /// Gives the keyboard focus to a control that is drawn. `focused` should return it
  /// afterwards; a toolkit may refuse.
  virtual void giveFocus(const Node& control, FocusReason reason) = 0;
  /// The focused element has been removed, and no other control gets the focus: give it to the page
  /// as a whole, or to nothing.
  virtual void loseFocus() = 0;

  /// \name Notifications for observers @{
  /// The tree has changed and is not laid out yet.
  virtual void patched(const ui::Changes&) {}
  /// Everything is placed. If the focused element was removed, the focus moves after this.
  virtual void placed() {}
  /// The page is at rest.
  virtual void atRest() {}
  /// @}

  /// Receives an exception of a description or an action. The page continues.
  virtual void failed(std::exception_ptr error) = 0;

 protected:
  ~PageHost() = default;
};

}  // namespace vemra::page
