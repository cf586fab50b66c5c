#include "VemraPlatform/ui/View.hpp"

struct WithBody {
  vemra::ui::View body() const { return {}; }
};
struct WithoutBody {};

// Only a struct with a body is a view.
vemra::ui::View tryToShow() {
#ifdef MUST_NOT_COMPILE
  return WithoutBody{};
#endif
  return WithBody{};
}
