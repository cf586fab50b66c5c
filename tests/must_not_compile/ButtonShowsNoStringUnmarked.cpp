#include "VemraPlatform/ui/View.hpp"

#include <string_view>

vemra::ui::View tryToShow(std::string_view name) {
  static_cast<void>(vemra::ui::Button(vemra::ui::verbatim(name), nullptr));
#ifdef MUST_NOT_COMPILE
  return vemra::ui::Button(name, nullptr);
#endif
  return {};
}
