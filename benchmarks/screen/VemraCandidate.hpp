#pragma once

#include "benchmarks/screen/Candidate.hpp"

namespace vemra::bench {

/// The library: `GoalResultView` in a `ViewWidget`.
std::unique_ptr<Candidate> makeVemraCandidate();

}  // namespace vemra::bench
