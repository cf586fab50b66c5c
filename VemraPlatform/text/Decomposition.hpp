#pragma once

#include <string>
#include <string_view>

/// \file
/// Internal to the text library.

namespace vemra::text {

/// Normalization Form D of a text (UAX #15), as scalars.
///
/// - Precondition: the text is well-formed UTF-8.
std::u32string decomposed(std::string_view text);

}  // namespace vemra::text
