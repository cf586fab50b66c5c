#include "VemraPlatform/date/TimeZone.hpp"

#include "VemraPlatform/date/TimeZoneRule.hpp"
#include "VemraPlatform/date/ZoneinfoFolder.hpp"

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace vemra::date {
namespace {

bool isListedByICU(std::string_view timeZone) {
  const auto name = icu::UnicodeString::fromUTF8(
      icu::StringPiece(timeZone.data(), static_cast<std::int32_t>(timeZone.size())));
  icu::UnicodeString canonical;
  UBool isListed = false;
  UErrorCode status = U_ZERO_ERROR;
  icu::TimeZone::getCanonicalID(name, canonical, isListed, status);
  return U_SUCCESS(status) && isListed;
}

/// Whether the machine has time zone files of its own, and none of that name.
bool isUnknownToTheMachine(const std::string& timeZone) {
  return zoneOfDatabase("UTC") && !zoneOfDatabase(timeZone);
}

/// The time zone that a TZ without its colon means.
std::optional<std::string> zoneOfSetting(const std::string& setting) {
  if (setting.empty()) return "UTC";
  if (isKnownTimeZone(setting)) {
    // A name that only ICU has is no name to the C library: `JST` is UTC, `PST8PDT` a rule.
    const bool isUTC = isUnknownToTheMachine(setting) && !TimeZoneRule::parse(setting);
    return isUTC ? "UTC" : setting;
  }
  const bool isAbsolute = setting.front() == '/';
  if (auto zone = zoneOfPath(isAbsolute ? setting : std::string(zoneinfoFolder) + '/' + setting)) {
    return zone;
  }
  return TimeZoneRule::parse(setting) ? std::optional(setting) : std::nullopt;
}

}  // namespace

bool isKnownTimeZone(std::string_view timeZone) {
  constexpr std::size_t longest = 64;
  if (timeZone.empty() || timeZone.size() > longest || timeZone == "Etc/Unknown") return false;
  if (timeZone.find('\0') != std::string_view::npos) return false;  // ICU would read up to there
  return isListedByICU(timeZone) || zoneOfDatabase(timeZone).has_value();
}

std::string systemTimeZone() {
  if (const char* setting = std::getenv("TZ")) {
    if (auto zone = zoneOfSetting(*setting == ':' ? setting + 1 : setting)) return *std::move(zone);
  }
  return zoneOfPath("/etc/localtime").value_or("UTC");
}

}  // namespace vemra::date
