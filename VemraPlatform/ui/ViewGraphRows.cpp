// The rows of a ForEach: described when asked for, put to sleep when nobody looks.

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/ui/ListDiff.hpp"
#include "VemraPlatform/ui/Rows.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace vemra::ui {

namespace {

// Rows that are described for a look only are kept for the next look, up to so many.
constexpr std::size_t maximumLookedAt = 64;

bool hasState(const Node& node) {
  if (node.state && !node.state->isInitial()) return true;
  if (node.rows && !node.rows->asleep.empty()) return true;
  return std::ranges::any_of(node.children, [](const Node* child) { return hasState(*child); });
}

SleepingRow putToSleep(const RowSource& rows, Node& row);

/// Takes the state that left its initial value out of a subtree.
void collectState(Node& node, IdentityPath& path, SavedState& saved) {
  if (node.state && !node.state->isInitial()) {
    node.state->sleep();
    saved.cells.emplace_back(path, std::exchange(node.state, nullptr));
  }
  if (node.rows) {
    std::vector<SleepingRow> asleep = std::exchange(node.rows->asleep, {});
    for (Node* row : node.children) {
      if (hasState(*row)) asleep.push_back(putToSleep(*node.rows->source, *row));
    }
    if (!asleep.empty()) saved.lists.emplace_back(path, std::move(asleep));
    return;
  }
  for (Node* child : node.children) {
    path.push_back(child->identity);
    collectState(*child, path, saved);
    path.pop_back();
  }
}

SleepingRow putToSleep(const RowSource& rows, Node& row) {
  SleepingRow sleeping{row.rowID, rowIdentities(rows, {row.rowIndex}).front().occurrence, {}};
  IdentityPath path;
  collectState(row, path, sleeping.state);
  return sleeping;
}

}  // namespace

/// The row that is being woken, and what it had.
struct ViewGraph::Restoring {
  const Node* row;
  SavedState state;
};

void SavedState::detach() {
  for (auto& [path, cell] : cells) cell->detach();
  for (auto& [path, list] : lists) {
    for (SleepingRow& row : list) row.state.detach();
  }
}

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
void ViewGraph::resolveRows(Node& forEach, bool emitting) {
  forgetLookedAtRows(forEach);
  Rows& rows = *forEach.rows;
  const auto before = std::exchange(
      rows.source, std::get<ForEachContent>(forEach.element.description().content).rows);
  const RowSource& after = *rows.source;
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
    for (const Node* row : forEach.children) indexes.push_back(row->rowIndex);
    std::vector<RowIdentity> identities;
    if (before) identities = rowIdentities(*before, indexes);
    for (const SleepingRow& row : rows.asleep) identities.push_back({row.key, row.occurrence});
    places = locateRows(after, identities);
    std::vector<SleepingRow> asleep;
    for (std::size_t i = 0; i < rows.asleep.size(); ++i) {
      if (places[indexes.size() + i] == absentRow) {
        rows.asleep[i].state.detach();
      } else {
        asleep.push_back(std::move(rows.asleep[i]));
      }
    }
    rows.asleep = std::move(asleep);
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
      view = describeRow(forEach, places[i]);
      const Identity identity = identityOf(view, 0);
      same = identity.type == row->identity.type && identity.branch == row->identity.branch;
      indexesChanged = indexesChanged || places[i] != row->rowIndex;
      kept.push_back({places[i], same ? row : nullptr, std::move(view)});
    }
    if (same) {
      forEach.children.push_back(row);
    } else {
      if (emitting) emit(Patch::Kind::remove, *row, {});
      destroy(*row);
    }
  }
  std::ranges::sort(kept, {}, &RowPlace::index);
  std::vector<RowPlace> wanted = kept;
  if (demandsEverything(forEach)) {
    wanted.assign(count, {});
    for (std::size_t index = 0; index < count; ++index) wanted[index].index = index;
    for (RowPlace& place : kept) wanted[place.index] = place;
  } else if (emitting && indexesChanged) {
    // The rows' order may be the same while their places in the whole list are not.
    emit(Patch::Kind::update, forEach, {});
  }
  placeRows(forEach, std::move(wanted), emitting);
  for (const RowPlace& place : kept) {
    if (!place.node) continue;
    place.node->rowIndex = place.index;
    place.node->rowID = after.key(place.index);
    update(*place.node, place.view, emitting);
  }
}

/// Makes the shown rows be those in `places` (ascending). Others go to sleep.
void ViewGraph::placeRows(Node& forEach, std::vector<RowPlace> places, bool emitting) {
  enum class Arrival { stays, mounted, uncovered };
  Rows& rows = *forEach.rows;
  std::vector<NodeID> before;
  for (const Node* row : forEach.children) before.push_back(row->id);

  std::vector<NodeID> after;
  std::vector<Node*> children;
  std::unordered_map<NodeID, Arrival> arrivals;
  for (RowPlace& place : places) {
    Arrival arrival = Arrival::stays;
    if (!place.node) {
      auto lookedAt = std::ranges::find(rows.lookedAt, place.index, &Node::rowIndex);
      if (lookedAt != rows.lookedAt.end()) {
        place.node = *lookedAt;
        place.node->isShown = true;
        rows.lookedAt.erase(lookedAt);
        arrival = Arrival::uncovered;
      } else {
        if (place.view.isAbsent()) place.view = describeRow(forEach, place.index);
        place.node = &allocateRow(forEach, place.index, place.view);
        arrival = Arrival::mounted;
      }
    }
    arrivals.emplace(place.node->id, arrival);
    after.push_back(place.node->id);
    children.push_back(place.node);
  }
  const std::vector<ListOperation> operations = diff(before, after);
  forEach.children = std::move(children);
  for (const ListOperation& operation : operations) {
    Node& row = *mutableNode(operation.item);
    switch (operation.kind) {
      case ListOperation::Kind::remove:
        if (emitting) emit(Patch::Kind::remove, row, {});
        sleepRow(forEach, row);
        break;
      case ListOperation::Kind::move:
        if (emitting) emit(Patch::Kind::move, row, operation.after);
        break;
      case ListOperation::Kind::insert:
        if (arrivals.at(row.id) == Arrival::mounted) {
          mountRow(forEach, row, operation.after, emitting);
        } else if (emitting) {
          emitInserted(row, operation.after);
        }
        break;
    }
  }
}

