#pragma once

#include "VemraPlatform/date/InternetDateTime.hpp"
#include "VemraPlatform/date/TimeZoneFile.hpp"
#include "VemraPlatform/date/TimeZoneRule.hpp"

#include <memory>
#include <string>
#include <variant>

#include <unicode/timezone.h>

namespace vemra::date {

/// How far a time zone is ahead of UTC, at any instant.
///
/// A name is looked up in the machine's own tz database first (`zoneinfoFolder`), which the rest of
/// the machine uses and which is updated more often, and then in ICU's.
class TimeZoneOffset {
 public:
  /// - Parameter timeZone: a name or a POSIX rule; any other is taken for UTC.
  explicit TimeZoneOffset(const std::string& timeZone);

  int secondsAheadOfUTC(Instant instant) const;

 private:
  std::variant<std::monostate, TimeZoneFile, TimeZoneRule, std::unique_ptr<icu::TimeZone>> zone_;
};

}  // namespace vemra::date
