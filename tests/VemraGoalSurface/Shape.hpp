#pragma once

#include "VemraTesting/Outline.hpp"
#include "VemraTesting/Screen.hpp"

#include <stdexcept>
#include <string>
#include <vector>

/// Pieces of a mounted screen, as lines to compare: indented outline lines without the properties
/// of composites.
namespace vemra::screentest {

using Lines = std::vector<std::string>;

inline void collectShape(const testing::RenderedTree::Node& node, std::size_t depth, Lines& lines) {
  lines.push_back(std::string(2 * depth, ' ') + testing::outlineLine(node.element));
  for (const auto& child : node.children()) collectShape(child, depth + 1, lines);
}

inline Lines shape(const testing::RenderedTree::Node& node) {
  Lines lines;
  collectShape(node, 0, lines);
  return lines;
}

inline Lines shape(const testing::Screen& screen) {
  return shape(*screen.tree().root());
}

/// The section under a heading, or the row that holds a button of that title.
inline const testing::RenderedTree::Node& around(const testing::Screen& screen,
                                                 const testing::Query& query) {
  return *screen.get(query).parent;
}

inline Lines peopleSection(const testing::Screen& screen) {
  return shape(around(screen, testing::byText("People worth considering")));
}

inline Lines pathSection(const testing::Screen& screen) {
  return shape(around(screen, testing::byText("Supported path")));
}

/// All nodes of a kind, in tree order.
inline std::vector<const testing::RenderedTree::Node*> nodesOf(const testing::Screen& screen,
                                                               ui::ElementKind kind) {
  std::vector<const testing::RenderedTree::Node*> found;
  for (const testing::RenderedTree::Node* node : screen.tree().nodes()) {
    if (node->element.kind() == kind) found.push_back(node);
  }
  return found;
}

/// All outcome controls, in tree order: one a person, then the path's.
inline std::vector<const testing::RenderedTree::Node*> controls(const testing::Screen& screen) {
  std::vector<const testing::RenderedTree::Node*> found;
  for (const auto* node : nodesOf(screen, ui::ElementKind::composite)) {
    if (node->element.compositeName() == "GoalOutcomeRecordingControl") found.push_back(node);
  }
  return found;
}

/// The elements of the control at `index`.
inline Lines face(const testing::Screen& screen, std::size_t index = 0) {
  const auto all = controls(screen);
  if (index >= all.size()) throw std::out_of_range("no such control\n" + screen.outline());
  return shape(*all[index]->firstChild);
}

}  // namespace vemra::screentest
