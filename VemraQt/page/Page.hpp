#pragma once

#include "VemraPlatform/page/Page.hpp"
#include "VemraQt/page/PageErrors.hpp"
#include "VemraQt/page/PageObserver.hpp"
#include "VemraQt/widgets/ShownLeaf.hpp"
#include "VemraQt/widgets/StyleMetrics.hpp"
#include "VemraQt/widgets/WidgetPool.hpp"

#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <vector>

#include <QElapsedTimer>
#include <QTimer>

class QAbstractScrollArea;

namespace vemra::qt {

/// A page in a scroll area: measures elements with the widget style, assigns widgets to the
/// elements near the viewport, and moves Qt's keyboard focus.
///
/// `page::Page` decides where everything is, which rows exist and where the focus goes.
///
/// Exceptions from descriptions are kept in `errors()`, which rethrows them.
class Page final : public EventSink, private page::PageHost {
 public:
  Page(QAbstractScrollArea& area, ui::ViewGraph& graph);
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  /// Attaches to the graph: the page shows the graph's tree from now on. Rethrows what a
  /// description throws.
  void attach();
  /// Replaces the observer; nullptr removes it.
  void setObserver(PageObserver* observer) { observer_ = observer; }
  void deliver(ui::NodeID node, ui::Event event) override;
  void scrollIn(ui::NodeID node) override { page_.scrollIn(node); }
  /// Called with every event right before the graph gets it, whatever its source: for records and
  /// tests.
  std::function<void(ui::NodeID, const ui::Event&)> onDeliver;

  /// Call it when fonts, colours or style have changed. Does nothing when `isRestyling`.
  void restyle();
  /// Whether the page itself is changing the palette and the direction of its area now.
  bool isRestyling() const { return restyling_; }
  void resized() { page_.resized(); }
  void scrolled();
  void shown() { page_.settle(); }
  /// Finishes a pass that had to wait.
  void settleIfNeeded() { page_.settleIfNeeded(); }

  /// \name Focus, in tree order over all rows @{
  /// Moves the focus to the next control; false at the end of the page.
  bool focusNext(bool forward);
  /// Moves the focus from a button in a row to the first control of the next or previous row; false
  /// when the focus is elsewhere, or at the end of the list.
  bool focusNextRow(bool forward);
  /// Gives the focus to the first control of the page, or to the last one.
  bool focusEnd(bool first);
  bool focusElement(ui::NodeID node, Qt::FocusReason reason);
  const page::Node* focusedNode() const { return page_.focused(); }
  /// Scrolls a row into view if it has no nodes.
  void bringRow(ui::NodeID list, std::size_t index) { page_.revealRow(list, index); }
  /// Gives the focus to the first control in `within` behind `after`, or to the nearest control.
  void focusInPlace(ui::NodeID within, ui::NodeID after) { page_.focusInPlace(within, after); }
  /// @}

  /// Scrolls only as far as needed to show the element, with its row if that fits.
  void reveal(const page::Node& node) { page_.reveal(node); }

  const page::WindowedTree& tree() const { return page_.tree(); }
  /// The text lines and the widget of a leaf; empty for a leaf that has not been measured.
  const ShownLeaf& shown(const page::Node& leaf) const;
  ui::ViewGraph& graph() const { return graph_; }
  PageErrors& errors() { return errors_; }
  /// A number that changes whenever the nodes change.
  std::uint64_t version() const { return page_.version(); }
  const Theme& theme() const { return context_.theme; }
  /// The element's frame on the whole page, in pixels from its top left corner.
  QRect frameOnPage(const page::Node& leaf) const;
  /// The frame of a row of a windowed list, also of a row without nodes. A height that has not been
  /// measured is estimated.
  QRect rowFrameOnPage(const page::Node& list, std::size_t index) const;
  int contentHeight() const { return page_.contentHeight(); }
  int scrollPosition() const { return page_.viewport().position; }
  /// Whether the page lays out texts away from the view when no other event waits.
  bool isLayingOutTexts() const { return idle_.isActive(); }
  std::size_t widgetCount() const { return pool_.size(); }

 private:
  page::Size measure(const page::Node& leaf, int width) override;
  int narrowestField(const page::Node& field) override { return metrics_.narrowestField(field); }
  std::optional<std::size_t> partAt(const page::Node& leaf, int y) const override;
  std::optional<int> topOfPart(const page::Node& leaf, std::size_t part) const override;
  void arranged() override;
  bool isShown() const override;
  page::Size viewportSize() const override;
  void showScrollRange(int maximum, int position) override;
  void expectScrolling() override { showScrollBar(true); }
  void environmentChanged(const ui::Environment& environment) override;
  void scrollTo(int position) override;
  void place(const page::Placements& placements) override;
  void removing(page::Node& node) override;
  ui::NodeID focused() const override;
  void giveFocus(const page::Node& control, page::FocusReason reason) override;
  void loseFocus() override;
  void patched(const ui::Changes& changes) override;
  void placed() override;
  void atRest() override;
  void failed(std::exception_ptr error) override;

  void place(const page::Node& leaf, const QRect& widgetFrame);
  void showScrollBar(bool needed);
  void settleTexts();

  QAbstractScrollArea& area_;
  ui::ViewGraph& graph_;
  PageErrors errors_;
  PageContext context_;
  ShownLeaves leaves_;
  StyleMetrics metrics_;
  WidgetPool pool_;
  page::Page page_;
  PageObserver* observer_ = nullptr;
  ElementWidget* orphan_ = nullptr;    ///< has the focus, but its element has gone
  std::vector<ui::NodeID> longTexts_;  ///< leaves with a text that is laid out in parts
  QTimer idle_;                        ///< for the parts that are not in view
  QElapsedTimer sinceTextsGrew_;
  bool settingScroll_ = false;
  bool restyling_ = false;
};

}  // namespace vemra::qt
