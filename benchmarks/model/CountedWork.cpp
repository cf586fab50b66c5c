#include "benchmarks/model/CountedWork.hpp"

#include "VemraPlatform/ui/ViewGraph.hpp"
#include "benchmarks/model/SampleView.hpp"
#include "benchmarks/model/Scan.hpp"

#include <algorithm>
#include <vector>

#include <benchmark/benchmark.h>

namespace vemra::bench {

namespace {

class EveryRow final : public ui::Renderer {
 public:
  ui::RowDemand rowDemand() const override { return ui::RowDemand::everything; }
  void apply(const ui::Changes& changes) override { count += changes.patches.size(); }
  std::size_t count = 0;
};

}  // namespace

// Not in the unnamed namespace, so that a tool can select it by name.
[[gnu::noinline]] void countedScan(const GoalResultSnapshotV1& snapshot, const std::string& ref) {
  benchmark::DoNotOptimize(snapshot.effectiveOutcome(GoalOutcomeSubjectKind::person, ref));
}

[[gnu::noinline]] void countedEquality(const GoalResultSnapshotV1& a,
                                       const GoalResultSnapshotV1& b) {
  benchmark::DoNotOptimize(a == b);
}

[[gnu::noinline]] void countedResolve(ui::ViewGraph& graph, const ui::View& view) {
  graph.setRoot(view);
}

std::size_t countedWork(std::string_view name) {
  constexpr std::size_t count = 10'000;
  if (name == "scan") {
    const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes(count, Alphabet::ascii);
    countedScan(snapshot, referenceAt(count + 1, Alphabet::ascii));
    return count;
  }
  if (name == "equality") {
    countedEquality(snapshotWithOutcomes(count, Alphabet::ascii),
                    snapshotWithOutcomes(count, Alphabet::ascii));
    return count;
  }
  if (name == "resolve") {
    EveryRow renderer;
    ui::ViewGraph graph;
    graph.attach(renderer);
    const ui::View view = sampleView({.people = 1000});
    graph.setRoot(sampleView({.people = 1}));  // with a date, whose formatter is kept
    graph.setRoot({});
    renderer.count = 0;
    countedResolve(graph, view);
    return renderer.count;
  }
  return 0;
}

}  // namespace vemra::bench
