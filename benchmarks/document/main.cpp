// vemra-bench-document PEOPLE [STRAY OUTCOMES]: the sample as a document for vemra-inspect.

#include "apps/documents/ResultWriter.hpp"
#include "benchmarks/data/SampleResult.hpp"

#include <iostream>
#include <string>

int main(int argumentCount, char** arguments) {
  if (argumentCount < 2) {
    std::cerr << "usage: vemra-bench-document PEOPLE [STRAY OUTCOMES]\n";
    return 1;
  }
  vemra::bench::SampleSize size{.people = std::stoul(arguments[1])};
  if (argumentCount > 2) size.strayOutcomes = std::stoul(arguments[2]);
  std::cout << R"({"locale": "en_US", "timeZone": "UTC", "result": )"
            << vemra::documents::writeResult(vemra::bench::sampleResult(size)) << "}\n";
  return std::cout.flush() ? 0 : 1;
}
