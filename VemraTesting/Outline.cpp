#include "VemraTesting/Outline.hpp"

#include "VemraPlatform/text/UTF8.hpp"
#include "VemraTesting/Names.hpp"

#include <variant>

namespace vemra::testing {

namespace {

using namespace vemra::ui;

/// Says whether a scalar beyond ASCII ends a line for some reader, or turns the order of what is
/// shown around: the C1 controls, the line and paragraph separators, and what has Unicode's
/// Bidi_Control property (PropList.txt).
bool isDisruptive(char32_t scalar) {
  return (scalar >= 0x80 && scalar <= 0x9F) || scalar == 0x61C || scalar == 0x200E ||
         scalar == 0x200F || (scalar >= 0x2028 && scalar <= 0x202E) ||
         (scalar >= 0x2066 && scalar <= 0x2069);
}

void appendHex(std::string& out, char32_t value, int digits) {
  constexpr std::string_view hex = "0123456789abcdef";
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) out += hex[(value >> shift) & 0xF];
}

// One line, whatever the text holds. Ill-formed bytes stay as they are.
std::string quoted(std::string_view text) {
  std::string out = "\"";
  while (!text.empty()) {
    const auto [scalar, length] = text::firstStep(text);
    const std::string_view bytes = text.substr(0, length);
    text.remove_prefix(length);
    switch (scalar.value_or(U'?')) {
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      default:
        if (scalar && (*scalar < 0x20 || *scalar == 0x7F)) {
          out += "\\x";
          appendHex(out, *scalar, 2);
        } else if (scalar && isDisruptive(*scalar)) {
          out += "\\u";
          appendHex(out, *scalar, 4);
        } else {
          out += bytes;
        }
    }
  }
  return out + '"';
}

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
    return ".accessibilityIdentifier(" + quoted(m.identifier) + ')';
  }
  std::string operator()(const TagModifier& m) const { return ".tag(" + m.tag.name() + ')'; }
};

std::string propertyText(const Property& property) {
  struct ValueText {
    std::string operator()(std::monostate) const { return "nil"; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(const std::string& value) const { return quoted(value); }
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

void write(const RenderedTree& tree, const ViewGraph& graph, NodeID id, std::size_t depth,
           std::string& out) {
  const RenderedTree::Node& node = *tree.find(id);
  out += std::string(2 * depth, ' ') + outlineLine(node.element);
  for (const Property& property : graph.properties(id)) out += ' ' + propertyText(property);
  out += '\n';
  for (NodeID child : node.children) write(tree, graph, child, depth + 1, out);
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
    line += (label->isKey() ? " key " : " ") + quoted(label->source());
    if (label->isKey() && element.shownLabel() != label->source()) {
      line += " -> " + quoted(element.shownLabel());
    }
  }
  if (element.selection()) line += " selection=" + element.selection()->name();
  if (element.kind() == ElementKind::textField) line += " text=" + quoted(element.text());
  for (const Modifier& modifier : element.modifiers()) {
    line += ' ' + std::visit(ModifierText{}, modifier);
  }
  return line;
}

std::string outline(const RenderedTree& tree, const ViewGraph& graph) {
  std::string out;
  if (tree.root()) write(tree, graph, tree.root(), 0, out);
  return out;
}

}  // namespace vemra::testing
