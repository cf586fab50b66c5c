// The page and its scroll bar.

#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <cstdlib>

#include <QAbstractScrollArea>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace vemra::qt {

bool Page::isShown() const {
  return area_.isVisible();
}

page::Size Page::viewportSize() const {
  return {area_.viewport()->width(), area_.viewport()->height()};
}

void Page::scrolled() {
  if (settingScroll_) return;
  const int position = area_.verticalScrollBar()->value();
  const int distance = scrollPosition() - position;
  if (std::abs(distance) < area_.viewport()->height()) area_.viewport()->scroll(0, distance);
  page_.scrolled(position);
}

void Page::scrollTo(int position) {
  area_.verticalScrollBar()->setValue(position);
}

/// Shows or hides the scroll bar at once: Qt's own "as needed" takes effect only in the next turn
/// of the event loop, one layout too late.
void Page::showScrollBar(bool needed) {
  bool wanted = true;
  for (const page::Node* node = tree().root(); node; node = node->firstChild) {
    if (node->element.kind() == ui::ElementKind::scrollView) {
      wanted = node->element.scrollIndicators() == ui::ScrollIndicators::shown;
    }
    if (node->childCount != 1) break;
  }
  const auto policy = needed && wanted ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
  if (area_.verticalScrollBarPolicy() != policy) area_.setVerticalScrollBarPolicy(policy);
}

void Page::showScrollRange(int maximum, int position) {
  QScrollBar* bar = area_.verticalScrollBar();
  {
    const QScopedValueRollback<bool> setting(settingScroll_, true);
    bar->setRange(0, maximum);
    bar->setPageStep(area_.viewport()->height());
    bar->setSingleStep(std::max(12, area_.fontMetrics().height() + 4));
    bar->setValue(position);
  }
  showScrollBar(maximum > 0);
}

}  // namespace vemra::qt
