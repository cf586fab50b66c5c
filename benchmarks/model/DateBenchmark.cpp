#include "VemraPlatform/date/AbbreviatedDate.hpp"

#include <string>
#include <vector>

#include <benchmark/benchmark.h>

using namespace vemra;

namespace {

const date::Instant instant = *date::parseInternetDateTime("2025-01-05T10:00:00Z");

void warm(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(date::abbreviatedDate(instant, "en_US", "UTC"));
}

/// More pairs in turn than are kept, so that each needs a formatter of its own.
void cold(benchmark::State& state) {
  std::vector<std::pair<std::string, std::string>> pairs;
  for (const char* locale : {"en_US", "de_DE", "fr_FR", "ja_JP", "ar_EG"}) {
    for (int hour = 1; hour <= 12; ++hour) {
      pairs.emplace_back(locale, "Etc/GMT+" + std::to_string(hour));
    }
  }
  std::size_t next = 0;
  for (auto _ : state) {
    const auto& [locale, zone] = pairs[next++ % pairs.size()];
    benchmark::DoNotOptimize(date::abbreviatedDate(instant, locale, zone));
  }
}

BENCHMARK(warm)->Name("date/warm");
BENCHMARK(cold)->Name("date/cold");

}  // namespace
