#include "benchmarks/screen/ResidentMemory.hpp"

#include <fstream>
#include <malloc.h>
#include <stdexcept>
#include <string>

namespace vemra::bench {

Memory memoryNow() {
  malloc_trim(0);
  // Exact, unlike the counters in /proc/self/status.
  std::ifstream file("/proc/self/smaps_rollup");
  Memory memory;
  std::string word;
  double kibibytes = 0;
  while (file >> word) {
    if (word == "Rss:" && file >> kibibytes) memory.resident = kibibytes / 1024;
    if (word == "Anonymous:" && file >> kibibytes) memory.anonymous = kibibytes / 1024;
  }
  if (memory.resident == 0) throw std::runtime_error("cannot read /proc/self/smaps_rollup");
  return memory;
}

}  // namespace vemra::bench
