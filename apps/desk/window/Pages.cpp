#include "apps/desk/window/Pages.hpp"

#include <QAccessibleWidget>
#include <QScrollArea>

namespace vemra::desk {
namespace {

class AccessiblePages final : public QAccessibleWidget {
 public:
  explicit AccessiblePages(Pages& pages) : QAccessibleWidget(&pages, QAccessible::Client) {}

  int childCount() const override { return current() != nullptr ? 1 : 0; }
  QAccessibleInterface* child(int index) const override {
    return index == 0 && current() != nullptr ? QAccessible::queryAccessibleInterface(current())
                                              : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child != nullptr && child->object() != nullptr && child->object() == current() ? 0 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    QAccessibleInterface* page = child(0);
    return page != nullptr && page->rect().contains(x, y) ? page : nullptr;
  }

 private:
  QWidget* current() const { return static_cast<const Pages*>(widget())->currentWidget(); }
};

QAccessibleInterface* makePages(const QString&, QObject* object) {
  auto* pages = qobject_cast<Pages*>(object);
  return pages != nullptr ? new AccessiblePages(*pages) : nullptr;
}

void announce(QWidget* page, QAccessible::Event what) {
  if (page == nullptr || !QAccessible::isActive()) return;
  QAccessibleEvent event(page, what);
  QAccessible::updateAccessibility(&event);
}

/// Scrolls a page that is higher than its place.
class PageArea : public QScrollArea {
 public:
  explicit PageArea(QWidget& page) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(&page);
    viewport()->setBackgroundRole(QPalette::Base);
  }

  QSize minimumSizeHint() const override { return {widget()->minimumSizeHint().width(), 1}; }
};

QWidget* pageOf(QWidget* shown) {
  auto* area = dynamic_cast<PageArea*>(shown);
  return area != nullptr ? area->widget() : shown;
}

}  // namespace

int marginBesidePage(int width) {
  return width < 480 ? 16 : 40;
}

Pages::Pages(QWidget* parent) : QStackedWidget(parent) {
  static const bool installed = (QAccessible::installFactory(makePages), true);
  static_cast<void>(installed);
}

void Pages::addScrolledPage(QWidget& page) {
  addWidget(new PageArea(page));
}

void Pages::showPage(QWidget& page) {
  QWidget* shown = &page;
  for (int i = 0; i < count(); ++i) {
    if (pageOf(widget(i)) == &page) shown = widget(i);
  }
  if (indexOf(shown) < 0) addWidget(shown);
  if (currentWidget() == shown) return;
  announce(currentWidget(), QAccessible::ObjectDestroyed);  // while it is still the child
  setCurrentWidget(shown);
  announce(shown, QAccessible::ObjectCreated);
}

QWidget* Pages::currentPage() const {
  return pageOf(currentWidget());
}

QSize Pages::minimumSizeHint() const {
  const QWidget* page = currentWidget();
  return page == nullptr ? QSize() : page->minimumSizeHint().expandedTo(page->minimumSize());
}

}  // namespace vemra::desk
