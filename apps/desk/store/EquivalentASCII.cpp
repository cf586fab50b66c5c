#include "apps/desk/store/EquivalentASCII.hpp"

#include "VemraPlatform/text/UTF8.hpp"

namespace vemra::desk {
namespace {

/// The ASCII character that a scalar is canonically equivalent to. Beyond ASCII, Unicode has three
/// such scalars; all others that decompose to an ASCII letter also give a mark.
std::optional<char> asciiCharacter(char32_t scalar) {
  switch (scalar) {
    case U'\u037E':  // the Greek question mark
      return ';';
    case U'\u1FEF':  // the Greek grave accent
      return '`';
    case U'\u212A':  // the Kelvin sign
      return 'K';
    default:
      break;
  }
  if (scalar >= 0x80) return std::nullopt;
  return static_cast<char>(scalar);
}

}  // namespace

std::optional<std::string> equivalentASCII(std::string_view wanted) {
  std::string ascii;
  while (!wanted.empty()) {
    const text::Step step = text::firstStep(wanted);
    const auto character = step.scalar ? asciiCharacter(*step.scalar) : std::nullopt;
    if (!character) return std::nullopt;
    ascii += *character;
    wanted.remove_prefix(step.length);
  }
  return ascii;
}

}  // namespace vemra::desk
