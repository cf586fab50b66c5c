#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Element.hpp"

#include <cstddef>
#include <string>
#include <utility>

namespace vemra::testing {

/// How a person, or a script, points at an element: by what it is called, never by where it stands.
///
/// Texts and identifiers match byte for byte. `index` picks among several, in tree order, from 0.
struct VEMRA_EXPORT Query {
  enum class By { identifier, title, text };
  By by = By::identifier;
  /// The kind that a title or a text is sought on; of an identifier it says nothing.
  ui::ElementKind kind = ui::ElementKind::text;
  std::string value;
  std::size_t index = 0;

  bool matches(const ui::Element& element) const;
  /// `identifier "x"`, `button titled "Ada"`, `text "…"`; one line, see `text::quotedOnOneLine`.
  std::string description() const;
};

/// By accessibility identifier, on an element of any kind.
inline Query byIdentifier(std::string identifier, std::size_t index = 0) {
  return {Query::By::identifier, {}, std::move(identifier), index};
}
/// By what a Text shows: of a key, its translation.
inline Query byText(std::string shown, std::size_t index = 0) {
  return {Query::By::text, ui::ElementKind::text, std::move(shown), index};
}
/// By role and name: a button's, picker's or field's shown title.
inline Query byTitle(ui::ElementKind kind, std::string shown, std::size_t index = 0) {
  return {Query::By::title, kind, std::move(shown), index};
}
/// A button by its shown title.
inline Query button(std::string shown, std::size_t index = 0) {
  return byTitle(ui::ElementKind::button, std::move(shown), index);
}

}  // namespace vemra::testing
