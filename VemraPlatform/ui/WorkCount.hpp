#pragma once

#include <cstdint>

namespace vemra::ui {

/// Counts the work of a view graph so far. Tests compare two counts to find work without an effect.
struct WorkCount {
  std::uint64_t bodies = 0;    ///< composites described
  std::uint64_t rows = 0;      ///< rows described
  std::uint64_t nodes = 0;     ///< nodes made
  std::uint64_t patches = 0;   ///< patches handed to the renderer
  std::uint64_t idPasses = 0;  ///< passes over all row ids
};

}  // namespace vemra::ui
