#pragma once

#include <cstdint>

namespace vemra::ui {

/// What a view graph has done so far, counted: the guard against work that nobody sees.
struct WorkCount {
  std::uint64_t bodies = 0;    ///< composites described
  std::uint64_t rows = 0;      ///< rows described
  std::uint64_t nodes = 0;     ///< nodes made
  std::uint64_t patches = 0;   ///< patches handed to the renderer
  std::uint64_t idPasses = 0;  ///< passes over all row ids
};

}  // namespace vemra::ui
