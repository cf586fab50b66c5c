#pragma once

#include <cstddef>

namespace vemra::screentest {

/// How many allocations this program has made so far.
std::size_t allocationsSoFar();

}  // namespace vemra::screentest
