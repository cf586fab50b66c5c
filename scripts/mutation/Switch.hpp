#pragma once

#include <atomic>
#include <cstdint>
#include <type_traits>

/// Included by the sources that `scripts/mutate` has changed, and by nothing else. Such a source holds
/// all its mutants beside its own text; which of them runs is decided when the program runs.
namespace vemra_mutants {

/// The mutant that is on, `undecided` before the first question, `recording` while reached ones are
/// written down.
inline constexpr std::uint64_t undecided = std::uint64_t{1} << 33;
inline constexpr std::uint64_t recording = std::uint64_t{1} << 34;
extern std::atomic<std::uint64_t> active;

/// Answers what `on` cannot: reads the environment, or writes down that `number` was reached.
bool slow(std::uint32_t number);

/// Begins a new account of what is reached. \param test its name, copied
void beginTest(const char* test);

/// Whether the mutant `number` is the one of this run (VEMRA_MUTANT in the environment, in hexadecimal).
/// While a compiler evaluates a constant no mutant is on. Any thread.
constexpr bool on(std::uint32_t number) {
  if (std::is_constant_evaluated()) return false;
  const auto now = active.load(std::memory_order_relaxed);
  return now < undecided ? now == number : slow(number);
}

}  // namespace vemra_mutants
