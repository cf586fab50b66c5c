#include "VemraPlatform/date/InternetDateTime.hpp"

#include "VemraPlatform/date/TimeUnits.hpp"

#include <chrono>

namespace vemra::date {
namespace {

/// Reads a text from left to right. After the first part that does not fit, every further read
/// fails.
class Reader {
 public:
  explicit Reader(std::string_view text) noexcept : rest_(text) {}

  bool isReadable() const noexcept { return isReadable_; }
  bool isAtEnd() const noexcept { return rest_.empty(); }

  /// Exactly `count` ASCII digits with a value from `least` to `greatest`.
  int number(int count, int least, int greatest) noexcept {
    int value = 0;
    for (int index = 0; index < count; ++index) {
      if (rest_.empty() || rest_.front() < '0' || rest_.front() > '9') return fail();
      value = value * 10 + (rest_.front() - '0');
      rest_.remove_prefix(1);
    }
    return value >= least && value <= greatest ? value : fail();
  }

  bool skip(char expected) noexcept {
    if (rest_.empty() || rest_.front() != expected) return false;
    rest_.remove_prefix(1);
    return true;
  }

  void require(char expected) noexcept {
    if (!skip(expected)) fail();
  }

  int fail() noexcept {
    isReadable_ = false;
    return 0;
  }

 private:
  std::string_view rest_;
  bool isReadable_ = true;
};

std::int64_t readDay(Reader& reader) noexcept {
  const int year = reader.number(4, 1, 9999);
  reader.require('-');
  const int month = reader.number(2, 1, 12);
  reader.require('-');
  const int day = reader.number(2, 1, 31);
  const std::chrono::year_month_day date(std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day)));
  if (!date.ok()) return reader.fail();
  return std::chrono::sys_days(date).time_since_epoch().count();
}

int readTimeOfDay(Reader& reader) noexcept {
  const int hour = reader.number(2, 0, 23);
  reader.require(':');
  const int minute = reader.number(2, 0, 59);
  reader.require(':');
  const int second = reader.number(2, 0, 59);
  return hour * secondsPerHour + minute * secondsPerMinute + second;
}

/// Seconds ahead of UTC.
int readZone(Reader& reader) noexcept {
  if (reader.skip('Z')) return 0;
  const bool isAhead = reader.skip('+');
  if (!isAhead) reader.require('-');
  const int hours = reader.number(2, 0, 23);
  reader.skip(':');
  const int minutes = reader.number(2, 0, 59);
  const int offset = hours * secondsPerHour + minutes * secondsPerMinute;
  return isAhead ? offset : -offset;
}

}  // namespace

std::optional<Instant> parseInternetDateTime(std::string_view text) noexcept {
  Reader reader(text);
  const std::int64_t day = readDay(reader);
  reader.require('T');
  const int timeOfDay = readTimeOfDay(reader);
  const int zone = readZone(reader);
  if (!reader.isReadable() || !reader.isAtEnd()) return std::nullopt;
  return Instant{day * secondsPerDay + timeOfDay - zone};
}

}  // namespace vemra::date
