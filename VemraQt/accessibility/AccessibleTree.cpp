#include "VemraQt/accessibility/AccessibleTree.hpp"

#include "VemraQt/accessibility/AccessibleControls.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <optional>
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
  // A client that hears of one deleted object may ask the next one, which must not find the first.
  hasEnded_ = true;
  slots_.clear();
  outline_ = PageOutline();
  lists_.clear();
  leaving_.deleteAll();
}

int AccessibleTree::childCountOf(std::uint64_t section) {
  refresh();
  return static_cast<int>(outline_.under(section).size());
}

QAccessibleInterface* AccessibleTree::childOf(std::uint64_t section, int index) {
  refresh();
  const std::vector<std::size_t>& children = outline_.under(section);
  if (index < 0 || index >= static_cast<int>(children.size())) return nullptr;
  return object(nullptr, slots_[children[static_cast<std::size_t>(index)]]);
}

int AccessibleTree::indexIn(std::uint64_t section, const QAccessibleInterface* sought) {
  refresh();
  const std::vector<std::size_t>& children = outline_.under(section);
  const auto found = std::ranges::find_if(
      children, [&](std::size_t slot) { return slots_[slot].object == sought; });
  const bool isThere = sought && found != children.end();
  return isThere ? static_cast<int>(found - children.begin()) : -1;
}

QAccessibleInterface* AccessibleTree::sectionAround(std::uint64_t path) {
  refresh();
  const std::optional<std::size_t> inside = outline_.slotAt(path);
  if (!inside || slots_[*inside].section == 0) return pageObject();
  const std::optional<std::size_t> section = outline_.slotAt(slots_[*inside].section);
  return section ? object(nullptr, slots_[*section]) : pageObject();
}

QString AccessibleTree::identifierAt(std::uint64_t path) {
  refresh();
  const std::optional<std::size_t> slot = outline_.slotAt(path);
  const ui::Node* node = slot ? find(slots_[*slot].node) : nullptr;
  return (node ? toQString(node->element.accessibilityIdentifier()) : QString()) +
         QStringLiteral("");
}

QAccessibleInterface* AccessibleTree::listObject(ui::NodeID list) {
  refresh();
  const auto slot = std::ranges::find(slots_, list, &ElementSlot::node);
  return slot == slots_.end() ? pageObject() : object(nullptr, *slot);
}

QString AccessibleTree::title() {
  refresh();
  for (const ElementSlot& slot : slots_) {
    const ui::Node* node = slot.kind == ui::ElementKind::text ? find(slot.node) : nullptr;
    if (node && headingLevel(node->element) == 1) return toQString(node->element.shownLabel());
  }
  return {};
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
      if (wasKnown) noteInRow(*row, steps);
    }
  }
  return row->known;
}

AccessibleObject* AccessibleTree::object(AccessibleRow* row, ElementSlot& slot) {
  if (!slot.object) slot.object = makeAccessibleObject(*this, row, slot);
  return slot.object;
}

AccessibleRow* AccessibleTree::rowAt(NodeID listID, std::size_t index) {
  refreshList(listID);
  const ui::Node* node = find(listID);
  if (hasEnded_ || !node || index >= node->element.rowCount()) return nullptr;
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

void AccessibleTree::refresh() {
  if (hasEnded_ || pageVersion_ == page().version()) return;
  const bool wasKnown = hasBeenAsked();
  pageVersion_ = page().version();
  // When another page has attached to the graph, this page has no root and shows nothing.
  const ui::Node* root = page().tree().root() ? page().graph().root() : nullptr;
  const ChildSteps ofSlots =
      adopt(slots_, root ? elementsUnder(root->id, page()) : std::vector<ElementSlot>(), leaving_);
  const PageOutline before = std::exchange(outline_, PageOutline(slots_));
  std::unordered_map<NodeID, KnownRows> gone = std::exchange(lists_, {});
  std::vector<std::pair<NodeID, ChildSteps>> ofRows;
  for (const ElementSlot& slot : slots_) {
    if (slot.kind != ui::ElementKind::forEach) continue;
    auto known = gone.extract(slot.node);
    if (known) lists_.insert(std::move(known));
    KnownRows& rows = lists_[slot.node];
    if (const auto ids = page().graph().rowIDs(slot.node)) {
      ofRows.emplace_back(slot.node, rows.follow(ids, page().errors(), leaving_));
    }
  }
  for (auto& [id, list] : gone) list.leave(leaving_);
  if (!wasKnown) return;
  for (const auto& [section, steps] : stepsBySection(before, outline_, ofSlots)) {
    noteInSection(section, steps);
  }
  for (const auto& [list, steps] : ofRows) noteInList(list, steps);
}

void AccessibleTree::refreshList(NodeID listID) {
  refresh();
  const auto known = lists_.find(listID);
  const auto ids = page().graph().rowIDs(listID);
  if (known == lists_.end() || !ids) return;
  // The source can change without a new version of the page, but only while the graph handles an
  // event.
  noteInList(listID, known->second.follow(ids, page().errors(), leaving_));
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

void AccessibleTree::noteInRow(AccessibleRow& row, const ChildSteps& steps) {
  note(row.id(), steps, [&](std::size_t index) {
    return index < row.known.size() ? object(&row, row.known[index]) : nullptr;
  });
}

/// Changes in a list are announced only when a client has asked for the list.
void AccessibleTree::noteInList(NodeID list, const ChildSteps& steps) {
  const auto slot = std::ranges::find(slots_, list, &ElementSlot::node);
  if (slot == slots_.end() || !slot->object) return;
  note(slot->object->id(), steps, [&](std::size_t index) { return rowAt(list, index); });
}

/// Changes in a section are announced only when a client has asked for the section.
void AccessibleTree::noteInSection(std::uint64_t path, const ChildSteps& steps) {
  const std::optional<std::size_t> slot = outline_.slotAt(path);
  const bool isKnown = path == 0 || (slot && slots_[*slot].object);
  if (!isKnown) return;
  note(path ? slots_[*slot].object->id() : 0, steps, [&](std::size_t index) {
    return dynamic_cast<AccessibleObject*>(childOf(path, static_cast<int>(index)));
  });
}

/// Notes removed children from the last to the first, then added ones from the first to the last.
/// So each index is right when its change is announced. `childAt` returns the child at an index,
/// nullptr when there is none.
template <class ChildAt>
void AccessibleTree::note(QAccessible::Id parent, const ChildSteps& steps, ChildAt childAt) {
  using Kind = atspi::ChildChange::Kind;
  const auto idAt = [&](std::size_t index) {
    const AccessibleObject* known = childAt(index);
    return known ? known->id() : 0;
  };
  if (!steps.areComplete || steps.removed.size() + steps.inserted.size() > mostSentOneByOne) {
    childChanges_.push_back({Kind::unlisted, parent, 0, idAt(0)});
    return;
  }
  for (const auto& [index, gone] : steps.removed | std::views::reverse) {
    childChanges_.push_back({Kind::removed, parent, index, gone});
  }
  for (const std::size_t index : steps.inserted) {
    childChanges_.push_back({Kind::added, parent, index, idAt(index)});
  }
}

}  // namespace vemra::qt
