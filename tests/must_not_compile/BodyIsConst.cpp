// Message: a body is const and returns a View

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

struct Right {
  View body() const { return {}; }
};
struct Wrong {
  View body() { return {}; }
};

View shown() {
#ifdef MUST_NOT_COMPILE
  return Wrong{};
#endif
  return Right{};
}

}  // namespace vemra::ui
