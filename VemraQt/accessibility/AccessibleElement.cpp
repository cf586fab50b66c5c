#include "VemraQt/accessibility/AccessibleElement.hpp"

#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <iterator>
#include <vector>

#include <QAbstractScrollArea>

namespace vemra::qt {

namespace {

/// Runs the element's own action. When the action removes the element, the focus moves to the control
/// that takes its place. The page moves it for an element that has a node on the page; for another
/// element, this function first scrolls its row into view. `row` is nullptr outside lists.
void press(ObjectHost& tree, AccessibleRow* row, ui::NodeID pressed) {
  Page& page = tree.page();
  if (!row || page.tree().find(pressed)) {
    page.deliver(pressed, ui::Press{});
    return;
  }
  struct Place {
    ui::NodeID within, after;
  };
  std::vector<Place> places;
  for (const ui::Node* node = tree.find(pressed); node && !node->isRow; node = node->parent) {
    const auto& siblings = node->parent->children;
    const auto self = std::ranges::find(siblings, node);
    const ui::NodeID before =
        self == siblings.begin() || self == siblings.end() ? ui::NodeID{} : (*std::prev(self))->id;
    places.push_back({node->parent->id, before});
  }
  const QAccessible::Id id = row->id();
  page.deliver(pressed, ui::Press{});
  // The action may have run the event loop and deleted the row's object, so find it again.
  row = dynamic_cast<AccessibleRow*>(AccessibleObject::living(id));
  if (!row || tree.find(pressed)) return;
  tree.refreshList(row->list);
  if (row->isLeaving()) return;
  for (const Place& place : places) {
    if (!tree.find(place.within)) continue;
    page.bringRow(row->list, row->index);
    page.focusInPlace(place.within, place.after);
    return;
  }
}

}  // namespace

const ui::Node* AccessibleElement::node() const {
  if (isLeaving() || (row_ && row_->isLeaving())) return nullptr;
  const auto& elements = tree().elementsOf(row_);
  const auto slot = std::ranges::find(elements, path_, &ElementSlot::path);
  return slot == elements.end() ? nullptr : tree().find(slot->node);
}

QAccessibleInterface* AccessibleElement::parent() const {
  return row_ ? static_cast<QAccessibleInterface*>(row_) : tree().pageObject();
}

QString AccessibleElement::textOf(QAccessible::Text kind) const {
  const ui::Node* element = node();
  if (!element || kind != QAccessible::Name) return {};
  return toQString(element->element.shownLabel());
}

QRect AccessibleElement::rect() const {
  const ui::Node* element = node();
  return element ? rectOf(element->id) : QRect();
}

QRect AccessibleElement::rectOf(ui::NodeID node) const {
  const Page& page = tree().page();
  const page::Node* leaf = page.tree().find(node);
  if (leaf && leaf->measuredWidth >= 0) return tree().onScreen(page.frameOnPage(*leaf));
  if (!row_) return {};
  // The element is not laid out: give it an even share of its row, in order.
  const QRect whole = row_->rect();
  const auto& elements = tree().elementsOf(row_);
  const auto place = std::ranges::find(elements, node, &ElementSlot::node) - elements.begin();
  const int count = std::max(1, static_cast<int>(elements.size()));
  const int height = std::max(1, whole.height() / count);
  return {whole.x(), whole.y() + static_cast<int>(place) * height, whole.width(), height};
}

QAccessible::State AccessibleElement::state() const {
  QAccessible::State state;
  const ui::Node* element = node();
  if (!element) {
    state.invalid = true;
    state.disabled = true;
    state.invisible = true;
    return state;
  }
  state.disabled = !element->element.style().enabled;
  state.invisible = !tree().area().isVisible();
  state.offscreen = !tree().isInViewport(rectOf(element->id));
  tree().noteShowing(*const_cast<AccessibleElement*>(this), !state.offscreen);
  if (element->element.kind() != ui::ElementKind::text && !state.disabled) {
    state.focusable = true;
    const page::Node* focused = tree().page().focusedNode();
    state.focused = focused && focused->id == element->id && tree().area().isActiveWindow();
  }
  return state;
}

QString AccessibleElement::identifier() const {
  const ui::Node* element = node();
  return element ? toQString(element->element.accessibilityIdentifier()) + QStringLiteral("")
                 : QStringLiteral("");
}

void AccessibleElement::scrollIn() {
  if (const ui::Node* element = node()) qt::scrollIn(tree().page(), rowPlace(), element->id);
}

void* AccessibleElement::interface_cast(QAccessible::InterfaceType type) {
  if (type != QAccessible::ActionInterface || actionNames().isEmpty()) return nullptr;
  return static_cast<QAccessibleActionInterface*>(this);
}

QStringList AccessibleElement::actionNames() const {
  const ui::Node* element = node();
  if (!element || element->element.kind() == ui::ElementKind::text) return {};
  QStringList names;
  if (element->element.kind() == ui::ElementKind::button) names << pressAction();
  if (element->element.kind() == ui::ElementKind::picker) names << showMenuAction();
  return names << setFocusAction();
}

void AccessibleElement::doAction(const QString& name) {
  const ui::Node* element = node();
  if (!element) return;
  const bool isButton = element->element.kind() == ui::ElementKind::button;
  // Either action may delete this object, so do not use it afterwards.
  if (name == setFocusAction()) {
    focus(tree().page(), rowPlace(), element->id);
  } else if (name == pressAction() && isButton && element->element.style().enabled) {
    press(tree(), row_, element->id);
  }
}

}  // namespace vemra::qt
