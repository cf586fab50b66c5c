#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vemra {

/// A piece, repeated so many times.
inline std::string repeated(std::string_view piece, std::size_t count) {
  std::string text;
  text.reserve(piece.size() * count);
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

}  // namespace vemra
