// Message: a const range cannot be moved: keep the elements in a SharedArray

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

struct Names {
  std::vector<std::string> names;

  View body() const {
    const auto row = [](const std::string& name) { return Text(verbatim(name)); };
#ifdef MUST_NOT_COMPILE
    return ForEach(std::move(names), std::identity(), row);
#endif
    return ForEach(std::vector(names), std::identity(), row);
  }
};

}  // namespace vemra::ui
