#include "apps/inspect/ModifierWriter.hpp"

#include "VemraTesting/Names.hpp"

#include <string_view>
#include <variant>

namespace vemra::inspect {
namespace {

using documents::JsonWriter;
using documents::Layout;
using testing::name;

struct ModifierWriter {
  JsonWriter& out;

  void string(std::string_view key, std::string_view value) {
    out.key(key);
    out.string(value);
  }
  void operator()(const ui::FontModifier& modifier) {
    string("font", name(modifier.font.style));
    if (modifier.font.explicitWeight) string("weight", name(*modifier.font.explicitWeight));
  }
  void operator()(const ui::FontWeightModifier& modifier) {
    string("fontWeight", name(modifier.weight));
  }
  void operator()(const ui::ForegroundStyleModifier& modifier) {
    string("foregroundStyle", name(modifier.style));
  }
  void operator()(const ui::PaddingModifier& modifier) {
    out.key("padding");
    out.integer(modifier.length);
    string("edges", name(modifier.edges));
  }
  void operator()(const ui::ButtonStyleModifier& modifier) {
    string("buttonStyle", name(modifier.style));
  }
  void operator()(const ui::PickerStyleModifier& modifier) {
    string("pickerStyle", name(modifier.style));
  }
  void operator()(const ui::TextFieldStyleModifier& modifier) {
    string("textFieldStyle", name(modifier.style));
  }
  void operator()(const ui::LabelsHiddenModifier&) {
    out.key("labelsHidden");
    out.boolean(true);
  }
  void operator()(const ui::DisabledModifier& modifier) {
    out.key("disabled");
    out.boolean(modifier.disabled);
  }
  void operator()(const ui::AccessibilityIdentifierModifier& modifier) {
    string("accessibilityIdentifier", modifier.identifier);
  }
  void operator()(const ui::TagModifier& modifier) { string("tag", modifier.tag.name()); }
};

}  // namespace

void writeModifiers(JsonWriter& out, const std::vector<ui::Modifier>& modifiers) {
  out.beginArray(Layout::inLine);
  for (const ui::Modifier& modifier : modifiers) {
    out.beginObject(Layout::inLine);
    std::visit(ModifierWriter{out}, modifier);
    out.endObject();
  }
  out.endArray();
}

}  // namespace vemra::inspect
