#include "VemraPlatform/page/Choices.hpp"

#include <algorithm>

namespace vemra::page {

namespace {

const Node& nodeIn(const Node& child) {
  return child;
}
const ui::Node& nodeIn(const ui::Node* child) {
  return *child;
}
auto childrenOf(const Node& node) {
  return node.children();
}
const auto& childrenOf(const ui::Node& node) {
  return node.children;
}

template <class AnyNode>
std::string_view labelIn(const AnyNode& row) {
  if (row.element.label()) return row.element.shownLabel();
  for (const auto& child : childrenOf(row)) {
    const std::string_view label = labelIn(nodeIn(child));
    if (!label.empty()) return label;
  }
  return {};
}

template <class AnyNode>
void collect(const AnyNode& holder, std::vector<Choice>& choices) {
  for (const auto& child : childrenOf(holder)) {
    const AnyNode& row = nodeIn(child);
    if (const ui::Tag* tag = row.element.tag()) {
      choices.push_back({labelIn(row), row.element.accessibilityIdentifier(), *tag});
    } else {
      collect(row, choices);
    }
  }
}

}  // namespace

std::vector<Choice> choicesOf(const Node& picker) {
  std::vector<Choice> choices;
  collect(picker, choices);
  return choices;
}

std::vector<Choice> choicesOf(const ui::Node& picker) {
  std::vector<Choice> choices;
  collect(picker, choices);
  return choices;
}

std::optional<std::size_t> chosenAmong(const std::vector<Choice>& choices,
                                       const ui::Element& picker) {
  const auto& selection = picker.selection();
  if (!selection) return std::nullopt;
  const auto found = std::ranges::find(choices, *selection, &Choice::tag);
  if (found == choices.end()) return std::nullopt;
  return static_cast<std::size_t>(found - choices.begin());
}

}  // namespace vemra::page
