#include "VemraQt/RenderTree.hpp"

#include "VemraPlatform/page/RowChanges.hpp"

#include <algorithm>

namespace vemra::qt {

using ui::ElementKind;
using ui::NodeID;
using ui::Patch;

namespace {

// Of a list that has changed more than that, all heights are estimated again.
constexpr std::size_t mostFollowed = 256;

/// Heights stay with their rows, so that the page is as long as before but for who came and went.
void follow(page::RowHeights& heights, const ui::RowSource& before, const ui::RowSource& after) {
  const page::RowChanges changes = page::rowChanges(before, after, mostFollowed);
  if (changes.areComplete && heights.count() == before.count()) {
    heights.follow(changes.left, changes.came);
  } else {
    heights.reset(after.count(), heights.gap());
  }
}

/// Rows can be left out only where they stand one below the other and nothing else depends on
/// them: in a column of the page itself. A list beside something, or inside a row, is shown whole.
bool standsInColumn(const RenderNode& node) {
  for (const RenderNode* place = node.parent; place; place = place->parent) {
    const ElementKind kind = place->element.kind();
    if (kind == ElementKind::hStack || kind == ElementKind::picker || place->rows) return false;
  }
  return true;
}

}  // namespace

bool RenderNode::isLeaf() const {
  switch (element.kind()) {
    case ElementKind::text:
    case ElementKind::button:
    case ElementKind::picker:
    case ElementKind::textField:
      return true;
    default:
      return false;
  }
}

bool RenderNode::isTransparent() const {
  switch (element.kind()) {
    case ElementKind::group:
    case ElementKind::forEach:
    case ElementKind::composite:
      return true;
    default:
      return false;
  }
}

void RenderTree::apply(const std::vector<Patch>& patches) {
  std::exception_ptr error;
  for (const Patch& patch : patches) {
    switch (patch.kind) {
      case Patch::Kind::insert: {
        auto made = std::make_unique<RenderNode>(patch.node, *patch.element);
        RenderNode& node = *nodes_.insert_or_assign(patch.node, std::move(made)).first->second;
        place(node, patch.parent, patch.after);
        if (node.element.kind() == ElementKind::forEach) {
          const bool windowed = standsInColumn(node);
          if (windowed) node.rows = std::make_unique<page::RowHeights>();
          (windowed ? lists_ : wholeLists_).push_back(&node);
        }
        break;
      }
      case Patch::Kind::move: {
        RenderNode& node = *nodes_.at(patch.node);
        takeOut(node);
        place(node, patch.parent, patch.after);
        break;
      }
      case Patch::Kind::update: {
        RenderNode& node = *nodes_.at(patch.node);
        const auto before = node.rows ? page::rowSourceOf(node.element) : nullptr;
        node.element = *patch.element;
        node.stale = true;
        node.shape = {};
        if (node.rows) {
          const auto after = page::rowSourceOf(node.element);
          try {
            follow(*node.rows, *before, *after);
          } catch (...) {
            error = std::current_exception();
            node.rows->reset(after->count(), node.rows->gap());
          }
        }
        invalidate(&node);
        break;
      }
      case Patch::Kind::remove: {
        RenderNode& node = *nodes_.at(patch.node);
        leaving_(node);
        takeOut(node);
        erase(node);
        break;
      }
    }
  }
  if (error) std::rethrow_exception(error);
}

RenderNode* RenderTree::find(NodeID id) const {
  auto found = nodes_.find(id);
  return found == nodes_.end() ? nullptr : found->second.get();
}

void RenderTree::invalidate(RenderNode* node) {
  for (; node; node = node->parent) {
    node->measuredWidth = -1;
    // What a picker shows is gathered from its rows.
    if (node->element.kind() == ElementKind::picker) node->stale = true, node->shape = {};
  }
}

void RenderTree::invalidateAll() {
  for (auto& [id, node] : nodes_) {
    node->measuredWidth = -1;
    node->shape = {};
    node->stale = true;
    node->rowWidth = -1;
  }
}

void RenderTree::place(RenderNode& node, NodeID parent, NodeID after) {
  if (!parent) {
    node.parent = nullptr;
    root_ = &node;
    return;
  }
  node.parent = nodes_.at(parent).get();
  std::vector<RenderNode*>& siblings = node.parent->children;
  auto where = siblings.end();
  if (!after) {
    where = siblings.begin();
  } else if (siblings.empty() || siblings.back()->id != after) {
    where = std::next(std::ranges::find(siblings, after, &RenderNode::id));
  }
  siblings.insert(where, &node);
  invalidate(node.parent);
}

void RenderTree::takeOut(RenderNode& node) {
  if (!node.parent) {
    root_ = nullptr;
    return;
  }
  std::erase(node.parent->children, &node);
  invalidate(node.parent);
}

void RenderTree::erase(RenderNode& node) {
  for (RenderNode* child : node.children) erase(*child);
  if (node.element.kind() == ElementKind::forEach) {
    std::erase(node.rows ? lists_ : wholeLists_, &node);
  }
  nodes_.erase(node.id);
}

RenderNode* rowOf(RenderNode* node) {
  while (node && !node->isRow()) node = node->parent;
  return node;
}

}  // namespace vemra::qt
