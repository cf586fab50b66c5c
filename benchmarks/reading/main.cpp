// vemra-bench-reading PEOPLE: the sample as a result document, read into the engine's records by us,
// and into a tree by two libraries. Each reads it five times, in turns, and starts with nothing; a time
// ends when what was read has been freed. The trees are not checked for what a result document may have.

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
  if (argumentCount < 2) {
    std::cerr << "usage: vemra-bench-reading PEOPLE\n";
    return 1;
  }
  const std::size_t people = std::stoul(arguments[1]);
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
  std::map<std::string, std::vector<double>> times;
  for (int round = 0; round < 5; ++round) {
    for (const auto& [name, read] : readers) times[name].push_back(milliseconds(read));
  }
  for (auto& [name, all] : times) {
    std::ranges::sort(all);
    std::cout << "read." << name << '\t' << all[all.size() / 2] << "\nread." << name << ".least\t"
              << all.front() << '\n';
  }
  return std::cout.flush() ? 0 : 1;
}
