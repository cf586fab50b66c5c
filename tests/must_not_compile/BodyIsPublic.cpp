// Message: View body() const, or View body(const Environment&) const

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

class Right {
 public:
  View body() const { return {}; }
};
class Wrong {
  View body() const { return {}; }
};

View shown() {
#ifdef MUST_NOT_COMPILE
  return Wrong{};
#endif
  return Right{};
}

}  // namespace vemra::ui
