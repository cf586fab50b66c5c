#include "VemraPlatform/ui/View.hpp"

#include <string>

// A name or a note is shown as it is, and only somebody who says so may show it: a text of the
// screen's own is a literal.
vemra::ui::View tryToShow(const std::string& name) {
  static_cast<void>(vemra::ui::Text(vemra::ui::verbatim(name)));
  static_cast<void>(vemra::ui::Text("Show source"));
#ifdef MUST_NOT_COMPILE
  return vemra::ui::Text(name);
#endif
  return {};
}
