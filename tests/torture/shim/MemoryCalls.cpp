// Allocations. The C library's own ones stand behind ours under names that no dlsym has to look up.
#include "tests/torture/shim/Shim.hpp"

#include <cerrno>
#include <cstddef>

using vemra::torture::Shim;

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);

void* malloc(std::size_t size) {
  return Shim::allocates() ? __libc_malloc(size) : nullptr;
}

void* calloc(std::size_t count, std::size_t size) {
  return Shim::allocates() ? __libc_calloc(count, size) : nullptr;
}

void* realloc(void* memory, std::size_t size) {
  return Shim::allocates() ? __libc_realloc(memory, size) : nullptr;
}

}  // extern "C"
