#pragma once

#include <cstdint>

namespace vemra::testing {

/// How often this program has called `operator new` so far, in whatever library.
///
/// Always 0 where the program cannot replace it (under the sanitizers).
std::uint64_t allocations();

}  // namespace vemra::testing
