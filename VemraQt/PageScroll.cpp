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
  const QScrollBar& bar = *area_.verticalScrollBar();
  const int position = bar.value();
  const int distance = scroll_ - position;
  scroll_ = position;
  if (std::abs(distance) < area_.viewport()->height()) area_.viewport()->scroll(0, distance);
  captureAnchor(position == bar.maximum() ? page::Anchor::Reason::scrolledToEnd
                                          : page::Anchor::Reason::scrolled);
  settle();
}

void Page::scrollTo(int position) {
  area_.verticalScrollBar()->setValue(position);
}

/// Qt's own "as needed" takes effect only in the next turn of the event loop, one layout too late.
void Page::showScrollBar(bool needed) {
  bool wanted = true;
  for (const page::Node* node = tree_.root(); node; node = node->firstChild) {
    if (node->element.kind() == ui::ElementKind::scrollView) {
      wanted = node->element.scrollIndicators() == ui::ScrollIndicators::shown;
    }
    if (node->childCount != 1) break;
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

void Page::captureAnchor(page::Anchor::Reason reason) {
  anchor_.emplace(reason, tree_, frames(), viewport(), focusedNode());
}

void Page::restoreAnchor() {
  if (anchor_) scroll_ = anchor_->position(tree_, frames(), viewport());
  setScrollRange();
}

}  // namespace vemra::qt
