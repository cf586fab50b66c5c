#include "tests/Allocations.hpp"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

// Counts and refusals are per thread, because other threads may allocate meanwhile.
thread_local constinit std::uint64_t count = 0;

constexpr std::uint64_t never = std::numeric_limits<std::uint64_t>::max();
// The number of the allocation that fails.
thread_local constinit std::uint64_t refused = never;

}  // namespace

std::uint64_t vemra::testing::allocations() {
  return count;
}

void vemra::testing::refuseAllocationAfter(std::uint64_t granted) {
  refused = count + granted;
}

void vemra::testing::refuseNoAllocation() {
  refused = never;
}

#ifndef VEMRA_ALLOCATIONS_ARE_NOT_COUNTED

// The other forms of new and delete are defined by these.
void* operator new(std::size_t size) {
  if (count++ == refused) throw std::bad_alloc();
  if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  if (count++ == refused) throw std::bad_alloc();
  const auto step = static_cast<std::size_t>(alignment);
  // The C library requires a multiple of the alignment.
  if (void* memory = std::aligned_alloc(step, (size + step - 1) / step * step)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  std::free(memory);
}

#endif
