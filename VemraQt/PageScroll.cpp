// Where the page is scrolled to, and what stays under the reader's eye.

#include "VemraQt/Page.hpp"

#include <algorithm>
#include <cstdlib>

#include <QAbstractScrollArea>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace vemra::qt {

void Page::scrolled() {
  if (settingScroll_) return;
  const int position = area_.verticalScrollBar()->value();
  const int distance = scroll_ - position;
  scroll_ = position;
  if (std::abs(distance) < area_.viewport()->height()) area_.viewport()->scroll(0, distance);
  captureAnchor(AnchorReason::scrolled);
  settle();
}

void Page::scrollTo(int position) {
  area_.verticalScrollBar()->setValue(position);
}

/// Qt's own "as needed" takes effect only in the next turn of the event loop, one layout too late.
void Page::showScrollBar(bool needed) {
  bool wanted = true;
  for (const RenderNode* node = tree_.root(); node; node = node->children.front()) {
    if (node->element.kind() == ui::ElementKind::scrollView) {
      wanted = node->element.scrollIndicators() == ui::ScrollIndicators::shown;
    }
    if (node->children.size() != 1) break;
  }
  const auto policy = needed && wanted ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
  if (area_.verticalScrollBarPolicy() != policy) area_.setVerticalScrollBarPolicy(policy);
}

void Page::setScrollRange() {
  QScrollBar* bar = area_.verticalScrollBar();
  const int page = area_.viewport()->height();
  const int maximum = std::max(0, contentHeight_ - page);
  scroll_ = std::clamp(scroll_, 0, maximum);
  {
    const QScopedValueRollback<bool> setting(settingScroll_, true);
    bar->setRange(0, maximum);
    bar->setPageStep(page);
    bar->setSingleStep(std::max(12, area_.fontMetrics().height() + 4));
    bar->setValue(scroll_);
  }
  showScrollBar(maximum > 0);
}

void Page::captureAnchor(AnchorReason reason) {
  Anchor anchor;
  const RenderNode* focused = focusedNode();
  const bool followsFocus = reason == AnchorReason::changed && focused && isInViewport(*focused);
  if (reason == AnchorReason::scrolled && scroll_ > 0 &&
      scroll_ == area_.verticalScrollBar()->maximum()) {
    anchor.kind = Anchor::Kind::bottom;
  } else if (scroll_ > 0 || followsFocus) {
    anchor.kind = Anchor::Kind::inside;
    const auto add = [&](const RenderNode& leaf) {
      const QRect frame = frameOnPage(leaf).translated(0, -scroll_);
      anchor.points.push_back({leaf.id, frame.top(), frame.height()});
    };
    if (focused && isInViewport(*focused)) add(*focused);
    if (tree_.root()) {
      forEachLeaf(*tree_.root(), [&](RenderNode& leaf) {
        if (leaf.frame.isValid() && isInViewport(leaf)) add(leaf);
      });
    }
    for (const RenderNode* list : tree_.lists()) {
      if (list->rows->count() == 0) continue;
      const int inList = scroll_ - list->frame.top();
      if (inList < 0 || inList >= list->frame.height()) continue;
      anchor.list = list->id;
      anchor.row = list->rows->rowAt(inList);
      anchor.offset = inList - list->rows->topOnPage(anchor.row);
    }
  }
  anchor_ = std::move(anchor);
}

void Page::restoreAnchor() {
  if (anchor_ && anchor_->kind == Anchor::Kind::bottom) {
    scroll_ = contentHeight_;
  } else if (anchor_ && anchor_->kind == Anchor::Kind::inside) {
    const auto still = std::ranges::find_if(
        anchor_->points, [&](const Anchor::Point& point) { return tree_.find(point.node); });
    if (still != anchor_->points.end()) {
      const QRect frame = frameOnPage(*tree_.find(still->node));
      // Of a tall text whose top is above the viewport, the same part stays in view.
      const std::int64_t top = still->top < 0 && still->height > 0
                                   ? std::int64_t{still->top} * frame.height() / still->height
                                   : still->top;
      scroll_ = static_cast<int>(frame.top() - top);
    } else if (const RenderNode* list = tree_.find(anchor_->list); list && list->rows->count()) {
      const std::size_t row = std::min(anchor_->row, list->rows->count() - 1);
      scroll_ = list->frame.top() + list->rows->topOnPage(row) +
                std::min(anchor_->offset, list->rows->height(row) - 1);
    }
  }
  setScrollRange();
}

}  // namespace vemra::qt
