#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/RowIDs.hpp"

#include <cstddef>
#include <vector>

namespace vemra::page {

/// How one list of rows became another one.
struct RowChanges {
  std::vector<std::size_t> left;  ///< places in the list before, ascending
  std::vector<std::size_t> came;  ///< places in the list after, ascending
  /// False when rows changed places, or when more rows than the limit left and came. Then `left` and
  /// `came` are empty.
  bool areComplete = true;
};

/// Finds the rows that left and those that came. A row is the same in both lists when its id is
/// canonically equal and as many equal ids stand before it.
///
/// One pass over the ids where nothing or little has changed; more, with a table of the ids between
/// the first and the last difference, otherwise.
///
/// \param most How many rows may have left and come together. Throws what `RowIDs::key` throws.
VEMRA_EXPORT RowChanges rowChanges(const ui::RowIDs& before, const ui::RowIDs& after,
                                   std::size_t most);

}  // namespace vemra::page
