#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace vemra::testing {

/// Texts of 16 printable ASCII characters that libstdc++'s `std::hash` on 64 bits (MurmurHash64A
/// with a fixed seed) maps to one value: a hostile document may contain them to make tables slow.
///
/// Each step of that hash can be run backwards. So the second half of a text follows from the first
/// and from the wanted hash; only printable halves are used.
inline std::vector<std::string> collidingTexts(std::size_t count) {
  constexpr std::uint64_t factor = 0xC6A4A7935BD1E995U;
  constexpr std::uint64_t inverse = [] {
    std::uint64_t found = factor;  // right in the lowest three bits; each step doubles them
    for (int step = 0; step < 5; ++step) found *= 2 - factor * found;
    return found;
  }();
  static_assert(factor * inverse == 1);
  // Its own inverse.
  const auto fold = [](std::uint64_t value) { return value ^ (value >> 47); };
  const auto isPlain = [](std::uint64_t bytes) {
    for (int i = 0; i < 8; ++i) {
      const std::uint64_t c = bytes >> (8 * i) & 0xFF;
      if (c < ' ' || c > '~' || c == '"' || c == '\\') return false;
    }
    return true;
  };
  constexpr std::uint64_t start = 0xC70F6907U ^ (16 * factor);
  constexpr std::uint64_t end = 0x123456789ABCDEF0U;  // any value

  std::vector<std::string> texts;
  for (std::uint64_t number = 0; texts.size() < count; ++number) {
    std::uint64_t first = 0;  // eight letters
    for (int i = 0; i < 8; ++i) first |= ('a' + (number >> (4 * i) & 15)) << (8 * i);
    const std::uint64_t between = (start ^ (fold(first * factor) * factor)) * factor;
    const std::uint64_t second = fold((between ^ end * inverse) * inverse) * inverse;
    if (!isPlain(second)) continue;
    const std::uint64_t halves[] = {first, second};
    std::string text(sizeof halves, '\0');
    std::memcpy(text.data(), halves, sizeof halves);
    texts.push_back(std::move(text));
  }
  return texts;
}

}  // namespace vemra::testing
