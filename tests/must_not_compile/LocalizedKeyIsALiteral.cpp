#include "VemraPlatform/ui/Label.hpp"

#include <string>

std::string_view tryToLookUp(const std::string& name) {
  static_cast<void>(name);
#ifdef MUST_NOT_COMPILE
  return vemra::ui::LocalizedKey(name.c_str()).key();
#endif
  return vemra::ui::LocalizedKey("Show source").key();
}
