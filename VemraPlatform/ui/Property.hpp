#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vemra::ui {

struct Property;
/// The properties of a composite, in the order in which it lists them.
using Properties = std::vector<Property>;

/// A property that a composite reports about itself, for developers who inspect the tree.
///
/// The value `std::monostate` means absent. The screen does not depend on properties.
struct Property {
  /// Absent, a truth value, a text, or properties of its own.
  using Value = std::variant<std::monostate, bool, std::string, Properties>;
  std::string name;  ///< the key in reports
  Value value;       ///< what the report shows for it
};

}  // namespace vemra::ui
