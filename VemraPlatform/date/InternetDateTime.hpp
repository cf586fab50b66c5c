#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstdint>
#include <optional>
#include <string_view>

namespace vemra::date {

/// A point in time, in whole seconds since 1970-01-01T00:00:00Z, without leap seconds.
struct Instant {
  /// Whole seconds since 1970-01-01T00:00:00Z, without leap seconds; negative before.
  std::int64_t secondsSinceEpoch = 0;

  friend bool operator==(Instant, Instant) = default;
};

/// Reads an internet date-time (ISO 8601 in the profile of RFC 3339, narrower still).
///
/// The whole text is `YYYY-MM-DDThh:mm:ss` and then `Z`, `±hh:mm` or `±hhmm`, in ASCII: a calendar
/// date that exists (years 0001 to 9999, proleptic Gregorian), hours 00 to 23, minutes and seconds
/// 00 to 59, also in the zone. Lower-case letters, fractions, 24:00:00, second 60, a date alone,
/// other digits, and blanks at either end are all unreadable.
/// - Returns: the instant; nil when the text is unreadable. Never throws.
VEMRA_EXPORT std::optional<Instant> parseInternetDateTime(std::string_view text) noexcept;

}  // namespace vemra::date
