#pragma once

#include <cstdint>

namespace vemra::testing {

/// The number of calls of `operator new` of the calling thread so far, with or without an
/// alignment, in all libraries.
///
/// Always 0 where the program cannot replace it (under the sanitizers).
std::uint64_t allocations();

/// Lets the calling thread's next `granted` calls of `operator new` succeed; the call after them
/// throws `std::bad_alloc`, once; the allocations of other threads succeed. Does nothing where
/// `allocations` is always 0.
void refuseAllocationAfter(std::uint64_t granted);

/// Cancels the calling thread's refusal that has not happened yet.
void refuseNoAllocation();

}  // namespace vemra::testing
