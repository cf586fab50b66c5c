#include "VemraPlatform/date/AbbreviatedDate.hpp"

#include <string>
#include <vector>

#include <benchmark/benchmark.h>

using namespace vemra;

namespace {

const date::Instant instant = *date::parseInternetDateTime("2025-01-05T10:00:00Z");

/// A date with cached formats. Threads share nothing, so two of them write twice as many.
void warm(benchmark::State& state, const char* timeZone) {
  for (auto _ : state) benchmark::DoNotOptimize(date::abbreviatedDate(instant, "en_US", timeZone));
}

/// More locales and time zones in turn than the cache keeps, so that each date needs new formats.
void cold(benchmark::State& state) {
  std::vector<std::pair<std::string, std::string>> pairs;
  for (const char* locale : {"en_US", "de_DE", "fr_FR", "ja_JP", "ar_EG"}) {
    for (int hour = 1; hour <= 12; ++hour) {
      pairs.emplace_back(locale + std::string("@x=") + std::to_string(hour),
                         "Etc/GMT+" + std::to_string(hour));
    }
  }
  std::size_t next = 0;
  for (auto _ : state) {
    const auto& [locale, zone] = pairs[next++ % pairs.size()];
    benchmark::DoNotOptimize(date::abbreviatedDate(instant, locale, zone));
  }
}

BENCHMARK_CAPTURE(warm, utc, "UTC")->Name("date/warm")->Threads(1)->Threads(2)->UseRealTime();
BENCHMARK_CAPTURE(warm, berlin, "Europe/Berlin")->Name("date/warm in a zone with summer time");
BENCHMARK(cold)->Name("date/cold");

}  // namespace
