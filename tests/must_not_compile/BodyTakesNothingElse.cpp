// Message: a public body takes nothing, the environment, its state, or its state and the
// environment

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

struct Right {
  struct State {
    int count = 0;
    friend bool operator==(const State&, const State&) = default;
  };
  View body(const Environment&) const { return {}; }
};
struct Wrong final {
  using State = Right::State;
  View body(const LocalState<State>&, int) const { return {}; }
};

View shown() {
#ifdef MUST_NOT_COMPILE
  return Wrong{};
#endif
  return Right{};
}

}  // namespace vemra::ui
