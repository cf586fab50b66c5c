// Identifiers, and what is found by them.

#include "VemraPlatform/page/RowChanges.hpp"
#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

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

bool AccessibleTree::scrollIn(QAccessible::Id id) const {
  AccessibleObject* object = AccessibleObject::living(id);
  if (!object || &object->tree() != this) return false;
  object->scrollIn();
  return true;
}

/// Rows are many and describing one costs. An identifier inside a row is made with the row's id in
/// it, as a rule, so the rows whose id it holds are looked at; only when the rule finds nothing are
/// all of them, and then it is noted what is where: asking again costs next to nothing.
QList<QAccessible::Id> AccessibleTree::find(const QString& sought, int most) const {
  if (sought.isEmpty()) return {};  // what has no identifier is not found by it
  auto* self = const_cast<AccessibleTree*>(this);
  const std::string identifier = sought.toStdString();
  const auto enough = [&](const QList<QAccessible::Id>& found) {
    return most > 0 && found.size() >= most;
  };
  for (const Search search : {Search::rowsNamedInIt, Search::everyRow}) {
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
      for (const std::size_t index : self->rowsToSearch(segment.list, identifier, search)) {
        if (enough(found)) break;
        self->findInRow(segment.list, index, identifier, found);
      }
    }
    if (!found.isEmpty()) return found;
  }
  return {};
}

std::vector<std::size_t> AccessibleTree::rowsToSearch(ui::NodeID listID,
                                                      const std::string& identifier,
                                                      Search search) {
  if (search == Search::everyRow) noteIdentifiers(listID);
  const ui::Node* node = find(listID);
  if (!node) return {};
  const auto source = page::rowSourceOf(node->element);
  const auto mayHold = [&](std::size_t row) {
    bool holds = search == Search::everyRow;
    if (!holds) {
      page_.errors().attempt(
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

const RowIdentifiers* AccessibleTree::notedIdentifiers(ui::NodeID listID) const {
  const auto known = lists_.find(listID);
  const ui::Node* node = find(listID);
  if (known == lists_.end() || !node || !known->second.identifiers) return nullptr;
  const RowIdentifiers& noted = *known->second.identifiers;
  return noted.areOf(page::rowSourceOf(node->element), page_.graph().environment()) ? &noted
                                                                                    : nullptr;
}

void AccessibleTree::noteIdentifiers(ui::NodeID listID) {
  const ui::Node* list = find(listID);
  if (!list || notedIdentifiers(listID)) return;
  const auto source = page::rowSourceOf(list->element);
  RowIdentifiers notes(source, page_.graph().environment(), rowsWithState(listID));
  const std::size_t count = list->element.rowCount();  // the list may go meanwhile
  for (std::size_t index = 0; index < count; ++index) {
    const ui::NodeID row = lookAtRow(listID, index);
    if (!find(row)) return;  // an event is being handled, or the list is another one by now
    for (const ElementSlot& slot : elementsUnder(row, page_)) {
      const ui::Node* element = find(slot.node);
      if (!element) continue;
      const auto& identifier = element->element.accessibilityIdentifier();
      if (!identifier.empty()) notes.note(identifier, index);
    }
  }
  notes.finish();
  List& known = lists_[listID];
  refreshList(listID);  // what was noted of other rows goes now, not with the next question
  known.identifiers = std::move(notes);
}

void AccessibleTree::findInRow(ui::NodeID list, std::size_t index, const std::string& identifier,
                               QList<QAccessible::Id>& found) {
  // Looked at without an object first: most candidates are not the row that is sought.
  const std::vector<ElementSlot> elements = elementsUnder(lookAtRow(list, index), page_);
  const bool holds = std::ranges::any_of(elements, [&](const ElementSlot& slot) {
    const ui::Node* element = find(slot.node);
    return element && element->element.accessibilityIdentifier() == identifier;
  });
  if (!holds) return;
  AccessibleRow* row = rowAt(list, index);
  if (!row) return;
  for (ElementSlot& slot : elementsOf(row)) {
    const ui::Node* element = find(slot.node);
    if (element && element->element.accessibilityIdentifier() == identifier) {
      found << object(row, slot)->id();
    }
  }
}

}  // namespace vemra::qt
