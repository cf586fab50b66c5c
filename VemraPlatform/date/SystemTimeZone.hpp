#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>

namespace vemra::date {

/// The time zone of the user who started the process: from TZ, else from the system
/// (`/etc/localtime`), else "UTC".
///
/// TZ, without a leading colon, is the first of these that fits:
/// - empty: UTC, as in POSIX;
/// - a known name. A name that only ICU has (`JST`) means UTC, unless it is also a POSIX rule
///   (`PST8PDT`), because the C library, and so `date`, reads it like that. On a machine without
///   time zone files, all names are ICU's;
/// - the path of a time zone file, absolute or below `/usr/share/zoneinfo`. A path or a symbolic
///   link with a `zoneinfo` folder names the zone, below `posix` and `right` too. Any other file,
///   such as a copy, is the zone of the database with the same content; without one, the rule that
///   the file has for the time after its last change;
/// - a POSIX rule (`UTC-3`, `CET-1CEST,M3.5.0,M10.5.0/3`; see `TimeZoneRule`).
/// Any other text leaves the time zone of the system. `/etc/localtime` is read like a path in TZ.
///
/// Zones below `right` count leap seconds, which instants here do not, so that `right/Asia/Tokyo`
/// is Asia/Tokyo.
///
/// Returns a known time zone or a POSIX rule; `abbreviatedDate` accepts both. Reads the environment
/// and files on every call.
VEMRA_EXPORT std::string systemTimeZone();

}  // namespace vemra::date
