#include "VemraPlatform/date/TimeZoneOffset.hpp"

#include "VemraPlatform/date/TimeZone.hpp"
#include "VemraPlatform/date/ZoneinfoFolder.hpp"

#include <cstdint>

#include <unicode/unistr.h>

namespace vemra::date {

TimeZoneOffset::TimeZoneOffset(const std::string& timeZone) {
  if (auto file = zoneOfDatabase(timeZone)) {
    zone_ = *std::move(file);
  } else if (isKnownTimeZone(timeZone)) {
    zone_ = std::unique_ptr<icu::TimeZone>(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZone)));
  } else if (const auto rule = TimeZoneRule::parse(timeZone)) {
    zone_ = *rule;
  }
}

int TimeZoneOffset::secondsAheadOfUTC(Instant instant) const {
  if (const auto* file = std::get_if<TimeZoneFile>(&zone_)) return file->secondsAheadOfUTC(instant);
  if (const auto* rule = std::get_if<TimeZoneRule>(&zone_)) return rule->secondsAheadOfUTC(instant);
  const auto* known = std::get_if<std::unique_ptr<icu::TimeZone>>(&zone_);
  if (known == nullptr) return 0;
  constexpr int millisecondsPerSecond = 1000;
  std::int32_t standard = 0;
  std::int32_t summer = 0;
  UErrorCode status = U_ZERO_ERROR;
  (*known)->getOffset(static_cast<UDate>(instant.secondsSinceEpoch) * millisecondsPerSecond,
                      static_cast<UBool>(false), standard, summer, status);
  return (standard + summer) / millisecondsPerSecond;
}

}  // namespace vemra::date
