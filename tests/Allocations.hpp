#pragma once

#include <cstdint>

namespace vemra::testing {

/// How often this program has called `operator new` so far, with or without an alignment, in
/// whatever library.
///
/// Always 0 where the program cannot replace it (under the sanitizers).
std::uint64_t allocations();

/// Lets the main thread's next `granted` calls of `operator new` have their memory, and the one
/// after them throw `std::bad_alloc`, once. Does nothing where `allocations` is always 0.
void refuseAllocationAfter(std::uint64_t granted);

/// Takes back a refusal that has not come about.
void refuseNoAllocation();

}  // namespace vemra::testing
