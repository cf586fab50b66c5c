// Feeds files to a fuzz target, in builds without the fuzzer: replay FILE|FOLDER...
//
// Prints the name of each file before it is used, so that the last printed name is that of the file
// that failed.

#include "tests/fuzz/Target.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

namespace {

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& place) {
  if (!std::filesystem::is_directory(place)) return {place};
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(place)) files.push_back(entry);
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  std::size_t count = 0;
  for (int i = 1; i < argumentCount; ++i) {
    for (const std::filesystem::path& file : filesIn(arguments[i])) {
      std::cout << file.string() << std::endl;
      std::ifstream in(file, std::ios::binary);
      if (!in) {
        std::cerr << file.string() << ": cannot be read\n";
        return 2;
      }
      const std::vector<char> bytes{std::istreambuf_iterator<char>(in), {}};
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++count;
    }
  }
  std::cout << count << " inputs\n";
  return count > 0 ? 0 : 2;
}
