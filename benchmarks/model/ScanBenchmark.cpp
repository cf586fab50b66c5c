#include "benchmarks/model/Scan.hpp"

#include <benchmark/benchmark.h>

using namespace vemra;
using namespace vemra::bench;

namespace {

constexpr std::size_t records = 10'000;
constexpr std::size_t nobody = records + 1;

void scan(benchmark::State& state, Alphabet alphabet, std::size_t wanted) {
  const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes(records, alphabet);
  const std::string reference = referenceAt(wanted, alphabet);
  for (auto _ : state) {
    benchmark::DoNotOptimize(snapshot.effectiveOutcome(GoalOutcomeSubjectKind::person, reference));
  }
  const std::size_t scanned = wanted == nobody ? records : records - wanted;
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(scanned));
}

void missAscii(benchmark::State& state) {
  scan(state, Alphabet::ascii, nobody);
}
void missAccented(benchmark::State& state) {
  scan(state, Alphabet::accented, nobody);
}
void hitAscii(benchmark::State& state) {
  scan(state, Alphabet::ascii, records / 2);
}
void hitAccented(benchmark::State& state) {
  scan(state, Alphabet::accented, records / 2);
}

void missByBytes(benchmark::State& state) {
  const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes(records, Alphabet::ascii);
  const std::string reference = referenceAt(nobody, Alphabet::ascii);
  for (auto _ : state) benchmark::DoNotOptimize(lastOutcomeByBytes(snapshot, reference));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(records));
}

BENCHMARK(missAscii)->Name("effectiveOutcome/miss/ascii");
BENCHMARK(missByBytes)->Name("effectiveOutcome/miss/ascii/std::string");
BENCHMARK(missAccented)->Name("effectiveOutcome/miss/accented");
BENCHMARK(hitAscii)->Name("effectiveOutcome/hit/ascii");
BENCHMARK(hitAccented)->Name("effectiveOutcome/hit/accented");

}  // namespace
