#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace vemra::ui {

/// A text of the screen itself, looked up in the strings table; its key is the English text.
///
/// Only a string literal can make one, so that a name or a note is never used as a key by accident.
class LocalizedKey {
 public:
  /// Makes a key from a literal. Text that is known only at run time does not compile.
  consteval LocalizedKey(const char* literal) : key_(literal) {}
  /// The literal, byte for byte.
  constexpr std::string_view key() const { return key_; }

 private:
  std::string_view key_;
};

/// Marks a view's own text so that translation tools find it: `Text(translatable("Contacts", "No
/// friends yet"))`. It is the key `literal`, like the literal alone.
///
/// \param context The name under which the tools list the text. It is for them only: the strings
/// table looks up `literal`, so two contexts share a translation.
consteval LocalizedKey translatable([[maybe_unused]] const char* context, const char* literal) {
  return literal;
}

/// A text that is shown byte for byte and never looked up.
struct Verbatim {
  std::string text;  ///< shown unchanged
};

/// Makes a text that is shown unchanged: `Text(verbatim(person.name))`.
inline Verbatim verbatim(std::string text) {
  return {std::move(text)};
}
inline Verbatim verbatim(std::string_view text) {
  return {std::string(text)};
}
inline Verbatim verbatim(const char* text) {
  return {text};
}

/// The text or title of a view: a localised key or a verbatim string.
class Label {
 public:
  /// Where a label's text comes from.
  enum class Kind { localizedKey, verbatim };

  /// A label that is translated.
  Label(LocalizedKey key) : kind_(Kind::localizedKey), source_(key.key()) {}
  /// A label that is shown unchanged.
  Label(Verbatim text) : kind_(Kind::verbatim), source_(std::move(text.text)) {}

  /// Whether the label is translated.
  Kind kind() const { return kind_; }
  /// Whether the label is translated: `kind() == Kind::localizedKey`.
  bool isKey() const { return kind_ == Kind::localizedKey; }
  /// The key, or the verbatim text.
  const std::string& source() const { return source_; }

  friend bool operator==(const Label&, const Label&) = default;

 private:
  Kind kind_;
  std::string source_;
};

}  // namespace vemra::ui
