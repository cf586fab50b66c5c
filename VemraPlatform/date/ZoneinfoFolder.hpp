#pragma once

#include "VemraPlatform/date/TimeZoneFile.hpp"

#include <optional>
#include <string_view>

namespace vemra::date {

/// The folder of the machine's own tz database: one file for each time zone, at the zone's name.
inline constexpr std::string_view zoneinfoFolder = "/usr/share/zoneinfo";

/// The time zone with that name in the machine's database; nil when there is none.
///
/// Accepts only names of the form `Area/Location` or `Name`. So no name leads out of the folder, to
/// the copies below `posix` and `right`, or to the files with the machine's settings; and each file
/// has one spelling of its name, not `Area//Location` too.
///
/// - Parameter database: the folder of that database.
std::optional<TimeZoneFile> zoneOfDatabase(std::string_view name,
                                           std::string_view database = zoneinfoFolder);

}  // namespace vemra::date
