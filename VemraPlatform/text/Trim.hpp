#pragma once

#include "VemraPlatform/Export.hpp"

#include <string_view>

namespace vemra::text {

/// Whether a scalar has Unicode's White_Space property (PropList.txt): 25 scalars have it.
///
/// U+200B, U+FEFF, U+180E and U+001C to U+001F do not have it, although other "is space" functions
/// accept some of them.
constexpr bool isWhitespace(char32_t scalar) noexcept {
  return (scalar >= 0x09 && scalar <= 0x0D) || scalar == 0x20 || scalar == 0x85 || scalar == 0xA0 ||
         scalar == 0x1680 || (scalar >= 0x2000 && scalar <= 0x200A) || scalar == 0x2028 ||
         scalar == 0x2029 || scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

/// The text without the blanks at either end; blanks inside stay.
///
/// Works scalar by scalar: it removes a blank even when a combining mark follows it, and keeps the
/// mark. An ill-formed byte is not blank.
/// - Returns: a part of `text`, valid as long as `text` is. Empty when `text` has only blanks.
VEMRA_EXPORT std::string_view trimmed(std::string_view text) noexcept;

/// Whether a text has only blanks; true for an empty text.
VEMRA_EXPORT bool isBlank(std::string_view text) noexcept;

}  // namespace vemra::text
