#include "VemraQt/accessibility/AccessibleTree.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "VemraQt/Page.hpp"
#include "VemraQt/accessibility/AccessibleObjects.hpp"

#include <algorithm>

#include <QAbstractScrollArea>
#include <QTimer>

namespace vemra::qt {

using ui::ElementKind;
using ui::NodeID;

std::shared_ptr<const ui::RowSource> rowSourceOf(const ui::Node& forEach) {
  return std::get<ui::ForEachContent>(forEach.element.description().content).rows;
}

AccessibleTree::AccessibleTree(QAbstractScrollArea& area, Page& page) : area_(area), page_(page) {
  publishIdentifiers();
  addIdentifierSource(*this);
}

AccessibleTree::~AccessibleTree() {
  removeIdentifierSource(*this);
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

AccessibleElement* AccessibleTree::objectOf(const RenderNode& leaf) {
  const RenderNode* rowNode = rowOf(const_cast<RenderNode*>(&leaf));
  AccessibleRow* row = rowNode ? rowAt(rowNode->parent->id, rowNode->rowIndex) : nullptr;
  if (rowNode && !row) return nullptr;
  for (ElementSlot& slot : elementsOf(row)) {
    if (slot.node == leaf.id) return object(row, slot);
  }
  return nullptr;
}

void AccessibleTree::refreshPage() {
  if (pageVersion_ == page_.version()) return;
  pageVersion_ = page_.version();
  const ui::Node* root = page_.graph().root();
  std::vector<ElementSlot> fresh;
  if (root) fresh = elementsUnder(*root, page_.graph());
  adopt(nullptr, slots_, std::move(fresh));
  segments_.clear();
  std::size_t first = 0;
  std::unordered_map<NodeID, List> lists;
  for (std::size_t place = 0; place < slots_.size(); ++place) {
    Segment segment{place, {}, first, 1};
    if (slots_[place].kind == ElementKind::forEach) {
      const ui::Node* list = find(slots_[place].node);
      segment.list = slots_[place].node;
      segment.count = list ? list->element.rowCount() : 0;
      if (auto known = lists_.extract(segment.list)) lists.insert(std::move(known));
    }
    first += segment.count;
    segments_.push_back(segment);
  }
  std::swap(lists, lists_);
  for (auto& [node, list] : lists) {
    for (auto& [index, row] : list.rows) {
      if (announcing_) departed_.push_back(row->id());
      bury(*row);
    }
  }
}

/// Takes up a new list of elements; objects stay with their paths.
void AccessibleTree::adopt(AccessibleRow* row, std::vector<ElementSlot>& elements,
                           std::vector<ElementSlot> fresh) {
  const bool wasKnown = !elements.empty();
  std::vector<bool> isOld(fresh.size(), false);
  std::vector<AccessibleElement*> leaving;
  std::size_t next = 0;  // what stood behind the last one stands there still, mostly
  for (const ElementSlot& old : elements) {
    std::size_t place = fresh.size();
    for (std::size_t i = 0; i < fresh.size() && place == fresh.size(); ++i) {
      const std::size_t candidate = (next + i) % fresh.size();
      const bool same = fresh[candidate].path == old.path && fresh[candidate].kind == old.kind;
      if (same && !isOld[candidate]) place = candidate;
    }
    if (place < fresh.size()) {
      isOld[place] = true;
      fresh[place].object = old.object;
      fresh[place].enabled = old.enabled;
      fresh[place].shown = old.shown;
      next = place + 1;
    } else if (old.object) {
      leaving.push_back(old.object);
    }
  }
  elements = std::move(fresh);
  for (AccessibleElement* gone : leaving) {
    if (announcing_) departed_.push_back(gone->id());
    bury(*gone);
  }
  if (!announcing_ || !wasKnown) return;
  for (std::size_t i = 0; i < isOld.size() && i < elements.size(); ++i) {
    if (isOld[i]) continue;
    if (elements[i].kind == ElementKind::forEach) {
      changedLists_.push_back(elements[i].node);  // its rows have arrived with it
    } else {
      arrived_.push_back(object(row, elements[i])->id());
    }
  }
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
      adopt(row, row->known, elementsUnder(*node, page_.graph()));
      row->knownAt = described();
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
  list.source = rowSourceOf(*node);
  auto [found, isNew] = list.rows.try_emplace(index, nullptr);
  if (isNew) {
    found->second = new AccessibleRow(*this, listID, index, std::string(list.source->key(index)));
    found->second->remember(QAccessible::registerAccessibleInterface(found->second));
  }
  return found->second;
}

/// Rows that are known follow their ids to other places; rows whose id is gone go.
void AccessibleTree::refreshList(NodeID listID) {
  auto known = lists_.find(listID);
  const ui::Node* node = find(listID);
  if (known == lists_.end() || !node) return;
  List& list = known->second;
  const auto source = rowSourceOf(*node);
  if (list.source == source) return;
  const bool inPlace = std::ranges::all_of(list.rows, [&](const auto& entry) {
    return entry.first < source->count() &&
           text::equal(source->key(entry.first), entry.second->rowID);
  });
  if (!inPlace) {
    std::vector<std::size_t> before;
    before.reserve(list.rows.size());
    for (const auto& [index, row] : list.rows) before.push_back(index);
    std::ranges::sort(before);
    const auto identities = ui::rowIdentities(*list.source, before);
    const auto after = ui::locateRows(*source, identities);
    std::unordered_map<std::size_t, AccessibleRow*> rows;
    for (std::size_t i = 0; i < before.size(); ++i) {
      AccessibleRow* row = list.rows.at(before[i]);
      if (after[i] != ui::absentRow && rows.try_emplace(after[i], row).second) {
        row->index = after[i];
      } else {
        if (announcing_) departed_.push_back(row->id());
        bury(*row);
      }
    }
    list.rows = std::move(rows);
  }
  list.source = source;
  list.identifiers.reset();
}

const ui::Node* AccessibleTree::nodeOf(AccessibleRow& row) {
  refreshPage();
  refreshList(row.list);
  return row.isLeaving() ? nullptr : find(page_.graph().lookAtRow(row.list, row.index));
}

AccessibleRow* AccessibleTree::knownRow(NodeID rowNode) const {
  const RenderNode* node = page_.tree().find(rowNode);
  if (!node || !node->isRow()) return nullptr;
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
