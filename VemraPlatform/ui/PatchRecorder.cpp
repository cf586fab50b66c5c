#include "VemraPlatform/ui/PatchRecorder.hpp"

#include "VemraPlatform/ui/FirstError.hpp"
#include "VemraPlatform/ui/Rows.hpp"

#include <algorithm>
#include <optional>
#include <utility>

namespace vemra::ui {

namespace {

/// The positions of a list's children among all its rows.
std::vector<RowRange> shownRows(const Node& list) {
  const std::size_t shown = list.children.size();
  if (shown == 0) return {};
  // When the whole list is shown, no walk over its children is needed.
  if (shown == memoryOf(list).rows->source->count()) return {{0, shown}};
  std::vector<RowRange> ranges;
  for (const Node* row : list.children) {
    if (ranges.empty() || ranges.back().last != row->rowIndex) {
      ranges.push_back({row->rowIndex, row->rowIndex});
    }
    ++ranges.back().last;
  }
  return ranges;
}

}  // namespace

Emission PatchRecorder::emissionAt(const Node& node) const {
  if (!renderer_) return Emission::silent;
  for (const Node* place = &node; place; place = place->parent) {
    if (!place->isShown) return Emission::silent;
  }
  return Emission::recorded;
}

void PatchRecorder::record(Patch::Kind kind, const Node& node, NodeID after, Emission emission) {
  if (emission == Emission::silent) return;
  const bool places = kind == Patch::Kind::insert || kind == Patch::Kind::move;
  const bool describes = kind == Patch::Kind::insert || kind == Patch::Kind::update;
  patches_.push_back({kind, node.id, places && node.parent ? node.parent->id : NodeID{}, after,
                      describes ? std::optional(node.element) : std::nullopt});
}

void PatchRecorder::recordTree(const Node& node, NodeID after) {
  record(Patch::Kind::insert, node, after, Emission::recorded);
  NodeID previous;
  for (const Node* child : node.children) {
    recordTree(*child, previous);
    previous = child->id;
  }
  if (memoryOf(node).rows) recordRows(node, Emission::recorded);
}

void PatchRecorder::recordRows(const Node& list, Emission emission) {
  if (emission == Emission::recorded) lists_.push_back(&list);
}

bool PatchRecorder::connect(Renderer* next, const Node* root, FirstError& errors) {
  if (next == renderer_) return false;
  Renderer* const last = std::exchange(renderer_, next);
  const NodeID shown = std::exchange(shownRoot_, {});
  patches_.clear();  // they were meant for the previous renderer
  lists_.clear();
  if (last && shown) {
    try {
      last->apply({{{Patch::Kind::remove, shown, {}, {}, std::nullopt}}});
    } catch (...) {
      errors.remember();
    }
  }
  environmentChanged_ = true;  // the next renderer does not know any environment yet
  if (renderer_ && root) recordTree(*root, {});
  return true;
}

void PatchRecorder::disconnect() {
  renderer_ = nullptr;
  shownRoot_ = {};
}

void PatchRecorder::flush(const Node* root, const Environment& environment, WorkCount& work) {
  Changes changes{std::exchange(patches_, {}), takeLists()};
  if (std::exchange(environmentChanged_, false)) changes.environment = environment;
  const bool isEmpty = changes.patches.empty() && changes.lists.empty() && !changes.environment;
  if (!renderer_ || isEmpty) return;
  shownRoot_ = root ? root->id : NodeID{};
  work.patches += changes.patches.size();
  renderer_->apply(changes);
}

/// The recorded lists in their current state, each once.
std::vector<ListRows> PatchRecorder::takeLists() {
  std::vector<const Node*> lists = std::exchange(lists_, {});
  std::erase_if(lists, [](const Node* list) { return memoryOf(*list).isGone; });
  std::ranges::sort(lists, {}, &Node::id);
  const auto repeated = std::ranges::unique(lists);
  lists.erase(repeated.begin(), repeated.end());
  std::vector<ListRows> rows;
  rows.reserve(lists.size());
  for (const Node* list : lists)
    rows.push_back({list->id, memoryOf(*list).rows->source, shownRows(*list)});
  return rows;
}

void PatchRecorder::abandon() {
  patches_.clear();
  lists_.clear();
  if (shownRoot_) patches_.push_back({Patch::Kind::remove, shownRoot_, {}, {}, std::nullopt});
}

}  // namespace vemra::ui
