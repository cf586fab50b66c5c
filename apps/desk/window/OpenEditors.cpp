#include "apps/desk/window/OpenEditors.hpp"

#include <cstddef>
#include <string_view>
#include <variant>

namespace vemra::desk {
namespace {

/// The value of a property; nil when it is absent or of another type.
template <class Value>
std::optional<Value> valueOf(const ui::Properties& properties, std::string_view name) {
  for (const ui::Property& property : properties) {
    if (property.name != name) continue;
    if (const auto* value = std::get_if<Value>(&property.value)) return *value;
  }
  return std::nullopt;
}

/// The identifier of the first text field below a node; "" when there is none.
std::string fieldBelow(const ui::Node& node) {
  if (node.element.kind() == ui::ElementKind::textField) {
    return std::string(node.element.accessibilityIdentifier());
  }
  for (const ui::Node* child : node.children) {
    if (std::string found = fieldBelow(*child); !found.empty()) return found;
  }
  return {};
}

void collect(ui::ViewGraph& graph, ui::NodeID id, std::vector<OpenEditor>& found) {
  const ui::Node* node = graph.find(id);
  if (node == nullptr) return;
  if (node->element.kind() == ui::ElementKind::forEach) {
    for (const std::size_t row : graph.rowsWithState(id)) {
      collect(graph, graph.peekRow(id, row), found);
    }
    return;
  }
  // Asking for a row can move nodes: keep their ids, not the nodes.
  std::vector<ui::NodeID> children;
  children.reserve(node->children.size());
  for (const ui::Node* child : node->children) children.push_back(child->id);
  const ui::Properties properties = graph.properties(id);
  if (const auto state = valueOf<ui::Properties>(properties, "state");
      state && valueOf<bool>(*state, "isEditing").value_or(false)) {
    const bool isOfPath = valueOf<std::string>(properties, "subjectKind") == "path";
    found.push_back({isOfPath ? GoalOutcomeSubjectKind::path : GoalOutcomeSubjectKind::person,
                     valueOf<std::string>(properties, "subjectRef"), fieldBelow(*node)});
  }
  for (const ui::NodeID child : children) collect(graph, child, found);
}

}  // namespace

std::vector<OpenEditor> openEditors(ui::ViewGraph& graph) {
  std::vector<OpenEditor> found;
  if (const ui::Node* root = graph.root()) collect(graph, root->id, found);
  return found;
}

}  // namespace vemra::desk
