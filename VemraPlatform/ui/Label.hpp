#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace vemra::ui {

/// A text of the screen's own, looked up in the strings table; the English text is the key.
///
/// Only a literal makes one, so that a name or a note can never be taken for a key by accident.
class LocalizedKey {
 public:
  consteval LocalizedKey(const char* literal) : key_(literal) {}
  constexpr std::string_view key() const { return key_; }

 private:
  std::string_view key_;
};

/// A text shown as it is, byte for byte, and never looked up.
struct Verbatim {
  std::string text;
};

/// Marks `text` as one to show as it is: `Text(verbatim(person.name))`.
inline Verbatim verbatim(std::string text) {
  return {std::move(text)};
}
inline Verbatim verbatim(std::string_view text) {
  return {std::string(text)};
}
inline Verbatim verbatim(const char* text) {
  return {text};
}

/// What a view shows as its text or title: a localised key or a verbatim string.
class Label {
 public:
  enum class Kind { localizedKey, verbatim };

  Label(LocalizedKey key) : kind_(Kind::localizedKey), source_(key.key()) {}
  Label(Verbatim text) : kind_(Kind::verbatim), source_(std::move(text.text)) {}

  Kind kind() const { return kind_; }
  bool isKey() const { return kind_ == Kind::localizedKey; }
  /// The key, or the verbatim text.
  const std::string& source() const { return source_; }

  friend bool operator==(const Label&, const Label&) = default;

 private:
  Kind kind_;
  std::string source_;
};

}  // namespace vemra::ui
