#include "VemraPlatform/text/TextMask.hpp"

#include "VemraPlatform/text/Decomposition.hpp"
#include "VemraPlatform/text/UTF8.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>
#include <stdexcept>
#include <utility>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

namespace vemra::text {
namespace {

// Letters of phonetic alphabets and of a few African languages, about as wide as common ones.
constexpr std::u32string_view rareLower =
    U"\u0259\u025B\u0263\u0254\u01A3\u0275\u028A\u028B\u0269\u028C\u014B\u0272\u0253\u0257"
    U"\u0260\u0199\u0271\u026B";
constexpr std::u32string_view rareUpper =
    U"\u018F\u0190\u0194\u0186\u01A2\u019F\u01B1\u01B2\u0196\u0245\u014A\u019D\u0181\u018A"
    U"\u0193\u0198\u2C6E\u2C62";

/// Scalars from the first to the last.
struct Range {
  char32_t first, last;
  bool contains(char32_t scalar) const { return first <= scalar && scalar <= last; }
};
constexpr Range rareRightToLeft{0x0713, 0x072C};  // Syriac
constexpr Range rareWide{0x3400, 0x4DB5};         // the first extension of the ideographs
constexpr Range latinExtended{0x0180, 0x02AF};
constexpr std::array hangulParts{Range{0x1100, 0x1112}, Range{0x1161, 0x1175},
                                 Range{0x11A8, 0x11C2}};
// Where letters are that form one character together with marks.
constexpr std::array<Range, 7> composing{{{0x0041, 0x005A},
                                          {0x0061, 0x007A},
                                          {0x0391, 0x03C9},
                                          {0x0410, 0x044F},
                                          {0x3046, 0x307B},
                                          {0x30A6, 0x30DB},
                                          {0x0905, 0x0939}}};
// Attempts to find a mask that is not taken yet, before more letters are used.
constexpr int commonAttempts = 64, allAttempts = 1024;

UChar32 point(char32_t scalar) {
  return static_cast<UChar32>(scalar);
}

bool isOfTypes(char32_t scalar, std::uint32_t types) {
  return (U_GET_GC_MASK(point(scalar)) & types) != 0;
}
bool isMark(char32_t scalar) {
  return isOfTypes(scalar, U_GC_M_MASK);
}
bool isDigit(char32_t scalar) {
  return isOfTypes(scalar, U_GC_ND_MASK);
}
bool isLetter(char32_t scalar) {
  return !isMark(scalar) && (isOfTypes(scalar, U_GC_L_MASK) || u_isUAlphabetic(point(scalar)));
}
bool isUpper(char32_t scalar) {
  return isOfTypes(scalar, U_GC_LU_MASK | U_GC_LT_MASK);
}

std::u32string composed(std::u32string_view scalars) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* form = icu::Normalizer2::getNFCInstance(status);
  icu::UnicodeString whole;
  if (U_SUCCESS(status)) {
    const auto units =
        icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(scalars.data()),
                                      static_cast<std::int32_t>(scalars.size()));
    whole = form->normalize(units, status);
  }
  if (status == U_MEMORY_ALLOCATION_ERROR) throw std::bad_alloc();
  if (U_FAILURE(status)) {
    throw std::runtime_error(std::string("Unicode normalisation failed: ") + u_errorName(status));
  }
  std::u32string result;
  for (std::int32_t index = 0; index < whole.length(); index = whole.moveIndex32(index, 1)) {
    result += static_cast<char32_t>(whole.char32At(index));
  }
  return result;
}

std::u32string withoutCase(std::u32string word) {
  for (char32_t& scalar : word) {
    scalar = static_cast<char32_t>(u_foldCase(point(scalar), U_FOLD_CASE_DEFAULT));
  }
  return word;
}

std::string withReplacements(std::string_view text) {
  std::string whole;
  for (Step step = firstStep(text); step.length > 0; step = firstStep(text)) {
    append(whole, step.scalar.value_or(0xFFFD));
    text.remove_prefix(step.length);
  }
  return whole;
}

std::u32string scalarsOf(std::string_view text) {
  std::u32string scalars;
  for (Step step = firstStep(text); step.length > 0; step = firstStep(text)) {
    scalars += *step.scalar;
    text.remove_prefix(step.length);
  }
  return scalars;
}

std::string utf8Of(std::u32string_view scalars) {
  std::string text;
  for (const char32_t scalar : scalars) append(text, scalar);
  return text;
}

/// Calls `onWord` for each word and `onOther` for each scalar between words, in their order.
template <class OnWord, class OnOther>
void split(std::u32string_view scalars, const OnWord& onWord, const OnOther& onOther) {
  std::size_t i = 0;
  while (i < scalars.size()) {
    std::size_t end = i;
    while (end < scalars.size() &&
           (isLetter(scalars[end]) || isDigit(scalars[end]) || (end > i && isMark(scalars[end])))) {
      ++end;
    }
    if (end == i) {
      onOther(scalars[i++]);
    } else {
      onWord(std::u32string(scalars.substr(i, end - i)));
      i = end;
    }
  }
}

}  // namespace

