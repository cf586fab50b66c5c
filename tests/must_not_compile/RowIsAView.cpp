// Message: the row of a list is a view: return one from the function

#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

View names(std::vector<std::string> names) {
#ifdef MUST_NOT_COMPILE
  return ForEach(std::move(names), std::identity(), [](const std::string& name) { return name; });
#endif
  return ForEach(std::move(names), std::identity(),
                 [](const std::string& name) { return Text(verbatim(name)); });
}

}  // namespace vemra::ui
