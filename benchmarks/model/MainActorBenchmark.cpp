#include "VemraPlatform/task/MainActor.hpp"

#include <benchmark/benchmark.h>

namespace {

/// The check that runs before each view is described.
void isCurrent(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(vemra::task::MainActor::isCurrent());
}

BENCHMARK(isCurrent)->Name("main actor/is current");

}  // namespace
