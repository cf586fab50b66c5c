#include "VemraQt/accessibility/AccessiblePage.hpp"

#include "VemraQt/accessibility/AccessibleObject.hpp"
#include "VemraQt/atspi/LaterQt.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include <QAbstractScrollArea>
#include <QAccessibleWidget>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace vemra::qt {

namespace {

/// The page's widget: its children are the elements, lists and sections of the page.
class AccessibleArea final : public QAccessibleWidget {
 public:
  explicit AccessibleArea(AccessibleTree& tree)
      : QAccessibleWidget(&tree.area(), QAccessible::Client), tree_(&tree) {}

  QAccessible::Role role() const override {
    if (widget()->isWindow()) return QAccessible::Window;
    // Orca reads a form by its name, before a control that gets the focus in it. With a panel or a
    // landmark it would also read many of its texts then; of a layered pane, Orca 48 and 51 count
    // the icons. It passes over a client without a name.
    return text(QAccessible::Name).isEmpty() ? QAccessible::Client : QAccessible::Form;
  }
  QString text(QAccessible::Text kind) const override {
    if (atspi::asksForIdentifier(kind)) return widget()->objectName();
    const QString given = QAccessibleWidget::text(kind);
    const bool isUnnamed = kind == QAccessible::Name && given.isEmpty();
    return isUnnamed && tree_ ? tree_->title() : given;
  }
  int childCount() const override { return tree_ ? tree_->childCountOf(0) : 0; }
  QAccessibleInterface* child(int index) const override {
    return tree_ ? tree_->childOf(0, index) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return tree_ ? tree_->indexIn(0, child) : -1;
  }
  QAccessibleInterface* focusChild() const override {
    const page::Node* focused = tree_ ? tree_->page().focusedNode() : nullptr;
    return focused ? tree_->objectOf(*focused) : nullptr;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    // Only elements near the viewport can be at a point on the screen.
    QAccessibleInterface* found = nullptr;
    const page::Node* root = tree_ ? tree_->page().tree().root() : nullptr;
    if (!root || !rect().contains(x, y)) return nullptr;
    forEachLeaf(*root, [&](const page::Node& leaf) {
      if (found || !tree_->page().shown(leaf).widget) return;
      AccessibleObject* object = tree_->objectOf(leaf);
      if (!object || !object->rect().contains(x, y)) return;
      found = object;
      const QAccessibleInterface* page = tree_->pageObject();
      while (found->parent() && found->parent() != page) found = found->parent();
    });
    return found;
  }

