// The pass: what happens, in which order, when something has changed.

#include "VemraQt/Page.hpp"

#include "VemraPlatform/page/Layout.hpp"

#include <QAbstractScrollArea>
#include <QScopedValueRollback>

namespace vemra::qt {

namespace {

// More rounds than a page of rows of any height needs.
constexpr int mostRounds = 12;

}  // namespace

Page::Page(QAbstractScrollArea& area, ui::ViewGraph& graph)
    : area_(area),
      graph_(graph),
      metrics_(area, context_.looks, leaves_),
      pool_(area.viewport(), context_),
      tree_([this](page::Node& node) { leaving(node); }),
      accessible_(std::make_unique<AccessibleTree>(area, *this)) {
  context_.sink = this;
}

Page::~Page() {
  accessible_.reset();
  graph_.detach(*this);
}

void Page::apply(const std::vector<ui::Patch>& patches) {
  if (!anchor_) {
    // Now, because no frame is right any more once the first patch has been applied.
    const page::Node* focused = focusedNode();
    focusWasSeen_ = focused && viewport().shows(frames().of(*focused));
    captureAnchor(page::Anchor::Reason::changed);
  }
  ++version_;
  errors_.attempt([&] { tree_.apply(patches); });
  tellAccessibility(patches);
  for (page::Node* list : tree_.lists()) {
    for (page::Node& row : list->children()) {
      if (const ui::Node* node = graph_.find(row.id)) row.rowIndex = node->rowIndex;
    }
  }
  needsSettle_ = true;
  if (filling_) return;
  const QScopedValueRollback<bool> applying(applying_, true);
  settle();
}

void Page::tellAccessibility(const std::vector<ui::Patch>& patches) {
  if (!accessible_->isWatched()) return;
  for (const ui::Patch& patch : patches) {
    const page::Node* node = tree_.find(patch.node);
    if (!node) continue;  // removals are told while the node is there
    if (patch.kind == ui::Patch::Kind::update) accessible_->elementUpdated(*node);
    if (node->parent) accessible_->childrenChanged(*node->parent);
  }
}

void Page::deliver(ui::NodeID node, ui::Event event) {
  {
    const bool isPress = std::holds_alternative<ui::Press>(event);
    const QScopedValueRollback<ui::NodeID> pressed(pressed_, isPress ? node : pressed_);
    if (onDeliver) errors_.attempt([&] { onDeliver(node, event); });
    errors_.attempt([&] { graph_.deliver(node, std::move(event)); });
  }
  settleIfNeeded();
}

void Page::settleIfNeeded() {
  if (needsSettle_ && !filling_ && !applying_) settle();
}

void Page::restyle() {
  captureAnchor(page::Anchor::Reason::resized);
  context_.looks = Looks(area_.font(), area_.palette(), graph_.environment());
  pool_.restyle();
  tree_.invalidateAll();
  settle();
}

void Page::resized() {
  if (filling_) return;  // the scroll bar came or went: the next round takes it up
  if (!anchor_) captureAnchor(page::Anchor::Reason::resized);
  settle();
}

void Page::settle() {
  needsSettle_ = true;
  if (!area_.isVisible() || filling_) return;
  if (!fill()) return;
  accessible_->announce();  // first what there is, then where the focus is in it
  restoreFocus();
}

/// Goes round until nothing is missing; false when that takes another pass of the graph.
bool Page::fill() {
  const QScopedValueRollback<bool> filling(filling_, true);
  for (int round = 0; round < mostRounds; ++round) {
    const int width = area_.viewport()->width();
    layout();
    restoreAnchor();
    if (area_.viewport()->width() != width) continue;
    if (!askForRows()) break;
    if (applying_) return false;  // the rows come in the graph's next pass
  }
  needsSettle_ = false;
  anchor_.reset();
  place();
  return true;
}

void Page::layout() {
  page::Node* root = tree_.root();
  if (root) {
    // Where rows are certain to reach past the viewport, the scroll bar is there from the first
    // measure on.
    if (root->measuredWidth < 0) {
      std::int64_t rows = 0;
      for (const page::Node* list : tree_.lists()) {
        rows += static_cast<std::int64_t>(list->element.rowCount()) * list->rows->estimate();
      }
      if (rows > area_.viewport()->height()) showScrollBar(true);
    }
    measureScope(*root, area_.viewport()->width(), 0, metrics_);
  }
  contentHeight_ = root ? root->size.height : 0;
}

}  // namespace vemra::qt
