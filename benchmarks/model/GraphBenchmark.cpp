#include "VemraPlatform/ui/ListDiff.hpp"
#include "VemraPlatform/ui/Rows.hpp"
#include "VemraTesting/Screen.hpp"
#include "benchmarks/model/SampleView.hpp"

#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

using namespace vemra;
using namespace vemra::bench;

namespace {

/// Ignores all patches, so that only the graph is measured.
class NoRenderer final : public ui::Renderer {
 public:
  ui::RowDemand rowDemand() const override { return ui::RowDemand::everything; }
  void apply(const ui::Changes& changes) override { count += changes.patches.size(); }
  std::size_t count = 0;
};

/// The same for a window's rows.
class FewRows final : public ui::Renderer {
 public:
  ui::RowDemand rowDemand() const override { return ui::RowDemand::onRequest; }
  void apply(const ui::Changes&) override {}
};

std::size_t peopleOf(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

/// Per row: only its description, as values.
void describe(benchmark::State& state) {
  ui::ViewGraph graph;
  graph.setRoot(sampleView({.people = peopleOf(state)}));
  const ui::Node& list = listOf(*graph.root());
  const ui::RowSource& rows = *memoryOf(list).rows->source;
  for (auto _ : state) {
    for (std::size_t i = 0; i < rows.count(); ++i) benchmark::DoNotOptimize(rows.row(i));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Per node: a first tree, described and reconciled, with a renderer that ignores the patches.
void resolveFirst(benchmark::State& state) {
  const ui::View view = sampleView({.people = peopleOf(state)});
  std::size_t nodes = 0;
  for (auto _ : state) {
    NoRenderer renderer;
    auto graph = std::make_unique<ui::ViewGraph>();
    graph->attach(renderer);
    graph->setRoot(view);
    nodes = renderer.count;
    state.PauseTiming();
    graph->detach();
    graph.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(nodes));
}

/// Per node: the same tree again, compared with the existing nodes.
void resolveAgain(benchmark::State& state) {
  const ui::View view = sampleView({.people = peopleOf(state)});
  NoRenderer renderer;
  ui::ViewGraph graph;
  graph.attach(renderer);
  graph.setRoot(view);
  const std::size_t nodes = renderer.count;
  for (auto _ : state) graph.setRoot(view);
  if (renderer.count != nodes) state.SkipWithError("the same tree made patches");
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(nodes));
}

/// The whole tree in the test harness, with all rows.
void headless(benchmark::State& state) {
  const ui::View view = sampleView({.people = peopleOf(state)});
  for (auto _ : state) {
    auto screen = std::make_unique<testing::Screen>(view);
    benchmark::DoNotOptimize(screen->tree().root());
    state.PauseTiming();  // as with a first frame, destruction is not measured
    screen.reset();
    state.ResumeTiming();
  }
}

/// The whole tree with the rows of a window.
void headlessInView(benchmark::State& state) {
  const ui::View view = sampleView({.people = peopleOf(state)});
  for (auto _ : state) {
    FewRows renderer;
    auto graph = std::make_unique<ui::ViewGraph>();
    graph->attach(renderer);
    graph->setRoot(view);
    graph->showRows(listOf(*graph->root()).id, {{0, 10}});
    benchmark::DoNotOptimize(graph->root());
    state.PauseTiming();
    graph->detach();
    graph.reset();
    state.ResumeTiming();
  }
}

/// Per element: every tenth one moves to the end.
void diffLists(benchmark::State& state) {
  std::vector<ui::NodeID> before;
  std::vector<ui::NodeID> after;
  std::vector<ui::NodeID> moved;
  for (std::uint64_t i = 1; i <= peopleOf(state); ++i) {
    before.push_back(ui::NodeID{i});
    (i % 10 == 0 ? moved : after).push_back(ui::NodeID{i});
  }
  after.insert(after.end(), moved.begin(), moved.end());
  for (auto _ : state) benchmark::DoNotOptimize(ui::diff(before, after));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(describe)->Name("graph/describe-a-row")->Arg(1000);
BENCHMARK(resolveFirst)->Name("graph/resolve-a-new-node")->Arg(1000);
BENCHMARK(resolveAgain)->Name("graph/resolve-a-known-node")->Arg(1000);
BENCHMARK(diffLists)->Name("graph/diff-an-element")->Arg(100)->Arg(10'000);
BENCHMARK(headless)->Name("graph/headless-tree")->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(headlessInView)
    ->Name("graph/headless-in-view")
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
