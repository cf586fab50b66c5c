#pragma once

#include "benchmarks/screen/Candidate.hpp"

namespace vemra::bench {

/// A QListView: a model, and a delegate that paints every row; only an open editor is of widgets.
std::unique_ptr<Candidate> makeListViewCandidate();

}  // namespace vemra::bench
