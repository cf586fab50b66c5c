#include "scripts/mutation/Switch.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>

// Allocates nothing: some tests count allocations.
namespace vemra_mutants {

constinit std::atomic<std::uint64_t> active{undecided};

namespace {

constexpr std::uint64_t none = std::uint64_t{1} << 32;
constinit std::array<std::atomic<std::uint32_t>, 1 << 16> reached{};
constinit std::array<char, 512> test{};
constinit std::atomic<int> file{-1};

void begin() {
  if (const char* path = std::getenv("VEMRA_MUTANTS_REACHED")) {
    if (const char* name = std::getenv("VEMRA_MUTANTS_TEST")) {
      std::strncpy(test.data(), name, test.size() - 1);
    }
    file = ::open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    active = recording;
    return;
  }
  const char* number = std::getenv("VEMRA_MUTANT");
  active = number == nullptr ? none : std::strtoull(number, nullptr, 16);
}

/// Whether `number` is new to the table of this test.
bool note(std::uint32_t number) {
  for (std::size_t at = number % reached.size();; at = (at + 1) % reached.size()) {
    std::uint32_t found = reached[at].load();
    if (found == 0 && reached[at].compare_exchange_strong(found, number)) return true;
    if (found == number) return false;
  }
}

/// Writes a line, also while a test limits the size of files.
bool writeDown(std::string_view line) {
  const auto write = [&line] {
    if (const ssize_t count = ::write(file, line.data(), line.size()); count > 0) {
      line.remove_prefix(static_cast<std::size_t>(count));
    }
    return line.empty();
  };
  if (write()) return true;
  rlimit limit{};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit lifted{limit.rlim_max, limit.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &lifted);
  const bool isWritten = write();
  ::setrlimit(RLIMIT_FSIZE, &limit);
  return isWritten;
}

}  // namespace

bool slow(std::uint32_t number) {
  if (active.load() == undecided) begin();
  if (active.load() != recording) return active.load() == number;
  if (note(number)) {
    // One write for each line, so that no line is lost when a test ends its process.
    std::array<char, 600> line{};
    const int length = std::snprintf(line.data(), line.size(), "%08x %s\n", number, test.data());
    if (!writeDown({line.data(), static_cast<std::size_t>(length)})) std::abort();
  }
  return false;
}

void beginTest(const char* name) {
  for (auto& entry : reached) entry.store(0);
  std::strncpy(test.data(), name, test.size() - 1);
}

}  // namespace vemra_mutants
