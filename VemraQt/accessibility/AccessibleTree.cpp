#include "VemraQt/accessibility/AccessibleTree.hpp"

#include "VemraPlatform/page/RowChanges.hpp"
#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/accessibility/AccessiblePage.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <QAbstractScrollArea>
#include <QTimer>

namespace vemra::qt {

using ui::NodeID;

AccessibleTree::AccessibleTree(QAbstractScrollArea& area, Page& page) : area_(area), page_(page) {
  comparing_.setInterval(0);
  QObject::connect(&comparing_, &QTimer::timeout, this, &AccessibleTree::compareSomeRows);
  page_.setObserver(this);
  addAccessiblePage(*this);
  atspi::publishIdentifiers();
  atspi::addIdentifierSource(*this);
}

AccessibleTree::~AccessibleTree() {
  if (notifying_) {
    std::fputs(
        "vemra::qt: a ViewWidget was destroyed while it notified assistive technology; "
        "use deleteLater\n",
        stderr);
    std::abort();
  }
  atspi::removeIdentifierSource(*this);
  removeAccessiblePage(*this);
  page_.setObserver(nullptr);
  for (ElementSlot& slot : slots_) {
    if (slot.object) bury(*slot.object);
  }
  for (auto& [node, list] : lists_) {
    for (auto& [index, row] : list.rows) bury(*row);
  }
  deleteBuried();
}

int AccessibleTree::childCount() {
  refreshPage();
  return segments_.empty() ? 0 : static_cast<int>(segments_.back().first + segments_.back().count);
}

QAccessibleInterface* AccessibleTree::child(int index) {
  refreshPage();
  if (index < 0) return nullptr;
  const auto place = static_cast<std::size_t>(index);
  auto segment = std::ranges::upper_bound(segments_, place, {}, &Segment::first);
  if (segment == segments_.begin()) return nullptr;
  --segment;
  if (place >= segment->first + segment->count) return nullptr;
  if (segment->list) return rowAt(segment->list, place - segment->first);
  return object(nullptr, slots_[segment->slot]);
}

int AccessibleTree::indexOf(const QAccessibleInterface* object) {
  refreshPage();
  if (auto* row = dynamic_cast<const AccessibleRow*>(object)) {
    for (const Segment& segment : segments_) {
      if (segment.list != row->list) continue;
      refreshList(row->list);
      return row->isLeaving() ? -1 : static_cast<int>(segment.first + row->index);
    }
    return -1;
  }
  for (const Segment& segment : segments_) {
    if (!segment.list && slots_[segment.slot].object == object) {
      return static_cast<int>(segment.first);
    }
  }
  return -1;
}

AccessibleElement* AccessibleTree::objectOf(const page::Node& leaf) {
  const ui::Node* rowNode = rowHolding(leaf.id);
  AccessibleRow* row = rowNode ? rowAt(rowNode->parent->id, rowNode->rowIndex) : nullptr;
  if (rowNode && !row) return nullptr;
  for (ElementSlot& slot : elementsOf(row)) {
    if (slot.node == leaf.id) return object(row, slot);
  }
  return nullptr;
}

std::vector<ElementSlot>& AccessibleTree::elementsOf(AccessibleRow* row) {
  if (!row) {
    refreshPage();
    return slots_;
  }
  // While an event is being handled a row may be impossible to look at: it is as it was.
  if (const ui::Node* node = nodeOf(*row)) {
    // Nothing in a row changes unless something is described.
    const auto described = [this] {
      return page_.graph().work().bodies + page_.graph().work().rows;
    };
    if (row->knownNode != node->id || row->knownAt != described()) {
      row->knownNode = node->id;
      const bool wasKnown = !row->known.empty();
      const ChildSteps steps = adopt(row->known, elementsUnder(node->id, page_));
      row->knownAt = described();
      if (wasKnown) note(row, steps);
    }
  }
  return row->known;
}

const ElementSlot* AccessibleTree::slot(AccessibleRow* row, std::uint64_t path) {
  if (row && row->isLeaving()) return nullptr;
  const auto& elements = elementsOf(row);
  auto found = std::ranges::find(elements, path, &ElementSlot::path);
  return found == elements.end() ? nullptr : &*found;
}

AccessibleElement* AccessibleTree::object(AccessibleRow* row, ElementSlot& slot) {
  if (!slot.object) slot.object = makeAccessibleElement(*this, row, slot);
  return slot.object;
}

AccessibleRow* AccessibleTree::rowAt(NodeID listID, std::size_t index) {
  refreshList(listID);
  const ui::Node* node = find(listID);
  if (!node || index >= node->element.rowCount()) return nullptr;
  List& list = lists_[listID];
  list.source = page::rowSourceOf(node->element);
  if (const auto known = list.rows.find(index); known != list.rows.end()) return known->second;
  std::string rowID;
  if (!page_.errors().attempt([&] { rowID = list.source->key(index); })) return nullptr;
  auto* row = new AccessibleRow(*this, listID, index, std::move(rowID));
  row->remember(QAccessible::registerAccessibleInterface(row));
  list.rows.emplace(index, row);
  return row;
}

const ui::Node* AccessibleTree::nodeOf(AccessibleRow& row) {
  refreshList(row.list);
  return row.isLeaving() ? nullptr : find(lookAtRow(row.list, row.index));
}

NodeID AccessibleTree::lookAtRow(NodeID list, std::size_t index) {
  NodeID row;
  const auto look = [&] { row = page_.graph().lookAtRow(list, index); };
  // After an exception there is an empty row in its place, unless the whole tree has gone.
  if (!page_.errors().attempt(look)) page_.errors().attempt(look);
  return row;
}

std::vector<std::size_t> AccessibleTree::rowsWithState(NodeID list) {
  std::vector<std::size_t> rows;
  page_.errors().attempt([&] { rows = page_.graph().rowsWithState(list); });
  return rows;
}

/// Of rows in rows the outermost one: what is in it is all on one level.
const ui::Node* AccessibleTree::rowHolding(NodeID id) const {
  const ui::Node* row = nullptr;
  for (const ui::Node* node = find(id); node; node = node->parent) {
    if (node->isRow) row = node;
  }
  return row;
}

AccessibleRow* AccessibleTree::knownRow(NodeID rowNode) const {
  const ui::Node* node = find(rowNode);
  if (!node || !node->isRow) return nullptr;
  auto list = lists_.find(node->parent->id);
  if (list == lists_.end()) return nullptr;
  auto row = list->second.rows.find(node->rowIndex);
  return row == list->second.rows.end() ? nullptr : row->second;
}

const ui::Node* AccessibleTree::find(NodeID node) const {
  return page_.graph().find(node);
}

void AccessibleTree::bury(QAccessibleInterface& object) {
  auto& dying = dynamic_cast<AccessibleObject&>(object);
  if (dying.isLeaving()) return;
  dying.leave();
  if (auto* element = dynamic_cast<AccessibleElement*>(&dying)) {
    for (AccessibleObject* own : element->ownObjects()) bury(*own);
  }
  // A client may be in the middle of a question to it, even of the action that ends it.
  if (buried_.empty()) QTimer::singleShot(0, this, [this] { deleteBuried(); });
  buried_.push_back(dying.id());
}

void AccessibleTree::bury(AccessibleRow& row) {
  for (ElementSlot& slot : row.known) {
    if (slot.object) bury(*slot.object);
  }
  row.known.clear();
  bury(static_cast<QAccessibleInterface&>(row));
}

void AccessibleTree::deleteBuried() {
  for (const QAccessible::Id id : std::exchange(buried_, {})) {
    QAccessible::deleteAccessibleInterface(id);
  }
}

}  // namespace vemra::qt
