#pragma once

#include "VemraPlatform/date/InternetDateTime.hpp"

#include <cstdint>
#include <optional>
#include <string_view>

namespace vemra::date {

/// A time zone as a rule in TZ instead of a name: `CET-1CEST,M3.5.0,M10.5.0/3`.
///
/// The format is that of POSIX.1-2024 (TZ, "std offset dst offset, rule"), with times of day from
/// -167 to +167 hours, as in RFC 9636. Offsets count westward: `JST-9` is nine hours ahead of UTC.
/// Summer time without dates begins and ends as in the United States (`,M3.2.0,M11.1.0`). The rule
/// applies to every year, past years included.
class TimeZoneRule {
 public:
  /// Parses a whole text; nil when it is not a rule. A rule has no leading colon.
  static std::optional<TimeZoneRule> parse(std::string_view text) noexcept;

  /// The seconds that local time is ahead of UTC at an instant; defined for every instant.
  int secondsAheadOfUTC(Instant instant) const noexcept;

  /// The day and the time of day, local before the change, at which summer time begins or ends.
  struct Change {
    enum class Form {
      dayWithoutLeapDay,  ///< `Jn`: day 1 to 365, 29 February never counted
      dayFromZero,        ///< `n`: day 0 to 365, 29 February counted
      weekdayOfMonth      ///< `Mm.w.d`: weekday d of week w of month m; week 5 is the last
    };
    Form form = Form::weekdayOfMonth;
    int day = 0;  ///< of the year; of the week, from Sunday, for `weekdayOfMonth`
    int week = 0;
    int month = 0;
    int secondOfDay = 7200;

    /// Local time in seconds since 1970-01-01T00:00:00 in a year.
    std::int64_t localTime(int year) const noexcept;
  };

 private:
  struct SummerTime {
    int secondsAhead = 0;
    Change begin;
    Change end;
  };

  bool isSummerTime(std::int64_t secondsSinceEpoch) const noexcept;

  int secondsAhead_ = 0;
  std::optional<SummerTime> summerTime_;
};

}  // namespace vemra::date
