#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Element.hpp"

#include <cstddef>
#include <string>
#include <utility>

namespace vemra::testing {

/// Selects an element as a person or a script would: by its name, never by its position.
///
/// Texts and identifiers match byte for byte. `index` selects one of several matches, in tree
/// order, from 0.
struct VEMRA_EXPORT Query {
  /// What an element is found by.
  enum class By { identifier, title, text };
  By by = By::identifier;  ///< what `value` is
  /// The kind of element for a title or a text; ignored for an identifier.
  ui::ElementKind kind = ui::ElementKind::text;
  std::string value;      ///< the whole identifier, title or text, byte for byte
  std::size_t index = 0;  ///< 0: the first element in tree order that matches

  /// Whether the element has this identifier, title or text; `index` does not count.
  bool matches(const ui::Element& element) const;
  /// `identifier "x"`, `button titled "Ada"`, `text "…"`; one line, see `text::quotedOnOneLine`.
  std::string description() const;
};

/// Selects by accessibility identifier, among elements of any kind.
inline Query byIdentifier(std::string identifier, std::size_t index = 0) {
  return {Query::By::identifier, {}, std::move(identifier), index};
}
/// Selects a Text by its shown text; for a key, by the translation.
inline Query byText(std::string shown, std::size_t index = 0) {
  return {Query::By::text, ui::ElementKind::text, std::move(shown), index};
}
/// Selects by role and name: the shown title of a button, picker or field.
inline Query byTitle(ui::ElementKind kind, std::string shown, std::size_t index = 0) {
  return {Query::By::title, kind, std::move(shown), index};
}
/// Selects a button by its shown title.
inline Query button(std::string shown, std::size_t index = 0) {
  return byTitle(ui::ElementKind::button, std::move(shown), index);
}

}  // namespace vemra::testing
