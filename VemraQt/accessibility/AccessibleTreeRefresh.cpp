// The tree's own picture of the page, brought up to date; what came and went is noted for clients.

#include "VemraPlatform/page/RowChanges.hpp"
#include "VemraPlatform/text/Equality.hpp"
#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <numeric>
#include <ranges>

namespace vemra::qt {

using ui::ElementKind;
using ui::NodeID;

namespace {

// So many children of one parent are told of one by one; of more, that they are others now.
constexpr std::size_t mostToldOneByOne = 32;

}  // namespace

void AccessibleTree::refreshPage() {
  if (pageVersion_ == page_.version()) return;
  const bool wasKnown = hasBeenAsked();
  pageVersion_ = page_.version();
  // Another page may have taken the graph over: this one shows nothing then.
  const ui::Node* root = page_.tree().root() ? page_.graph().root() : nullptr;
  const ChildSteps ofElements =
      adopt(slots_, root ? elementsUnder(root->id, page_) : std::vector<ElementSlot>());
  const std::vector<Segment> before = std::exchange(segments_, segmentsOf(slots_));
  std::unordered_map<NodeID, List> gone = std::exchange(lists_, {});
  std::unordered_map<NodeID, ChildSteps> ofRows;
  for (const Segment& segment : segments_) {
    if (!segment.list) continue;
    auto known = gone.extract(segment.list);
    if (known) lists_.insert(std::move(known));
    lists_.try_emplace(segment.list);
    ofRows[segment.list] = followRows(segment.list);
  }
  for (auto& [id, list] : gone) {
    ChildSteps& steps = ofRows[id];
    std::size_t count = 0;
    const bool isCounted =
        list.source && page_.errors().attempt([&] { count = list.source->count(); });
    steps.areComplete = isCounted && count <= mostToldOneByOne;
    for (std::size_t row = 0; steps.areComplete && row < count; ++row) {
      steps.left.push_back({row, list.idAt(row)});
    }
    for (auto& [index, row] : list.rows) bury(*row);
  }
  if (wasKnown) note(nullptr, stepsOfPage(before, ofElements, ofRows));
}

/// The page's children: one for each slot, or as many as a list has rows.
std::vector<AccessibleTree::Segment> AccessibleTree::segmentsOf(
    const std::vector<ElementSlot>& elements) const {
  std::vector<Segment> segments;
  std::size_t first = 0;
  for (std::size_t place = 0; place < elements.size(); ++place) {
    Segment segment{place, {}, first, 1};
    if (elements[place].kind == ElementKind::forEach) {
      const ui::Node* list = find(elements[place].node);
      segment.list = elements[place].node;
      segment.count = list ? list->element.rowCount() : 0;
    }
    first += segment.count;
    segments.push_back(segment);
  }
  return segments;
}

/// Elements and rows put together, by their places among the page's children.
AccessibleTree::ChildSteps AccessibleTree::stepsOfPage(
    const std::vector<Segment>& before, const ChildSteps& ofElements,
    const std::unordered_map<NodeID, ChildSteps>& ofRows) const {
  ChildSteps steps;
  steps.areComplete = ofElements.areComplete;
  for (const Segment& segment : before) {
    if (segment.list) {
      const auto rows = ofRows.find(segment.list);
      if (rows == ofRows.end()) continue;
      steps.areComplete = steps.areComplete && rows->second.areComplete;
      for (const auto& [index, child] : rows->second.left) {
        steps.left.push_back({segment.first + index, child});
      }
      continue;
    }
    const auto left = std::ranges::find(ofElements.left, segment.slot, &ChildSteps::Left::index);
    if (left != ofElements.left.end()) steps.left.push_back({segment.first, left->child});
  }
  for (const Segment& segment : segments_) {
    if (segment.list) {
      const ChildSteps& rows = ofRows.at(segment.list);
      steps.areComplete = steps.areComplete && rows.areComplete;
      for (const std::size_t index : rows.came) steps.came.push_back(segment.first + index);
    } else if (std::ranges::binary_search(ofElements.came, segment.slot)) {
      steps.came.push_back(segment.first);
    }
  }
  return steps;
}

/// Takes up a new list of elements; objects stay with their paths.
AccessibleTree::ChildSteps AccessibleTree::adopt(std::vector<ElementSlot>& elements,
                                                 std::vector<ElementSlot> fresh) {
  ChildSteps steps;
  std::vector<bool> isOld(fresh.size(), false);
  std::size_t next = 0;  // what stood behind the last one stands there still, mostly
  for (std::size_t index = 0; index < elements.size(); ++index) {
    const ElementSlot& old = elements[index];
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
      if (place < next) steps.areComplete = false;  // one has overtaken another
      next = place + 1;
    } else {
      steps.left.push_back({index, old.object ? old.object->id() : 0});
    }
  }
  const std::vector<ElementSlot> before = std::exchange(elements, std::move(fresh));
  for (const ChildSteps::Left& left : steps.left) {
    if (AccessibleElement* gone = before[left.index].object) bury(*gone);
  }
  for (std::size_t place = 0; place < isOld.size(); ++place) {
    if (!isOld[place]) steps.came.push_back(place);
  }
  return steps;
}

