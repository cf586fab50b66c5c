#pragma once

#include "VemraPlatform/Export.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vemra::text {

/// The key of a hash function.
struct HashKey {
  std::uint64_t first = 0;
  std::uint64_t second = 0;
};

/// A hash, and a property of the bytes that the same pass over them finds.
struct KeyedHash {
  std::uint64_t value = 0;
  bool isASCII = true;
};

/// The bytes from `at` on as an integer, the first one lowest.
template <class Word>
inline Word wordAt(const char* at) noexcept {
  Word word = 0;
  std::memcpy(&word, at, sizeof word);
  if constexpr (std::endian::native == std::endian::big) {
    const Word other = word;
    word = 0;
    for (std::size_t i = 0; i < sizeof word; ++i)
      word |= (other >> (8 * i) & 0xFF) << (8 * (sizeof word - 1 - i));
  }
  return word;
}

/// SipHash (Aumasson, Bernstein: "SipHash: a fast short-input PRF", 2012), with these numbers of
/// rounds.
///
/// Without the key, an attacker cannot make texts with equal hashes. A table keyed by texts from
/// outside needs that: with `std::hash`, whose key is the same everywhere, a document can contain
/// any number of ids with one hash, and a search for one of them then compares it with all others.
/// Tables use 1 and 3 rounds; the paper's test vectors are for 2 and 4.
template <int roundsPerWord, int roundsAtEnd>
inline KeyedHash sipHash(std::string_view bytes, const HashKey& key) noexcept {
  std::uint64_t a = key.first ^ 0x736F6D6570736575U;
  std::uint64_t b = key.second ^ 0x646F72616E646F6DU;
  std::uint64_t c = key.first ^ 0x6C7967656E657261U;
  std::uint64_t d = key.second ^ 0x7465646279746573U;
  const auto mix = [&](int rounds) noexcept {
    for (; rounds > 0; --rounds) {
      a += b;
      c += d;
      b = std::rotl(b, 13) ^ a;
      d = std::rotl(d, 16) ^ c;
      a = std::rotl(a, 32) + d;
      c += b;
      d = std::rotl(d, 21) ^ a;
      b = std::rotl(b, 17) ^ c;
      c = std::rotl(c, 32);
    }
  };
  std::uint64_t seen = 0;
  const auto add = [&](std::uint64_t word) noexcept {
    d ^= word;
    mix(roundsPerWord);
    a ^= word;
  };

  const char* at = bytes.data();
  std::size_t rest = bytes.size();
  for (; rest >= 8; rest -= 8, at += 8) {
    const auto word = wordAt<std::uint64_t>(at);
    seen |= word;
    add(word);
  }
  std::uint64_t last = 0;
  if (rest >= 4) {  // two halves that may overlap
    last = std::uint64_t{wordAt<std::uint32_t>(at)} |
           std::uint64_t{wordAt<std::uint32_t>(at + rest - 4)} << (8 * (rest - 4));
  } else {
    for (std::size_t i = 0; i < rest; ++i) {
      last |= std::uint64_t{static_cast<unsigned char>(at[i])} << (8 * i);
    }
  }
  seen |= last;
  add(last | std::uint64_t{bytes.size()} << 56);
  c ^= 0xFF;
  mix(roundsAtEnd);
  return {a ^ b ^ c ^ d, (seen & 0x8080808080808080U) == 0};
}

/// A random key.
VEMRA_EXPORT HashKey randomHashKey() noexcept;

/// The key of this process: random, and the same as long as the process runs.
VEMRA_EXPORT const HashKey& processHashKey() noexcept;

/// Hashes bytes under the key of this process. Another process gives another value, so neither
/// output nor stored data may depend on it. Where canonically equivalent texts are one key, use
/// `text::hash`.
inline std::size_t hashOfBytes(std::string_view bytes) noexcept {
  return static_cast<std::size_t>(sipHash<1, 3>(bytes, processHashKey()).value);
}

}  // namespace vemra::text
