#pragma once

#include "VemraPlatform/text/UTF8.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::testing {

inline std::size_t codePoints(std::string_view text) {
  std::size_t count = 0;
  for (text::Step step = text::firstStep(text); step.length > 0; step = text::firstStep(text)) {
    text.remove_prefix(step.length);
    ++count;
  }
  return count;
}

/// The number of code points of each line.
inline std::vector<std::size_t> lineLengths(const std::string& text) {
  std::vector<std::size_t> lengths;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lengths.push_back(codePoints(std::string_view(text).substr(begin, end - begin)));
    begin = end + 1;
  }
  return lengths;
}

}  // namespace vemra::testing
