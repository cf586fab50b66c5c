#include "apps/inspect/ElementTree.hpp"

#include "VemraTesting/EachChild.hpp"
#include "VemraTesting/Names.hpp"
#include "apps/inspect/ModifierWriter.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace vemra::inspect {
namespace {

using documents::JsonWriter;
using documents::Layout;
using ui::Element;
using ui::ElementKind;

void writeString(JsonWriter& out, std::string_view key, std::string_view value) {
  out.key(key);
  out.string(value);
}

void writeLabel(JsonWriter& out, std::string_view key, const Element& element) {
  const ui::Label& label = *element.label();
  out.key(key);
  out.beginObject(Layout::inLine);
  writeString(out, label.isKey() ? "key" : "verbatim", label.source());
  if (label.isKey()) writeString(out, "text", element.shownLabel());
  out.endObject();
}

void writeProperties(JsonWriter& out, const ui::Properties& properties) {
  struct ValueWriter {
    JsonWriter& out;
    void operator()(std::monostate) { out.null(); }
    void operator()(bool value) { out.boolean(value); }
    void operator()(const std::string& value) { out.string(value); }
    void operator()(const ui::Properties& values) {
      out.beginObject(Layout::inLine);
      writeProperties(out, values);
      out.endObject();
    }
  };
  for (const ui::Property& property : properties) {
    out.key(property.name);
    std::visit(ValueWriter{out}, property.value);
  }
}

/// Writes the keys that only this kind of element has. For a composite, `writeProperties` does.
void writeOwnKeys(JsonWriter& out, const Element& element) {
  switch (element.kind()) {
    case ElementKind::text:
      writeLabel(out, "content", element);
      break;
    case ElementKind::button:
      writeLabel(out, "title", element);
      break;
    case ElementKind::picker:
      writeLabel(out, "title", element);
      out.key("selection");
      out.string(element.selection() ? element.selection()->name() : "");
      break;
    case ElementKind::textField:
      writeLabel(out, "title", element);
      writeString(out, "text", element.text());
      break;
    case ElementKind::vStack:
    case ElementKind::hStack:
      writeString(out, "alignment",
                  element.kind() == ElementKind::vStack
                      ? testing::name(element.horizontalAlignment())
                      : testing::name(element.verticalAlignment()));
      out.key("spacing");
      out.integer(element.spacing());
      break;
    case ElementKind::scrollView:
      writeString(out, "axis", "vertical");
      out.key("showsIndicators");
      out.boolean(element.scrollIndicators() == ui::ScrollIndicators::shown);
      break;
    case ElementKind::group:
    case ElementKind::forEach:
    case ElementKind::composite:
      break;
  }
}

bool holdsOthers(ElementKind kind) {
  return kind != ElementKind::text && kind != ElementKind::button && kind != ElementKind::textField;
}

class TreeWriter {
 public:
  TreeWriter(JsonWriter& out, ui::ViewGraph& graph) : out_(out), graph_(graph) {}

  /// Writes the element; `row` is the id of the row whose root it is.
  void write(const ui::Node& node, const std::string* row) {
    if (node.isRow) row = &node.rowID;
    const ElementKind kind = node.element.kind();
    const ui::Properties properties = graph_.properties(node.id);
    if (kind == ElementKind::composite && properties.empty()) {
      for (const ui::Node* child : node.children) write(*child, row);
      return;
    }
    out_.beginObject(Layout::inLine);
    writeString(out_, "element",
                kind == ElementKind::composite ? node.element.compositeName() : ui::kindName(kind));
    if (row != nullptr) writeString(out_, "id", *row);
    writeOwnKeys(out_, node.element);
    writeProperties(out_, properties);
    out_.key("modifiers");
    writeModifiers(out_, node.element.modifiers());
    if (holdsOthers(kind)) {
      out_.key("children");
      out_.beginArray(Layout::lines);
      testing::eachChild(graph_, node, [&](const ui::Node& child) { write(child, nullptr); });
      out_.endArray();
    }
    out_.endObject();
  }

 private:
  JsonWriter& out_;
  ui::ViewGraph& graph_;
};

}  // namespace

void writeElementTree(JsonWriter& out, ui::ViewGraph& graph) {
  if (graph.root() == nullptr) {
    out.null();
    return;
  }
  TreeWriter(out, graph).write(*graph.root(), nullptr);
}

}  // namespace vemra::inspect
