#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <unicode/calendar.h>
#include <unicode/smpdtfmt.h>

namespace vemra::date {

/// The abbreviated dates of one locale. Made in milliseconds, writes in microseconds.
///
/// Knows no time zone: it writes local times. For one thread at a time, as the calendar in it holds
/// the date being written.
class DateFormat {
 public:
  /// - Parameter locale: as for `abbreviatedDate`. Throws when ICU cannot load its data.
  explicit DateFormat(const std::string& locale);

  /// The day of a local time in seconds since 1970-01-01T00:00:00, as UTF-8.
  std::string write(double localSeconds);

 private:
  std::unique_ptr<icu::Calendar> calendar_;
  std::unique_ptr<icu::SimpleDateFormat> format_;
};

}  // namespace vemra::date
