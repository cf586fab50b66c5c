#pragma once

#include "VemraPlatform/date/InternetDateTime.hpp"
#include "VemraPlatform/date/TimeZoneRule.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::date {

/// A compiled time zone of the tz database, in the format of RFC 9636 ("TZif", versions 1 to 4).
///
/// Leap seconds in it are ignored: an `Instant` does not count them.
class TimeZoneFile {
 public:
  /// The content of a file that may be a time zone; nil when it is not a regular file, cannot be
  /// read, has no TZif header or is larger than 1 MiB (the files of the database have a few kB).
  static std::optional<std::string> contentOf(const std::string& path);

  /// Parses the content of a file; nil when it is cut off or invalid. Ignores bytes behind the last
  /// field.
  static std::optional<TimeZoneFile> parse(std::string_view content);

  /// The seconds that local time is ahead of UTC at an instant; defined for every instant.
  int secondsAheadOfUTC(Instant instant) const noexcept;

  /// The POSIX rule for instants after the last change in the file; empty when the file has none.
  const std::string& footer() const noexcept { return footer_; }

 private:
  struct Change {
    std::int64_t secondsSinceEpoch;
    int secondsAhead;
  };

  int secondsAheadBefore_ = 0;  ///< before the first change
  std::vector<Change> changes_;
  std::string footer_;
  std::optional<TimeZoneRule> rule_;
};

}  // namespace vemra::date
