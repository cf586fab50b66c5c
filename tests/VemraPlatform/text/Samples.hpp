#pragma once

#include <string>
#include <string_view>

namespace vemra::testing {

/// The UTF-8 bytes of a code point. Surrogates are written too; the text is then ill-formed.
inline std::string utf8(char32_t scalar) {
  const auto byte = [](char32_t value) {
    return static_cast<char>(static_cast<unsigned char>(value));
  };
  if (scalar < 0x80) return {byte(scalar)};
  if (scalar < 0x800) return {byte(0xC0 | (scalar >> 6)), byte(0x80 | (scalar & 0x3F))};
  if (scalar < 0x10000) {
    return {byte(0xE0 | (scalar >> 12)), byte(0x80 | ((scalar >> 6) & 0x3F)),
            byte(0x80 | (scalar & 0x3F))};
  }
  return {byte(0xF0 | (scalar >> 18)), byte(0x80 | ((scalar >> 12) & 0x3F)),
          byte(0x80 | ((scalar >> 6) & 0x3F)), byte(0x80 | (scalar & 0x3F))};
}

inline std::string utf8(std::u32string_view scalars) {
  std::string text;
  for (const char32_t scalar : scalars) text += utf8(scalar);
  return text;
}

/// The bytes of a text in hexadecimal, for messages.
inline std::string inHex(std::string_view text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string hex;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    hex += {digits[byte >> 4], digits[byte & 15], ' '};
  }
  return hex;
}

}  // namespace vemra::testing
