// Allocations. Ours call the C library's under names that need no dlsym.
#include "tests/torture/shim/Shim.hpp"

#include <cerrno>
#include <cstddef>

using vemra::torture::Shim;

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);

void* malloc(std::size_t size) {
  return Shim::allocates() ? __libc_malloc(size) : nullptr;
}

void* calloc(std::size_t count, std::size_t size) {
  return Shim::allocates() ? __libc_calloc(count, size) : nullptr;
}

void* realloc(void* memory, std::size_t size) {
  return Shim::allocates() ? __libc_realloc(memory, size) : nullptr;
}

// operator new with an alignment calls this one.
void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return Shim::allocates() ? __libc_memalign(alignment, size) : nullptr;
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
  const bool isPowerOfTwo = alignment != 0 && (alignment & (alignment - 1)) == 0;
  if (!isPowerOfTwo || alignment % sizeof(void*) != 0) return EINVAL;
  void* const block = Shim::allocates() ? __libc_memalign(alignment, size) : nullptr;
  if (block == nullptr) return ENOMEM;
  *memory = block;
  return 0;
}

}  // extern "C"
