// Message: the function of update takes the state by reference

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

struct State {
  int count = 0;
  friend bool operator==(const State&, const State&) = default;
};

void write(const LocalState<State>& state) {
  state.update([](State& next) { ++next.count; });
#ifdef MUST_NOT_COMPILE
  state.update([](State next) { ++next.count; });
#endif
}

}  // namespace vemra::ui
