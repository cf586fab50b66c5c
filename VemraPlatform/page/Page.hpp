#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Anchor.hpp"
#include "VemraPlatform/page/FocusKeeper.hpp"
#include "VemraPlatform/page/PageHost.hpp"
#include "VemraPlatform/page/WantedRows.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <cstdint>
#include <optional>
#include <vector>

namespace vemra::page {

/// Shows a view on one scrolling page: decides where everything is, which rows exist, which part
/// stays in view and which element gets the focus. A `PageHost` draws it.
///
/// A host owns a page and attaches it to a `ui::ViewGraph` as the renderer. Every change (patches,
/// a new size, scrolling) starts a *pass* or joins the running one. A pass repeats these steps
/// until no row is missing:
///
///     1. measure what changed, arrange what was measured
///     2. scroll so that the elements in view stay where they are (`Anchor`)
///     3. request the rows in and near the viewport from the graph; if some come, begin again
///     4. let the host draw what is near the viewport; give a lost focus to the next control
///
/// Rows away from the viewport have no nodes here, only an estimated height. Exceptions are the row
/// with the focus and up to sixteen rows with a text field, which stay.
///
/// A pass never throws: exceptions from descriptions go to `PageHost::failed`. Main thread only.
class VEMRA_EXPORT Page final : public ui::Renderer, private RowSupply {
 public:
  /// The direction of a step through the controls.
  using Direction = FocusOrder::Direction;

  /// `graph` and `host` must outlive the page. Attach the page to the graph to show the graph's
  /// tree.
  Page(ui::ViewGraph& graph, PageHost& host, Margins margins = {});
  /// Detaches the page from its graph.
  ~Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  ui::RowDemand rowDemand() const override { return ui::RowDemand::onRequest; }
  void apply(const ui::Changes& changes) override;

  /// \name Calls by the host
  /// None of them throws: exceptions from descriptions and actions go to `PageHost::failed`.
  /// @{

  /// Call it when the viewport has a new size, after `PageHost::viewportSize` returns it. During a
  /// pass it does nothing, because the pass reads the size again.
  void resized();
  /// Call it when the leaves have new sizes for another reason than another environment: another
  /// system font or widget style. `LeafMetrics::measure` must already return the new sizes.
  void restyled();
  /// Call it when the host has laid out more of a leaf whose size was an estimate, in
  /// `PageHost::arranged` or at any other time: the page measures the leaf again, and the elements
  /// in view stay in place. Outside a pass, `LeafMetrics::topOfPart` must not change before the page
  /// calls `LeafMetrics::measure`.
  void remeasure(ui::NodeID leaf);
  /// Call it when a person has scrolled the page, and from `PageHost::scrollTo`, but not from
  /// `PageHost::showScrollRange`. `position` is in units of the page, from 0 to the maximum that
  /// `PageHost::showScrollRange` got last.
  void scrolled(int position);
  /// Runs a pass. Call it when the page becomes visible again (`PageHost::isShown`).
  void settle();
  /// Finishes a pass that had to wait, and does nothing when there is none. A pass waits while the
  /// page is not visible; and when it has requested rows from inside the graph's `apply`, until the
  /// graph's next pass, which may fail to describe them. Call it after each call of the graph that
  /// the host makes itself (`ViewGraph::attach`, `setRoot`, `setEnvironment`).
  void settleIfNeeded();
  /// Delivers a person's event to the graph, and settles. When this removes the pressed element,
  /// the focus moves to the control at its place. Hosts use this instead of `ViewGraph::deliver`.
  void deliver(ui::NodeID node, ui::Event event);
  /// @}

  /// \name The focus, in tree order over all rows
  /// @{
  /// Moves the focus to the next control; false at the end of the page, or without a focus on the
  /// page.
  bool focusNext(Direction direction);
  /// Moves the focus from a button in a row of a windowed list to the first control of the next or
  /// previous row that has one; false when the focus is elsewhere, or at the end of the list. Other
  /// controls keep the keys for this move to themselves.
  bool focusNextRow(Direction direction);
  /// Focuses the first (`forward`) or last control of the page; false when there is none.
  bool focusFirst(Direction direction);
  /// Focuses the element; false when it is not in the tree or cannot have the focus.
  bool focus(ui::NodeID element, FocusReason reason);
  /// Focuses the first control behind the node `after` among the children of `within`, or the
  /// nearest control: for the place of an element that was removed.
  void focusInPlace(ui::NodeID within, ui::NodeID after);
  /// The focused element, or nullptr.
  const Node* focused() const;
  /// @}

  /// Scrolls only as far as needed to show all of a leaf, with its row if that fits.
  void reveal(const Node& leaf);
  /// Calls `reveal` unless the element is in view: all of it or, for a tall one, half a viewport.
  void scrollIn(ui::NodeID element);
  /// Scrolls a row into view if it has no nodes.
  void revealRow(ui::NodeID list, std::size_t index);

  /// The nodes, with their layout as of the last pass.
  const WindowedTree& tree() const { return tree_; }
  /// The environment of the shown tree; the default one until the graph's first changes.
  const ui::Environment& environment() const { return environment_; }
  /// The frames of all elements, as of the last pass.
  Frames frames() const { return {tree_, environment_.layoutDirection, host_.grid()}; }
  /// The visible part of the page.
  Viewport viewport() const;
  /// The height of the whole page: measured rows count with their height, other rows with an
  /// estimate.
  int contentHeight() const { return tree_.root() ? tree_.root()->size.height : 0; }
  /// A number that changes whenever nodes of the tree are inserted, updated, moved or removed.
  std::uint64_t version() const { return version_; }

 private:
  /// The data of a pass, from the first change until the page is at rest.
  struct Pass {
    std::optional<Anchor> anchor;
    bool focusWasSeen = false;  ///< the focused element was in view before the change
  };

  void beginPass(Anchor::Reason reason);
  void beginPassAtRest();
  void takeEnvironment(const ui::Environment& environment);
  bool fill();
  bool layOutParts();
  void layout();
  void takeAnchorPosition();
  bool askForRows();
  void noteFocus();
  void place();
  void removing(Node& node);
  bool moveFocus(const Node* control, Direction direction);
  void endSearch(const Node* control);
  void restoreFocus();
  void focus(const Node& control, FocusReason reason);
  PinnedRows pinnedRows() const;
  Node* bringRow(Node& list, std::size_t index) override;
  bool rowsComeLater() const override { return inGraph_ || filling_; }

  /// Runs `work`; the host gets its exceptions.
  template <class Work>
  void attempt(const Work& work) {
    try {
      work();
    } catch (...) {
      host_.failed(std::current_exception());
    }
  }

  ui::ViewGraph& graph_;
  PageHost& host_;
  Margins margins_;
  WindowedTree tree_;
  ui::Environment environment_;
  int position_ = 0;
  int maximum_ = 0;
  std::uint64_t version_ = 0;
  std::uint64_t focusCount_ = 0;
  std::optional<Pass> pass_;  ///< none: the page is at rest
  FocusKeeper focusKeeper_{tree_, *this};
  std::optional<Anchor> beforeSearch_;  ///< the view before a search scrolled the page
  ui::NodeID pressed_;

  /// \name What is running now; each is restored at the end of its function
  /// @{
  bool inGraph_ = false;  ///< in a call by the graph: requested rows arrive with its next pass
  bool filling_ = false;  ///< in a pass, which also handles changes that happen meanwhile
  bool restoringFocus_ = false;
  bool remeasured_ = false;  ///< since `PageHost::arranged` was called
  /// @}
};

}  // namespace vemra::page
