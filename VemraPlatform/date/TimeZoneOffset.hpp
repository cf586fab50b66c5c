#pragma once

#include "VemraPlatform/date/InternetDateTime.hpp"
#include "VemraPlatform/date/TimeZoneFile.hpp"
#include "VemraPlatform/date/TimeZoneRule.hpp"

#include <memory>
#include <string>
#include <variant>

#include <unicode/timezone.h>

namespace vemra::date {

/// Computes how far a time zone is ahead of UTC at any instant.
///
/// Looks a name up in the machine's own tz database first (`zoneinfoFolder`), because other
/// programs use that too and it is updated more often, and then in ICU's.
class TimeZoneOffset {
 public:
  /// - Parameter timeZone: a name or a POSIX rule; any other text means UTC.
  explicit TimeZoneOffset(const std::string& timeZone);

  int secondsAheadOfUTC(Instant instant) const;

 private:
  std::variant<std::monostate, TimeZoneFile, TimeZoneRule, std::unique_ptr<icu::TimeZone>> zone_;
};

}  // namespace vemra::date
