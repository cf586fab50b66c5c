// Two equal texts may have different addresses.

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

View choice() {
#ifdef MUST_NOT_COMPILE
  return Text("Berlin").tag("Berlin");
#endif
  return Text("Berlin").tag(std::string("Berlin"));
}

}  // namespace vemra::ui
