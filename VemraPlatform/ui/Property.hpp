#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vemra::ui {

struct Property;
using Properties = std::vector<Property>;

/// One fact that a composite tells about itself, for a developer who looks at the tree.
///
/// Absent values are `std::monostate`. Nothing on the screen depends on properties.
struct Property {
  using Value = std::variant<std::monostate, bool, std::string, Properties>;
  std::string name;
  Value value;
};

}  // namespace vemra::ui
