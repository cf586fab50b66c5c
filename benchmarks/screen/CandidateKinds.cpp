#include "benchmarks/screen/CandidateKinds.hpp"

#include "benchmarks/screen/ListViewCandidate.hpp"
#include "benchmarks/screen/QuickCandidate.hpp"
#include "benchmarks/screen/VemraCandidate.hpp"
#include "benchmarks/screen/WidgetsCandidate.hpp"

#include <string>

namespace vemra::bench {

const std::vector<CandidateKind>& candidateKinds() {
  static const std::vector<CandidateKind> kinds{
      {std::string(libraryName), makeVemraCandidate},
      {"widgets-column", [] { return makeWidgetsCandidate(WidgetArrangement::column); }},
      {"widgets-rows", [] { return makeWidgetsCandidate(WidgetArrangement::rows); }},
      {"listview", makeListViewCandidate},
      {"quick-listview", [] { return makeQuickCandidate(QuickPage::listView); }},
      {"quick-repeater", [] { return makeQuickCandidate(QuickPage::repeater); }},
      {"empty-scroll-area", makeEmptyScrollArea},
  };
  return kinds;
}

}  // namespace vemra::bench
