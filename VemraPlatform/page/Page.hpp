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

/// A view on one page that scrolls: decides where everything is, which rows exist, what stays in
/// view and where the focus goes. A `PageHost` draws it.
///
/// Whatever happens (patches, another size, scrolling) starts a *pass* or joins the one that runs. A
/// pass goes round until nothing is missing:
///
///     1. measure what changed, arrange what was measured
///     2. scroll so that what the reader looks at stays where it is (`Anchor`)
///     3. ask the graph for the rows in and near the viewport; if some come, begin again
///     4. let the host draw what is near the viewport; hand on a focus that was lost
///
/// Rows away from the viewport have no nodes here, only an estimated height; except the row with the
/// focus and rows with a text field, which stay.
///
/// Nothing in a pass throws: what a description throws goes to `PageHost::failed`. Main thread only.
class VEMRA_EXPORT Page final : public ui::Renderer, private RowSupply {
 public:
  using Direction = FocusOrder::Direction;

  /// Both must outlive the page. Attach the page to the graph to show its tree.
  Page(ui::ViewGraph& graph, PageHost& host, Margins margins = {});
  /// Detaches the page from its graph.
  ~Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  ui::RowDemand rowDemand() const override { return ui::RowDemand::onRequest; }
  void apply(const ui::Changes& changes) override;

  /// \name What the host reports @{
  /// The viewport has another size.
  void resized();
  /// The leaves have other sizes than before: another font, style or text size.
  void restyled();
  /// A person has scrolled to the position.
  void scrolled(int position);
  /// Goes through a pass, as when the page is seen again.
  void settle();
  /// Finishes a pass that had to wait.
  void settleIfNeeded();
  /// Hands an event of a person to the graph. When the pressed element goes, the focus goes to what
  /// takes its place.
  void deliver(ui::NodeID node, ui::Event event);
  /// @}

  /// \name The focus, in tree order over all rows @{
  /// Moves it to the next control; false at the end of the page, or when the page does not have it.
  bool focusNext(Direction direction);
  /// Gives it to the control at the page's beginning (`forward`) or end; false without controls.
  bool focusFirst(Direction direction);
  /// Gives it to the element; false when that is not there or does not take it.
  bool focus(ui::NodeID element, FocusReason reason);
  /// Gives it to the first control in `within` behind `after`, or to the nearest one.
  void focusInPlace(ui::NodeID within, ui::NodeID after);
  /// The element that has it, or nullptr.
  const Node* focused() const;
  /// @}

  /// Scrolls just as far as it takes to see the element, with its row when that fits.
  void reveal(const Node& leaf);
  /// The same, unless it is in view already: all of it, or of a tall one half a viewport.
  void scrollIn(ui::NodeID element);
  /// Scrolls a row in when it is not there.
  void revealRow(ui::NodeID list, std::size_t index);

  const WindowedTree& tree() const { return tree_; }
  /// Where everything is; as of the last pass.
  Frames frames() const { return {tree_, graph_.environment().layoutDirection, host_.grid()}; }
  Viewport viewport() const;
  int contentHeight() const { return tree_.root() ? tree_.root()->size.height : 0; }
  /// Another number whenever the nodes have changed.
  std::uint64_t version() const { return version_; }

 private:
  /// What a pass remembers from the first change on until the page is at rest.
  struct Pass {
    std::optional<Anchor> anchor;
    bool focusWasSeen = false;  ///< the focused element was in view before
  };

  void beginPass(Anchor::Reason reason);
  bool fill();
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

  /// Runs `work`; what it throws goes to the host.
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
  int position_ = 0;
  int maximum_ = 0;
  std::uint64_t version_ = 0;
  std::uint64_t focusCount_ = 0;
  std::optional<Pass> pass_;  ///< none: the page is at rest
  FocusKeeper focusKeeper_{tree_, *this};
  std::optional<Anchor> beforeSearch_;  ///< what the reader saw before a search scrolled the page
  ui::NodeID pressed_;

  /// \name What runs just now; each is restored when its function is left @{
  bool inGraph_ = false;  ///< a call of the graph: rows that are asked for come in its next pass
  bool filling_ = false;  ///< the pass, which takes up what changes meanwhile
  bool restoringFocus_ = false;
  /// @}
};

}  // namespace vemra::page
