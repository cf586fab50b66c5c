#pragma once

#include "VemraPlatform/Export.hpp"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace vemra::text {

// Two texts are the same text when they are canonically equivalent (Unicode Standard Annex #15).
//
// "é" is one text whether it is stored as U+00E9 or as "e" and U+0301. Otherwise one person would
// become two when two devices store the name differently. So records compare and hash their strings
// with these functions, never with `==`. Case, compatibility forms ("ﬁ" and "fi") and blanks do
// matter. Stored bytes never change.
//
// The rules, the first that applies:
// 1. equal bytes: equal;
// 2. either is ill-formed UTF-8: different (repairing would make `a\xC3` equal `a\xE9`);
// 3. the first, or the last, bytes that differ are both ASCII, or one text is a proper prefix of
//    the other: different (an ASCII character stays itself in every normal form and no mark moves
//    across it, and decomposing never shortens);
// 4. the first code points that differ are both inert under decomposition: different;
// 5. compare the decomposed texts.
//
// The third rule gives the same answer for ill-formed texts, so it may come before the second. It
// decides almost every comparison of identifiers, so its cheapest form is inline here: a search
// that fails among identifiers of one length takes half the time of one with `std::string`'s own
// `==`.

/// Whether the first or the last `sizeof(Word)` bytes of two texts are ASCII and differ.
///
/// - Precondition: neither text is shorter than a `Word`.
template <class Word>
inline bool differInOutermost(std::string_view a, std::string_view b) noexcept {
  constexpr Word highBits = static_cast<Word>(0x8080808080808080U);
  const auto differ = [](const char* bytesOfA, const char* bytesOfB) noexcept {
    Word x;
    Word y;
    std::memcpy(&x, bytesOfA, sizeof x);
    std::memcpy(&y, bytesOfB, sizeof y);
    return x != y && ((x | y) & highBits) == 0;
  };
  // Identifiers mostly differ at the end, so the end comes first.
  return differ(a.data() + a.size() - sizeof(Word), b.data() + b.size() - sizeof(Word)) ||
         differ(a.data(), b.data());
}

/// A quick test of at most the first and the last eight bytes.
///
/// - Returns: true when the texts are certainly not canonically equivalent; false when this test
///   cannot tell.
inline bool differAtAGlance(std::string_view a, std::string_view b) noexcept {
  const std::size_t shorter = a.size() < b.size() ? a.size() : b.size();
  if (shorter >= 8) return differInOutermost<std::uint64_t>(a, b);
  if (shorter >= 4) return differInOutermost<std::uint32_t>(a, b);
  if (shorter >= 1) return differInOutermost<std::uint8_t>(a, b);
  return a.size() != b.size();
}

/// All rules, for texts that the quick test cannot tell apart. Call `equal` instead.
VEMRA_EXPORT bool equalBeyondAGlance(std::string_view a, std::string_view b);

/// Whether two texts are canonically equivalent, by the rules above.
///
/// Safe on every thread. Throws only when memory runs out or the Unicode data cannot be loaded.
inline bool equal(std::string_view a, std::string_view b) {
  return !differAtAGlance(a, b) && equalBeyondAGlance(a, b);
}

/// Compares optional texts: nil equals only nil, and an empty text is not nil.
///
/// A template, so that it accepts only optional texts, and plain texts use the function above.
template <std::same_as<std::optional<std::string>> Optional>
bool equal(const Optional& a, const Optional& b) {
  if (!a.has_value() || !b.has_value()) return a.has_value() == b.has_value();
  return equal(std::string_view(*a), std::string_view(*b));
}

/// Hashes a text so that canonically equivalent texts hash equally.
///
/// The value differs between processes, because each process draws a random key for SipHash-1-3.
VEMRA_EXPORT std::size_t hash(std::string_view text);

/// Canonical equality as a function object for unordered containers, with lookup by view.
struct Equal {
  /// Allows lookup by `std::string_view`.
  using is_transparent = void;
  /// Whether the texts are canonically equal.
  bool operator()(std::string_view a, std::string_view b) const { return equal(a, b); }
};

/// The hash that belongs to `Equal`.
struct Hash {
  /// Allows lookup by `std::string_view`.
  using is_transparent = void;
  /// The hash of the text.
  std::size_t operator()(std::string_view text) const { return hash(text); }
};

}  // namespace vemra::text
