// Message: this would copy every element of the range: share the elements (SharedArray)

#include "VemraPlatform/ui/View.hpp"

#include <array>

namespace vemra::ui {

View names(std::array<std::string, 2> names) {
  const auto row = [](const std::string& name) { return Text(verbatim(name)); };
#ifdef MUST_NOT_COMPILE
  return ForEach(names, std::identity(), row);
#endif
  return ForEach(std::move(names), std::identity(), row);
}

}  // namespace vemra::ui
