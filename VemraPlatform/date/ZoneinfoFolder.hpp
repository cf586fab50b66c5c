#pragma once

#include "VemraPlatform/date/TimeZoneFile.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace vemra::date {

/// Where the machine's own tz database is: one file a time zone, below its name.
inline constexpr std::string_view zoneinfoFolder = "/usr/share/zoneinfo";

/// The time zone of that name in the machine's database; nothing when there is none.
///
/// Only names of the form `Area/Location` or `Name`, so that no name leads out of the folder, to
/// the copies below `posix` and `right`, or to the files that say what the machine is set to, and
/// that each file has one spelling of its name: not `Area//Location`.
///
/// - Parameter database: the folder of that database.
std::optional<TimeZoneFile> zoneOfDatabase(std::string_view name,
                                           std::string_view database = zoneinfoFolder);

/// The time zone that a path leads to, as a known name or, failing that, as a POSIX rule.
///
/// It is the first of these that there is:
/// 1. the name below a `zoneinfo` folder, and below `posix` or `right` there, that the path or a
///    symbolic link on the way has, whether or not there is such a file;
/// 2. the name of a file of the database with the same content;
/// 3. the rule that the file has for the time after its last change.
///
/// - Parameter path: absolute. A relative link counts from the folder it is in.
/// - Parameter database: the folder of the machine's database, with the name `zoneinfo`.
/// - Returns: nothing when none of these is there, as for a file that is no time zone.
std::optional<std::string> zoneOfPath(const std::string& path,
                                      std::string_view database = zoneinfoFolder);

/// The time zone that a value of TZ means, without a colon at its beginning; nothing when it means
/// none. On a machine without time zone files, names mean what ICU knows of them.
std::optional<std::string> zoneOfSetting(const std::string& setting,
                                         std::string_view database = zoneinfoFolder);

}  // namespace vemra::date
