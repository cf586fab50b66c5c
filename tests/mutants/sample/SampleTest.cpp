// Tests some functions of Sample.cpp, so that some of its mutants survive.

#include "tests/mutants/sample/Sample.hpp"

int main() {
  const bool counts = sample::countUpTo({1, -1, 2, 9, 1}, 2) == 2;
  const bool names =
      sample::named("Ada", true) == "Dear Ada" && sample::named("Ada", false) == "Ada";
  return counts && names && sample::isBefore(1, 2) ? 0 : 1;
}
