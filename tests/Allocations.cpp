#include "tests/Allocations.hpp"

#include <cstdlib>
#include <new>

namespace {

std::uint64_t count = 0;  // the main thread's; no test here has another one that allocates

}  // namespace

std::uint64_t vemra::testing::allocations() {
  return count;
}

#ifndef VEMRA_ALLOCATIONS_ARE_NOT_COUNTED

// The other forms of new and delete are defined by these.
void* operator new(std::size_t size) {
  ++count;
  if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

#endif
