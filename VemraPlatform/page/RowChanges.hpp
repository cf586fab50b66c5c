#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/RowIDs.hpp"

#include <cstddef>
#include <vector>

namespace vemra::page {

/// The rows that were removed (`removed`) and added (`inserted`) between two lists.
struct RowChanges {
  std::vector<std::size_t> removed;   ///< indexes in the previous list, ascending
  std::vector<std::size_t> inserted;  ///< indexes in the new list, ascending
  /// False when rows changed their order, or when more rows than the limit were added and removed.
  /// Then `removed` and `inserted` are empty.
  bool areComplete = true;
};

/// Finds the removed rows and the added ones. A row is the same in both lists when its ids are
/// canonically equal and have the same number of equal ids before them.
///
/// This takes one pass over the ids where little or nothing has changed; otherwise more, with a
/// table of the ids between the first and the last difference.
///
/// \param most The greatest number of removed and added rows together. Throws what `RowIDs::key`
/// throws.
VEMRA_EXPORT RowChanges rowChanges(const ui::RowIDs& before, const ui::RowIDs& after,
                                   std::size_t most);

}  // namespace vemra::page
