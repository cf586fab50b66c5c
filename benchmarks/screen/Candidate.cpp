#include "benchmarks/screen/Candidate.hpp"

#include "benchmarks/screen/ListViewCandidate.hpp"
#include "benchmarks/screen/QuickCandidate.hpp"
#include "benchmarks/screen/VemraCandidate.hpp"
#include "benchmarks/screen/WidgetsCandidate.hpp"

#include <QCoreApplication>
#include <QWheelEvent>

namespace vemra::bench {

void turnWheelOver(QObject& widget) {
  const QPointF middle(windowSize.width() / 2.0, windowSize.height() / 2.0);
  QWheelEvent event(middle, middle, QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &event);
}

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
