// Message: a body takes its state first, then the environment

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

struct Right {
  struct State {
    int count = 0;
    friend bool operator==(const State&, const State&) = default;
  };
  View body(const LocalState<State>&, const Environment&) const { return {}; }
};
struct Wrong {
  using State = Right::State;
  View body(const Environment&, const LocalState<State>&) const { return {}; }
};

View shown() {
#ifdef MUST_NOT_COMPILE
  return Wrong{};
#endif
  return Right{};
}

}  // namespace vemra::ui
