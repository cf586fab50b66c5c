// Message: the label of a choice is a LocalizedKey, or a text that is shown unchanged:
// verbatim(text)

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

View floors(Binding<int> floor) {
#ifdef MUST_NOT_COMPILE
  return Picker("Floor", floor, {1, 2}, [](int number) { return std::to_string(number); });
#endif
  return Picker("Floor", floor, {1, 2},
                [](int number) { return verbatim(std::to_string(number)); });
}

}  // namespace vemra::ui
