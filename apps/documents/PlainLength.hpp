#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vemra::documents {

/// Whether a byte needs no escape in a JSON string: ASCII, but no control character, quotation mark
/// or reverse solidus.
inline bool isPlain(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x20 && byte < 0x80 && c != '"' && c != '\\';
}

/// The number of plain bytes at the beginning of a text.
///
/// Examines eight bytes in one step. In `lessThan` a borrow can mark bytes above the first one that
/// is less, but never one below it, so that the lowest mark is right.
[[gnu::always_inline]] inline std::size_t plainLength(std::string_view text) {
  constexpr std::uint64_t ones = 0x0101010101010101U;
  constexpr std::uint64_t highBits = 0x80 * ones;
  const auto lessThan = [](std::uint64_t word, std::uint64_t limit) {
    return (word - limit * ones) & ~word & highBits;
  };
  std::size_t at = 0;
  if constexpr (std::endian::native == std::endian::little) {
    for (; text.size() - at >= sizeof(std::uint64_t); at += sizeof(std::uint64_t)) {
      std::uint64_t word = 0;
      std::memcpy(&word, text.data() + at, sizeof word);
      const std::uint64_t marks = (word & highBits) | lessThan(word, 0x20) |
                                  lessThan(word ^ ('"' * ones), 1) |
                                  lessThan(word ^ ('\\' * ones), 1);
      if (marks != 0) return at + static_cast<std::size_t>(std::countr_zero(marks)) / 8;
    }
  }
  while (at < text.size() && isPlain(text[at])) ++at;
  return at;
}

}  // namespace vemra::documents
