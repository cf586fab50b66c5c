// Any locale and any time zone, as arguments and in the environment: nothing crashes; known ones
// are used, and unknown ones become the root locale and UTC.
//
// An input is a line with the locale, a line with the time zone, and a date-time (or bytes that
// become an instant).

#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "VemraPlatform/date/TimeZoneRule.hpp"
#include "VemraPlatform/text/UTF8.hpp"
#include "tests/VemraPlatform/date/Environment.hpp"
#include "tests/fuzz/Target.hpp"

namespace vemra {
namespace {

/// From the year 1 to the year 9999, as every instant of a document is.
date::Instant instantOf(std::string_view text) {
  if (const auto instant = date::parseInternetDateTime(text)) return *instant;
  std::uint64_t number = 0;
  for (const char byte : text.substr(0, 8)) number = number << 8U | static_cast<std::uint8_t>(byte);
  constexpr std::int64_t first = -62135596800;
  constexpr std::uint64_t seconds = 315537897600;
  return {first + static_cast<std::int64_t>(number % seconds)};
}

std::string written(date::Instant instant, const std::string& locale, const std::string& timeZone) {
  std::string date = date::abbreviatedDate(instant, locale, timeZone);
  fuzz::require(!date.empty() && text::isWellFormed(date), "a date is written as UTF-8", locale);
  return date;
}

bool isUsable(const std::string& timeZone) {
  return date::isKnownTimeZone(timeZone) || date::TimeZoneRule::parse(timeZone);
}

void useArguments(date::Instant instant, const std::string& locale, const std::string& timeZone) {
  const std::string date = written(instant, locale, timeZone);
  if (!date::isKnownLocale(locale)) {
    fuzz::require(date == written(instant, "root", timeZone), "an unknown locale is the root",
                  locale);
  }
  // With the root locale, whose formats for UTC are at hand.
  if (!isUsable(timeZone)) {
    fuzz::require(written(instant, "root", timeZone) == written(instant, "root", "UTC"),
                  "an unknown time zone is UTC", timeZone);
  }
}

void useEnvironment(date::Instant instant, const std::string& locale, const std::string& timeZone) {
  const vemra::testing::Environment all("LC_ALL", locale.c_str());
  const vemra::testing::Environment zone("TZ", timeZone.c_str());
  const std::string own = date::systemLocale();
  fuzz::require(own == "root" || date::isKnownLocale(own), "the user's own locale is known", own);
  const std::string ownZone = date::systemTimeZone();
  fuzz::require(isUsable(ownZone), "the user's own time zone is known, or a rule", ownZone);
  written(instant, own, ownZone);
}

}  // namespace
}  // namespace vemra

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vemra;
  std::string_view rest = fuzz::textOf(data, size);
  const std::string locale(fuzz::takeUpTo('\n', rest));
  const std::string timeZone(fuzz::takeUpTo('\n', rest));
  const date::Instant instant = instantOf(rest);
  useArguments(instant, locale, timeZone);
  useEnvironment(instant, locale, timeZone);
  return 0;
}
