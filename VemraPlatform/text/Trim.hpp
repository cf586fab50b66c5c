#pragma once

#include "VemraPlatform/Export.hpp"

#include <string_view>

namespace vemra::text {

/// Says whether a scalar has Unicode's White_Space property (PropList.txt): 25 scalars.
///
/// U+200B, U+FEFF, U+180E and U+001C to U+001F are not among them, though other "is space"
/// functions take some of them for blanks.
constexpr bool isWhitespace(char32_t scalar) noexcept {
  return (scalar >= 0x09 && scalar <= 0x0D) || scalar == 0x20 || scalar == 0x85 || scalar == 0xA0 ||
         scalar == 0x1680 || (scalar >= 0x2000 && scalar <= 0x200A) || scalar == 0x2028 ||
         scalar == 0x2029 || scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

/// Gives the text without the blanks at either end; blanks inside stay.
///
/// Works scalar by scalar, so a combining mark after a blank stays and the blank before it goes. An
/// ill-formed byte is never blank.
/// - Returns: a part of `text`, valid as long as `text` is. Empty when there is nothing but blanks.
VEMRA_EXPORT std::string_view trimmed(std::string_view text) noexcept;

/// Says whether a text holds nothing but blanks; empty text does.
VEMRA_EXPORT bool isBlank(std::string_view text) noexcept;

}  // namespace vemra::text
