#pragma once

#include <string>
#include <string_view>

namespace vemra::date {

/// Says whether a time zone is one of the IANA time zone database, by its exact name
/// ("Europe/Berlin", "UTC"), links to other zones included. An offset such as "GMT+2" is not a
/// name.
bool isKnownTimeZone(std::string_view timeZone);

/// The time zone of the user who started the process: that of TZ, else that of the system, else
/// "UTC".
///
/// TZ may be a name, `:name`, or a path below a `zoneinfo` folder; an empty TZ is UTC, as POSIX has
/// it. A POSIX rule counts only where its first part is a name too (`EST5EDT,M3.2.0,M11.1.0`);
/// otherwise the time zone of the system is taken.
/// - Returns: a known time zone. Reads the environment on every call.
std::string systemTimeZone();

}  // namespace vemra::date
