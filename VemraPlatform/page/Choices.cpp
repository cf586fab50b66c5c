#include "VemraPlatform/page/Choices.hpp"

#include <algorithm>

namespace vemra::page {

namespace {

std::string_view labelIn(const Node& row) {
  if (row.element.label()) return row.element.shownLabel();
  for (const Node& child : row.children()) {
    const std::string_view label = labelIn(child);
    if (!label.empty()) return label;
  }
  return {};
}

void collect(const Node& node, std::vector<Choice>& choices) {
  if (const ui::Tag* tag = node.element.tag()) {
    choices.push_back({labelIn(node), *tag});
    return;
  }
  for (const Node& child : node.children()) collect(child, choices);
}

}  // namespace

std::vector<Choice> choicesOf(const Node& picker) {
  std::vector<Choice> choices;
  for (const Node& child : picker.children()) collect(child, choices);
  return choices;
}

std::optional<std::size_t> chosenAmong(const std::vector<Choice>& choices, const Node& picker) {
  const auto& selection = picker.element.selection();
  if (!selection) return std::nullopt;
  const auto found = std::ranges::find(choices, *selection, &Choice::tag);
  if (found == choices.end()) return std::nullopt;
  return static_cast<std::size_t>(found - choices.begin());
}

}  // namespace vemra::page
