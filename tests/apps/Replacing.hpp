#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace vemra {

/// The text with `by` in place of the first `what`, which must be in it.
inline std::string replacing(std::string text, std::string_view what, std::string_view by) {
  const std::size_t at = text.find(what);
  if (at == std::string::npos) throw std::logic_error("the sample has no " + std::string(what));
  return text.replace(at, what.size(), by);
}

}  // namespace vemra
