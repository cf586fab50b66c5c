#include "VemraQt/accessibility/ObjectHost.hpp"

#include "VemraQt/page/Page.hpp"

#include <QAbstractScrollArea>
#include <QAccessible>

namespace vemra::qt {

QAccessibleInterface* ObjectHost::pageObject() const {
  return QAccessible::queryAccessibleInterface(&area_);
}

const ui::Node* ObjectHost::find(ui::NodeID node) const {
  return page_.graph().find(node);
}

QRect ObjectHost::onScreen(const QRect& onPage) const {
  const QPoint inViewport = onPage.topLeft() - QPoint(0, page_.scrollPosition());
  return {area_.viewport()->mapToGlobal(inViewport), onPage.size()};
}

bool ObjectHost::isInViewport(const QRect& onScreen) const {
  const QWidget& viewport = *area_.viewport();
  const QRect visible(viewport.mapToGlobal(QPoint(0, 0)), viewport.size());
  return visible.intersects(onScreen);
}

}  // namespace vemra::qt
