#pragma once

#include "VemraPlatform/date/InternetDateTime.hpp"

#include <cstdint>
#include <optional>
#include <string_view>

namespace vemra::date {

/// A time zone that TZ spells out instead of naming it: `CET-1CEST,M3.5.0,M10.5.0/3`.
///
/// The form is that of POSIX.1-2024 (TZ, "std offset dst offset, rule"), with the times of day from
/// -167 to +167 hours that RFC 9636 adds. Offsets count westward, so that `JST-9` is nine hours
/// ahead of UTC. Summer time without dates begins and ends as in the United States, by
/// `,M3.2.0,M11.1.0`. The rule is that of every year, past ones included.
class TimeZoneRule {
 public:
  /// Reads a whole text; nothing when it is not a rule. A colon in front is not part of one.
  static std::optional<TimeZoneRule> parse(std::string_view text) noexcept;

  /// Seconds that local time is ahead of UTC at an instant. Total: any instant will do.
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
