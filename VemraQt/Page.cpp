#include "VemraQt/Page.hpp"

#include "VemraQt/Layout.hpp"

#include <algorithm>
#include <cstdlib>
#include <ranges>

#include <QAbstractScrollArea>
#include <QScrollBar>

namespace vemra::qt {

namespace {

// Rows this far beyond the viewport are there already when a small step brings them in.
constexpr int margin = 96;
// Rows are kept a little longer than they are asked for, so that small steps do not swap them.
constexpr int keepMargin = 3 * margin;
// Rows with a text field keep their widgets, cursor and undo history wherever they are; up to so
// many, so that a page full of open fields does not become a page full of widgets.
constexpr std::size_t mostPinnedRows = 16;
// More rounds than a page of rows of any height needs.
constexpr int mostRounds = 12;

bool holdsTextField(const RenderNode& row) {
  bool holds = false;
  std::vector<const RenderNode*> pending{&row};
  while (!pending.empty() && !holds) {
    const RenderNode* node = pending.back();
    pending.pop_back();
    holds = node->element.kind() == ui::ElementKind::textField;
    pending.insert(pending.end(), node->children.begin(), node->children.end());
  }
  return holds;
}

}  // namespace

Page::Page(QAbstractScrollArea& area, ui::ViewGraph& graph)
    : area_(area),
      graph_(graph),
      metrics_(area, context_.looks),
      pool_(area.viewport(), context_),
      tree_([this](RenderNode& node) { leaving(node); }),
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
    const RenderNode* focused = focusedNode();
    focusWasSeen_ = focused && isInViewport(*focused);
    captureAnchor(AnchorReason::changed);
  }
  ++version_;
  tree_.apply(patches);
  tellAccessibility(patches);
  for (RenderNode* list : tree_.lists()) {
    for (RenderNode* row : list->children) {
      if (const ui::Node* node = graph_.find(row->id)) row->rowIndex = node->rowIndex;
    }
  }
  needsSettle_ = true;
  if (filling_) return;
  applying_ = true;
  settle();
  applying_ = false;
}

void Page::tellAccessibility(const std::vector<ui::Patch>& patches) {
  if (!accessible_->isWatched()) return;
  for (const ui::Patch& patch : patches) {
    const RenderNode* node = tree_.find(patch.node);
    if (!node) continue;  // removals are told while the node is there
    if (patch.kind == ui::Patch::Kind::update) accessible_->elementUpdated(*node);
    if (node->parent) accessible_->childrenChanged(*node->parent);
  }
}

void Page::deliver(ui::NodeID node, ui::Event event) {
  const ui::NodeID outer = pressed_;
  if (std::holds_alternative<ui::Press>(event)) pressed_ = node;
  if (onDeliver) onDeliver(node, event);
  graph_.deliver(node, std::move(event));
  pressed_ = outer;
  settleIfNeeded();
}

void Page::settleIfNeeded() {
  if (needsSettle_ && !filling_ && !applying_) settle();
}

void Page::restyle() {
  captureAnchor(AnchorReason::resized);
  context_.looks = Looks(area_.font(), area_.palette(), graph_.environment());
  pool_.restyle();
  tree_.invalidateAll();
  settle();
}

void Page::resized() {
  if (filling_) return;  // the scroll bar came or went: the next round takes it up
  if (!anchor_) captureAnchor(AnchorReason::resized);
  settle();
}

void Page::settle() {
  needsSettle_ = true;
  if (!area_.isVisible() || filling_) return;
  filling_ = true;
  for (int round = 0; round < mostRounds; ++round) {
    const int width = area_.viewport()->width();
    layout();
    restoreAnchor();
    if (area_.viewport()->width() != width) continue;
    if (!askForRows()) break;
    if (applying_) {  // the rows come in the graph's next pass
      filling_ = false;
      return;
    }
  }
  needsSettle_ = false;
  anchor_.reset();
  place();
  filling_ = false;
  accessible_->announce();  // first what there is, then where the focus is in it
  restoreFocus();
}

void Page::layout() {
  RenderNode* root = tree_.root();
  if (root) {
    // Where rows are certain to reach past the viewport, the scroll bar is there from the first
    // measure on.
    if (root->measuredWidth < 0) {
      std::int64_t rows = 0;
      for (const RenderNode* list : tree_.lists()) {
        rows += static_cast<std::int64_t>(list->element.rowCount()) * list->rows->estimate();
      }
      if (rows > area_.viewport()->height()) showScrollBar(true);
    }
    measureScope(*root, area_.viewport()->width(), 0, metrics_);
  }
  contentHeight_ = root ? root->size.height() : 0;
}

bool Page::isPinned(const RenderNode& row) const {
  return &row == rowOf(focusedNode()) || holdsTextField(row);
}

std::vector<ui::RowRange> Page::wantedRows(const RenderNode& list) const {
  const RowHeights& heights = *list.rows;
  std::vector<ui::RowRange> ranges;
  const std::int64_t from = scroll_ - list.frame.top() - margin;
  const std::int64_t to = scroll_ - list.frame.top() + area_.viewport()->height() + margin;
  if (heights.count() > 0 && to > 0 && from < heights.total()) {
    ui::RowRange near{heights.rowAt(from), heights.rowAt(to) + 1};
    // What is there already and only a little further away stays.
    for (const RenderNode* row : list.children | std::views::reverse) {
      const std::int64_t top = heights.top(row->rowIndex);
      if (row->rowIndex + 1 == near.first && top > from - keepMargin) --near.first;
    }
    for (const RenderNode* row : list.children) {
      if (row->rowIndex == near.last && heights.top(row->rowIndex) < to + keepMargin) ++near.last;
    }
    ranges.push_back(near);
  }
  const RenderNode* focused = rowOf(focusedNode());
  // Its control takes the focus as soon as the page is at rest.
  const RenderNode* next =
      lostFocus_ && lostFocus_->wasSeen ? rowOf(tree_.find(lostFocus_->within)) : nullptr;
  std::size_t pinned = 0;
  for (const RenderNode* row : list.children) {
    if (row->rowIndex >= heights.count()) continue;
    const bool stays =
        row == focused || row == next || (holdsTextField(*row) && ++pinned <= mostPinnedRows);
    if (stays) ranges.push_back({row->rowIndex, row->rowIndex + 1});
  }
  std::ranges::sort(ranges, {}, &ui::RowRange::first);
  std::vector<ui::RowRange> joined;
  for (const ui::RowRange& range : ranges) {
    if (!joined.empty() && range.first <= joined.back().last) {
      joined.back().last = std::max(joined.back().last, range.last);
    } else {
      joined.push_back(range);
    }
  }
  return joined;
}

