#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::documents {

/// Appends `utf8` to `out` as the inside of a JSON string: quotation mark, reverse solidus and
/// control characters escaped, everything else as it is. Each ill-formed byte is replaced by
/// U+FFFD: a JSON text has to be UTF-8 (RFC 8259, section 8.1), a record's bytes may be anything.
void appendJsonEscaped(std::string& out, std::string_view utf8);

/// The layout of the entries of an object or array: all on one line, or each on a line of its own,
/// indented.
enum class Layout { inLine, lines };

/// Writes a JSON text piece by piece into one string, without a tree in between, so that a result
/// with 100,000 people costs its text and no more.
///
/// The caller keeps the order: inside an object each `key` is followed by one value, and every
/// `begin…` has its `end`. Keys come out in the order in which they are written.
class JsonWriter {
 public:
  void beginObject(Layout layout);
  void beginArray(Layout layout);
  void endObject();
  void endArray();

  void key(std::string_view key);

  void string(std::string_view text);
  void stringOrNull(const std::optional<std::string>& text);
  void integer(std::int64_t number);
  void boolean(bool value);
  void null();

  /// Returns the written text; the writer is empty afterwards.
  std::string take();

 private:
  struct Open {
    Layout layout;
    bool empty;
  };

  void beginValue();
  void begin(char bracket, Layout layout);
  void end(char bracket);
  void startEntry();
  void newLine();

  std::string text_;
  std::vector<Open> open_;
  std::size_t indentation_ = 0;
  bool afterKey_ = false;
};

}  // namespace vemra::documents
