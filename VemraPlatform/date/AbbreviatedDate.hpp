#pragma once

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
/// - Parameter timeZone: a known time zone; see `isKnownTimeZone`. Any other is taken for UTC.
/// - Returns: the date as UTF-8.
///
/// Safe on every thread. What is needed for a (locale, time zone) is built once and kept. Throws
/// only when memory runs out or CLDR's data cannot be loaded.
std::string abbreviatedDate(Instant instant, const std::string& locale,
                            const std::string& timeZone);

}  // namespace vemra::date
