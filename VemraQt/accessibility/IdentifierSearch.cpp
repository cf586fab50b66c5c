#include "VemraQt/accessibility/IdentifierSearch.hpp"

#include "VemraQt/accessibility/AccessibleRow.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/accessibility/ElementsByRole.hpp"
#include "VemraQt/atspi/IdentifierBus.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <vector>

#include <QAbstractScrollArea>

namespace vemra::qt {

IdentifierSearch::IdentifierSearch(AccessibleTree& tree) : tree_(tree), rows_(tree.page()) {
  atspi::publishIdentifiers();
  atspi::addIdentifierSource(*this);
}

IdentifierSearch::~IdentifierSearch() {
  atspi::removeIdentifierSource(*this);
}

QString IdentifierSearch::identifier(QAccessible::Id id) const {
  QAccessibleInterface* interface = QAccessible::accessibleInterface(id);
  if (auto* object = dynamic_cast<AccessibleObject*>(interface)) {
    return &object->tree() == &tree_ ? object->identifier() : QString();
  }
  const bool isPage = interface && interface->object() == &tree_.area();
  return isPage ? tree_.area().objectName() + QStringLiteral("") : QString();
}

QMap<QString, QString> IdentifierSearch::attributes(QAccessible::Id id) const {
  const AccessibleObject* object = AccessibleObject::living(id);
  return object && &object->tree() == &tree_ ? object->objectAttributes()
                                             : QMap<QString, QString>();
}

bool IdentifierSearch::isLandmark(QAccessible::Id id) const {
  const AccessibleObject* object = AccessibleObject::living(id);
  return object && &object->tree() == &tree_ && object->role() == QAccessible::Grouping;
}

bool IdentifierSearch::findByRole(const QAccessibleInterface& page, const atspi::RoleTest& isSought,
                                  const atspi::FoundObject& take) {
  if (page.object() != &tree_.area()) return false;
  findElementsByRole(tree_, isSought, take);
  return true;
}

bool IdentifierSearch::scrollIn(QAccessible::Id id) {
  AccessibleObject* object = AccessibleObject::living(id);
  if (!object || &object->tree() != &tree_) return false;
  object->scrollIn();
  return true;
}

QList<QAccessible::Id> IdentifierSearch::find(const QString& sought) {
  if (sought.isEmpty()) return {};  // an element without an identifier never matches
  // A host may keep a page that it hides, for instance behind another page with the same elements.
  if (tree_.area().isHidden()) return {};
  const std::string identifier = sought.toStdString();
  rows_.dropOutdated();
  const auto found = findIn(RowSearch::Rows::namedInIt, identifier);
  return found.isEmpty() ? findIn(RowSearch::Rows::every, identifier) : found;
}

QList<QAccessible::Id> IdentifierSearch::findIn(RowSearch::Rows rows,
                                                const std::string& identifier) {
  QList<QAccessible::Id> found;
  const std::vector<ElementSlot> elements =
      tree_.elementsOf(nullptr);  // a copy: it may change below
  for (const ElementSlot& slot : elements) {
    const ui::Node* node = tree_.find(slot.node);
    if (node && node->element.accessibilityIdentifier() == identifier) {
      std::vector<ElementSlot>& now = tree_.elementsOf(nullptr);
      const auto still = std::ranges::find(now, slot.node, &ElementSlot::node);
      if (still != now.end()) found << tree_.object(nullptr, *still)->id();
    }
    if (slot.kind != ui::ElementKind::forEach) continue;
    for (const std::size_t index : rows_.rows(slot.node, identifier, rows)) {
      findInRow(slot.node, index, identifier, found);
    }
  }
  return found;
}

void IdentifierSearch::findInRow(ui::NodeID list, std::size_t index, const std::string& identifier,
                                 QList<QAccessible::Id>& found) {
  // Check without making objects first: most candidate rows do not hold the identifier.
  const std::vector<ElementSlot> elements =
      elementsUnder(peekRow(list, index, tree_.page()), tree_.page());
  const bool holds = std::ranges::any_of(elements, [&](const ElementSlot& slot) {
    const ui::Node* element = tree_.find(slot.node);
    return element && element->element.accessibilityIdentifier() == identifier;
  });
  if (!holds) return;
  AccessibleRow* row = tree_.rowAt(list, index);
  if (!row) return;
  for (ElementSlot& slot : tree_.elementsOf(row)) {
    const ui::Node* element = tree_.find(slot.node);
    if (element && element->element.accessibilityIdentifier() == identifier) {
      found << tree_.object(row, slot)->id();
    }
  }
}

}  // namespace vemra::qt
