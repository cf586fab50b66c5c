#include "VemraTesting/Outline.hpp"

#include "VemraPlatform/text/OneLine.hpp"
#include "VemraTesting/EachChild.hpp"
#include "VemraTesting/Names.hpp"

#include <variant>

namespace vemra::testing {

namespace {

using namespace vemra::ui;
using text::quotedOnOneLine;

struct ModifierText {
  std::string operator()(const FontModifier& m) const {
    std::string text = ".font(" + std::string(name(m.font.style));
    if (m.font.explicitWeight) text += ' ' + std::string(name(*m.font.explicitWeight));
    return text + ')';
  }
  std::string operator()(const FontWeightModifier& m) const {
    return ".fontWeight(" + std::string(name(m.weight)) + ')';
  }
  std::string operator()(const ForegroundStyleModifier& m) const {
    return ".foregroundStyle(" + std::string(name(m.style)) + ')';
  }
  std::string operator()(const PaddingModifier& m) const {
    const std::string edges = m.edges == Edges::all ? "" : std::string(name(m.edges)) + ' ';
    return ".padding(" + edges + std::to_string(m.length) + ')';
  }
  std::string operator()(const ButtonStyleModifier& m) const {
    return ".buttonStyle(" + std::string(name(m.style)) + ')';
  }
  std::string operator()(const PickerStyleModifier& m) const {
    return ".pickerStyle(" + std::string(name(m.style)) + ')';
  }
  std::string operator()(const TextFieldStyleModifier& m) const {
    return ".textFieldStyle(" + std::string(name(m.style)) + ')';
  }
  std::string operator()(const LabelsHiddenModifier&) const { return ".labelsHidden()"; }
  std::string operator()(const DisabledModifier& m) const {
    return m.disabled ? ".disabled(true)" : ".disabled(false)";
  }
  std::string operator()(const AccessibilityIdentifierModifier& m) const {
    return ".accessibilityIdentifier(" + quotedOnOneLine(m.identifier) + ')';
  }
  std::string operator()(const TagModifier& m) const { return ".tag(" + m.tag.name() + ')'; }
};

std::string propertyText(const Property& property) {
  struct ValueText {
    std::string operator()(std::monostate) const { return "nil"; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(const std::string& value) const { return quotedOnOneLine(value); }
    std::string operator()(const Properties& values) const {
      std::string text = "{";
      for (const Property& value : values) {
        if (text.size() > 1) text += ' ';
        text += propertyText(value);
      }
      return text + '}';
    }
  };
  return property.name + '=' + std::visit(ValueText{}, property.value);
}

void writeLine(const Element& element, const Properties& properties, std::size_t depth,
               std::string& out) {
  out.append(2 * depth, ' ').append(outlineLine(element));
  for (const Property& property : properties) out.append(" ").append(propertyText(property));
  out += '\n';
}

void write(const RenderedTree::Node& node, const ViewGraph& graph, std::size_t depth,
           std::string& out) {
  writeLine(node.element, graph.properties(node.id), depth, out);
  for (const RenderedTree::Node& child : node.children()) write(child, graph, depth + 1, out);
}

void write(const Node& node, ViewGraph& graph, std::size_t depth, std::string& out) {
  writeLine(node.element, graph.properties(node.id), depth, out);
  eachChild(graph, node, [&](const Node& child) { write(child, graph, depth + 1, out); });
}

}  // namespace

std::string outlineLine(const Element& element) {
  const bool isComposite = element.kind() == ElementKind::composite;
  std::string line(isComposite ? element.compositeName() : kindName(element.kind()));
  if (element.kind() == ElementKind::vStack) {
    line += ' ' + std::string(name(element.horizontalAlignment()));
  }
  if (element.kind() == ElementKind::hStack) {
    line += ' ' + std::string(name(element.verticalAlignment()));
  }
  if (element.kind() == ElementKind::vStack || element.kind() == ElementKind::hStack) {
    line += ' ' + std::to_string(element.spacing());
  }
  if (const Label* label = element.label()) {
    line += (label->isKey() ? " key " : " ") + quotedOnOneLine(label->source());
    if (label->isKey() && element.shownLabel() != label->source()) {
      line += " -> " + quotedOnOneLine(element.shownLabel());
    }
  }
  if (element.selection()) line += " selection=" + element.selection()->name();
  if (element.kind() == ElementKind::textField) line += " text=" + quotedOnOneLine(element.text());
  for (const Modifier& modifier : element.modifiers()) {
    line += ' ' + std::visit(ModifierText{}, modifier);
  }
  return line;
}

std::string outline(const RenderedTree& tree, const ViewGraph& graph) {
  std::string out;
  if (tree.root()) write(*tree.root(), graph, 0, out);
  return out;
}

std::string outline(ViewGraph& graph) {
  std::string out;
  if (graph.root()) write(*graph.root(), graph, 0, out);
  return out;
}

}  // namespace vemra::testing
