#pragma once

#include "VemraPlatform/page/Anchor.hpp"
#include "VemraPlatform/page/FocusKeeper.hpp"
#include "VemraPlatform/page/WantedRows.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraQt/PageErrors.hpp"
#include "VemraQt/ShownLeaf.hpp"
#include "VemraQt/StyleMetrics.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/widgets/WidgetPool.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QAbstractScrollArea;

namespace vemra::qt {

/// The tree in a scroll area: takes patches, lays out, asks for rows, places widgets.
///
/// One pass an event, always in this order, until nothing is missing:
///
///     1. measure what changed, arrange what was measured
///     2. put the scroll position where the reader's eye stays (Anchor)
///     3. ask the graph for the rows in and near the viewport; if some come, begin again
///     4. place widgets on what is near the viewport; hand on a focus that was lost
///
/// Nothing in it throws: what a description throws is kept, and thrown by `errors()`.
///
/// Rows away from the viewport have no nodes here and no widgets, only an estimated height; except
/// the row with the focus and rows with a text field, which stay as they are.
class Page final : public ui::Renderer, public EventSink, private page::RowSupply {
 public:
  Page(QAbstractScrollArea& area, ui::ViewGraph& graph);
  ~Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  ui::RowDemand rowDemand() const override { return ui::RowDemand::onRequest; }
  void apply(const std::vector<ui::Patch>& patches) override;
  void rowsReplaced() override { accessible_->rowsReplaced(); }
  void deliver(ui::NodeID node, ui::Event event) override;
  void scrollIn(ui::NodeID node) override;
  /// Told of every event right before the graph is, whoever caused it: for records and tests.
  std::function<void(ui::NodeID, const ui::Event&)> onDeliver;

  /// Fonts, colours, style or environment are others now.
  void restyle();
  void resized();
  void scrolled();
  void shown() { settle(); }
  /// Brings the page up to date where that had to wait.
  void settleIfNeeded();

  /// \name Focus, in tree order over all rows (PageFocus.cpp) @{
  /// Moves the focus to the next control; false at the end of the page.
  bool focusNext(bool forward);
  /// Gives the focus to the first control of the page, or to the last one.
  bool focusEnd(bool first);
  bool focusElement(ui::NodeID node, Qt::FocusReason reason);
  const page::Node* focusedNode() const;
  /// Scrolls a row in when it is not there.
  void bringRow(ui::NodeID list, std::size_t index);
  /// Gives the focus to the first control in `within` behind `after`, or to the nearest one.
  void focusInPlace(ui::NodeID within, ui::NodeID after);
  /// @}

  /// Scrolls just as far as it takes to see it, with its row when that fits.
  void reveal(const page::Node& node);
  void scrollTo(int position);

  const page::WindowedTree& tree() const { return tree_; }
  /// The lines and the widget of a leaf; empty ones of a leaf that has not been measured.
  const ShownLeaf& shown(const page::Node& leaf) const;
  ui::ViewGraph& graph() const { return graph_; }
  PageErrors& errors() { return errors_; }
  AccessibleTree& accessibleTree() const { return *accessible_; }
  /// Another number whenever the nodes have changed.
  std::uint64_t version() const { return version_; }
  const Looks& looks() const { return context_.looks; }
  /// The element's frame on the whole page, in pixels from its top left corner.
  QRect frameOnPage(const page::Node& leaf) const;
  /// The same of a row of a windowed list, there or not; what nobody has measured is estimated.
  QRect rowFrameOnPage(const page::Node& list, std::size_t index) const;
  int contentHeight() const { return contentHeight_; }
  int scrollPosition() const { return scroll_; }
  std::size_t widgetCount() const { return pool_.size(); }

 private:
  struct Placement {
    const page::Node* leaf;
    QRect frame;  ///< of its widget, in the viewport
  };

  void settle();
  bool fill();
  void layout();
  bool askForRows();
  void place();
  void place(const Placement& placement);
  page::Viewport viewport() const;
  page::Frames frames() const;
  page::PinnedRows pinnedRows() const;
  QRect widgetFrame(const page::Node& leaf) const;
  void setScrollRange();
  void showScrollBar(bool needed);

  void captureAnchor(page::Anchor::Reason reason);
  void restoreAnchor();

  void tellAccessibility(const std::vector<ui::Patch>& patches);
  void leaving(page::Node& node);
  void restoreFocus();
  bool keepsWidget(const page::Node& leaf, const page::Frames& frames,
                   const page::PinnedRows& pinned) const;
  page::Node* bringRow(page::Node& list, std::size_t index) override;
  bool rowsComeLater() const override { return applying_ || filling_; }
  page::Anchor placeOfReader() const;
  void scrollBackTo(const page::Anchor& place);
  void focus(const page::Node& control, Qt::FocusReason reason);

  QAbstractScrollArea& area_;
  ui::ViewGraph& graph_;
  PageErrors errors_;
  PageContext context_;
  ShownLeaves leaves_;
  StyleMetrics metrics_;
  WidgetPool pool_;
  page::WindowedTree tree_;
  page::Margins margins_;
  std::unique_ptr<AccessibleTree> accessible_;

  std::uint64_t version_ = 0;
  int scroll_ = 0;
  int contentHeight_ = 0;
  std::optional<page::Anchor> anchor_;
  page::FocusKeeper focusKeeper_{tree_, *this};
  std::optional<page::Anchor> beforeSearch_;  ///< where the reader was when the focus was lost
  ElementWidget* orphan_ = nullptr;           ///< has the focus, but its element has gone
  ui::NodeID pressed_;
  std::uint64_t focusCount_ = 0;
  bool focusWasSeen_ = false;  ///< when the first of the patches arrived
  bool applying_ = false;  ///< inside of the graph: rows that are asked for come in its next pass
  bool filling_ = false;   ///< inside of the pass, which takes up what changes meanwhile
  bool restoringFocus_ = false;
  bool needsSettle_ = false;
  bool settingScroll_ = false;
};

}  // namespace vemra::qt
