#include "VemraQt/accessibility/AccessibleObjects.hpp"

#include "VemraPlatform/text/Trim.hpp"
#include "VemraQt/accessibility/AccessibleControls.hpp"
#include "VemraQt/accessibility/ObjectActions.hpp"
#include "VemraQt/accessibility/ObjectPlaces.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>

#include <QAbstractScrollArea>

namespace vemra::qt {

QAccessibleInterface* AccessibleObject::childAt(int x, int y) const {
  for (int i = 0; i < childCount(); ++i) {
    QAccessibleInterface* found = child(i);
    if (found && found->rect().contains(x, y)) return found;
  }
  return nullptr;
}

AccessibleObject* AccessibleObject::living(QAccessible::Id id) {
  auto* object =
      id ? dynamic_cast<AccessibleObject*>(QAccessible::accessibleInterface(id)) : nullptr;
  return object && !object->leaving_ ? object : nullptr;
}

int AccessibleRow::childCount() const {
  return static_cast<int>(tree().elementsOf(const_cast<AccessibleRow*>(this)).size());
}

QAccessibleInterface* AccessibleRow::child(int place) const {
  auto* self = const_cast<AccessibleRow*>(this);
  auto& elements = tree().elementsOf(self);
  if (place < 0 || place >= static_cast<int>(elements.size())) return nullptr;
  return tree().object(self, elements[static_cast<std::size_t>(place)]);
}

int AccessibleRow::indexOfChild(const QAccessibleInterface* object) const {
  const auto& elements = tree().elementsOf(const_cast<AccessibleRow*>(this));
  auto found = std::ranges::find_if(elements,
                                    [&](const ElementSlot& slot) { return slot.object == object; });
  return found == elements.end() ? -1 : static_cast<int>(found - elements.begin());
}

QString AccessibleRow::textOf(QAccessible::Text kind) const {
  if (kind != QAccessible::Name) return {};
  QString name = shownName();
  heardName_ = qHash(name);
  return name;
}

bool AccessibleRow::hearName() {
  if (!heardName_) return false;
  const std::size_t name = qHash(shownName());
  return std::exchange(*heardName_, name) != name;
}

QString AccessibleRow::shownName() const {
  for (const ElementSlot& slot : tree().elementsOf(const_cast<AccessibleRow*>(this))) {
    if (slot.kind != ui::ElementKind::text && slot.kind != ui::ElementKind::button) continue;
    const ui::Node* node = tree().find(slot.node);
    if (!node) return {};
    // A group without a name would sound like its neighbours, so skip blank texts.
    const std::string_view shown = node->element.shownLabel();
    if (!text::isBlank(shown)) return toQString(shown);
  }
  return {};
}

QRect AccessibleRow::rect() const {
  return rectOf(tree(), *const_cast<AccessibleRow*>(this));
}

QAccessible::State AccessibleRow::state() const {
  QAccessible::State state;
  state.offscreen = !isInViewport(tree(), rect());
  state.invisible = !tree().area().isVisible();
  tree().announcements().noteShowing(*const_cast<AccessibleRow*>(this), !state.offscreen);
  return state;
}

QString AccessibleRow::identifier() const {
  const ui::Node* node = tree().nodeOf(*const_cast<AccessibleRow*>(this));
  return node ? toQString(node->element.accessibilityIdentifier()) + QStringLiteral("")
              : QStringLiteral("");
}

void AccessibleRow::scrollIn() {
  const auto& elements = tree().elementsOf(this);
  if (!elements.empty()) qt::scrollIn(tree(), this, elements.front().node);
}

const ui::Node* AccessibleElement::node() const {
  if (isLeaving()) return nullptr;
  const ElementSlot* slot = tree().slot(row_, path_);
  return slot ? tree().find(slot->node) : nullptr;
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
  return element ? rectOf(tree(), row_, element->id) : QRect();
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
  state.offscreen = !isInViewport(tree(), rectOf(tree(), row_, element->id));
  tree().announcements().noteShowing(*const_cast<AccessibleElement*>(this), !state.offscreen);
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
  if (const ui::Node* element = node()) qt::scrollIn(tree(), row_, element->id);
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
    focus(tree(), row_, element->id);
  } else if (name == pressAction() && isButton && element->element.style().enabled) {
    press(tree(), row_, element->id);
  }
}

AccessibleElement* makeAccessibleElement(AccessibleTree& tree, AccessibleRow* row,
                                         const ElementSlot& slot) {
  AccessibleElement* made = nullptr;
  switch (slot.kind) {
    case ui::ElementKind::button:
      made = new AccessibleButton(tree, row, slot.path);
      break;
    case ui::ElementKind::picker:
      made = new AccessiblePicker(tree, row, slot.path);
      break;
    case ui::ElementKind::textField:
      made = new AccessibleField(tree, row, slot.path);
      break;
    default:
      made = new AccessibleText(tree, row, slot.path);
  }
  made->remember(QAccessible::registerAccessibleInterface(made));
  return made;
}

}  // namespace vemra::qt
