#include "VemraPlatform/text/Trim.hpp"

#include "VemraPlatform/text/UTF8.hpp"

namespace vemra::text {

std::string_view trimmed(std::string_view text) noexcept {
  const auto isBlankStep = [](const Step& step) {
    return step.scalar && isWhitespace(*step.scalar);
  };
  for (Step step = firstStep(text); isBlankStep(step); step = firstStep(text)) {
    text.remove_prefix(step.length);
  }
  for (Step step = lastStep(text); isBlankStep(step); step = lastStep(text)) {
    text.remove_suffix(step.length);
  }
  return text;
}

bool isBlank(std::string_view text) noexcept {
  return trimmed(text).empty();
}

}  // namespace vemra::text
