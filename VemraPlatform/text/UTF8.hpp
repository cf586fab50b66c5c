#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vemra::text {

/// One step through UTF-8 text: the next scalar, or nil where the bytes are ill-formed.
///
/// An ill-formed byte is a step of its own, one byte long, so a walk always ends and never skips
/// the well-formed text around it.
struct Step {
  std::optional<char32_t> scalar;  ///< nil: the byte is ill-formed, or the text is empty
  std::size_t length = 0;          ///< In bytes; 1 to 4, and 0 only for empty text.
};

/// Reads the first scalar of a text.
///
/// Unicode's table 3-7 lists the well-formed sequences: no overlong forms, no surrogates, no scalar
/// above U+10FFFF.
/// - Returns: the scalar and its length; `{nil, 1}` for an ill-formed byte; `{nil, 0}` for an empty
///   text.
VEMRA_EXPORT Step firstStep(std::string_view text) noexcept;

/// Reads the last scalar of a text; the mirror of `firstStep`.
///
/// A byte that does not end a well-formed sequence is ill-formed by itself, whatever comes before
/// it.
VEMRA_EXPORT Step lastStep(std::string_view text) noexcept;

/// Appends a scalar to UTF-8 text.
///
/// - Parameter scalar: a Unicode scalar value; not checked.
VEMRA_EXPORT void append(std::string& text, char32_t scalar);

/// Whether the whole text is well-formed UTF-8; true for an empty text.
VEMRA_EXPORT bool isWellFormed(std::string_view text) noexcept;

/// Whether every byte is below 0x80.
VEMRA_EXPORT bool isASCII(std::string_view text) noexcept;

}  // namespace vemra::text
