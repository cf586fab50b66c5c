#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/date/InternetDateTime.hpp"
#include "VemraPlatform/date/Locale.hpp"
#include "VemraPlatform/date/SystemTimeZone.hpp"
#include "VemraPlatform/date/TimeZone.hpp"

#include <string>

namespace vemra::date {

/// Writes the day of an instant in a locale's abbreviated form: "Jan 5, 2025".
///
/// The order and the words follow CLDR's pattern for the fields year, abbreviated month and day
/// (skeleton yMMMd), which is not the locale's medium style. The locale may name a calendar
/// (`@calendar=`, `-u-ca-`) and digits (`@numbers=`, `-u-nu-`); otherwise the calendar is the usual
/// one of its region, and the digits are its own. Gregorian dates are proleptic: no change to the
/// Julian calendar before 1582.
///
/// - Parameter locale: a known locale (`isKnownLocale`). For any other text the root locale is
///   used, never the locale of the process.
/// - Parameter timeZone: a known time zone (`isKnownTimeZone`) or a POSIX rule, which counts
///   westward: `<+03>-3`, `CET-1CEST,M3.5.0,M10.5.0/3`. For any other text UTC is used.
/// - Returns: the date as UTF-8.
///
/// Safe on every thread, also while the thread or the program ends. Each thread makes its own
/// formats, which takes milliseconds, caches those of the last 16 locales and 16 time zones, and
/// frees them when it ends; with a cached format this function takes no lock. ICU takes locks of
/// its own while it makes a format, and in calendars whose months follow the moon. A change in the
/// machine's time zone files takes effect in threads that begin after it. Throws only when memory
/// runs out or CLDR's data cannot be loaded.
VEMRA_EXPORT std::string abbreviatedDate(Instant instant, const std::string& locale,
                                         const std::string& timeZone);

}  // namespace vemra::date
