#pragma once

#include <cstdint>
#include <stdexcept>
#include <string_view>

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

/// \file
/// Plain second implementations of the functions of `VemraPlatform/text`, by ICU alone.

namespace vemra::testing {

/// Whether ICU reads the whole text as well-formed UTF-8.
inline bool isWellFormedByDefinition(std::string_view text) {
  const auto length = static_cast<std::int32_t>(text.size());
  for (std::int32_t index = 0; index < length;) {
    UChar32 scalar = 0;
    U8_NEXT(text.data(), index, length, scalar);
    if (scalar < 0) return false;
  }
  return true;
}

/// Normalization Form D of well-formed text.
inline icu::UnicodeString decomposedByDefinition(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* form = icu::Normalizer2::getNFDInstance(status);
  icu::UnicodeString result = form->normalize(
      icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())}), status);
  if (U_FAILURE(status)) throw std::runtime_error(u_errorName(status));
  return result;
}

/// Whether two texts are equal: the same bytes, or both well-formed and canonically equivalent.
inline bool areSameByDefinition(std::string_view a, std::string_view b) {
  if (a == b) return true;
  return isWellFormedByDefinition(a) && isWellFormedByDefinition(b) &&
         decomposedByDefinition(a) == decomposedByDefinition(b);
}

}  // namespace vemra::testing
