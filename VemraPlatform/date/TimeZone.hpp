#pragma once

#include <string>
#include <string_view>

namespace vemra::date {

/// Says whether a time zone is one of the IANA time zone database, by its exact name
/// ("Europe/Berlin", "UTC"), links to other zones included. An offset ("GMT+2") is not a name.
bool isKnownTimeZone(std::string_view timeZone);

/// The time zone of the user who started the process: that of TZ, else that of the system, else
/// "UTC".
///
/// TZ may be a name, `:name`, or a path below a `zoneinfo` folder; an empty TZ is UTC, as POSIX has
/// it. A POSIX rule (`UTC-3`, `CET-1CEST`) whose first part is no name is its standard time, as the
/// fixed offset "GMT+03:00". Any other text leaves the time zone of the system.
///
/// Gives a known time zone or such an offset. Reads the environment on every call.
std::string systemTimeZone();

}  // namespace vemra::date
