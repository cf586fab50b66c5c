#pragma once

#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/RowSource.hpp"

#include <cstddef>
#include <memory>
#include <vector>

namespace vemra::qt {

/// The rows of a list as the view that made it gives them.
std::shared_ptr<const ui::RowSource> rowSourceOf(const ui::Element& forEach);

/// How the rows of a list became those of another one.
struct RowChanges {
  std::vector<std::size_t> left;  ///< places in the list before, ascending
  std::vector<std::size_t> came;  ///< places in the list after, ascending
  /// Whether that is all there is to it. When rows have changed places, or more than the limit have
  /// come and gone, nothing else is told.
  bool areComplete = true;
};

/// Tells which rows left and which came, each by its id and, of equal ids, by its order.
///
/// One pass over the ids where nothing or little has changed; more, with a table of the ids between
/// the first and the last difference, otherwise.
///
/// \param most How many rows may have left and come together.
RowChanges rowChanges(const ui::RowSource& before, const ui::RowSource& after, std::size_t most);

}  // namespace vemra::qt
