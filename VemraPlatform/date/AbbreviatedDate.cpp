#include "VemraPlatform/date/AbbreviatedDate.hpp"

#include "VemraPlatform/date/DateFormat.hpp"
#include "VemraPlatform/date/TimeZoneOffset.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace vemra::date {
namespace {

/// A cache of the values that were made last, by name. A new value replaces the oldest one.
template <class Value>
class Recent {
 public:
  /// The value for a name, valid until the next call.
  Value& of(const std::string& name) {
    // A process shows dates for one user, a test for some dozens: a search in a list is quickest.
    constexpr std::size_t most = 16;
    const auto known = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const auto& entry) { return entry.first == name; });
    if (known != entries_.end()) return known->second;
    Value made(name);
    if (entries_.size() == most) entries_.erase(entries_.begin());
    return entries_.emplace_back(name, std::move(made)).second;
  }

 private:
  std::vector<std::pair<std::string, Value>> entries_;
};

// True after the thread's own formats have been destroyed. It has no destructor itself, so that
// later destructors, of other objects of the thread or of the program, can still read it.
thread_local bool areFormatsGone = false;

struct Formats {
  Recent<DateFormat> formats;
  Recent<TimeZoneOffset> zones;

  Formats() = default;
  Formats(const Formats&) = delete;
  Formats& operator=(const Formats&) = delete;
  ~Formats() { areFormatsGone = true; }

  std::string write(Instant instant, const std::string& locale, const std::string& timeZone) {
    const int ahead = zones.of(timeZone).secondsAheadOfUTC(instant);
    return formats.of(locale).write(static_cast<double>(instant.secondsSinceEpoch) + ahead);
  }
};

}  // namespace

std::string abbreviatedDate(Instant instant, const std::string& locale,
                            const std::string& timeZone) {
  if (areFormatsGone) return Formats().write(instant, locale, timeZone);
  // Each thread has its own formats, so that threads never wait for each other.
  thread_local Formats formats;
  return formats.write(instant, locale, timeZone);
}

}  // namespace vemra::date
