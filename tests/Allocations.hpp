#pragma once

#include <cstdint>

namespace vemra::testing {

/// The number of calls of `operator new` in this program so far, with or without an alignment, in
/// all libraries.
///
/// Always 0 where the program cannot replace it (under the sanitizers).
std::uint64_t allocations();

/// Grants the main thread's next `granted` calls of `operator new`; the call after them throws
/// `std::bad_alloc`, once. Does nothing where `allocations` is always 0.
void refuseAllocationAfter(std::uint64_t granted);

/// Cancels a refusal that has not happened yet.
void refuseNoAllocation();

}  // namespace vemra::testing
