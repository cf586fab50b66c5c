#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vemra::date {

/// Turns a locale as people write it into ICU's own identifier (`en_US@numbers=arab`).
///
/// - Returns: the identifier, empty for the root locale; nothing when the locale is not known. See
///   `isKnownLocale` for what is.
std::optional<std::string> icuLocale(std::string_view locale);

}  // namespace vemra::date
