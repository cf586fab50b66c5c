#pragma once

#include "VemraPlatform/Export.hpp"

#include <string_view>

namespace vemra::date {

/// Whether a text is the exact name of a time zone in the IANA time zone database ("Europe/Berlin",
/// "UTC"), links to other zones included. An offset ("GMT+2") is not a name.
///
/// Looks in ICU's database first and then, for newer names, in the machine's own
/// (`/usr/share/zoneinfo`), of which it reads one file.
VEMRA_EXPORT bool isKnownTimeZone(std::string_view timeZone);

}  // namespace vemra::date
