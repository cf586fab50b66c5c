#include "apps/desk/commands/GoalLine.hpp"

#include "VemraPlatform/text/UTF8.hpp"

namespace vemra::desk {
namespace {

/// The escape for a character, or "" for one that stays.
std::string escapeOf(char32_t scalar) {
  switch (scalar) {
    case U'\t':
      return "\\t";
    case U'\n':
      return "\\n";
    case U'\r':
      return "\\r";
    case U'\\':
      return "\\\\";
    default:
      break;
  }
  const bool isControl = scalar < 0x20 || (scalar >= 0x7F && scalar < 0xA0);
  if (!isControl && scalar != 0x2028 && scalar != 0x2029) return "";
  std::string escape = "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) escape += "0123456789abcdef"[(scalar >> shift) & 15];
  return escape;
}

}  // namespace

std::string onOneLine(std::string_view text) {
  std::string line;
  for (std::size_t i = 0; i < text.size();) {
    const text::Step step = text::firstStep(text.substr(i));
    const std::string escape = step.scalar ? escapeOf(*step.scalar) : "";
    line += escape.empty() ? text.substr(i, step.length) : std::string_view(escape);
    i += step.length;
  }
  return line;
}

std::string goalLine(const GoalListing& goal) {
  return onOneLine(goal.id) + '\t' + onOneLine(goal.title) + '\n';
}

}  // namespace vemra::desk