bool Page::askForRows() {
  bool asked = false;
  // A copy: rows that come may bring lists of their own.
  const std::vector<RenderNode*> lists = tree_.lists();
  std::vector<std::pair<ui::NodeID, std::vector<ui::RowRange>>> requests;
  for (const RenderNode* list : lists) {
    std::vector<ui::RowRange> wanted = wantedRows(*list);
    std::size_t row = 0;
    bool same = true;
    for (const ui::RowRange& range : wanted) {
      for (std::size_t index = range.first; same && index < range.last; ++index, ++row) {
        same = row < list->children.size() && list->children[row]->rowIndex == index;
      }
    }
    if (!same || row != list->children.size()) requests.emplace_back(list->id, std::move(wanted));
  }
  for (const RenderNode* list : tree_.wholeLists()) {
    // A picker's choices are there by themselves.
    const std::size_t count = list->element.rowCount();
    if (list->children.size() != count) requests.push_back({list->id, {{0, count}}});
  }
  for (auto& [list, ranges] : requests) {
    graph_.showRows(list, std::move(ranges));
    asked = true;
  }
  return asked;
}

QRect Page::frameOnPage(const RenderNode& leaf) const {
  const bool rightToLeft = area_.layoutDirection() == Qt::RightToLeft;
  const RenderNode* row = rowOf(const_cast<RenderNode*>(&leaf));
  const int scopeWidth = (row ? row : tree_.root())->measuredWidth;
  const QRect frame = rightToLeft ? mirrored(leaf.frame, scopeWidth) : leaf.frame;
  if (!row) return frame;
  const ui::Insets padding = row->parent->element.padding();
  const QRect whole = rowFrameOnPage(*row->parent, row->rowIndex);
  return frame.translated(whole.left() + (rightToLeft ? padding.trailing : padding.leading),
                          whole.top() + padding.top);
}

QRect Page::rowFrameOnPage(const RenderNode& list, std::size_t index) const {
  const bool rightToLeft = area_.layoutDirection() == Qt::RightToLeft;
  const QRect rows = rightToLeft ? mirrored(list.frame, tree_.root()->measuredWidth) : list.frame;
  return QRect(rows.x(), rows.y() + list.rows->topOnPage(index), rows.width(),
               list.rows->height(index));
}

bool Page::isInViewport(const RenderNode& leaf) const {
  const QRect frame = frameOnPage(leaf);
  return frame.bottom() >= scroll_ && frame.top() < scroll_ + area_.viewport()->height();
}

bool Page::isNearViewport(const RenderNode& leaf) const {
  const QRect frame = frameOnPage(leaf);
  return frame.bottom() >= scroll_ - keepMargin &&
         frame.top() < scroll_ + area_.viewport()->height() + keepMargin;
}

bool Page::keepsWidget(const RenderNode& leaf) const {
  if (isNearViewport(leaf)) return true;
  if (!leaf.widget) return false;
  const RenderNode* row = rowOf(const_cast<RenderNode*>(&leaf));
  return row ? isPinned(*row) : &leaf == focusedNode();  // in a window without the keyboard, too
}

void Page::place() {
  std::vector<Placement> placements;
  QRect touched;
  if (tree_.root()) {
    forEachLeaf(*tree_.root(), [&](RenderNode& leaf) {
      const bool keeps = keepsWidget(leaf);
      const QRect before = leaf.widget ? leaf.widget->widget().geometry() : QRect();
      const QRect after = keeps ? widgetFrame(leaf) : QRect();
      if (before != after) touched |= before | after;
      if (keeps) {
        placements.push_back({&leaf, after});
      } else if (leaf.widget) {
        pool_.giveBack(*leaf.widget);
        leaf.widget = nullptr;
      }
    });
  }
  // Widgets that move one by one leave a region of many small rectangles to be painted; one large
  // one takes a fraction of the time.
  area_.viewport()->update(touched & area_.viewport()->rect());
  for (const Placement& placement : placements) place(placement);
  pool_.hideResting();
}

void Page::place(const Placement& placement) {
  RenderNode& leaf = *placement.leaf;
  if (!leaf.widget) {
    leaf.widget = &pool_.take(leaf.element);
    leaf.stale = true;
  }
  QWidget& widget = leaf.widget->widget();
  if (widget.geometry() != placement.frame) {
    widget.setAttribute(Qt::WA_UpdatesDisabled);
    widget.setGeometry(placement.frame);
    widget.setAttribute(Qt::WA_UpdatesDisabled, false);
  }
  if (leaf.stale) {
    leaf.widget->show(leaf);
    leaf.stale = false;
  }
  if (widget.isHidden()) widget.show();
}

QRect Page::widgetFrame(const RenderNode& leaf) const {
  return frameOnPage(leaf).translated(0, -scroll_).marginsAdded(overhang(leaf));
}

}  // namespace vemra::qt
