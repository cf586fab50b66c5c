#include "VemraPlatform/ui/RowStore.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/ui/ElementAccess.hpp"
#include "VemraPlatform/ui/ListDiff.hpp"

#include <algorithm>
#include <utility>

namespace vemra::ui {

namespace {

// The number of rows described without being shown that are kept for later calls of `peek`.
constexpr std::size_t maximumPeeked = 64;

}  // namespace

RowStore::RowStore(RowNodes& nodes, PatchRecorder& patches, WorkCount& work)
    : nodes_(nodes), patches_(patches), work_(work), waking_(work) {}

bool RowStore::demandsEverything(const Node& forEach) const {
  const Renderer* const renderer = patches_.renderer();
  if (renderer && renderer->rowDemand() == RowDemand::everything) return true;
  // A picker needs all its rows at once: they are few and are part of the picker.
  for (const Node* place = forEach.parent; place; place = place->parent) {
    if (place->element.kind() == ElementKind::picker) return true;
  }
  return false;
}

/// When no row has state and every present row is still at its index, this reads only the ids of
/// the present rows. Otherwise it finds each present row, and each row with saved state, in one
/// pass over the old ids and one over the new ids.
void RowStore::reconcile(Node& forEach, Emission emission) {
  sleep(forEach, std::exchange(memoryOf(forEach).rows->peeked, {}));
  Rows& rows = *memoryOf(forEach).rows;
  const auto before = std::exchange(
      rows.source,
      std::get<ForEachContent>(ElementAccess::description(forEach.element).content).rows);
  const RowSource& after = *rows.source;
  if (before != rows.source) patches_.recordRows(forEach, emission);
  const std::size_t count = after.count();

  const bool inPlace = std::ranges::all_of(forEach.children, [&](const Node* row) {
    return row->rowIndex < count && text::equal(after.key(row->rowIndex), row->rowID);
  });
  const bool stateful =
      !rows.asleep.empty() ||
      std::ranges::any_of(forEach.children, [](const Node* row) { return hasState(*row); });
  const bool allThere = before && forEach.children.size() == before->count();
  std::vector<std::size_t> places;
  if (inPlace && (!stateful || (allThere && rows.asleep.empty()))) {
    for (const Node* row : forEach.children) places.push_back(row->rowIndex);
  } else {
    ++work_.idPasses;
    std::vector<std::size_t> indexes;
    indexes.reserve(forEach.children.size());
    for (const Node* row : forEach.children) indexes.push_back(row->rowIndex);
    std::vector<RowIdentity> identities;
    if (before) identities = rowIdentities(*before, indexes);
    for (const auto& [key, occurrences] : rows.asleep) {
      for (const auto& [occurrence, row] : occurrences) identities.push_back({key, occurrence});
    }
    places = locateRows(after, identities);
    auto place = places.begin() + static_cast<std::ptrdiff_t>(indexes.size());
    SleepingRows asleep;
    for (auto& [key, occurrences] : rows.asleep) {
      for (auto& [occurrence, row] : occurrences) {
        if (*place++ != absentRow) asleep[key].emplace(occurrence, std::move(row));
      }
    }
    rows.asleep = std::move(asleep);  // the list no longer contains the others
  }

  // Describe the rows that are still in the list; remove the others with their state.
  std::vector<Place> kept;
  const std::vector<Node*> shown = std::exchange(childNodesOf(forEach), {});
  for (std::size_t i = 0; i < shown.size(); ++i) {
    Node* row = shown[i];
    View view;
    bool same = false;
    if (places[i] != absentRow) {
      const std::optional<View> described = describe(forEach, places[i]);
      view = described ? *described : ElementAccess::view(row->element);
      same = !described || sameKind(identityOf(view, 0), row->identity);
      kept.push_back({places[i], same ? row : nullptr, std::move(view)});
    }
    if (same) {
      childNodesOf(forEach).push_back(row);
    } else {
      patches_.record(Patch::Kind::remove, *row, {}, emission);
      nodes_.remove(*row);
    }
  }
  std::ranges::sort(kept, {}, &Place::index);
  std::vector<Place> wanted = kept;
  if (demandsEverything(forEach)) {
    wanted.assign(count, {});
    for (std::size_t index = 0; index < count; ++index) wanted[index].index = index;
    for (Place& place : kept) wanted[place.index] = place;
  }
  place(forEach, std::move(wanted), emission);
  for (const Place& place : kept) {
    if (!place.node) continue;
    place.node->rowID = after.key(place.index);
    nodes_.update(*place.node, place.view, emission);
  }
}

/// Makes the rows in `places` (ascending) the shown rows. Other shown rows go to sleep.
void RowStore::place(Node& forEach, std::vector<Place> places, Emission emission) {
  Rows& rows = *memoryOf(forEach).rows;
  if (forEach.children.empty() && rows.asleep.empty() && rows.peeked.empty()) {
    placeFirst(forEach, places, emission);
    return;
  }
  std::vector<NodeID> before;
  before.reserve(forEach.children.size());
  for (const Node* row : forEach.children) before.push_back(row->id);

  std::vector<NodeID> after;
  std::vector<Node*> children;
  std::vector<Node*> mounted;
  std::vector<Node*> leaving;
  after.reserve(places.size());
  children.reserve(places.size());
  bool rowsMoved = false;
  for (Place& place : places) {
    // A row's index in the whole list may change while the order of the shown rows does not.
    rowsMoved = rowsMoved || !place.node || place.node->rowIndex != place.index;
    if (place.node) {
      place.node->rowIndex = place.index;
    } else {
      auto peeked = std::ranges::find(rows.peeked, place.index, &Node::rowIndex);
      if (peeked != rows.peeked.end()) {
        place.node = *peeked;
        place.node->isShown = true;
        rows.peeked.erase(peeked);
      } else {
        place.node = &allocate(forEach, place);
        mounted.push_back(place.node);
      }
    }
    after.push_back(place.node->id);
    children.push_back(place.node);
  }
  const std::vector<ListOperation> operations = diff(before, after);
  auto nextMounted = mounted.begin();  // in the order of the list, like the insertions
  childNodesOf(forEach) = std::move(children);
  WakingState::OfRows waking = waking_.take(forEach, mounted);
  for (const ListOperation& operation : operations) {
    Node& row = nodes_.at(operation.item);
    switch (operation.kind) {
      case ListOperation::Kind::remove:
        patches_.record(Patch::Kind::remove, row, {}, emission);
        leaving.push_back(&row);
        break;
      case ListOperation::Kind::move:
        patches_.record(Patch::Kind::move, row, operation.after, emission);
        break;
      case ListOperation::Kind::insert:
        if (nextMounted != mounted.end() && *nextMounted == &row) {
          ++nextMounted;
          mount(row, waking, operation.after, emission);
        } else if (emission == Emission::recorded) {
          patches_.recordTree(row, operation.after);
        }
        break;
    }
  }
  sleep(forEach, leaving);
  if (rowsMoved) patches_.recordRows(forEach, emission);
}

/// Does what `place` does, for a list that has no rows yet, neither shown nor asleep: it describes
/// and mounts one row after the other, so that a row's description is still in the processor's
/// cache when its nodes are made.
void RowStore::placeFirst(Node& forEach, const std::vector<Place>& places, Emission emission) {
  childNodesOf(forEach).reserve(places.size());
  WakingState::OfRows nothingAsleep;
  NodeID after;
  for (const Place& place : places) {
    Node& row = allocate(forEach, place);
    childNodesOf(forEach).push_back(&row);
    mount(row, nothingAsleep, after, emission);
    after = row.id;
  }
  if (!places.empty()) patches_.recordRows(forEach, emission);
}

void RowStore::show(Node& forEach, std::vector<RowRange> ranges) {
  const std::size_t count = memoryOf(forEach).rows->source->count();
  std::ranges::sort(ranges, {}, &RowRange::first);
  const std::vector<Node*>& children = childNodesOf(forEach);
  std::vector<Place> places;
  places.reserve(children.size() + 1);
  std::size_t next = 0;
  auto shown = children.begin();
  for (const RowRange& range : ranges) {
    for (next = std::max(next, range.first); next < std::min(range.last, count); ++next) {
      while (shown != children.end() && (*shown)->rowIndex < next) ++shown;
      const bool there = shown != children.end() && (*shown)->rowIndex == next;
      places.push_back({next, there ? *shown : nullptr, {}});
    }
  }
  place(forEach, std::move(places), patches_.emissionAt(forEach));
}

std::optional<View> RowStore::describe(const Node& forEach, std::size_t index) {
  ++work_.rows;
  std::optional<View> row = nodes_.describeRow(*memoryOf(forEach).rows->source, index);
  // An absent row still counts as a row.
  if (row && row->isAbsent()) row = Group({});
  return row;
}

Node& RowStore::allocate(Node& forEach, const Place& place) {
  return allocate(
      forEach, place.index,
      place.view.isAbsent() ? describe(forEach, place.index) : std::optional(place.view));
}

/// Makes the node of a row. For a row whose description failed it makes an empty stand-in; no view
/// has the stand-in's identity, so the next description replaces it.
Node& RowStore::allocate(Node& forEach, std::size_t index, const std::optional<View>& view) {
  const View shown = view ? *view : Group({});
  Node& row = nodes_.allocate(&forEach, shown, view ? identityOf(shown, 0) : Identity{});
  row.isRow = true;
  row.rowIndex = index;
  row.rowID = memoryOf(forEach).rows->source->key(index);
  return row;
}

const Node* RowStore::find(const Node& forEach, std::size_t index) {
  const auto shown = std::ranges::lower_bound(forEach.children, index, {}, &Node::rowIndex);
  if (shown != forEach.children.end() && (*shown)->rowIndex == index) return *shown;
  const std::vector<Node*>& peeked = memoryOf(forEach).rows->peeked;
  const auto found = std::ranges::find(peeked, index, &Node::rowIndex);
  return found == peeked.end() ? nullptr : *found;
}

const Node& RowStore::peek(Node& forEach, std::size_t index) {
  Node& row = allocate(forEach, index, describe(forEach, index));
  row.isShown = false;
  std::vector<Node*>& peeked = memoryOf(forEach).rows->peeked;
  peeked.push_back(&row);
  WakingState::OfRows taken = waking_.take(forEach, {&row});
  mount(row, taken, {}, Emission::silent);
  if (peeked.size() > maximumPeeked) {
    Node& oldest = *peeked.front();
    peeked.erase(peeked.begin());
    sleep(forEach, {&oldest});
  }
  return row;
}

std::vector<std::size_t> RowStore::withState(const Node& forEach) {
  std::vector<std::size_t> indexes;
  const Rows& rows = *memoryOf(forEach).rows;
  const auto addIndexes = [&](const auto& present) {
    for (const Node* row : present) {
      if (hasState(*row)) indexes.push_back(row->rowIndex);
    }
  };
  addIndexes(forEach.children);
  addIndexes(rows.peeked);
  if (!rows.asleep.empty()) {
    ++work_.idPasses;
    std::vector<RowIdentity> identities;
    for (const auto& [key, occurrences] : rows.asleep) {
      for (const auto& [occurrence, row] : occurrences) identities.push_back({key, occurrence});
    }
    for (const std::size_t index : locateRows(*rows.source, identities)) {
      if (index != absentRow) indexes.push_back(index);
    }
  }
  std::ranges::sort(indexes);
  const auto repeated = std::ranges::unique(indexes);
  indexes.erase(repeated.begin(), repeated.end());
  return indexes;
}

/// Mounts a new row with the state that was saved when it went to sleep.
void RowStore::mount(Node& row, WakingState::OfRows& taken, NodeID after, Emission emission) {
  const auto own = taken.find(row.id);
  const WakingState::Scope scope(waking_, row,
                                 own == taken.end() ? SavedState() : std::move(own->second));
  nodes_.mount(row, after, emission);
}

/// Removes the rows' nodes and saves the state that differs from its initial value.
void RowStore::sleep(Node& forEach, const std::vector<Node*>& rows) {
  work_.idPasses += putToSleep(*memoryOf(forEach).rows, rows);
  for (Node* row : rows) nodes_.remove(*row);
}

}  // namespace vemra::ui
