#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>
#include <string_view>

namespace vemra::date {

/// Says whether a time zone is one of the IANA time zone database, by its exact name
/// ("Europe/Berlin", "UTC"), links to other zones included. An offset ("GMT+2") is not a name.
///
/// The database is ICU's together with the machine's own (`/usr/share/zoneinfo`), which may know
/// younger names. Reads a file of the latter for a name that ICU does not know.
VEMRA_EXPORT bool isKnownTimeZone(std::string_view timeZone);

/// The time zone of the user who started the process: that of TZ, else that of the system
/// (`/etc/localtime`), else "UTC".
///
/// TZ is, with or without a colon in front, and the first of these that it can be:
/// - empty, which is UTC, as POSIX has it;
/// - a known name. One that only ICU has (`JST`) is UTC, unless it is a POSIX rule as well
///   (`PST8PDT`): that is what it means to the C library, and so what `date` shows. A machine
///   without time zone files takes all names from ICU;
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
/// Gives a known time zone or a POSIX rule, either good for `abbreviatedDate`. Reads the
/// environment and files on every call.
VEMRA_EXPORT std::string systemTimeZone();

}  // namespace vemra::date
