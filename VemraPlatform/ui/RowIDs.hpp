#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstddef>
#include <string_view>

namespace vemra::ui {

/// How the accessibility identifiers in the rows of a `ForEach` are made.
enum class IdentifiersInRows {
  any,           ///< nothing is known about them: a search has to describe every row
  containRowID,  ///< each one contains the id of its row, byte for byte: "person.p7.save" for "p7"
};

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
  /// What is known about the identifiers in the rows.
  virtual IdentifiersInRows identifiers() const { return IdentifiersInRows::any; }
};

}  // namespace vemra::ui