void AccessibleTree::refreshList(NodeID listID) {
  refreshPage();
  // Another source without another version of the page: only while the graph is at work.
  ChildSteps steps = followRows(listID);
  const auto segment = std::ranges::find(segments_, listID, &Segment::list);
  if (segment == segments_.end()) return;
  for (ChildSteps::Left& left : steps.left) left.index += segment->first;
  for (std::size_t& index : steps.came) index += segment->first;
  note(nullptr, steps);
}

/// Rows that are known follow their ids to other places; rows whose id is gone go.
AccessibleTree::ChildSteps AccessibleTree::followRows(NodeID listID) {
  ChildSteps steps;
  auto known = lists_.find(listID);
  const ui::Node* node = find(listID);
  if (known == lists_.end() || !node) return steps;
  List& list = known->second;
  const auto source = page::rowSourceOf(node->element);
  if (list.source == source) return steps;
  if (!page_.errors().attempt([&] { steps = moveRows(list, source); })) {
    // Ids that cannot be read: of the rows that were known none can be found again.
    for (auto& [index, row] : list.rows) bury(*row);
    list.rows.clear();
    steps.areComplete = false;
  }
  list.source = source;
  list.identifiers.reset();
  list.uncompared.clear();
  for (const auto& [index, row] : list.rows) list.uncompared.push_back(row->id());
  return steps;
}

/// Moves the known rows of a list to the places that they have in its new source.
AccessibleTree::ChildSteps AccessibleTree::moveRows(
    List& list, const std::shared_ptr<const ui::RowSource>& source) {
  ChildSteps steps;
  if (list.source) {
    page::RowChanges changes = page::rowChanges(*list.source, *source, mostToldOneByOne);
    steps.areComplete = changes.areComplete;
    for (const std::size_t row : changes.left) steps.left.push_back({row, list.idAt(row)});
    steps.came = std::move(changes.came);
  } else if (source->count() <= mostToldOneByOne) {
    steps.came.resize(source->count());
    std::iota(steps.came.begin(), steps.came.end(), std::size_t{0});
  } else {
    steps.areComplete = false;
  }
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
        bury(*row);
      }
    }
    list.rows = std::move(rows);
  }
  return steps;
}

QAccessible::Id AccessibleTree::List::idAt(std::size_t index) const {
  const auto row = rows.find(index);
  return row == rows.end() ? 0 : row->second->id();
}

/// Notes what is to be told of a row's children, or of the page's. What went is told from the end,
/// what came from the front: so each index is right at its turn, and among all children, too.
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
  if (!steps.areComplete || steps.left.size() + steps.came.size() > mostToldOneByOne) {
    childChanges_.push_back({Kind::unlisted, parent, 0, childAt(0)});
    return;
  }
  for (const auto& [index, gone] : steps.left | std::views::reverse) {
    childChanges_.push_back({Kind::removed, parent, index, gone});
  }
  for (const std::size_t index : steps.came) {
    childChanges_.push_back({Kind::added, parent, index, childAt(index)});
  }
}

}  // namespace vemra::qt
