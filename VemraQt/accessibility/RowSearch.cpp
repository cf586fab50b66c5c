#include "VemraQt/accessibility/RowSearch.hpp"

#include "VemraQt/accessibility/ElementSlot.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <utility>

namespace vemra::qt {

std::optional<FoundElement> RowSearch::first(const std::string& identifier) {
  if (identifier.empty()) return std::nullopt;  // an element without an identifier never matches
  dropOutdated();
  const auto found = firstIn(Rows::namedInIt, identifier);
  return found ? found : firstIn(Rows::every, identifier);
}

std::optional<FoundElement> RowSearch::firstIn(Rows rows, const std::string& identifier) {
  const ui::Node* const root = page_.graph().root();
  if (!root) return std::nullopt;
  for (const ElementSlot& slot : elementsUnder(root->id, page_)) {
    const bool isSection =
        slot.kind == ui::ElementKind::vStack || slot.kind == ui::ElementKind::hStack;
    if (isSection) continue;  // a host asks for elements only
    if (slot.kind != ui::ElementKind::forEach) {
      if (has(slot.node, identifier)) return FoundElement{{}, slot.node};
      continue;
    }
    for (const std::size_t index : this->rows(slot.node, identifier, rows)) {
      for (const ElementSlot& inRow : elementsUnder(peekRow(slot.node, index, page_), page_)) {
        if (has(inRow.node, identifier)) return FoundElement{{slot.node, index}, inRow.node};
      }
    }
  }
  return std::nullopt;
}

bool RowSearch::has(ui::NodeID id, const std::string& identifier) const {
  const ui::Node* const node = page_.graph().find(id);
  return node && node->element.accessibilityIdentifier() == identifier;
}

void RowSearch::dropOutdated() {
  std::erase_if(noted_, [&](const auto& of) { return !notedIdentifiers(of.first); });
}

std::vector<std::size_t> RowSearch::rows(ui::NodeID listID, const std::string& identifier,
                                         Rows rows) {
  const auto source = page_.graph().rowIDs(listID);
  if (rows == Rows::every) {
    if (source && source->identifiers() == ui::IdentifiersInRows::containRowID) return {};
    noteIdentifiers(listID);
  }
  const ui::Node* node = page_.graph().find(listID);
  if (!node) return {};
  const auto mayHold = [&](std::size_t row) {
    bool holds = rows == Rows::every;
    if (!holds) {
      page_.errors().attempt(
          [&] { holds = identifier.find(source->key(row)) != std::string::npos; });
    }
    return holds;
  };
  std::vector<std::size_t> found;
  if (const RowIdentifiers* noted = notedIdentifiers(listID)) {
    found = noted->rowsWith(identifier);
    const std::vector<std::size_t> changed = rowsWithState(listID);
    found.insert(found.end(), changed.begin(), changed.end());
    std::ranges::sort(found);
    const auto repeated = std::ranges::unique(found);
    found.erase(repeated.begin(), repeated.end());
    std::erase_if(found, [&](std::size_t row) { return !mayHold(row); });
  } else {
    for (std::size_t row = 0; row < node->element.rowCount(); ++row) {
      if (mayHold(row)) found.push_back(row);
    }
  }
  return found;
}

std::vector<std::size_t> RowSearch::rowsWithState(ui::NodeID list) {
  std::vector<std::size_t> rows;
  page_.errors().attempt([&] { rows = page_.graph().rowsWithState(list); });
  return rows;
}

const RowIdentifiers* RowSearch::notedIdentifiers(ui::NodeID listID) const {
  const auto known = noted_.find(listID);
  if (known == noted_.end() || !page_.graph().find(listID)) return nullptr;
  const RowIdentifiers& noted = known->second;
  return noted.areOf(page_.graph().rowIDs(listID), page_.graph().environment()) ? &noted : nullptr;
}

void RowSearch::noteIdentifiers(ui::NodeID listID) {
  const ui::Node* list = page_.graph().find(listID);
  if (!list || notedIdentifiers(listID)) return;
  const auto source = page_.graph().rowIDs(listID);
  RowIdentifiers notes(source, page_.graph().environment(), rowsWithState(listID));
  const std::size_t count = list->element.rowCount();  // the list may go meanwhile
  for (std::size_t index = 0; index < count; ++index) {
    const ui::NodeID row = peekRow(listID, index, page_);
    if (!page_.graph().find(row)) return;  // an event is being handled, or the list has changed
    for (const ElementSlot& slot : elementsUnder(row, page_)) {
      const ui::Node* element = page_.graph().find(slot.node);
      if (!element) continue;
      const auto& identifier = element->element.accessibilityIdentifier();
      if (!identifier.empty()) notes.note(identifier, index);
    }
  }
  notes.finish();
  noted_.insert_or_assign(listID, std::move(notes));
}

}  // namespace vemra::qt
