#include "VemraQt/accessibility/ElementSlot.hpp"

#include "VemraPlatform/text/KeyedHash.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>

namespace vemra::qt {

using ui::ElementKind;

namespace {

/// Extends the path by one step down the tree, mixing in the parts of the node's identity.
std::uint64_t step(std::uint64_t path, const ui::Node& node) {
  const auto mix = [&path](std::uint64_t value) {
    path = (path ^ value) * 0x100000001b3ULL;
    path ^= path >> 29;
  };
  const ui::Identity& identity = node.identity;
  const bool isStart = path == 0;
  mix(reinterpret_cast<std::uintptr_t>(identity.type));
  mix(identity.branch);
  if (node.isRow) {
    // For the row where the path begins, the position does not count; a row inside it counts with
    // its id.
    if (!isStart) {
      mix(text::hashOfBytes(node.rowID));
    }
  } else if (identity.keyed) {
    mix(text::hashOfBytes(identity.key));
    mix(identity.occurrence);
  } else {
    mix(identity.slot);
  }
  return path;
}

bool isElement(ElementKind kind) {
  return kind == ElementKind::text || kind == ElementKind::button || kind == ElementKind::picker ||
         kind == ElementKind::textField;
}

bool isInsideRow(const ui::Node& node) {
  return node.isRow || (node.parent && isInsideRow(*node.parent));
}

struct Collected {
  std::vector<ElementSlot> elements;
  std::vector<ui::NodeID> incomplete;  ///< lists inside rows that do not have all their rows yet
};

/// `section` is the path of the section around the node.
void collect(const ui::Node& node, std::uint64_t path, std::uint64_t section,
             Collected& collected) {
  path = step(path, node);
  const ElementKind kind = node.element.kind();
  if (isElement(kind)) {
    collected.elements.push_back({path, section, kind, node.id, nullptr,
                                  node.element.style().enabled, hashOfShown(node.element)});
    return;
  }
  if (kind == ElementKind::forEach) {
    if (!isInsideRow(node)) {
      collected.elements.push_back({path, section, kind, node.id, nullptr, true, 0});
      return;
    }
    if (node.children.size() < node.element.rowCount()) collected.incomplete.push_back(node.id);
  }
  if (isSection(node) && !isInsideRow(node)) {
    collected.elements.push_back({path, section, kind, node.id, nullptr, true, 0});
    section = path;
  }
  for (const ui::Node* child : node.children) collect(*child, path, section, collected);
}

}  // namespace

int headingLevel(const ui::Element& element) {
  if (element.kind() != ElementKind::text) return 0;
  switch (element.style().font.style) {
    case ui::TextStyle::title2:
      return 1;
    case ui::TextStyle::headline:
      return 2;
    default:
      return 0;
  }
}

bool isSection(const ui::Node& node) {
  const ElementKind kind = node.element.kind();
  const bool isStack = kind == ElementKind::vStack || kind == ElementKind::hStack;
  if (!isStack || node.children.size() < 2) return false;
  const ui::Node* first = node.children.front();
  while (first->element.kind() == ElementKind::group ||
         first->element.kind() == ElementKind::composite) {
    if (first->children.empty()) return false;
    first = first->children.front();
  }
  return headingLevel(first->element) == 2;
}

std::size_t hashOfShown(const ui::Element& element) {
  if (element.kind() == ElementKind::picker) {
    const auto& chosen = element.selection();
    return chosen ? text::hashOfBytes(chosen->name()) : 0;
  }
  return text::hashOfBytes(element.shownLabel());
}

std::vector<ElementSlot> elementsUnder(ui::NodeID top, Page& page) {
  ui::ViewGraph& graph = page.graph();
  std::vector<ui::NodeID> asked;
  for (;;) {
    Collected collected;
    const ui::Node* node = graph.find(top);
    if (node) collect(*node, 0, 0, collected);
    // Ask for each list's rows only once: during an event they come later, and new rows may hold
    // more lists.
    std::erase_if(collected.incomplete,
                  [&](ui::NodeID list) { return std::ranges::find(asked, list) != asked.end(); });
    if (collected.incomplete.empty()) return std::move(collected.elements);
    for (const ui::NodeID list : collected.incomplete) {
      asked.push_back(list);
      const ui::Node* still = graph.find(list);
      const std::size_t count = still ? still->element.rowCount() : 0;
      page.errors().attempt([&] { graph.showRows(list, {{0, count}}); });
    }
  }
}

const ui::Node* rowHolding(ui::NodeID id, const Page& page) {
  const ui::Node* row = nullptr;
  for (const ui::Node* node = page.graph().find(id); node; node = node->parent) {
    if (node->isRow) row = node;
  }
  return row;
}

ui::NodeID peekRow(ui::NodeID list, std::size_t index, Page& page) {
  ui::NodeID row;
  const auto look = [&] { row = page.graph().peekRow(list, index); };
  // After an exception the graph holds an empty row, unless it has removed the whole tree; so look
  // again.
  if (!page.errors().attempt(look)) page.errors().attempt(look);
  return row;
}

}  // namespace vemra::qt
