#include "VemraQt/accessibility/AccessibleElement.hpp"

#include "VemraPlatform/text/Trim.hpp"
#include "VemraQt/accessibility/AccessibleRow.hpp"
#include "VemraQt/accessibility/AccessibleSection.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <QAbstractScrollArea>

namespace vemra::qt {

namespace {

/// The action of a field that has an `onSubmit`: what Return does.
QString submitAction() {
  return QStringLiteral("Submit");
}

/// The event of an action that the element itself runs; nil for another action.
std::optional<ui::Event> eventOf(const ui::Element& element, const QString& action) {
  const bool isButton = element.kind() == ui::ElementKind::button;
  if (isButton && action == QAccessibleActionInterface::pressAction()) return ui::Press{};
  if (element.submits() && action == submitAction()) return ui::Submit{};
  return std::nullopt;
}

/// Whether the node only holds the elements below it together, without laying them out.
bool isTransparent(const ui::Node& node) {
  const ui::ElementKind kind = node.element.kind();
  return kind == ui::ElementKind::group || kind == ui::ElementKind::composite;
}

/// Collects the texts directly in a stack that are not blank.
void collectTexts(const ui::Node& stack, QStringList& texts) {
  for (const ui::Node* child : stack.children) {
    if (isTransparent(*child)) collectTexts(*child, texts);
    if (child->element.kind() != ui::ElementKind::text) continue;
    const std::string_view shown = child->element.shownLabel();
    if (!text::isBlank(shown)) texts << toQString(shown);
  }
}

/// Runs the element's own action. When the action removes the element, the focus moves to the
/// control that takes its place. The page moves it for an element that has a node on the page; for
/// another element, this function first scrolls its row into view. `row` is nullptr outside lists.
void act(ObjectHost& tree, AccessibleRow* row, ui::NodeID used, const ui::Event& event) {
  Page& page = tree.page();
  if (!row || page.tree().find(used)) {
    page.deliver(used, event);
    return;
  }
  struct Place {
    ui::NodeID within, after;
  };
  std::vector<Place> places;
  for (const ui::Node* node = tree.find(used); node && !node->isRow; node = node->parent) {
    const auto& siblings = node->parent->children;
    const auto self = std::ranges::find(siblings, node);
    const ui::NodeID before =
        self == siblings.begin() || self == siblings.end() ? ui::NodeID{} : (*std::prev(self))->id;
    places.push_back({node->parent->id, before});
  }
  const QAccessible::Id id = row->id();
  page.deliver(used, event);
  // The action may have run the event loop and deleted the row's object, so find it again.
  row = dynamic_cast<AccessibleRow*>(AccessibleObject::living(id));
  if (!row || tree.find(used)) return;
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
  return row_ ? static_cast<QAccessibleInterface*>(row_) : tree().sectionAround(path_);
}

QString AccessibleElement::textOf(QAccessible::Text kind) const {
  if (kind == QAccessible::Description) {
    QString described = description();
    reportedDescription_ = qHash(described);
    return described;
  }
  const ui::Node* element = node();
  if (!element || kind != QAccessible::Name) return {};
  return toQString(element->element.shownLabel());
}

/// The texts beside a button say what it acts on, and the buttons of several rows have one title.
/// So those texts describe it, and the name of its row or section.
QString AccessibleElement::description() const {
  const ui::Node* element = node();
  if (!element || element->element.kind() != ui::ElementKind::button) return {};
  const ui::Node* beside = element->parent;
  while (beside && isTransparent(*beside)) beside = beside->parent;
  if (!beside || beside->element.kind() != ui::ElementKind::hStack) return {};
  QStringList texts;
  collectTexts(*beside, texts);
  if (texts.isEmpty()) return {};
  QString whose;
  if (auto* row = dynamic_cast<AccessibleRow*>(parent())) whose = row->shownName();
  if (auto* section = dynamic_cast<AccessibleSection*>(parent())) whose = section->shownName();
  QStringList parts{texts.join(QLatin1Char(' '))};
  if (!whose.isEmpty()) parts << whose;
  return parts.join(QStringLiteral(", "));
}

bool AccessibleElement::updateReportedDescription() {
  if (!reportedDescription_) return false;
  const std::size_t now = qHash(description());
  return std::exchange(*reportedDescription_, now) != now;
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
  if (element->element.submits()) names << submitAction();

  if (element->element.kind() == ui::ElementKind::picker) names << showMenuAction();
  return names << setFocusAction();
}

void AccessibleElement::doAction(const QString& name) {
  const ui::Node* element = node();
  if (!element) return;
  // Either action may delete this object, so do not use it afterwards.
  if (name == setFocusAction()) {
    focus(tree().page(), rowPlace(), element->id);
  } else if (element->element.style().enabled) {
    if (const auto event = eventOf(element->element, name)) act(tree(), row_, element->id, *event);
  }
}

}  // namespace vemra::qt
