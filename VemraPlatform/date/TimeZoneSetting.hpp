#pragma once

#include "VemraPlatform/date/ZoneinfoFolder.hpp"

#include <optional>
#include <string>
#include <string_view>

/// \file
/// The time zone that a setting of the machine or of the process names.

namespace vemra::date {

/// The time zone of the file at a path: a known name, else a POSIX rule. The first of these that
/// exists:
/// 1. the name below a `zoneinfo` folder, and below `posix` or `right` there, that the path or a
///    symbolic link on the way has, whether or not there is such a file;
/// 2. the name of a file of the database with the same content;
/// 3. the rule that the file has for the time after its last change.
///
/// - Parameter path: absolute. A relative link counts from the folder it is in.
/// - Parameter database: the folder of the machine's database, with the name `zoneinfo`.
/// - Returns: nil when none of these exists, for example for a file that is no time zone.
std::optional<std::string> zoneOfPath(const std::string& path,
                                      std::string_view database = zoneinfoFolder);

/// The time zone that a value of TZ means; nil when it means none. The value has no leading colon.
/// On a machine without time zone files, names have ICU's meaning.
std::optional<std::string> zoneOfSetting(const std::string& setting,
                                         std::string_view database = zoneinfoFolder);

}  // namespace vemra::date
