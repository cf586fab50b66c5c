#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstddef>
#include <string_view>

namespace vemra::ui {

/// The ids of all rows of a `ForEach`, in order: what is known of a row that nobody has asked for.
class VEMRA_EXPORT RowIDs {
 public:
  virtual ~RowIDs() = default;
  virtual std::size_t count() const = 0;
  /// The id of the row at `index`; valid as long as this object is.
  virtual std::string_view key(std::size_t index) const = 0;
};

}  // namespace vemra::ui
