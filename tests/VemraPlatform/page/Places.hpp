#pragma once

#include "VemraPlatform/page/WindowedTree.hpp"

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace vemra::page::sample {

/// Identifies a leaf in two pages with the same view: its row, and its number in the row, or on the
/// page outside the list.
using Place = std::pair<std::optional<std::size_t>, std::size_t>;

inline std::vector<std::pair<Place, const Node*>> placesOf(const WindowedTree& tree) {
  std::vector<std::pair<Place, const Node*>> places;
  const Node* lastRow = nullptr;
  std::size_t inRow = 0, outside = 0;
  if (!tree.root()) return places;
  forEachLeaf(*tree.root(), [&](const Node& leaf) {
    const Node* const row = rowOf(&leaf);
    if (!row) {
      places.push_back({{std::nullopt, outside++}, &leaf});
      return;
    }
    inRow = row == lastRow ? inRow + 1 : 0;
    lastRow = row;
    places.push_back({{row->rowIndex, inRow}, &leaf});
  });
  return places;
}

}  // namespace vemra::page::sample
