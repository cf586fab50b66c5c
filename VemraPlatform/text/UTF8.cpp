#include "VemraPlatform/text/UTF8.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vemra::text {
namespace {

constexpr Step illFormedByte{std::nullopt, 1};

constexpr bool isTrail(unsigned char byte) noexcept {
  return (byte & 0xC0U) == 0x80U;
}

unsigned char byteAt(std::string_view text, std::size_t index) noexcept {
  return static_cast<unsigned char>(text[index]);
}

/// The length in bytes of a sequence with this first byte; 0 when no sequence starts with it.
constexpr std::size_t lengthAfterLead(unsigned char lead) noexcept {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

}  // namespace

Step firstStep(std::string_view text) noexcept {
  if (text.empty()) return {};
  const unsigned char lead = byteAt(text, 0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lengthAfterLead(lead);
  if (length == 0 || text.size() < length) return illFormedByte;
  char32_t scalar = lead & (0x7FU >> length);
  for (std::size_t index = 1; index < length; ++index) {
    const unsigned char trail = byteAt(text, index);
    if (!isTrail(trail)) return illFormedByte;
    scalar = (scalar << 6U) | (trail & 0x3FU);
  }
  const bool isOverlong = (length == 3 && scalar < 0x800) || (length == 4 && scalar < 0x10000);
  const bool isSurrogate = scalar >= 0xD800 && scalar <= 0xDFFF;
  if (isOverlong || isSurrogate || scalar > 0x10FFFF) return illFormedByte;
  return {scalar, length};
}

Step lastStep(std::string_view text) noexcept {
  if (text.empty()) return {};
  const std::size_t furthest = std::min<std::size_t>(4, text.size());
  for (std::size_t length = 1; length <= furthest; ++length) {
    if (isTrail(byteAt(text, text.size() - length))) continue;
    const Step step = firstStep(text.substr(text.size() - length));
    return step.scalar && step.length == length ? step : illFormedByte;
  }
  return illFormedByte;
}

void append(std::string& text, char32_t scalar) {
  const auto trail = [&](unsigned int shift) {
    text += static_cast<char>(0x80U | ((scalar >> shift) & 0x3FU));
  };
  if (scalar < 0x80) {
    text += static_cast<char>(scalar);
    return;
  }
  if (scalar < 0x800) {
    text += static_cast<char>(0xC0U | (scalar >> 6U));
  } else if (scalar < 0x10000) {
    text += static_cast<char>(0xE0U | (scalar >> 12U));
    trail(6);
  } else {
    text += static_cast<char>(0xF0U | (scalar >> 18U));
    trail(12);
    trail(6);
  }
  trail(0);
}

bool isWellFormed(std::string_view text) noexcept {
  while (!text.empty()) {
    if (static_cast<unsigned char>(text.front()) < 0x80) {
      text.remove_prefix(1);
      continue;
    }
    const Step step = firstStep(text);
    if (!step.scalar) return false;
    text.remove_prefix(step.length);
  }
  return true;
}

bool isASCII(std::string_view text) noexcept {
  constexpr std::uint64_t highBits = 0x8080808080808080U;
  while (text.size() >= sizeof(std::uint64_t)) {
    std::uint64_t word;
    std::memcpy(&word, text.data(), sizeof word);
    if ((word & highBits) != 0) return false;
    text.remove_prefix(sizeof word);
  }
  return std::none_of(text.begin(), text.end(),
                      [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

}  // namespace vemra::text
