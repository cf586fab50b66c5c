// The rows of a ForEach: described when asked for, put to sleep when nobody looks.

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/ui/ListDiff.hpp"
#include "VemraPlatform/ui/Rows.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <algorithm>
#include <utility>

namespace vemra::ui {

bool ViewGraph::demandsEverything(const Node& forEach) const {
  if (renderer_ && renderer_->rowDemand() == RowDemand::everything) return true;
  // A menu's rows are part of the picker: few, and wanted as soon as it is there.
  for (const Node* place = forEach.parent; place; place = place->parent) {
    if (place->element.kind() == ElementKind::picker) return true;
  }
  return false;
}

/// Holds a new list against the rows that are there.
///
/// As long as no row has state and every row that is there still stands at its index, no id but
/// theirs is looked at. Otherwise one pass over the old ids and one over the new ones find each row
/// that matters, exactly.
void ViewGraph::resolveRows(Node& forEach, Emission emission) {
  forgetLookedAtRows(forEach);
  Rows& rows = *forEach.rows;
  const auto before = std::exchange(
      rows.source, std::get<ForEachContent>(forEach.element.description().content).rows);
  const RowSource& after = *rows.source;
  if (before && before != rows.source) rowsReplaced_ = true;
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
    rows.asleep = std::move(asleep);  // the others are gone for good
  }

  // Rows that are still in the list, each with its new description; the others go for good.
  std::vector<RowPlace> kept;
  bool indexesChanged = false;
  const std::vector<Node*> shown = std::exchange(forEach.children, {});
  for (std::size_t i = 0; i < shown.size(); ++i) {
    Node* row = shown[i];
    View view;
    bool same = false;
    if (places[i] != absentRow) {
      const std::optional<View> described = describeRow(forEach, places[i]);
      view = described ? *described : row->element.view();
      same = !described || sameKind(identityOf(view, 0), row->identity);
      indexesChanged = indexesChanged || places[i] != row->rowIndex;
      kept.push_back({places[i], same ? row : nullptr, std::move(view)});
    }
    if (same) {
      forEach.children.push_back(row);
    } else {
      recordPatch(Patch::Kind::remove, *row, {}, emission);
      destroy(*row);
    }
  }
  std::ranges::sort(kept, {}, &RowPlace::index);
  std::vector<RowPlace> wanted = kept;
  if (demandsEverything(forEach)) {
    wanted.assign(count, {});
    for (std::size_t index = 0; index < count; ++index) wanted[index].index = index;
    for (RowPlace& place : kept) wanted[place.index] = place;
  } else if (indexesChanged) {
    // The rows' order may be the same while their places in the whole list are not.
    recordPatch(Patch::Kind::update, forEach, {}, emission);
  }
  placeRows(forEach, std::move(wanted), emission);
  for (const RowPlace& place : kept) {
    if (!place.node) continue;
    place.node->rowIndex = place.index;
    place.node->rowID = after.key(place.index);
    update(*place.node, place.view, emission);
  }
}

/// Makes the shown rows be those in `places` (ascending). Others go to sleep.
void ViewGraph::placeRows(Node& forEach, std::vector<RowPlace> places, Emission emission) {
  Rows& rows = *forEach.rows;
  if (forEach.children.empty() && rows.asleep.empty() && rows.lookedAt.empty()) {
    placeFirstRows(forEach, places, emission);
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
  for (RowPlace& place : places) {
    if (!place.node) {
      auto lookedAt = std::ranges::find(rows.lookedAt, place.index, &Node::rowIndex);
      if (lookedAt != rows.lookedAt.end()) {
        place.node = *lookedAt;
        place.node->isShown = true;
        rows.lookedAt.erase(lookedAt);
      } else {
        place.node = &allocateRow(forEach, place);
        mounted.push_back(place.node);
      }
    }
    after.push_back(place.node->id);
    children.push_back(place.node);
  }
  const std::vector<ListOperation> operations = diff(before, after);
  auto nextMounted = mounted.begin();  // in the order of the list, as insertions are
  forEach.children = std::move(children);
  WakingRows waking = wakeRows(forEach, mounted);
  for (const ListOperation& operation : operations) {
    Node& row = *mutableNode(operation.item);
    switch (operation.kind) {
      case ListOperation::Kind::remove:
        recordPatch(Patch::Kind::remove, row, {}, emission);
        leaving.push_back(&row);
        break;
      case ListOperation::Kind::move:
        recordPatch(Patch::Kind::move, row, operation.after, emission);
        break;
      case ListOperation::Kind::insert:
        if (nextMounted != mounted.end() && *nextMounted == &row) {
          ++nextMounted;
          mountRow(row, waking, operation.after, emission);
        } else if (emission == Emission::told) {
          emitInserted(row, operation.after);
        }
        break;
    }
  }
  sleepRows(forEach, leaving);
}

/// The same where there are none yet, neither shown nor asleep: one row after the other, so that
/// what a row says is still in the processor's cache when its nodes are made.
void ViewGraph::placeFirstRows(Node& forEach, const std::vector<RowPlace>& places,
                               Emission emission) {
  forEach.children.reserve(places.size());
  WakingRows nothingAsleep;
  NodeID after;
  for (const RowPlace& place : places) {
    Node& row = allocateRow(forEach, place);
    forEach.children.push_back(&row);
    mountRow(row, nothingAsleep, after, emission);
    after = row.id;
  }
}

void ViewGraph::applyRowRequest(const RowRequest& request) {
  Node* forEach = mutableNode(request.forEach);
  if (!forEach || !forEach->rows || demandsEverything(*forEach)) return;
  const std::size_t count = forEach->rows->source->count();
  std::vector<RowRange> ranges = request.ranges;
  std::ranges::sort(ranges, {}, &RowRange::first);
  std::vector<RowPlace> places;
  places.reserve(forEach->children.size() + 1);
  std::size_t next = 0;
  auto shown = forEach->children.begin();
  for (const RowRange& range : ranges) {
    for (next = std::max(next, range.first); next < std::min(range.last, count); ++next) {
      while (shown != forEach->children.end() && (*shown)->rowIndex < next) ++shown;
      const bool there = shown != forEach->children.end() && (*shown)->rowIndex == next;
      places.push_back({next, there ? *shown : nullptr, {}});
    }
  }
  placeRows(*forEach, std::move(places), emissionOf(*forEach));
}

std::optional<View> ViewGraph::describeRow(const Node& forEach, std::size_t index) {
  ++work_.rows;
  std::optional<View> row = describe([&] { return forEach.rows->source->row(index); });
  // An absent row is still a row.
  if (row && row->isAbsent()) row = Group({});
  return row;
}

Node& ViewGraph::allocateRow(Node& forEach, const RowPlace& place) {
  return allocateRow(
      forEach, place.index,
      place.view.isAbsent() ? describeRow(forEach, place.index) : std::optional(place.view));
}

/// Makes the node of a row, or, for one that could not be described, an empty stand-in: no view has
/// its identity, so that the next description takes its place.
Node& ViewGraph::allocateRow(Node& forEach, std::size_t index, const std::optional<View>& view) {
  const View shown = view ? *view : Group({});
  Node& row = allocate(&forEach, shown, view ? identityOf(shown, 0) : Identity{});
  row.isRow = true;
  row.rowIndex = index;
  row.rowID = forEach.rows->source->key(index);
  return row;
}

}  // namespace vemra::ui
