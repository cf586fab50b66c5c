// vemra-bench-reading READER PEOPLE [TIMES]: the sample as a result document, read five times, or
// TIMES times, by one reader: into the engine's records ("vemra"), or into a tree ("nlohmann",
// "simdjson"). A time starts with nothing and ends when what was read has been freed. The trees are
// not checked for what a result document may have. Each reader has a process of its own, because
// one that frees millions of small pieces of memory leaves the next one a slower allocator.

#include "apps/documents/ResultReader.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "benchmarks/data/SampleResult.hpp"

#include <algorithm>
#include <chrono>
#include <functional>
#include <iostream>
#include <map>
#include <simdjson.h>
#include <stdexcept>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace {

double milliseconds(const std::function<bool()>& readsIt) {
  const auto start = std::chrono::steady_clock::now();
  if (!readsIt()) throw std::runtime_error("the document was not read");
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount < 3) {
    std::cerr << "usage: vemra-bench-reading vemra|nlohmann|simdjson PEOPLE [TIMES]\n";
    return 1;
  }
  const std::string reader = arguments[1];
  const std::size_t people = std::stoul(arguments[2]);
  const std::size_t rounds = argumentCount > 3 ? std::stoul(arguments[3]) : 5;
  const std::string text =
      vemra::documents::writeResult(vemra::bench::sampleResult({.people = people}));
  const std::map<std::string, std::function<bool()>> readers{
      {"vemra",
       [&] { return vemra::documents::readResultText(text, "sample").people.size() == people; }},
      {"nlohmann", [&] { return nlohmann::json::parse(text)["people"].size() == people; }},
      {"simdjson", [&] {
         simdjson::dom::parser parser;
         simdjson::dom::array list;
         return parser.parse(text)["people"].get(list) == simdjson::SUCCESS && list.size() > 0;
       }}};
  std::vector<double> times;
  for (std::size_t round = 0; round < rounds; ++round) {
    times.push_back(milliseconds(readers.at(reader)));
  }
  std::ranges::sort(times);
  std::cout << "read." << reader << '\t' << times[times.size() / 2] << "\nread." << reader
            << ".least\t" << times.front() << '\n';
  return std::cout.flush() ? 0 : 1;
}
