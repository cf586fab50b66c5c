#include "apps/documents/DocumentError.hpp"

#include "VemraPlatform/text/OneLine.hpp"
#include "VemraPlatform/text/UTF8.hpp"

#include <cstddef>

namespace vemra::documents {
namespace {

constexpr std::size_t longestValue = 60;
constexpr std::size_t longestKey = 200;

std::string line(const std::string& file, const std::string& pointer, const std::string& problem) {
  return pointer.empty() ? file + ": " + problem : file + ": " + pointer + ": " + problem;
}

/// Well-formed, and no longer than a message has room for.
std::string cutTo(std::size_t longest, std::string_view text) {
  std::string out;
  for (std::size_t characters = 0; !text.empty(); ++characters) {
    if (characters == longest) return out + "…";
    const text::Step step = text::firstStep(text);
    if (step.scalar) {
      out += text.substr(0, step.length);
    } else {
      out += "\uFFFD";
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
  return text::onOneLine(cutTo(longestValue, text));
}

std::string inQuotes(std::string_view text) {
  return text::quotedOnOneLine(cutTo(longestValue, text));
}

std::string pointerToken(std::string_view token) {
  return replaced(replaced(text::onOneLine(cutTo(longestKey, token)), '~', "~0"), '/', "~1");
}

}  // namespace vemra::documents
