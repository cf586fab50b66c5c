#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/date/InternetDateTime.hpp"
#include "VemraPlatform/date/Locale.hpp"
#include "VemraPlatform/date/TimeZone.hpp"

#include <string>

namespace vemra::date {

/// Writes the day of an instant the way people of a locale abbreviate it: "Jan 5, 2025".
///
/// The order and the words are CLDR's pattern for the fields year, abbreviated month and day
/// (skeleton yMMMd), which is not the locale's medium style. The calendar is the one the locale
/// asks for (`@calendar=`, `-u-ca-`), else the one its region commonly uses; the digits are the
/// locale's own or those it asks for (`@numbers=`, `-u-nu-`). Gregorian dates are proleptic: no
/// change to the Julian calendar before 1582.
///
/// - Parameter locale: a known locale; see `isKnownLocale`. Any other is taken for the root locale,
///   never for whatever the process was started under.
/// - Parameter timeZone: a known time zone (see `isKnownTimeZone`) or a POSIX rule, which counts
///   westward: `<+03>-3`, `CET-1CEST,M3.5.0,M10.5.0/3`. Any other is taken for UTC.
/// - Returns: the date as UTF-8.
///
/// Safe on every thread, also while the thread or the program ends. Locks nothing once a thread has
/// written some dates in a locale and a time zone: what they need is made once a thread, which takes
/// milliseconds, kept for the last 16 locales and 16 time zones, and freed when the thread ends. ICU
/// takes locks of its own while it makes that, and in calendars whose months follow the moon. A
/// change in the machine's time zone files is seen by threads that begin after it. Throws only when
/// memory runs out or CLDR's data cannot be loaded.
VEMRA_EXPORT std::string abbreviatedDate(Instant instant, const std::string& locale,
                                         const std::string& timeZone);

}  // namespace vemra::date
