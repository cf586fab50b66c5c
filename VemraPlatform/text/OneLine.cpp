#include "VemraPlatform/text/OneLine.hpp"

#include "VemraPlatform/text/UTF8.hpp"

#include <algorithm>
#include <cstddef>

namespace vemra::text {
namespace {

constexpr bool isASCIIControl(char32_t scalar) noexcept {
  return scalar < 0x20 || scalar == 0x7F;
}

/// Whether some programs end a line at this scalar, or show the text around it in another order.
/// For scalars beyond ASCII.
constexpr bool isDisruptive(char32_t scalar) noexcept {
  return (scalar >= 0x80 && scalar <= 0x9F) || scalar == 0x61C || scalar == 0x200E ||
         scalar == 0x200F || (scalar >= 0x2028 && scalar <= 0x202E) ||
         (scalar >= 0x2066 && scalar <= 0x2069);
}

void appendHex(std::string& out, char32_t value, int digits) {
  constexpr std::string_view hex = "0123456789abcdef";
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) out += hex[(value >> shift) & 0xF];
}

/// Appends the escape of a scalar; false when the scalar needs none.
bool appendEscape(std::string& out, char32_t scalar) {
  if (scalar == '\n') {
    out += "\\n";
  } else if (scalar == '\r') {
    out += "\\r";
  } else if (scalar == '\t') {
    out += "\\t";
  } else if (isASCIIControl(scalar)) {
    out += "\\x";
    appendHex(out, scalar, 2);
  } else if (isDisruptive(scalar)) {
    out += "\\u";
    appendHex(out, scalar, 4);
  } else {
    return false;
  }
  return true;
}

/// The length of the text's beginning that appears as it is: printable ASCII without a mark.
std::size_t plainLength(std::string_view text, std::string_view marked) {
  const auto isPlain = [marked](char byte) {
    return byte >= 0x20 && byte < 0x7F && std::ranges::find(marked, byte) == marked.end();
  };
  return static_cast<std::size_t>(std::ranges::find_if_not(text, isPlain) - text.begin());
}

/// Appends the text with escapes, and with a backslash before each character of `marked`, which are
/// ASCII.
void appendOnOneLine(std::string& out, std::string_view text, std::string_view marked) {
  while (true) {
    const std::size_t plain = plainLength(text, marked);
    out += text.substr(0, plain);
    text.remove_prefix(plain);
    if (text.empty()) return;
    const auto [scalar, length] = firstStep(text);
    const std::string_view bytes = text.substr(0, length);
    text.remove_prefix(length);
    if (scalar && appendEscape(out, *scalar)) continue;
    if (marked.find(bytes) != std::string_view::npos) out += '\\';
    out += bytes;
  }
}

}  // namespace

std::string onOneLine(std::string_view text) {
  std::string out;
  appendOnOneLine(out, text, "");
  return out;
}

std::string quotedOnOneLine(std::string_view text) {
  std::string out = "\"";
  appendOnOneLine(out, text, "\"\\");
  return out + '"';
}

}  // namespace vemra::text
