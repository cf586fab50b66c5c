#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <unicode/calendar.h>
#include <unicode/smpdtfmt.h>

namespace vemra::date {

/// Writes abbreviated dates in one locale. It takes milliseconds to make, and microseconds to
/// write.
///
/// It has no time zone: it writes local times. Only one thread may use it at a time, because its
/// calendar stores the date while it is written.
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
