#include "apps/desk/window/GoalPage.hpp"

#include "apps/desk/window/PlainText.hpp"

#include <algorithm>

#include <QEvent>
#include <QScrollBar>

namespace vemra::desk {
namespace {

constexpr int besideLines = 48;  // the margins of the page, both together

}  // namespace

GoalPage::GoalPage() {
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
}

bool GoalPage::event(QEvent* event) {
  const bool handled = qt::ViewWidget::event(event);
  const bool changesLines = event->type() == QEvent::FontChange ||
                            event->type() == QEvent::LayoutDirectionChange ||
                            event->type() == QEvent::Resize;
  if (changesLines) limitLines();
  return handled;
}

void GoalPage::limitLines() {
  const QScrollBar& scrollBar = *verticalScrollBar();
  const int room = width() - (scrollBar.isVisible() ? scrollBar.width() : 0);
  const int beyond = std::max(0, room - besideLines - longestLine(*this));
  const QMargins aside = isRightToLeft() ? QMargins(beyond, 0, 0, 0) : QMargins(0, 0, beyond, 0);
  if (viewportMargins() != aside) setViewportMargins(aside);
}

}  // namespace vemra::desk
