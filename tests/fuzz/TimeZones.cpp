// Any bytes as a POSIX rule and as a compiled time zone file: they are refused, or local time is at
// most 26 hours from UTC at any instant. A rule is the same again after 400 years, as the calendar
// is.

#include "VemraPlatform/date/TimeZoneFile.hpp"
#include "VemraPlatform/date/TimeZoneRule.hpp"
#include "tests/fuzz/Target.hpp"

#include <array>
#include <limits>

namespace vemra {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

/// The edges, and instants around changes that the tz database has.
constexpr std::array<std::int64_t, 12> instants{
    Limits::min(), -62135596800, -2208988800,  -1,           0, 946684799, 1711846800, 1729990800,
    2147483648,    4102444800,   253402300799, Limits::max()};

template <class Zone>
void requireOffsets(const Zone& zone, std::string_view text) {
  constexpr int most = 26 * 3600;
  for (const std::int64_t seconds : instants) {
    const int ahead = zone.secondsAheadOfUTC({seconds});
    fuzz::require(ahead >= -most && ahead <= most, "local time is near UTC", text);
  }
}

}  // namespace
}  // namespace vemra

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vemra;
  const std::string_view text = fuzz::textOf(data, size);
  if (const auto rule = date::TimeZoneRule::parse(text)) {
    requireOffsets(*rule, text);
    constexpr std::int64_t calendarCycle = 146097LL * 86400;
    for (const std::int64_t seconds : instants) {
      if (seconds > Limits::max() - calendarCycle) continue;
      fuzz::require(
          rule->secondsAheadOfUTC({seconds}) == rule->secondsAheadOfUTC({seconds + calendarCycle}),
          "a rule repeats itself with the calendar", text);
    }
  }
  if (const auto file = date::TimeZoneFile::parse(text)) requireOffsets(*file, text);
  return 0;
}
