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
/// References to nodes are valid only during the call; keep the id of a node instead. Sizes and
/// positions are in the units of the host: pixels, or character cells.
///
/// The host draws the leaves: texts, buttons, text fields and pickers. A picker is one leaf; its
/// choices come from `choicesOf` (Choices.hpp), and are measured and drawn with it.
class VEMRA_EXPORT PageHost : public LeafMetrics {
 public:
  /// Whether the page is visible. While it is not, its passes wait.
  virtual bool isShown() const { return true; }
  /// The present size of the viewport.
  virtual Size viewportSize() const = 0;
  /// Sets the scroll position and its range, from 0 to `maximum`; a maximum of 0 means that the
  /// whole page is in view. May change `viewportSize`, for example by showing a scroll bar, but
  /// must not call `Page::scrolled`.
  virtual void showScrollRange(int maximum, int position) = 0;
  /// Called when the rows will certainly extend past the viewport, so that the host can show a
  /// scroll bar before they are measured.
  virtual void expectScrolling() {}
  /// Scrolls as a person does: to the nearest possible position; calls `Page::scrolled` when the
  /// position changes.
  virtual void scrollTo(int position) = 0;

  /// Called with each new environment of the tree, the first one included, before the leaves are
  /// measured again. The host uses its reading direction, its colour scheme and its text scale. May
  /// change `viewportSize`. Needs no call of `Page::restyled`.
  virtual void environmentChanged(const ui::Environment&) {}

  /// Called in a pass when every leaf has its frame and the viewport its position. A host that
  /// estimates the sizes of leaves lays out their parts near the viewport now, and calls
  /// `Page::remeasure` for each leaf that has changed: the pass then measures it again.
  virtual void arranged() {}

  /// Draws the placed leaves at their present frames, and stops drawing the released ones. Called
  /// at the end of every pass with all leaves that are to be drawn, whether or not they have
  /// changed: compare with what is drawn. A leaf has changed when `measure` was called for it. A
  /// leaf may be placed outside the viewport.
  virtual void place(const Placements& placements) = 0;
  /// Called before a node and its subtree are removed; all are still in their places. The host
  /// stops drawing their leaves (`forEachLeaf`); no later `Placements` lists them as released. If
  /// one of them has the focus, its widget should keep the focus until `giveFocus`, `loseFocus` or
  /// `atRest`.
  virtual void removing(Node& node) = 0;

  /// The element with the keyboard focus; none when the focus is elsewhere. May be an element that
  /// is being removed, or has been: the page looks the id up.
  virtual ui::NodeID focused() const = 0;
  /// Gives the keyboard focus to a control that is drawn. `focused` should return it
  /// afterwards; a toolkit may refuse.
  virtual void giveFocus(const Node& control, FocusReason reason) = 0;
  /// Called when the focused element has been removed and no other control gets the focus: give the
  /// focus to the page as a whole, or to nothing.
  virtual void loseFocus() = 0;

  /// \name Notifications, for example for assistive technology
  /// @{
  /// Called after the tree has changed, before it is laid out.
  virtual void patched(const ui::Changes&) {}
  /// Called after everything is placed. If the focused element was removed, the focus moves after
  /// this.
  virtual void placed() {}
  /// Called at the end of a pass, when the page is at rest.
  virtual void atRest() {}
  /// @}

  /// Receives an exception of a description or an action. The page continues.
  virtual void failed(std::exception_ptr error) = 0;

 protected:
  ~PageHost() = default;
};

}  // namespace vemra::page
