#include "VemraPlatform/task/MainActor.hpp"

#include <cstdio>
#include <cstdlib>
#include <thread>

namespace vemra::task {
namespace {

std::thread::id mainThread() noexcept {
  static const std::thread::id thread = std::this_thread::get_id();
  return thread;
}

// Asks once while the program is being initialised. The function is there for those whose own
// initialisers run even earlier.
[[maybe_unused]] const std::thread::id asked = mainThread();

}  // namespace

bool MainActor::isCurrent() noexcept {
  return std::this_thread::get_id() == mainThread();
}

void MainActor::assertIsolated(std::string_view member) noexcept {
  if (isCurrent()) return;
  std::fprintf(stderr, "%.*s was called off the main thread; it belongs to the main actor.\n",
               static_cast<int>(member.size()), member.data());
  std::fflush(stderr);
  std::abort();
}

}  // namespace vemra::task