TextMask::TextMask(std::uint64_t seed) : random_(seed) {}

void TextMask::avoid(std::string_view text) {
  split(
      decomposed(withReplacements(text)),
      [this](std::u32string word) { words_.insert(withoutCase(std::move(word))); },
      [](char32_t) {});
}

std::string TextMask::masked(std::string_view text) {
  const std::string whole = withReplacements(text);
  const std::u32string scalars = decomposed(whole);
  std::u32string result;
  split(
      scalars, [&](const std::u32string& word) { result += maskOf(word); },
      [&](char32_t other) { result += other; });
  const bool isDecomposed = scalarsOf(whole) == scalars;
  return utf8Of(isDecomposed ? result : composed(result));
}

const std::u32string& TextMask::maskOf(const std::u32string& word) {
  const auto known = masks_.find(word);
  if (known != masks_.end()) return known->second;
  words_.insert(withoutCase(word));
  const bool hasLetters = std::ranges::any_of(word, isLetter);
  for (int attempt = 0;; ++attempt) {
    std::u32string mask = candidate(word, attempt);
    // There may be too few numbers for each to become one that no text has.
    const bool maySayIt = attempt >= commonAttempts && !hasLetters;
    if (!maySayIt && words_.contains(withoutCase(mask))) continue;
    if (masksInUse_.insert(withoutCase(mask)).second) return masks_[word] = std::move(mask);
  }
}

std::u32string TextMask::candidate(const std::u32string& word, int attempt) {
  std::u32string mask;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char32_t scalar = word[i];
    if (isDigit(scalar)) {
      const auto zero = scalar - static_cast<char32_t>(u_charDigitValue(point(scalar)));
      mask += static_cast<char32_t>(zero + random_() % 10);
    } else if (isLetter(scalar)) {
      mask += replacement(std::u32string_view(word).substr(i), attempt);
    } else {
      mask += scalar;
    }
  }
  // More words of one form than there are letters for: better a longer mask than an ambiguous one.
  for (int more = allAttempts; more < attempt; more += allAttempts) mask += oneOf(rareLower);
  return mask;
}

/// The letter in place of the first one of `rest`, which the marks behind it follow.
char32_t TextMask::replacement(std::u32string_view rest, int attempt) {
  const char32_t letter = rest.front();
  const auto oneIn = [this](const Range& range) {
    return range.first + static_cast<char32_t>(random_() % (range.last - range.first + 1));
  };
  for (const Range& part : hangulParts) {
    if (part.contains(letter)) return oneIn(part);
  }
  std::size_t marked = 1;
  while (marked < rest.size() && isMark(rest[marked])) ++marked;
  if (marked > 1) {
    const std::u32string& fitting = lettersLike(std::u32string(rest.substr(0, marked)));
    if (!fitting.empty()) return oneOf(fitting);
  }
  const UCharDirection direction = u_charDirection(point(letter));
  if (direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC) {
    return oneIn(rareRightToLeft);
  }
  const auto width = u_getIntPropertyValue(point(letter), UCHAR_EAST_ASIAN_WIDTH);
  if (width == U_EA_WIDE || width == U_EA_FULLWIDTH) return oneIn(rareWide);
  const bool isCommon = attempt < commonAttempts;
  if (isCommon) return oneOf(isUpper(letter) ? rareUpper : rareLower);
  for (;;) {
    const char32_t other = oneIn(latinExtended);
    if (isOfTypes(other, isUpper(letter) ? U_GC_LU_MASK : U_GC_LL_MASK) &&
        decomposed(utf8Of({&other, 1})).size() == 1) {
      return other;
    }
  }
}

/// The letters that form a character with the marks of a cluster, where its own letter does.
const std::u32string& TextMask::lettersLike(const std::u32string& cluster) {
  const auto [place, isNew] = lettersLike_.try_emplace(cluster);
  const std::size_t length = composed(cluster).size();
  if (!isNew || length == cluster.size()) return place->second;
  const char32_t letter = cluster.front();
  UErrorCode status = U_ZERO_ERROR;
  const UScriptCode script = uscript_getScript(point(letter), &status);
  for (const Range& range : composing) {
    std::u32string other = cluster;
    for (other[0] = range.first; other[0] <= range.last; ++other[0]) {
      const bool isAlike = other[0] != letter && isLetter(other[0]) &&
                           isUpper(other[0]) == isUpper(letter) &&
                           uscript_getScript(point(other[0]), &status) == script;
      if (isAlike && decomposed(utf8Of(other.substr(0, 1))).size() == 1 &&
          composed(other).size() == length) {
        place->second += other[0];
      }
    }
  }
  return place->second;
}

char32_t TextMask::oneOf(std::u32string_view letters) {
  return letters[static_cast<std::size_t>(random_() % letters.size())];
}

}  // namespace vemra::text
