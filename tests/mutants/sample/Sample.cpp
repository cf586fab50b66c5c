// The code that tests/mutants/ToolTest.py mutates: one place or more for each kind of mutant. Not
// part of the library.

#include "tests/mutants/sample/Sample.hpp"

#include <compare>

namespace sample {

constexpr int limit = 3;  // known to the compiler: no mutant

int countUpTo(const std::vector<int>& numbers, int largest) {
  int count = 0;
  for (const int number : numbers) {
    if (number < 0) continue;
    if (number > largest && largest != limit) break;
    ++count;
  }
  return count;
}

std::string named(const std::string& name, bool polite) {
  std::string greeting;
  greeting.reserve(name.size());
  if (!polite) return name;
  greeting += "Dear ";
  greeting += name;
  return greeting;
}

// The library compares an ordering with the literal 0 only: its mutants do not compile.
bool isBefore(int left, int right) {
  return (left <=> right) < 0;
}

// The same changes three times in one line.
int signOf(int number) {
  return number > 0 ? 1 : number < 0 ? -1 : 0;
}

}  // namespace sample
