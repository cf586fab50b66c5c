// Any bytes: steps from either end, trimming and well-formedness agree with ICU's macros; and a
// quoted text is one line and can be converted back.

#include "VemraPlatform/text/UTF8.hpp"

#include "VemraPlatform/text/OneLine.hpp"
#include "VemraPlatform/text/Trim.hpp"
#include "tests/VemraPlatform/text/Definition.hpp"
#include "tests/fuzz/Target.hpp"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace vemra {
namespace {

/// The result of ICU at `index`, to the right or to the left: a scalar and its length, or one
/// ill-formed byte.
text::Step stepRight(std::string_view text, std::int32_t index) {
  const std::int32_t start = index;
  UChar32 scalar = 0;
  U8_NEXT(text.data(), index, static_cast<std::int32_t>(text.size()), scalar);
  if (scalar < 0) return {std::nullopt, 1};
  return {static_cast<char32_t>(scalar), static_cast<std::size_t>(index - start)};
}
text::Step stepLeft(std::string_view text, std::int32_t index) {
  const std::int32_t start = index;
  UChar32 scalar = 0;
  U8_PREV(text.data(), 0, index, scalar);
  if (scalar < 0) return {std::nullopt, 1};
  return {static_cast<char32_t>(scalar), static_cast<std::size_t>(start - index)};
}

bool areSame(const text::Step& a, const text::Step& b) {
  return a.scalar == b.scalar && a.length == b.length;
}

void compareSteps(std::string_view text) {
  for (std::size_t index = 0; index < text.size(); ++index) {
    const text::Step right = text::firstStep(text.substr(index));
    fuzz::require(areSame(right, stepRight(text, static_cast<std::int32_t>(index))),
                  "a step to the right is ICU's", text.substr(index));
    const std::string_view left = text.substr(0, index + 1);
    fuzz::require(
        areSame(text::lastStep(left), stepLeft(left, static_cast<std::int32_t>(left.size()))),
        "a step to the left is ICU's", left);
    if (!right.scalar) continue;
    std::string written;
    text::append(written, *right.scalar);
    fuzz::require(written == text.substr(index, right.length), "a scalar is written as it was read",
                  text.substr(index));
  }
}

std::string_view trimmedByICU(std::string_view text) {
  const auto isBlank = [](const text::Step& step) {
    return step.scalar && u_isUWhiteSpace(static_cast<UChar32>(*step.scalar));
  };
  while (!text.empty()) {
    const text::Step step = stepRight(text, 0);
    if (!isBlank(step)) break;
    text.remove_prefix(step.length);
  }
  while (!text.empty()) {
    const text::Step step = stepLeft(text, static_cast<std::int32_t>(text.size()));
    if (!isBlank(step)) break;
    text.remove_suffix(step.length);
  }
  return text;
}

/// Converts a quoted text back: the text between the quotation marks, with its escapes resolved.
std::string unquoted(std::string_view quoted) {
  std::string out;
  quoted = quoted.substr(1, quoted.size() - 2);
  const auto takeHex = [&](std::size_t digits) {
    const auto value = std::stoul(std::string(quoted.substr(2, digits)), nullptr, 16);
    text::append(out, static_cast<char32_t>(value));
    quoted.remove_prefix(2 + digits);
  };
  while (!quoted.empty()) {
    if (quoted.front() != '\\') {
      out += quoted.front();
      quoted.remove_prefix(1);
      continue;
    }
    const char kind = quoted[1];
    if (kind == 'x') {
      takeHex(2);
    } else if (kind == 'u') {
      takeHex(4);
    } else {
      out += kind == 'n' ? '\n' : kind == 'r' ? '\r' : kind == 't' ? '\t' : kind;
      quoted.remove_prefix(2);
    }
  }
  return out;
}

void compareOneLine(std::string_view text) {
  const std::string line = text::onOneLine(text);
  for (const char byte : line) {
    fuzz::require(static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7F,
                  "no control is left on the line", text);
  }
  fuzz::require(text::isWellFormed(line) == text::isWellFormed(text),
                "well-formed text stays so, and other text too", text);
  fuzz::require(unquoted(text::quotedOnOneLine(text)) == text, "a quoted text can be turned back",
                text);
}

}  // namespace
}  // namespace vemra

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vemra;
  const std::string_view text = fuzz::textOf(data, size);
  compareSteps(text);
  fuzz::require(text::isWellFormed(text) == vemra::testing::isWellFormedByDefinition(text),
                "a text is well-formed when ICU says so", text);
  const std::string_view trimmed = text::trimmed(text);
  const std::string_view expected = trimmedByICU(text);
  fuzz::require(trimmed == expected, "trimming takes away ICU's White_Space", text);
  fuzz::require(text::isBlank(text) == expected.empty(), "blank is what trims to nothing", text);
  compareOneLine(text);
  return 0;
}
