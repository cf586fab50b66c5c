#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstddef>
#include <string_view>

namespace vemra::ui {

/// The ids of all rows of a `ForEach`, in order. They are known without describing the rows.
///
/// The host's code computes them, so both functions may throw, whatever the graph promises for its
/// own calls: catch what they throw (`ViewGraph` says what a thrown id does to the tree).
class VEMRA_EXPORT RowIDs {
 public:
  virtual ~RowIDs() = default;
  /// The number of rows.
  virtual std::size_t count() const = 0;
  /// The id of the row at `index`; valid while this object lives.
  virtual std::string_view key(std::size_t index) const = 0;
};

}  // namespace vemra::ui
