#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>

namespace vemra::testing {

/// The number of rounds of a random test: `full` in a build as users get it, a tenth of that in a
/// build with a sanitizer.
constexpr int rounds(int full) {
#ifdef NDEBUG
  return full;
#else
  return full / 10;
#endif
}

/// The random numbers of a test: the same on every machine.
///
/// They come from a seed, or from the bytes of a fuzzer's input, one byte or more for each number.
/// After the last byte every number is the greatest possible one, so that a loop "while oneIn(n)"
/// ends.
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}
  /// `bytes` must outlive the object.
  explicit Random(std::span<const std::uint8_t> bytes) : bytes_(bytes), isFromBytes_(true) {}

  /// A number from 0 to `bound` - 1; `bound` is 1 or more.
  std::size_t below(std::size_t bound) {
    if (!isFromBytes_) return engine_() % bound;
    if (isUsedUp()) return bound - 1;
    std::size_t number = 0;
    for (std::size_t range = 1; range < bound && !isUsedUp(); range <<= 8U) {
      number = (number << 8U) | bytes_.front();
      bytes_ = bytes_.subspan(1);
    }
    return number % bound;
  }
  bool oneIn(std::size_t bound) { return below(bound) == 0; }

  /// Whether no byte is left; always false with a seed.
  bool isUsedUp() const { return isFromBytes_ && bytes_.empty(); }

 private:
  std::mt19937_64 engine_;
  std::span<const std::uint8_t> bytes_;
  bool isFromBytes_ = false;
};

}  // namespace vemra::testing
