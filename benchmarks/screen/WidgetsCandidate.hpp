#pragma once

#include "benchmarks/screen/Candidate.hpp"

namespace vemra::bench {

enum class WidgetArrangement {
  column,  ///< every element of the page in one long layout
  rows,    ///< a container widget with a layout of its own for each person
};

/// Hand-written Qt Widgets in a scroll area: one widget for every element of the page.
std::unique_ptr<Candidate> makeWidgetsCandidate(WidgetArrangement arrangement);

/// An empty scroll area: measures a window by itself.
std::unique_ptr<Candidate> makeEmptyScrollArea();

}  // namespace vemra::bench
