#include "VemraRecording/StepText.hpp"

#include "apps/documents/JsonWriter.hpp"

#include <cstdint>
#include <variant>

namespace vemra::recording {
namespace {

using documents::JsonWriter;
using documents::Layout;

void writeNumber(JsonWriter& out, std::string_view key, std::size_t number) {
  out.key(key);
  out.integer(static_cast<std::int64_t>(number));
}

void writeString(JsonWriter& out, std::string_view key, std::string_view text) {
  out.key(key);
  out.string(text);
}

struct EventWriter {
  JsonWriter& out;
  const ElementName& name;

  void operator()(const ui::Press&) const {
    if (!name.isTitle && name.index == 0) return writeString(out, "press", name.name);
    out.key("press");
    out.beginObject(Layout::inLine);
    writeString(out, name.isTitle ? "title" : "identifier", name.name);
    writeNumber(out, "index", name.index);
    out.endObject();
  }
  void operator()(const ui::Select& select) const {
    writeString(out, "select", name.name);
    writeString(out, "value", select.tag.name());
    writeIndex();
  }
  void operator()(const ui::EditText& edit) const {
    writeString(out, "type", name.name);
    writeString(out, "text", edit.text);
    writeIndex();
  }
  void operator()(const ui::Submit&) const {
    writeString(out, "submit", name.name);
    writeIndex();
  }
  void writeIndex() const {
    if (name.index != 0) writeNumber(out, "index", name.index);
  }
};

}  // namespace

std::string eventStep(const ElementName& name, const ui::Event& event) {
  JsonWriter out;
  out.beginObject(Layout::inLine);
  std::visit(EventWriter{out, name}, event);
  out.endObject();
  return out.take();
}

std::string resultStep(std::string_view document, std::optional<std::size_t> screen) {
  std::string step = "{";
  if (screen) step += "\"screen\": " + std::to_string(*screen) + ", ";
  step += "\"result\": ";
  step += document;
  step += '}';
  return step;
}

std::string screenStep(std::size_t number) {
  return "{\"screen\": " + std::to_string(number) + '}';
}

std::string callStep(const Call& call) {
  return "{\"call\": " + callText(call) + '}';
}

}  // namespace vemra::recording
