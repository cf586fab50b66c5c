#include "VemraQt/accessibility/ObjectHost.hpp"

#include "VemraQt/accessibility/AccessibleObject.hpp"
#include "VemraQt/accessibility/PageOutline.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>

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

int ObjectHost::childCountOf(std::uint64_t section) {
  return static_cast<int>(outline().under(section).size());
}

QAccessibleInterface* ObjectHost::childOf(std::uint64_t section, int index) {
  std::vector<ElementSlot>& elements = elementsOf(nullptr);
  const std::vector<std::size_t>& children = outline().under(section);
  if (index < 0 || index >= static_cast<int>(children.size())) return nullptr;
  return object(nullptr, elements[children[static_cast<std::size_t>(index)]]);
}

int ObjectHost::indexIn(std::uint64_t section, const QAccessibleInterface* sought) {
  const std::vector<ElementSlot>& elements = elementsOf(nullptr);
  const std::vector<std::size_t>& children = outline().under(section);
  const auto found = std::ranges::find_if(
      children, [&](std::size_t slot) { return elements[slot].object == sought; });
  const bool isThere = sought && found != children.end();
  return isThere ? static_cast<int>(found - children.begin()) : -1;
}

QAccessibleInterface* ObjectHost::sectionAround(std::uint64_t path) {
  std::vector<ElementSlot>& elements = elementsOf(nullptr);
  const auto inside = std::ranges::find(elements, path, &ElementSlot::path);
  if (inside == elements.end() || inside->section == 0) return pageObject();
  const auto section = std::ranges::find(elements, inside->section, &ElementSlot::path);
  return section == elements.end() ? pageObject() : object(nullptr, *section);
}

QString ObjectHost::identifierAt(std::uint64_t path) {
  const std::vector<ElementSlot>& elements = elementsOf(nullptr);
  const auto slot = std::ranges::find(elements, path, &ElementSlot::path);
  const ui::Node* node = slot == elements.end() ? nullptr : find(slot->node);
  return (node ? toQString(node->element.accessibilityIdentifier()) : QString()) +
         QStringLiteral("");
}

QAccessibleInterface* ObjectHost::listObject(ui::NodeID list) {
  std::vector<ElementSlot>& elements = elementsOf(nullptr);
  const auto slot = std::ranges::find(elements, list, &ElementSlot::node);
  return slot == elements.end() ? pageObject() : object(nullptr, *slot);
}

}  // namespace vemra::qt
