#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "benchmarks/data/SampleResult.hpp"

#include <vector>

#include <benchmark/benchmark.h>

using namespace vemra;
using namespace vemra::bench;

namespace {

GoalResultSnapshotV1 sample(const benchmark::State& state) {
  return GoalResultSnapshotV1(sampleResult({.people = static_cast<std::size_t>(state.range(0))}));
}

template <class Element>
SharedArray<Element> deepCopy(const SharedArray<Element>& elements) {
  return std::vector<Element>(elements.begin(), elements.end());
}

GoalResultSnapshotV1 deepCopy(const GoalResultSnapshotV1& snapshot) {
  return GoalResultSnapshotV1(snapshot.goal(), deepCopy(snapshot.people()),
                              deepCopy(snapshot.paths()), deepCopy(snapshot.group()),
                              snapshot.coverage(), deepCopy(snapshot.outcomes()));
}

void copyShared(benchmark::State& state) {
  const GoalResultSnapshotV1 snapshot = sample(state);
  for (auto _ : state) {
    GoalResultSnapshotV1 copy = snapshot;
    benchmark::DoNotOptimize(copy);
  }
}

void copyDeep(benchmark::State& state) {
  const GoalResultSnapshotV1 snapshot = sample(state);
  for (auto _ : state) {
    GoalResultSnapshotV1 copy = deepCopy(snapshot);
    benchmark::DoNotOptimize(copy);
  }
}

void equalShared(benchmark::State& state) {
  const GoalResultSnapshotV1 snapshot = sample(state);
  // A different snapshot with the same lists, as a host makes it.
  const GoalResultSnapshotV1 other(snapshot.goal(), snapshot.people(), snapshot.paths(),
                                   snapshot.group(), snapshot.coverage(), snapshot.outcomes());
  for (auto _ : state) benchmark::DoNotOptimize(snapshot == other);
}

void equalDeep(benchmark::State& state) {
  const GoalResultSnapshotV1 snapshot = sample(state);
  const GoalResultSnapshotV1 other = deepCopy(snapshot);
  for (auto _ : state) benchmark::DoNotOptimize(snapshot == other);
}

BENCHMARK(copyShared)->Name("snapshot/copy/shared")->Arg(100)->Arg(10'000)->Arg(100'000);
BENCHMARK(copyDeep)->Name("snapshot/copy/deep")->Arg(10'000);
BENCHMARK(equalShared)->Name("snapshot/equal/shared")->Arg(100)->Arg(10'000)->Arg(100'000);
BENCHMARK(equalDeep)->Name("snapshot/equal/deep")->Arg(10'000);

}  // namespace
