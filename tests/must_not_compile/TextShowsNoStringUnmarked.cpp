#include "VemraPlatform/ui/View.hpp"

#include <string>

// A name or a note must be marked as verbatim to be shown; a text of the screen itself is a
// literal.
vemra::ui::View tryToShow(const std::string& name) {
  static_cast<void>(vemra::ui::Text(vemra::ui::verbatim(name)));
  static_cast<void>(vemra::ui::Text("Show source"));
#ifdef MUST_NOT_COMPILE
  return vemra::ui::Text(name);
#endif
  return {};
}
