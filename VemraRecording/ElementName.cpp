#include "VemraRecording/ElementName.hpp"

#include "VemraGoalSurface/presentation/PersonName.hpp"
#include "VemraPlatform/ui/RowSource.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <memory>
#include <string_view>

namespace vemra::recording {
namespace {

template <class Matches>
std::size_t countIn(const ui::Node& node, const Matches& matches) {
  std::size_t count = matches(node.element) ? 1 : 0;
  for (const ui::Node* child : node.children) count += countIn(*child, matches);
  return count;
}

/// The person's row in which an element is; nullptr for an element outside the list of people.
const ui::Node* rowAround(const ui::Node& element) {
  const ui::Node* row = nullptr;
  for (const ui::Node* node = &element; node != nullptr; node = node->parent) {
    if (node->isRow) row = node;
  }
  return row;
}

/// Counts in a row as the graph shows it, or else as its description begins: a window keeps the
/// rows alive in which an editor is open.
template <class Matches>
std::size_t countInRow(ui::ViewGraph& graph, ui::NodeID list, std::size_t index,
                       const Matches& matches) {
  const auto ids = graph.rowIDs(list);
  const ui::Node* const node = graph.find(list);
  if (!ids || !node || index >= ids->count()) return 0;
  for (const ui::Node* row : node->children) {
    if (row->rowIndex == index) return countIn(*row, matches);
  }
  const auto source = std::dynamic_pointer_cast<const ui::RowSource>(ids);
  if (!source) return 0;
  ui::ViewGraph described(graph.environment());
  described.setRoot(source->row(index));
  return countIn(*described.root(), matches);
}

bool isFixedTitle(const ui::ViewGraph& graph, std::string_view title) {
  const auto& strings = graph.environment().strings;
  for (const std::string_view key :
       {"Show source", "Record outcome", "Correct", "Save", "Cancel", "See in Starfold"}) {
    if (strings ? strings->lookup(key).value_or(std::string(key)) == title : key == title) {
      return true;
    }
  }
  return false;
}

}  // namespace

ElementName nameOf(const ui::Node& element, ui::ViewGraph& graph,
                   const GoalResultSnapshotV1& snapshot, const GetGoalSnapshotResponse& replayed) {
  const std::string_view identifier = element.element.accessibilityIdentifier();
  const ui::Node* const row = rowAround(element);
  const std::size_t rowIndex = row ? row->rowIndex : 0;
  if (!row || rowIndex >= snapshot.people().size()) {
    if (!identifier.empty()) return {false, std::string(identifier), 0};
    return {true, std::string(element.element.shownLabel()), 0};
  }
  const ui::NodeID list = row->parent->id;
  if (!identifier.empty()) {
    ElementName name{false, std::string(identifier), 0};
    for (std::size_t i = 0; i < rowIndex; ++i) {
      // Only a person of the same reference has elements with the same identifiers.
      if (snapshot.people()[i].personRef != snapshot.people()[rowIndex].personRef) continue;
      name.index += countInRow(graph, list, i, [&](const ui::Element& other) {
        return other.accessibilityIdentifier() == name.name;
      });
    }
    return name;
  }
  // The one element of a row without an identifier is the button with the person's name.
  ElementName name{true, shownName(replayed.people[rowIndex]), 0};
  const bool mayBeFixed = isFixedTitle(graph, name.name);
  for (std::size_t i = 0; i < rowIndex; ++i) {
    if (shownName(replayed.people[i]) == name.name) ++name.index;
    if (!mayBeFixed) continue;
    name.index += countInRow(graph, list, i, [&](const ui::Element& other) {
      return other.kind() == ui::ElementKind::button && !other.accessibilityIdentifier().empty() &&
             other.shownLabel() == name.name;
    });
  }
  return name;
}

}  // namespace vemra::recording
