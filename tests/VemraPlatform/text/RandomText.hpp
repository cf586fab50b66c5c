#pragma once

#include "tests/Random.hpp"
#include "tests/VemraPlatform/text/Samples.hpp"

#include <array>
#include <string>

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace vemra::testing {

/// Characters that normalisation changes, their parts, and ordinary characters.
inline constexpr std::u32string_view normalisedAlphabet =
    U"abcdefghiK;` \u00E9\u00E8\u00C5\u212B\u212A\u037E\u1FEF\u0301\u0300\u0323\u0302\u030A\u0308"
    U"\u0344\u1EAD\u01D5\u00DC\u0304\u1112\u1161\u11AB\uD558\uD55C\u0915\u093C\u0958\u3099\u304B"
    U"\u304C\u4E00\uF900\u8C48\uFB01\u0F71\u0F72\u0F73\u0F74\u0F80\u0F81\u05D0\u05BC\uFB30"
    U"\U0001D15E\U0001D157\U0001D165\U0001F600\u0345\u03B1\u1FB3\u00B7\u0387";

/// Texts that are likely to be canonically equivalent to each other.
class RandomText {
 public:
  /// `random` must outlive the object.
  explicit RandomText(Random& random) : random_(random) {}

  /// Up to `most` characters of the alphabet.
  std::string scalars(std::size_t most) {
    std::u32string text;
    for (std::size_t count = random_.below(most + 1); count > 0; --count) {
      text += normalisedAlphabet[random_.below(normalisedAlphabet.size())];
    }
    return utf8(text);
  }

  /// The same text in another form, or nearly: one character may be added, lost or replaced.
  std::string variantOf(const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::array forms{
        icu::Normalizer2::getNFCInstance(status), icu::Normalizer2::getNFDInstance(status),
        icu::Normalizer2::getNFKCInstance(status),
        icu::Normalizer2::getInstance(nullptr, "nfc", UNORM2_COMPOSE_CONTIGUOUS, status)};
    icu::UnicodeString units =
        forms[random_.below(forms.size())]->normalize(icu::UnicodeString::fromUTF8(text), status);
    const auto place =
        static_cast<std::int32_t>(random_.below(static_cast<std::size_t>(units.length()) + 1));
    const auto scalar =
        static_cast<UChar32>(normalisedAlphabet[random_.below(normalisedAlphabet.size())]);
    switch (random_.below(5)) {
      case 0:
        units.insert(units.getChar32Start(place), scalar);
        break;
      case 1:
        if (place < units.length()) units.replace(place, 1, scalar);
        break;
      default:
        break;
    }
    std::string variant;
    return units.toUTF8String(variant);
  }

  /// Sometimes makes a text ill-formed by changing one byte.
  void spoil(std::string& text) {
    if (!text.empty() && random_.oneIn(8)) {
      text[random_.below(text.size())] = static_cast<char>(random_.below(256));
    }
  }

 private:
  Random& random_;
};

}  // namespace vemra::testing
