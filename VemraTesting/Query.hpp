#pragma once

#include "VemraPlatform/ui/Element.hpp"

#include <cstddef>
#include <string>
#include <utility>

namespace vemra::testing {

/// How a person, or a script, points at an element: by what it is called, never by where it stands.
///
/// Texts and identifiers match byte for byte. `index` picks among several, in tree order.
struct Query {
  enum class By { identifier, title, text };
  By by;
  ui::ElementKind kind = ui::ElementKind::text;  ///< of a title: the role
  std::string value;
  std::size_t index = 0;

  bool matches(const ui::Element& element) const;
  /// `identifier "x"`, `button titled "Ada"`, `text "…"`.
  std::string description() const;
};

inline Query byIdentifier(std::string identifier) {
  return {Query::By::identifier, {}, std::move(identifier), 0};
}
inline Query byText(std::string shown, std::size_t index = 0) {
  return {Query::By::text, ui::ElementKind::text, std::move(shown), index};
}
/// By role and name: a button's, picker's or field's shown title.
inline Query byTitle(ui::ElementKind kind, std::string shown, std::size_t index = 0) {
  return {Query::By::title, kind, std::move(shown), index};
}
inline Query button(std::string shown, std::size_t index = 0) {
  return byTitle(ui::ElementKind::button, std::move(shown), index);
}

}  // namespace vemra::testing
