// The model and the view graph in small pieces, by Google Benchmark. Where a piece works through
// many elements, its rate ("items_per_second") is per element.
//
//     vemra-bench-model [Google Benchmark's options]
//     vemra-bench-model --count WHAT    does a fixed amount of work, for an instruction count

#include "benchmarks/model/CountedWork.hpp"

#include <cstring>
#include <iostream>

#include <benchmark/benchmark.h>

int main(int argumentCount, char** arguments) {
  if (argumentCount == 3 && std::strcmp(arguments[1], "--count") == 0) {
    const std::size_t elements = vemra::bench::countedWork(arguments[2]);
    if (elements == 0) {
      std::cerr << "vemra-bench-model: no counted work is named " << arguments[2] << '\n';
      return 1;
    }
    std::cout << elements << '\n';
    return 0;
  }
  benchmark::Initialize(&argumentCount, arguments);
  if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
