// Message: a view is a value: a struct with a body must be copyable

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

struct Right {
  std::shared_ptr<int> count;
  View body() const { return {}; }
};
struct Wrong {
  std::unique_ptr<int> count;
  View body() const { return {}; }
};

View shown() {
#ifdef MUST_NOT_COMPILE
  return Wrong{};
#endif
  return Right{};
}

}  // namespace vemra::ui