 private:
  const QPointer<AccessibleTree> tree_;  ///< destroyed before the widget
};

/// A page in a scroll area, and the scroll area's class name, which Qt passes to the factory.
struct Shown {
  AccessiblePage* page;
  QLatin1String className;
};

std::unordered_map<const QObject*, Shown>& pages() {
  static std::unordered_map<const QObject*, Shown> all;
  return all;
}

QAccessibleInterface* factory(const QString& className, QObject* object) {
  const auto found = pages().find(object);
  if (found == pages().end() || found->second.className != className) return nullptr;
  return new AccessibleArea(found->second.page->tree());
}

QAccessible::UpdateHandler otherHandler = nullptr;

void passOn(QAccessibleEvent& event);

/// The page that `object` belongs to: as the page's viewport or as the widget of an element.
AccessiblePage* pageAround(QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  for (int levels = 0; widget && levels < 2; ++levels) {
    QWidget* parent = widget->parentWidget();
    AccessiblePage* page = AccessiblePage::in(parent);
    if (page && page->tree().area().viewport() == widget) return page;
    widget = parent;
  }
  return nullptr;
}

/// Forwards a text event of a line edit as an event of the element that the line edit shows.
void passOnText(QAccessibleEvent& event, AccessibleObject& element) {
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

/// Whether clients already get this change by a signal of our own; forwarding the event would
/// repeat it.
bool isSentOtherwise(const QAccessibleEvent& event) {
  if (event.type() != QAccessible::ObjectCreated && event.type() != QAccessible::ObjectDestroyed) {
    return false;
  }
  return !event.object() && atspi::sendsChildSignals() &&
         dynamic_cast<AccessibleObject*>(event.accessibleInterface());
}

/// The object that an event is about. Qt 6.11 names a destroyed widget by its id alone.
QObject* objectOf(const QAccessibleEvent& event) {
  if (event.object() || event.type() != QAccessible::ObjectDestroyed) return event.object();
  const QAccessibleInterface* about = event.accessibleInterface();
  return about ? about->object() : nullptr;
}

/// Whether the event reports the focus of a page itself while another widget has it, or is about to
/// get it. Tab gives the focus to the page first, which passes it on, and Qt reports the focus of
/// the page after that of the control.
bool isFocusOnTheWay(const QAccessibleEvent& event) {
  if (event.type() != QAccessible::Focus) return false;
  AccessiblePage* page = AccessiblePage::in(event.object());
  if (!page) return false;
  const QWidget& area = page->tree().area();
  return page->isFocusLeaving() || area.window()->focusWidget() != &area;
}

/// Whether a menu bar has the menu, or the menu in which it is.
bool isOfMenuBar(const QMenu& menu) {
  return std::ranges::any_of(menu.menuAction()->associatedObjects(), [](const QObject* owner) {
    const auto* outer = qobject_cast<const QMenu*>(owner);
    return qobject_cast<const QMenuBar*>(owner) || (outer && isOfMenuBar(*outer));
  });
}

/// Whether the event reports the focus of a widget while a menu of a menu bar is open, which has the
/// keyboard. Between two such menus, Qt reports the focus of the widget behind them after that of
/// the second menu.
bool isFocusBehindMenu(const QAccessibleEvent& event) {
  if (event.type() != QAccessible::Focus) return false;
  const auto* widget = qobject_cast<QWidget*>(event.object());
  const auto* menu = qobject_cast<const QMenu*>(QApplication::activePopupWidget());
  if (!widget || !menu || !isOfMenuBar(*menu)) return false;
  return !qobject_cast<const QMenuBar*>(widget) && !qobject_cast<QMenu*>(widget->window());
}

/// Whether the event reports the cursor or the selection of a field that is about to get or lose
/// the focus: a field selects its text then, and clients read the selection when the focus is
/// reported.
bool isSelectedByFocus(const QAccessibleEvent& event, const ElementWidget& shown) {
  return shown.isChangingFocus() && (event.type() == QAccessible::TextSelectionChanged ||
                                     event.type() == QAccessible::TextCaretMoved);
}

/// Handles all events of Qt's accessibility. The widgets on a page are not part of the accessible
/// tree, so this sends their focus and text events for the elements that they show and drops the
/// others.
void handle(QAccessibleEvent* event) {
  if (isSentOtherwise(*event) || isFocusOnTheWay(*event) || isFocusBehindMenu(*event)) return;
  QObject* object = objectOf(*event);
  AccessiblePage* page = object ? pageAround(object) : nullptr;
  if (!page) {
    passOn(*event);
    return;
  }
  auto* shown = dynamic_cast<ElementWidget*>(event->object());
  if (!shown || !shown->node() || shown->isUpdating()) return;
  if (isSelectedByFocus(*event, *shown)) return;
  AccessibleTree& tree = page->tree();
  if (!tree.isWatched()) return;
  if (event->type() == QAccessible::Focus) {
    page->announcements().focusMoved(shown->node());
    return;
  }
  const page::Node* leaf = tree.page().tree().find(shown->node());
  if (!leaf || leaf->element.kind() != ui::ElementKind::textField) return;
  if (AccessibleObject* element = tree.objectOf(*leaf)) passOnText(*event, *element);
}

/// Forwards the event to the previous handler.
void passOn(QAccessibleEvent& event) {
  const QAccessible::UpdateHandler current = QAccessible::installUpdateHandler(otherHandler);
  QAccessible::updateAccessibility(&event);
  QAccessible::installUpdateHandler(current);
}

}  // namespace

AccessiblePage::AccessiblePage(QAbstractScrollArea& area, Page& page) : tree_(area, page) {
  static bool installed = false;
  if (!std::exchange(installed, true)) {
    QAccessible::installFactory(factory);
    otherHandler = QAccessible::installUpdateHandler(handle);
  }
  const QLatin1String className(area.metaObject()->className());
  pages().insert_or_assign(&area, Shown{this, className});
}

AccessiblePage::~AccessiblePage() {
  pages().erase(&tree_.area());
}

AccessiblePage* AccessiblePage::in(const QObject* area) {
  const auto found = pages().find(area);
  return found == pages().end() ? nullptr : found->second.page;
}

}  // namespace vemra::qt