void ViewGraph::applyRowRequest(const RowRequest& request) {
  Node* forEach = mutableNode(request.forEach);
  if (!forEach || !forEach->rows || demandsEverything(*forEach)) return;
  const std::size_t count = forEach->rows->source->count();
  std::vector<RowPlace> places;
  auto shown = forEach->children.begin();
  for (const RowRange& range : request.ranges) {
    for (std::size_t index = range.first; index < std::min(range.last, count); ++index) {
      while (shown != forEach->children.end() && (*shown)->rowIndex < index) ++shown;
      const bool there = shown != forEach->children.end() && (*shown)->rowIndex == index;
      places.push_back({index, there ? *shown : nullptr, {}});
    }
  }
  placeRows(*forEach, std::move(places), emits(*forEach));
}

NodeID ViewGraph::lookAtRow(NodeID id, std::size_t index) {
  Node* forEach = mutableNode(id);
  if (!forEach || !forEach->rows || index >= forEach->rows->source->count()) return {};
  auto shown = std::ranges::lower_bound(forEach->children, index, {}, &Node::rowIndex);
  if (shown != forEach->children.end() && (*shown)->rowIndex == index) return (*shown)->id;
  std::vector<Node*>& lookedAt = forEach->rows->lookedAt;
  auto found = std::ranges::find(lookedAt, index, &Node::rowIndex);
  if (found != lookedAt.end()) return (*found)->id;
  if (busy_) return {};

  ++pass_;
  Node& row = allocateRow(*forEach, index, describeRow(*forEach, index));
  row.isShown = false;
  lookedAt.push_back(&row);
  mountRow(*forEach, row, {}, false);
  if (lookedAt.size() > maximumLookedAt) {
    Node& oldest = *lookedAt.front();
    lookedAt.erase(lookedAt.begin());
    sleepRow(*forEach, oldest);
  }
  return row.id;
}

View ViewGraph::describeRow(const Node& forEach, std::size_t index) {
  ++work_.rows;
  const bool outer = std::exchange(describing_, true);
  View row = forEach.rows->source->row(index);
  describing_ = outer;
  return row.isAbsent() ? View(Group({})) : row;
}

Node& ViewGraph::allocateRow(Node& forEach, std::size_t index, const View& view) {
  Node& row = allocate(&forEach, view, identityOf(view, 0));
  row.isRow = true;
  row.rowIndex = index;
  row.rowID = forEach.rows->source->key(index);
  return row;
}

void ViewGraph::mountRow(Node& forEach, Node& row, NodeID after, bool emitting) {
  std::vector<SleepingRow>& asleep = forEach.rows->asleep;
  Restoring restoring{&row, {}};
  const bool maySleep = std::ranges::any_of(
      asleep, [&](const SleepingRow& other) { return text::equal(other.key, row.rowID); });
  if (maySleep) {
    ++work_.idPasses;
    const auto occurrence = rowIdentities(*forEach.rows->source, {row.rowIndex}).front().occurrence;
    auto same = std::ranges::find_if(asleep, [&](const SleepingRow& other) {
      return other.occurrence == occurrence && text::equal(other.key, row.rowID);
    });
    if (same != asleep.end()) {
      restoring.state = std::move(same->state);
      asleep.erase(same);
    }
  }
  Restoring* outer = std::exchange(restoring_, &restoring);
  mount(row, after, emitting);
  restoring_ = outer;
  restoring.state.detach();  // what found no place again is gone
}

void ViewGraph::restoreState(Node& node) {
  if (!restoring_ || restoring_->state.isEmpty()) return;
  IdentityPath path;
  for (const Node* place = &node; place != restoring_->row; place = place->parent) {
    if (!place) return;
    path.insert(path.begin(), place->identity);
  }
  if (node.rows) {
    std::erase_if(restoring_->state.lists, [&](auto& saved) {
      if (saved.first != path) return false;
      node.rows->asleep = std::move(saved.second);
      return true;
    });
    return;
  }
  std::erase_if(restoring_->state.cells, [&](auto& saved) {
    if (saved.first != path) return false;
    node.state = std::move(saved.second);
    return true;
  });
}

/// Takes a row's nodes away and keeps what state has left its initial value.
void ViewGraph::sleepRow(Node& forEach, Node& row) {
  if (hasState(row)) {
    ++work_.idPasses;
    forEach.rows->asleep.push_back(putToSleep(*forEach.rows->source, row));
  }
  destroy(row);
}

void ViewGraph::forgetLookedAtRows(Node& forEach) {
  for (Node* row : std::exchange(forEach.rows->lookedAt, {})) sleepRow(forEach, *row);
}

}  // namespace vemra::ui
