#pragma once

#include "benchmarks/screen/Candidate.hpp"

#include <vector>

namespace vemra::bench {

/// All candidates, the library's first.
const std::vector<CandidateKind>& candidateKinds();

}  // namespace vemra::bench
