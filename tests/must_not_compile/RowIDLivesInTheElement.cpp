#include "VemraPlatform/ui/View.hpp"

#include <string>
#include <vector>

// The graph keeps string views of ids: a temporary id would be destroyed at once.
vemra::ui::View tryToList(const std::vector<std::string>& names) {
  const auto row = [](const std::string&) { return vemra::ui::View(); };
  static_cast<void>(vemra::ui::ForEach(
      names, [](const std::string& name) -> const std::string& { return name; }, row));
#ifdef MUST_NOT_COMPILE
  return vemra::ui::ForEach(
      names, [](const std::string& name) { return name + "!"; }, row);
#endif
  return {};
}
