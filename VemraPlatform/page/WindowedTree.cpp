#include "VemraPlatform/page/WindowedTree.hpp"

#include "VemraPlatform/page/RowChanges.hpp"

#include <utility>

namespace vemra::page {

using ui::ElementKind;

namespace {

// When more rows than this were added and removed, all heights are estimated again.
constexpr std::size_t mostFollowed = 256;

/// Rows keep their heights: the page grows and shrinks by the heights of the added and removed
/// rows.
void follow(RowHeights& heights, const ui::RowIDs& before, const ui::RowIDs& after) {
  const RowChanges changes = rowChanges(before, after, mostFollowed);
  if (changes.areComplete && heights.count() == before.count()) {
    heights.follow(changes.removed, changes.inserted);
  } else {
    heights.reset(after.count(), heights.gap());
  }
}

bool standsInColumn(const Node& node) {
  for (const Node* place = node.parent; place; place = place->parent) {
    const ElementKind kind = place->element.kind();
    if (kind == ElementKind::hStack || kind == ElementKind::picker || place->rows) return false;
  }
  return true;
}

}  // namespace

void WindowedTree::apply(const ui::Changes& changes) {
  tree_.apply(changes);
  if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
}

void WindowedTree::inserted(Node& node) {
  if (node.element.kind() != ElementKind::forEach) return;
  const bool windowed = standsInColumn(node);
  if (windowed) node.rows = std::make_unique<RowHeights>();
  (windowed ? lists_ : wholeLists_).push_back(&node);
}

void WindowedTree::updated(Node& node) {
  invalidate(node);
}

/// This reads ids only when the length of the list has changed or a present row has moved: a new
/// list costs nothing while its present rows stay the same.
void WindowedTree::rowsPlaced(Node& list, const ui::ListRows& rows) {
  if (!list.rows) return;
  auto& measured = measured_.try_emplace(list.id, rows.ids).first->second;
  if (measured == rows.ids) return;
  bool hasMoved = false;
  forEachRow(list, rows, [&](const Node& row, std::size_t index) {
    hasMoved = hasMoved || (row.rowIndex != Node::nowhere && row.rowIndex != index);
  });
  try {
    if (!hasMoved && measured->count() == rows.ids->count()) return;
    follow(*list.rows, *measured, *rows.ids);
  } catch (...) {
    if (!error_) error_ = std::current_exception();
    list.rows->reset(list.element.rowCount(), list.rows->gap());
  }
  measured = rows.ids;
  invalidate(list);
}

void WindowedTree::childrenChanged(Node& parent) {
  invalidate(parent);
}

void WindowedTree::removing(Node& node) {
  removing_(node);
  forgetLists(node);
}

void WindowedTree::forgetLists(Node& node) {
  if (node.element.kind() == ElementKind::forEach) {
    std::erase(node.rows ? lists_ : wholeLists_, &node);
    measured_.erase(node.id);
  }
  for (Node& child : node.children()) forgetLists(child);
}

void WindowedTree::invalidate(Node& node) {
  for (Node* place = &node; place; place = place->parent) place->measuredWidth = -1;
}

void WindowedTree::invalidateAll() {
  std::vector<Node*> pending;
  if (root()) pending.push_back(root());
  while (!pending.empty()) {
    Node& node = *pending.back();
    pending.pop_back();
    node.measuredWidth = -1;
    node.rowWidth = -1;
    for (Node& child : node.children()) pending.push_back(&child);
  }
}

}  // namespace vemra::page
