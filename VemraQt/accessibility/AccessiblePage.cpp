#include "VemraQt/accessibility/AccessiblePage.hpp"

#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/atspi/ChildSignals.hpp"
#include "VemraQt/page/Page.hpp"

#include <QAccessibleWidget>

namespace vemra::qt {

namespace {

/// The page's widget: its children are the elements and rows of the page.
class AccessiblePage final : public QAccessibleWidget {
 public:
  explicit AccessiblePage(ViewWidget& view) : QAccessibleWidget(&view, QAccessible::Client) {}

  QAccessible::Role role() const override {
    return widget()->isWindow() ? QAccessible::Window : QAccessible::Client;
  }
  QString text(QAccessible::Text kind) const override {
    return asksForIdentifier(kind) ? view().objectName() : QAccessibleWidget::text(kind);
  }
  int childCount() const override { return tree().childCount(); }
  QAccessibleInterface* child(int index) const override { return tree().child(index); }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return tree().indexOf(child);
  }
  QAccessibleInterface* focusChild() const override {
    const page::Node* focused = view().page().focusedNode();
    return focused ? tree().objectOf(*focused) : nullptr;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    // Only what is near the viewport can be under a point.
    QAccessibleInterface* found = nullptr;
    const page::Node* root = view().page().tree().root();
    if (!root || !rect().contains(x, y)) return nullptr;
    forEachLeaf(*root, [&](const page::Node& leaf) {
      if (found || !view().page().shown(leaf).widget) return;
      AccessibleElement* object = tree().objectOf(leaf);
      if (!object || !object->rect().contains(x, y)) return;
      found = object->row() ? static_cast<QAccessibleInterface*>(object->row()) : object;
    });
    return found;
  }

 private:
  ViewWidget& view() const { return *static_cast<ViewWidget*>(widget()); }
  AccessibleTree& tree() const { return view().page().accessibleTree(); }
};

QAccessibleInterface* factory(const QString& className, QObject* object) {
  if (className != QLatin1String(ViewWidget::staticMetaObject.className())) return nullptr;
  auto* view = qobject_cast<ViewWidget*>(object);
  return view ? new AccessiblePage(*view) : nullptr;
}

QAccessible::UpdateHandler otherHandler = nullptr;

void passOn(QAccessibleEvent& event);

/// The page whose viewport, or whose element's widget, the object is.
ViewWidget* pageOf(QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  for (int levels = 0; widget && levels < 2; ++levels) {
    QWidget* parent = widget->parentWidget();
    auto* view = qobject_cast<ViewWidget*>(parent);
    if (view && view->viewport() == widget) return view;
    widget = parent;
  }
  return nullptr;
}

/// What a line edit says of its text, said of the element.
void passOnText(QAccessibleEvent& event, AccessibleElement& element) {
  switch (event.type()) {
    case QAccessible::TextInserted: {
      const auto& inserted = static_cast<QAccessibleTextInsertEvent&>(event);
      QAccessibleTextInsertEvent own(&element, inserted.changePosition(), inserted.textInserted());
      QAccessible::updateAccessibility(&own);
      break;
    }
    case QAccessible::TextRemoved: {
      const auto& removed = static_cast<QAccessibleTextRemoveEvent&>(event);
      QAccessibleTextRemoveEvent own(&element, removed.changePosition(), removed.textRemoved());
      QAccessible::updateAccessibility(&own);
      break;
    }
    case QAccessible::TextUpdated: {
      const auto& updated = static_cast<QAccessibleTextUpdateEvent&>(event);
      QAccessibleTextUpdateEvent own(&element, updated.changePosition(), updated.textRemoved(),
                                     updated.textInserted());
      QAccessible::updateAccessibility(&own);
      break;
    }
    case QAccessible::TextCaretMoved: {
      const auto& moved = static_cast<QAccessibleTextCursorEvent&>(event);
      QAccessibleTextCursorEvent own(&element, moved.cursorPosition());
      QAccessible::updateAccessibility(&own);
      break;
    }
    case QAccessible::TextSelectionChanged: {
      const auto& selected = static_cast<QAccessibleTextSelectionEvent&>(event);
      QAccessibleTextSelectionEvent own(&element, selected.selectionStart(),
                                        selected.selectionEnd());
      QAccessible::updateAccessibility(&own);
      break;
    }
    default:
      break;
  }
}

/// Whether clients hear of it by a signal of our own: twice would be wrong.
bool isSentOtherwise(const QAccessibleEvent& event) {
  if (event.type() != QAccessible::ObjectCreated && event.type() != QAccessible::ObjectDestroyed) {
    return false;
  }
  return !event.object() && sendsChildSignals() &&
         dynamic_cast<AccessibleObject*>(event.accessibleInterface());
}

/// The widgets on a page are no part of the accessible tree: what they say is said of the element
/// that they show, or not at all.
void handle(QAccessibleEvent* event) {
  if (isSentOtherwise(*event)) return;
  ViewWidget* view = event->object() ? pageOf(event->object()) : nullptr;
  if (!view) {
    passOn(*event);
    return;
  }
  auto* shown = dynamic_cast<ElementWidget*>(event->object());
  if (!shown || !shown->node() || shown->isTaking()) return;
  AccessibleTree& tree = view->page().accessibleTree();
  if (!tree.isWatched()) return;
  if (event->type() == QAccessible::Focus) {
    tree.focusMoved(shown->node());
    return;
  }
  const page::Node* leaf = view->page().tree().find(shown->node());
  if (!leaf || leaf->element.kind() != ui::ElementKind::textField) return;
  if (AccessibleElement* element = tree.objectOf(*leaf)) passOnText(*event, *element);
}

/// To whoever would have been told without us.
void passOn(QAccessibleEvent& event) {
  const QAccessible::UpdateHandler current = QAccessible::installUpdateHandler(otherHandler);
  QAccessible::updateAccessibility(&event);
  QAccessible::installUpdateHandler(current);
}

}  // namespace

void installAccessiblePages() {
  static bool installed = false;
  if (installed) return;
  installed = true;
  QAccessible::installFactory(factory);
  otherHandler = QAccessible::installUpdateHandler(handle);
}

}  // namespace vemra::qt
