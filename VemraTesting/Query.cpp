#include "VemraTesting/Query.hpp"

#include "VemraPlatform/text/OneLine.hpp"

namespace vemra::testing {

bool Query::matches(const ui::Element& element) const {
  switch (by) {
    case By::identifier:
      // The identifier "" matches no element, not even one without an identifier.
      return !value.empty() && element.accessibilityIdentifier() == value;
    case By::title:
    case By::text:
      return element.kind() == kind && element.shownLabel() == value;
  }
  return false;
}

std::string Query::description() const {
  const std::string quoted = text::quotedOnOneLine(value);
  switch (by) {
    case By::identifier:
      return "identifier " + quoted;
    case By::text:
      return "text " + quoted;
    case By::title:
      break;
  }
  std::string role(ui::kindName(kind));
  if (kind == ui::ElementKind::button) role = "button";
  return role + " titled " + quoted;
}

}  // namespace vemra::testing
