// Message: friend bool operator==(const State&, const State&) = default;

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
  struct State {
    int count = 0;
  };
  View body(const LocalState<State>&, const Environment&) const { return {}; }
};

View shown() {
#ifdef MUST_NOT_COMPILE
  return Wrong{};
#endif
  return Right{};
}

}  // namespace vemra::ui
