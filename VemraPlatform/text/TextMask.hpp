#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstdint>
#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>

namespace vemra::text {

/// Replaces the words of texts, so that a reader sees how the texts are built and not what they
/// say.
///
/// A word is a run of letters and digits, with the marks on them. Each of its letters becomes a
/// letter of the same case, of the same direction and of the same width on a terminal; each digit
/// becomes a digit of the same numerals. Blanks, punctuation, symbols and marks stay. Most letters
/// become letters that no common language writes ("ə", "Ɣ"), so that no mask is a word by chance.
///
/// - One word always has one mask, and two words never have the same: texts are equal when their
///   masks are. Both hold under canonical equivalence (Unicode Standard Annex #15).
/// - A masked text has as many code points as the text, in the same normalization form, except
///   where a letter with marks has no counterpart. The number of bytes may differ.
/// - Masking goes word by word: the mask of a text that is put together from others is put together
///   from their masks, and blanks may be trimmed before or after.
///
/// A mask hides words from a reader. It is no encryption: the lengths of the words, their order and
/// which of them are equal remain.
class VEMRA_EXPORT TextMask {
 public:
  /// - Parameter seed: decides which letters are used. For masks that cannot be foreseen, take it
  ///   from `std::random_device`.
  explicit TextMask(std::uint64_t seed);

  /// No word of this text is used as a mask from now on, in any case of its letters; numbers are,
  /// where there are too few others. A caller that knows several texts passes all of them before it
  /// masks the first.
  void avoid(std::string_view text);

  /// The text with its words replaced. Ill-formed bytes become U+FFFD. Throws when memory runs out
  /// or the Unicode data cannot be loaded.
  std::string masked(std::string_view text);

 private:
  const std::u32string& maskOf(const std::u32string& word);
  std::u32string candidate(const std::u32string& word, int attempt);
  char32_t replacement(std::u32string_view rest, int attempt);
  const std::u32string& lettersLike(const std::u32string& cluster);
  char32_t oneOf(std::u32string_view letters);

  std::mt19937_64 random_;
  std::map<std::u32string, std::u32string> masks_;        ///< by word; both decomposed
  std::set<std::u32string> words_, masksInUse_;           ///< without case
  std::map<std::u32string, std::u32string> lettersLike_;  ///< by letter with its marks
};

}  // namespace vemra::text
