#include "VemraQt/accessibility/IdentifierSearch.hpp"

#include "VemraQt/accessibility/AccessibleRow.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/atspi/IdentifierBus.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <utility>

#include <QAbstractScrollArea>

namespace vemra::qt {

IdentifierSearch::IdentifierSearch(AccessibleTree& tree) : tree_(tree) {
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
  // Drop the notes of lists whose rows have changed.
  std::erase_if(noted_, [&](const auto& of) { return !notedIdentifiers(of.first); });
  const auto found = findIn(Search::rowsNamedInIt, identifier);
  return found.isEmpty() ? findIn(Search::everyRow, identifier) : found;
}

QList<QAccessible::Id> IdentifierSearch::findIn(Search search, const std::string& identifier) {
  QList<QAccessible::Id> found;
  const std::vector<PageSegment> segments = tree_.segments();  // a copy: it may change below
  for (const PageSegment& segment : segments) {
    if (!segment.list) {
      std::vector<ElementSlot>& elements = tree_.elementsOf(nullptr);
      if (segment.slot >= elements.size()) break;
      ElementSlot& slot = elements[segment.slot];
      const ui::Node* node = tree_.find(slot.node);
      if (node && node->element.accessibilityIdentifier() == identifier) {
        found << tree_.object(nullptr, slot)->id();
      }
      continue;
    }
    for (const std::size_t index : rowsToSearch(segment.list, identifier, search)) {
      findInRow(segment.list, index, identifier, found);
    }
  }
  return found;
}

std::vector<std::size_t> IdentifierSearch::rowsToSearch(ui::NodeID listID,
                                                        const std::string& identifier,
                                                        Search search) {
  if (search == Search::everyRow) noteIdentifiers(listID);
  const ui::Node* node = tree_.find(listID);
  if (!node) return {};
  const auto source = tree_.page().graph().rowIDs(listID);
  const auto mayHold = [&](std::size_t row) {
    bool holds = search == Search::everyRow;
    if (!holds) {
      tree_.page().errors().attempt(
          [&] { holds = identifier.find(source->key(row)) != std::string::npos; });
    }
    return holds;
  };
  std::vector<std::size_t> rows;
  if (const RowIdentifiers* noted = notedIdentifiers(listID)) {
    rows = noted->rowsWith(identifier);
    const std::vector<std::size_t> changed = rowsWithState(listID);
    rows.insert(rows.end(), changed.begin(), changed.end());
    std::ranges::sort(rows);
    const auto repeated = std::ranges::unique(rows);
    rows.erase(repeated.begin(), repeated.end());
    std::erase_if(rows, [&](std::size_t row) { return !mayHold(row); });
  } else {
    for (std::size_t row = 0; row < node->element.rowCount(); ++row) {
      if (mayHold(row)) rows.push_back(row);
    }
  }
  return rows;
}

std::vector<std::size_t> IdentifierSearch::rowsWithState(ui::NodeID list) {
  std::vector<std::size_t> rows;
  tree_.page().errors().attempt([&] { rows = tree_.page().graph().rowsWithState(list); });
  return rows;
}

const RowIdentifiers* IdentifierSearch::notedIdentifiers(ui::NodeID listID) const {
  const auto known = noted_.find(listID);
  const ui::Node* node = tree_.find(listID);
  if (known == noted_.end() || !node) return nullptr;
  const RowIdentifiers& noted = known->second;
  return noted.areOf(tree_.page().graph().rowIDs(listID), tree_.page().graph().environment())
             ? &noted
             : nullptr;
}

void IdentifierSearch::noteIdentifiers(ui::NodeID listID) {
  const ui::Node* list = tree_.find(listID);
  if (!list || notedIdentifiers(listID)) return;
  const auto source = tree_.page().graph().rowIDs(listID);
  RowIdentifiers notes(source, tree_.page().graph().environment(), rowsWithState(listID));
  const std::size_t count = list->element.rowCount();  // the list may go meanwhile
  for (std::size_t index = 0; index < count; ++index) {
    const ui::NodeID row = peekRow(listID, index, tree_.page());
    if (!tree_.find(row)) return;  // an event is being handled, or the list has changed
    for (const ElementSlot& slot : elementsUnder(row, tree_.page())) {
      const ui::Node* element = tree_.find(slot.node);
      if (!element) continue;
      const auto& identifier = element->element.accessibilityIdentifier();
      if (!identifier.empty()) notes.note(identifier, index);
    }
  }
  notes.finish();
  noted_.insert_or_assign(listID, std::move(notes));
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
