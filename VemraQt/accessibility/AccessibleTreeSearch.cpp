// Identifiers, and what is found by them.

#include "VemraQt/Page.hpp"
#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"

#include <algorithm>

#include <QAbstractScrollArea>

namespace vemra::qt {

QString AccessibleTree::identifier(QAccessible::Id id) const {
  QAccessibleInterface* interface = QAccessible::accessibleInterface(id);
  if (auto* object = dynamic_cast<AccessibleObject*>(interface)) {
    return &object->tree() == this ? object->identifier() : QString();
  }
  if (interface && interface->object() == &area_) return area_.objectName() + QStringLiteral("");
  return QString();
}

/// Rows are many and describing one costs. An identifier inside a row is made with the row's id in
/// it, as a rule, so the rows whose id it holds are looked at; only when the rule finds nothing are
/// all of them.
QList<QAccessible::Id> AccessibleTree::find(const QString& sought, int most) const {
  auto* self = const_cast<AccessibleTree*>(this);
  const std::string identifier = sought.toStdString();
  const auto enough = [&](const QList<QAccessible::Id>& found) {
    return most > 0 && found.size() >= most;
  };
  for (const bool everyRow : {false, true}) {
    QList<QAccessible::Id> found;
    self->refreshPage();
    const std::vector<Segment> segments = segments_;
    for (const Segment& segment : segments) {
      if (enough(found)) break;
      if (!segment.list) {
        const ui::Node* node = self->find(slots_[segment.slot].node);
        if (node && node->element.accessibilityIdentifier() == identifier) {
          found << self->object(nullptr, self->slots_[segment.slot])->id();
        }
        continue;
      }
      const ui::Node* list = self->find(segment.list);
      if (!list) continue;
      const auto source = rowSourceOf(*list);
      for (std::size_t index = 0; index < source->count() && !enough(found); ++index) {
        if (everyRow || identifier.find(source->key(index)) != std::string::npos) {
          self->findInRow(segment.list, index, identifier, found);
        }
      }
    }
    if (!found.isEmpty()) return found;
  }
  return {};
}

void AccessibleTree::findInRow(ui::NodeID list, std::size_t index, const std::string& identifier,
                               QList<QAccessible::Id>& found) {
  // Looked at without an object first: most candidates are not the row that is sought.
  const ui::Node* node = find(page_.graph().lookAtRow(list, index));
  if (!node) return;
  const std::vector<ElementSlot> elements = elementsUnder(*node, page_.graph());
  const bool holds = std::ranges::any_of(elements, [&](const ElementSlot& slot) {
    const ui::Node* element = find(slot.node);
    return element && element->element.accessibilityIdentifier() == identifier;
  });
  if (!holds) return;
  AccessibleRow* row = rowAt(list, index);
  for (ElementSlot& slot : elementsOf(row)) {
    const ui::Node* element = find(slot.node);
    if (element && element->element.accessibilityIdentifier() == identifier) {
      found << object(row, slot)->id();
    }
  }
}

}  // namespace vemra::qt
