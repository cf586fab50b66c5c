#include "apps/documents/DocumentError.hpp"

#include "VemraPlatform/text/UTF8.hpp"

#include <cstddef>

namespace vemra::documents {
namespace {

constexpr std::size_t longestValue = 60;
constexpr std::size_t longestKey = 200;

std::string line(const std::string& file, const std::string& pointer, const std::string& problem) {
  return pointer.empty() ? file + ": " + problem : file + ": " + pointer + ": " + problem;
}

bool breaksALine(char32_t scalar) {
  return scalar < 0x20 || (scalar >= 0x7F && scalar < 0xA0) || scalar == 0x2028 || scalar == 0x2029;
}

void appendEscape(std::string& out, char32_t scalar) {
  constexpr std::string_view digits = "0123456789abcdef";
  out += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) out += digits[scalar >> shift & 15];
}

std::string shortenedTo(std::size_t longest, std::string_view text) {
  std::string out;
  for (std::size_t characters = 0; !text.empty(); ++characters) {
    if (characters == longest) return out + "…";
    const text::Step step = text::firstStep(text);
    if (!step.scalar) {
      out += "\uFFFD";
    } else if (breaksALine(*step.scalar)) {
      appendEscape(out, *step.scalar);
    } else {
      out += text.substr(0, step.length);
    }
    text.remove_prefix(step.length);
  }
  return out;
}

std::string replaced(std::string text, char what, std::string_view by) {
  for (std::size_t i = text.find(what); i != std::string::npos; i = text.find(what, i)) {
    text.replace(i, 1, by);
    i += by.size();
  }
  return text;
}

}  // namespace

DocumentError::DocumentError(const std::string& file, const std::string& pointer,
                             const std::string& problem)
    : std::runtime_error(line(file, pointer, problem)) {}

std::string shortened(std::string_view text) {
  return shortenedTo(longestValue, text);
}

std::string inQuotes(std::string_view text) {
  return '"' + replaced(shortened(text), '"', "\\\"") + '"';
}

std::string pointerToken(std::string_view token) {
  return replaced(replaced(shortenedTo(longestKey, token), '~', "~0"), '/', "~1");
}

}  // namespace vemra::documents
