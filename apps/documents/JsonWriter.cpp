#include "apps/documents/JsonWriter.hpp"

#include "VemraPlatform/text/UTF8.hpp"
#include "apps/documents/PlainLength.hpp"

#include <utility>

namespace vemra::documents {
namespace {

void appendControl(std::string& out, unsigned char c) {
  constexpr char digits[] = "0123456789abcdef";
  switch (c) {
    case '\b':
      out += "\\b";
      return;
    case '\f':
      out += "\\f";
      return;
    case '\n':
      out += "\\n";
      return;
    case '\r':
      out += "\\r";
      return;
    case '\t':
      out += "\\t";
      return;
    default:
      out += "\\u00";
      out += digits[c >> 4];
      out += digits[c & 15];
  }
}

}  // namespace

void appendJsonEscaped(std::string& out, std::string_view utf8) {
  std::size_t copied = 0;
  std::size_t i = 0;
  const auto copyUpTo = [&](std::size_t end) { out += utf8.substr(copied, end - copied); };
  while ((i += plainLength(utf8.substr(i))) < utf8.size()) {
    const auto c = static_cast<unsigned char>(utf8[i]);
    if (c >= 0x80) {
      const text::Step step = text::firstStep(utf8.substr(i));
      if (!step.scalar) {
        copyUpTo(i);
        out += "\uFFFD";
        copied = i + step.length;
      }
      i += step.length;
      continue;
    }
    copyUpTo(i);
    if (c < 0x20) {
      appendControl(out, c);
    } else {
      out += '\\';
      out += utf8[i];
    }
    copied = ++i;
  }
  copyUpTo(utf8.size());
}

void JsonWriter::beginObject(Layout layout) {
  begin('{', layout);
}
void JsonWriter::beginArray(Layout layout) {
  begin('[', layout);
}
void JsonWriter::endObject() {
  end('}');
}
void JsonWriter::endArray() {
  end(']');
}

void JsonWriter::key(std::string_view key) {
  startEntry();
  text_ += '"';
  appendJsonEscaped(text_, key);
  text_ += "\": ";
  afterKey_ = true;
}

void JsonWriter::string(std::string_view text) {
  beginValue();
  text_ += '"';
  appendJsonEscaped(text_, text);
  text_ += '"';
}

void JsonWriter::stringOrNull(const std::optional<std::string>& text) {
  if (text) {
    string(*text);
  } else {
    null();
  }
}

void JsonWriter::integer(std::int64_t number) {
  beginValue();
  text_ += std::to_string(number);
}

void JsonWriter::boolean(bool value) {
  beginValue();
  text_ += value ? "true" : "false";
}

void JsonWriter::null() {
  beginValue();
  text_ += "null";
}

std::string JsonWriter::take() {
  return std::exchange(text_, {});
}

void JsonWriter::beginValue() {
  if (afterKey_) {
    afterKey_ = false;
  } else {
    startEntry();
  }
}

void JsonWriter::begin(char bracket, Layout layout) {
  beginValue();
  text_ += bracket;
  open_.push_back({layout, true});
  if (layout == Layout::lines) ++indentation_;
}

void JsonWriter::end(char bracket) {
  const Open closed = open_.back();
  open_.pop_back();
  if (closed.layout == Layout::lines) {
    --indentation_;
    if (!closed.empty) newLine();
  }
  text_ += bracket;
}

void JsonWriter::startEntry() {
  if (open_.empty()) return;
  Open& inner = open_.back();
  const bool first = std::exchange(inner.empty, false);
  if (!first) text_ += ',';
  if (inner.layout == Layout::lines) {
    newLine();
  } else if (!first) {
    text_ += ' ';
  }
}

void JsonWriter::newLine() {
  text_ += '\n';
  text_.append(2 * indentation_, ' ');
}

}  // namespace vemra::documents
