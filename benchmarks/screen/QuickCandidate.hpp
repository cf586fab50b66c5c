#pragma once

#include "benchmarks/screen/Candidate.hpp"

namespace vemra::bench {

enum class QuickPage {
  listView,  ///< only the rows near the viewport have items
  repeater,  ///< every row has its items, in one column that scrolls
};

/// Qt Quick with its software renderer over a model in C++.
std::unique_ptr<Candidate> makeQuickCandidate(QuickPage page);

}  // namespace vemra::bench
