#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vemra::desk {

/// The ASCII text that is canonically equivalent to a text (Unicode Standard Annex #15), so that a
/// search by bytes finds it; nil when there is none. An ASCII text is its own.
std::optional<std::string> equivalentASCII(std::string_view text);

}  // namespace vemra::desk
