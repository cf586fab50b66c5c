#include "apps/desk/window/Pages.hpp"

#include <QAccessibleWidget>

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

}  // namespace

Pages::Pages(QWidget* parent) : QStackedWidget(parent) {
  static const bool installed = (QAccessible::installFactory(makePages), true);
  static_cast<void>(installed);
}

void Pages::showPage(QWidget& page) {
  if (indexOf(&page) < 0) addWidget(&page);
  if (currentWidget() == &page) return;
  announce(currentWidget(), QAccessible::ObjectDestroyed);  // while it is still the child
  setCurrentWidget(&page);
  announce(&page, QAccessible::ObjectCreated);
}

QSize Pages::minimumSizeHint() const {
  const QWidget* page = currentWidget();
  return page == nullptr ? QSize() : page->minimumSizeHint().expandedTo(page->minimumSize());
}

}  // namespace vemra::desk
