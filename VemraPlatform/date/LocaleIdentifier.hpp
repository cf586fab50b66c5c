#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vemra::date {

/// Converts a locale as people write it to ICU's own identifier (`en_US@numbers=arab`).
///
/// - Returns: the identifier, empty for the root locale; nil when the locale is not known
///   (`isKnownLocale`).
std::optional<std::string> icuLocale(std::string_view locale);

}  // namespace vemra::date
