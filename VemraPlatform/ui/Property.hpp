#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vemra::ui {

struct Property;
using Properties = std::vector<Property>;

/// A property that a composite reports about itself, for developers who inspect the tree.
///
/// The value `std::monostate` means absent. The screen does not depend on properties.
struct Property {
  using Value = std::variant<std::monostate, bool, std::string, Properties>;
  std::string name;
  Value value;
};

}  // namespace vemra::ui
