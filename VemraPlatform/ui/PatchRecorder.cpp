#include "VemraPlatform/ui/PatchRecorder.hpp"

#include "VemraPlatform/ui/FirstError.hpp"

#include <optional>
#include <utility>

namespace vemra::ui {

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
}

bool PatchRecorder::connect(Renderer* next, const Node* root, FirstError& errors) {
  if (next == renderer_) return false;
  Renderer* const last = std::exchange(renderer_, next);
  const NodeID shown = std::exchange(shownRoot_, {});
  patches_.clear();  // what was meant for the last one
  if (last && shown) {
    try {
      last->apply({{Patch::Kind::remove, shown, {}, {}, std::nullopt}});
    } catch (...) {
      errors.remember();
    }
  }
  if (renderer_ && root) recordTree(*root, {});
  return true;
}

void PatchRecorder::disconnect() {
  renderer_ = nullptr;
  shownRoot_ = {};
}

void PatchRecorder::flush(const Node* root, WorkCount& work) {
  const std::vector<Patch> patches = std::exchange(patches_, {});
  const bool rowsReplaced = std::exchange(rowsReplaced_, false);
  if (!renderer_) return;
  if (!patches.empty()) {
    shownRoot_ = root ? root->id : NodeID{};
    work.patches += patches.size();
    renderer_->apply(patches);
  }
  // It may have been disconnected from inside `apply`.
  if (rowsReplaced && renderer_) renderer_->rowsReplaced();
}

void PatchRecorder::abandon() {
  patches_.clear();
  if (shownRoot_) patches_.push_back({Patch::Kind::remove, shownRoot_, {}, {}, std::nullopt});
}

}  // namespace vemra::ui
