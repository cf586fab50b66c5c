#include "VemraPlatform/text/Equality.hpp"
#include "benchmarks/model/Scan.hpp"

#include <vector>

#include <benchmark/benchmark.h>

using namespace vemra;
using namespace vemra::bench;

namespace {

constexpr std::size_t count = 1024;

std::vector<std::string> texts(Alphabet alphabet) {
  std::vector<std::string> made;
  for (std::size_t i = 0; i < count; ++i) made.push_back(referenceAt(i, alphabet));
  return made;
}

void finish(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

void equalTo(benchmark::State& state, const std::vector<std::string>& some,
             const std::vector<std::string>& others) {
  for (auto _ : state) {
    std::size_t equals = 0;
    for (std::size_t i = 0; i < count; ++i) equals += text::equal(some[i], others[i]) ? 1U : 0U;
    benchmark::DoNotOptimize(equals);
  }
  finish(state);
}

void sameBytes(benchmark::State& state) {
  const auto some = texts(Alphabet::ascii);
  const auto others = some;  // other storage
  equalTo(state, some, others);
}

void otherBytes(benchmark::State& state) {
  auto others = texts(Alphabet::ascii);
  std::swap(others.front(), others.back());
  for (std::size_t i = 1; i + 1 < count; ++i) others[i][10] = '#';
  equalTo(state, texts(Alphabet::ascii), others);
}

void equivalent(benchmark::State& state) {
  std::vector<std::string> composed(count, "Zo\u00EB Ren\u00E9e Br\u00F6nt\u00E9");
  std::vector<std::string> decomposed(count, "Zoe\u0308 Rene\u0301e Bro\u0308nte\u0301");
  equalTo(state, composed, decomposed);
}

void hash(benchmark::State& state, Alphabet alphabet) {
  const auto some = texts(alphabet);
  for (auto _ : state) {
    std::size_t sum = 0;
    for (const std::string& text : some) sum += text::hash(text);
    benchmark::DoNotOptimize(sum);
  }
  finish(state);
}

void hashAscii(benchmark::State& state) {
  hash(state, Alphabet::ascii);
}
void hashAccented(benchmark::State& state) {
  hash(state, Alphabet::accented);
}

BENCHMARK(sameBytes)->Name("text/equal/same-bytes");
BENCHMARK(otherBytes)->Name("text/equal/differ-in-the-middle");
BENCHMARK(equivalent)->Name("text/equal/equivalent");
BENCHMARK(hashAscii)->Name("text/hash/ascii");
BENCHMARK(hashAccented)->Name("text/hash/accented");

}  // namespace
