#include "VemraQt/accessibility/AccessibleTree.hpp"

#include "VemraQt/accessibility/AccessibleControls.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <ranges>
#include <utility>

namespace vemra::qt {

using ui::NodeID;

AccessibleTree::AccessibleTree(QAbstractScrollArea& area, Page& page) : ObjectHost(area, page) {}

AccessibleTree::~AccessibleTree() {
  for (ElementSlot& slot : slots_) {
    if (slot.object) leaving_.add(*slot.object);
  }
  for (auto& [node, list] : lists_) {
    for (AccessibleRow* row : list.all()) leaving_.addRow(*row);
  }
}

int AccessibleTree::childCount() {
  refresh();
  return segments_.empty() ? 0 : static_cast<int>(segments_.back().first + segments_.back().count);
}

QAccessibleInterface* AccessibleTree::child(int index) {
  refresh();
  if (index < 0) return nullptr;
  const auto place = static_cast<std::size_t>(index);
  auto segment = std::ranges::upper_bound(segments_, place, {}, &PageSegment::first);
  if (segment == segments_.begin()) return nullptr;
  --segment;
  if (place >= segment->first + segment->count) return nullptr;
  if (segment->list) return rowAt(segment->list, place - segment->first);
  return object(nullptr, slots_[segment->slot]);
}

int AccessibleTree::indexOf(const QAccessibleInterface* object) {
  refresh();
  if (auto* row = dynamic_cast<const AccessibleRow*>(object)) {
    for (const PageSegment& segment : segments_) {
      if (segment.list != row->list) continue;
      refreshList(row->list);
      return row->isLeaving() ? -1 : static_cast<int>(segment.first + row->index);
    }
    return -1;
  }
  for (const PageSegment& segment : segments_) {
    if (!segment.list && slots_[segment.slot].object == object) {
      return static_cast<int>(segment.first);
    }
  }
  return -1;
}

AccessibleObject* AccessibleTree::objectOf(const page::Node& leaf) {
  const ui::Node* rowNode = rowHolding(leaf.id, page());
  AccessibleRow* row = rowNode ? rowAt(rowNode->parent->id, rowNode->rowIndex) : nullptr;
  if (rowNode && !row) return nullptr;
  for (ElementSlot& slot : elementsOf(row)) {
    if (slot.node == leaf.id) return object(row, slot);
  }
  return nullptr;
}

std::vector<ElementSlot>& AccessibleTree::elementsOf(AccessibleRow* row) {
  if (!row) {
    refresh();
    return slots_;
  }
  // While an event is being handled, the graph may be unable to describe the row; then keep the
  // known elements.
  if (const ui::Node* node = nodeOf(*row)) {
    // The elements of a row change only when the graph describes something.
    const auto described = [this] {
      return page().graph().work().bodies + page().graph().work().rows;
    };
    if (row->knownNode != node->id || row->knownAt != described()) {
      row->knownNode = node->id;
      const bool wasKnown = !row->known.empty();
      const ChildSteps steps = adopt(row->known, elementsUnder(node->id, page()), leaving_);
      row->knownAt = described();
      if (wasKnown) note(row, steps);
    }
  }
  return row->known;
}

AccessibleObject* AccessibleTree::object(AccessibleRow* row, ElementSlot& slot) {
  if (!slot.object) slot.object = makeAccessibleElement(*this, row, slot);
  return slot.object;
}

AccessibleRow* AccessibleTree::rowAt(NodeID listID, std::size_t index) {
  refreshList(listID);
  const ui::Node* node = find(listID);
  if (!node || index >= node->element.rowCount()) return nullptr;
  KnownRows& list = lists_[listID];
  list.follow(page().graph().rowIDs(listID), page().errors(), leaving_);
  if (AccessibleRow* known = list.at(index)) return known;
  std::string rowID;
  if (!page().errors().attempt([&] { rowID = list.source()->key(index); })) return nullptr;
  auto* row = new AccessibleRow(*this, listID, index, std::move(rowID));
  row->registerWithQt();
  list.add(*row);
  return row;
}

const ui::Node* AccessibleTree::nodeOf(AccessibleRow& row) {
  refreshList(row.list);
  return row.isLeaving() ? nullptr : find(peekRow(row.list, row.index, page()));
}

AccessibleRow* AccessibleTree::knownRow(NodeID rowNode) const {
  const ui::Node* node = find(rowNode);
  if (!node || !node->isRow) return nullptr;
  const auto list = lists_.find(node->parent->id);
  return list == lists_.end() ? nullptr : list->second.at(node->rowIndex);
}

void AccessibleTree::noteShowing(AccessibleObject& object, bool isShowing) {
  using Reported = AccessibleObject::Reported;
  if (isShowing && object.showing != Reported::yes) showing_.push_back(object.id());
  object.showing = isShowing ? Reported::yes : Reported::no;
}

const std::vector<PageSegment>& AccessibleTree::segments() {
  refresh();
  return segments_;
}

void AccessibleTree::refresh() {
  if (pageVersion_ == page().version()) return;
  const bool wasKnown = hasBeenAsked();
  pageVersion_ = page().version();
  // When another page has attached to the graph, this page has no root and shows nothing.
  const ui::Node* root = page().tree().root() ? page().graph().root() : nullptr;
  const ChildSteps ofElements =
      adopt(slots_, root ? elementsUnder(root->id, page()) : std::vector<ElementSlot>(), leaving_);
  const auto before = std::exchange(segments_, segmentsOf(slots_, page().graph()));
  std::unordered_map<NodeID, KnownRows> gone = std::exchange(lists_, {});
  std::unordered_map<NodeID, ChildSteps> ofRows;
  for (const PageSegment& segment : segments_) {
    if (!segment.list) continue;
    auto known = gone.extract(segment.list);
    if (known) lists_.insert(std::move(known));
    KnownRows& rows = lists_[segment.list];
    ChildSteps& steps = ofRows[segment.list];
    if (const auto ids = page().graph().rowIDs(segment.list)) {
      steps = rows.follow(ids, page().errors(), leaving_);
    }
  }
  for (auto& [id, list] : gone) ofRows[id] = list.leave(page().errors(), leaving_);
  if (wasKnown) note(nullptr, stepsOfPage(before, segments_, ofElements, ofRows));
}

void AccessibleTree::refreshList(NodeID listID) {
  refresh();
  const auto known = lists_.find(listID);
  const auto ids = page().graph().rowIDs(listID);
  if (known == lists_.end() || !ids) return;
  // The source can change without a new version of the page, but only while the graph handles an
  // event.
  ChildSteps steps = known->second.follow(ids, page().errors(), leaving_);
  const auto segment = std::ranges::find(segments_, listID, &PageSegment::list);
  if (segment == segments_.end()) return;
  for (ChildSteps::Removed& removed : steps.removed) removed.index += segment->first;
  for (std::size_t& index : steps.inserted) index += segment->first;
  note(nullptr, steps);
}

bool AccessibleTree::hasNewRows(const ui::ListRows& rows) const {
  const auto known = lists_.find(rows.list);
  return known != lists_.end() &&
         (known->second.source() != rows.ids || known->second.hasUncompared());
}

std::vector<QAccessible::Id> AccessibleTree::takeUncompared(std::size_t most) {
  refresh();
  std::vector<NodeID> known;
  known.reserve(lists_.size());
  for (const auto& [node, list] : lists_) known.push_back(node);
  for (const NodeID list : known) refreshList(list);
  std::vector<QAccessible::Id> rows;
  for (auto& [node, list] : lists_) list.takeUncompared(rows, most);
  return rows;
}

std::vector<AccessibleObject*> AccessibleTree::knownNearViewport() {
  std::vector<AccessibleObject*> objects;
  const auto addKnown = [&](const std::vector<ElementSlot>& elements) {
    for (const ElementSlot& slot : elements) {
      if (slot.object) objects.push_back(slot.object);
    }
  };
  addKnown(slots_);
  std::vector<AccessibleRow*> rows;
  for (auto& [node, list] : lists_) {
    const page::Node* shown = page().tree().find(node);
    if (!shown) continue;
    for (const page::Node& rendered : shown->children()) {
      if (AccessibleRow* row = list.at(rendered.rowIndex)) rows.push_back(row);
    }
  }
  for (AccessibleRow* row : rows) {
    objects.push_back(row);
    addKnown(elementsOf(row));
  }
  return objects;
}

/// Notes removed children from the last to the first, then added ones from the first to the last.
/// So each index is right when its change is announced.
void AccessibleTree::note(AccessibleRow* row, const ChildSteps& steps) {
  using Kind = atspi::ChildChange::Kind;
  const QAccessible::Id parent = row ? row->id() : 0;
  const auto childAt = [&](std::size_t index) {
    QAccessibleInterface* at =
        !row ? child(static_cast<int>(index))
             : (index < row->known.size() ? object(row, row->known[index]) : nullptr);
    const auto* known = dynamic_cast<AccessibleObject*>(at);
    return known ? known->id() : 0;
  };
  if (!steps.areComplete || steps.removed.size() + steps.inserted.size() > mostSentOneByOne) {
    childChanges_.push_back({Kind::unlisted, parent, 0, childAt(0)});
    return;
  }
  for (const auto& [index, gone] : steps.removed | std::views::reverse) {
    childChanges_.push_back({Kind::removed, parent, index, gone});
  }
  for (const std::size_t index : steps.inserted) {
    childChanges_.push_back({Kind::added, parent, index, childAt(index)});
  }
}

}  // namespace vemra::qt
