// Message: a body is const and returns a View

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

struct State {
  int count = 0;
  friend bool operator==(const State&, const State&) = default;
};
struct Right {
  using State = ui::State;
  View body(const LocalState<State>&) const { return {}; }
};
struct Wrong {
  using State = ui::State;
  int body(const LocalState<State>&) const { return 0; }
};

View shown() {
#ifdef MUST_NOT_COMPILE
  return Wrong{};
#endif
  return Right{};
}

}  // namespace vemra::ui
