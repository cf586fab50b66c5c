#pragma once

#include <atomic>
#include <cstdint>
#include <type_traits>

/// Included only by the sources that `scripts/mutate` has changed. Such a source contains all its mutants
/// beside its own text; the environment decides at run time which of them runs.
namespace vemra_mutants {

/// The mutant that is on; `undecided` before the first call of `on`; `recording` while the reached
/// mutants are recorded.
inline constexpr std::uint64_t undecided = std::uint64_t{1} << 33;
inline constexpr std::uint64_t recording = std::uint64_t{1} << 34;
extern std::atomic<std::uint64_t> active;

/// The slow path of `on`: reads the environment, or records that `number` was reached.
bool slow(std::uint32_t number);

/// Starts a new test: mutants reached from now on are recorded for it. \param test its name, copied
void beginTest(const char* test);

/// Whether the mutant `number` is the one of this run (VEMRA_MUTANT in the environment, in hexadecimal).
/// While a compiler evaluates a constant no mutant is on. Any thread.
constexpr bool on(std::uint32_t number) {
  if (std::is_constant_evaluated()) return false;
  const auto now = active.load(std::memory_order_relaxed);
  return now < undecided ? now == number : slow(number);
}

}  // namespace vemra_mutants
