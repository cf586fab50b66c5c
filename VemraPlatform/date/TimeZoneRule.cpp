#include "VemraPlatform/date/TimeZoneRule.hpp"

#include "VemraPlatform/date/TimeUnits.hpp"

#include <chrono>

namespace vemra::date {
namespace {

bool isDigit(char character) noexcept {
  return character >= '0' && character <= '9';
}

bool isLetter(char character) noexcept {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// Takes a number off the beginning of `text`; nil unless it has at most `digits` digits and is
/// between `least` and `most`.
std::optional<int> takeNumber(std::string_view& text, std::size_t digits, int least, int most) {
  int number = 0;
  std::size_t length = 0;
  for (; length < digits && length < text.size() && isDigit(text[length]); ++length) {
    number = number * 10 + (text[length] - '0');
  }
  if (length == 0 || number < least || number > most) return std::nullopt;
  text.remove_prefix(length);
  return number;
}

bool take(std::string_view& text, char expected) noexcept {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(1);
  return true;
}

bool takeName(std::string_view& text) noexcept {
  const bool isQuoted = take(text, '<');
  std::size_t length = 0;
  for (; length < text.size(); ++length) {
    const char next = text[length];
    const bool isPartOfQuoted = isDigit(next) || next == '+' || next == '-';
    if (!isLetter(next) && !(isQuoted && isPartOfQuoted)) break;
  }
  text.remove_prefix(length);
  constexpr std::size_t shortest = 3;
  return length >= shortest && (!isQuoted || take(text, '>'));
}

/// `[+-]h[h[h]][:mm[:ss]]`, in seconds.
std::optional<int> takeTime(std::string_view& text, std::size_t digits, int mostHours) {
  const bool isNegative = take(text, '-');
  if (!isNegative) take(text, '+');
  const auto hours = takeNumber(text, digits, 0, mostHours);
  if (!hours) return std::nullopt;
  int seconds = *hours * secondsPerHour;
  for (const int unit : {secondsPerMinute, 1}) {
    if (!take(text, ':')) break;
    const auto number = takeNumber(text, 2, 0, 59);
    if (!number) return std::nullopt;
    seconds += *number * unit;
  }
  return isNegative ? -seconds : seconds;
}

/// How far local time is ahead of UTC; the text counts westward.
std::optional<int> takeOffset(std::string_view& text) {
  const auto west = takeTime(text, 2, 24);
  return west ? std::optional(-*west) : std::nullopt;
}

std::optional<TimeZoneRule::Change> takeChange(std::string_view& text) {
  using Form = TimeZoneRule::Change::Form;
  TimeZoneRule::Change change;
  if (!take(text, ',')) return std::nullopt;
  std::optional<int> day;
  if (take(text, 'M')) {
    const auto month = takeNumber(text, 2, 1, 12);
    if (!month || !take(text, '.')) return std::nullopt;
    const auto week = takeNumber(text, 1, 1, 5);
    if (!week || !take(text, '.')) return std::nullopt;
    day = takeNumber(text, 1, 0, 6);
    change.month = *month;
    change.week = *week;
  } else if (take(text, 'J')) {
    change.form = Form::dayWithoutLeapDay;
    day = takeNumber(text, 3, 1, 365);
  } else {
    change.form = Form::dayFromZero;
    day = takeNumber(text, 3, 0, 365);
  }
  if (!day) return std::nullopt;
  change.day = *day;
  if (take(text, '/')) {
    const auto time = takeTime(text, 3, 167);
    if (!time) return std::nullopt;
    change.secondOfDay = *time;
  }
  return change;
}

}  // namespace

std::optional<TimeZoneRule> TimeZoneRule::parse(std::string_view text) noexcept {
  TimeZoneRule rule;
  if (!takeName(text)) return std::nullopt;
  const auto standard = takeOffset(text);
  if (!standard) return std::nullopt;
  rule.secondsAhead_ = *standard;
  if (text.empty()) return rule;

  SummerTime summer{*standard + secondsPerHour, {}, {}};
  if (!takeName(text)) return std::nullopt;
  if (!text.empty() && !text.starts_with(',')) {
    const auto offset = takeOffset(text);
    if (!offset) return std::nullopt;
    summer.secondsAhead = *offset;
  }
  if (text.empty()) text = ",M3.2.0,M11.1.0";
  const auto begin = takeChange(text);
  if (!begin) return std::nullopt;
  const auto end = takeChange(text);
  if (!end || !text.empty()) return std::nullopt;
  summer.begin = *begin;
  summer.end = *end;
  rule.summerTime_ = summer;
  return rule;
}

std::int64_t TimeZoneRule::Change::localTime(int year) const noexcept {
  namespace chrono = std::chrono;
  const chrono::year civil(year);
  chrono::sys_days date = civil / chrono::January / 1;
  if (form == Form::dayFromZero) {
    date += chrono::days(day);
  } else if (form == Form::dayWithoutLeapDay) {
    constexpr int firstOfMarch = 60;
    const bool isBehindLeapDay = civil.is_leap() && day >= firstOfMarch;
    date += chrono::days(day - 1 + (isBehindLeapDay ? 1 : 0));
  } else {
    const auto inMonth = civil / chrono::month(static_cast<unsigned>(month));
    const chrono::weekday weekday(static_cast<unsigned>(day));
    constexpr int last = 5;
    date = week == last ? chrono::sys_days(inMonth / weekday[chrono::last])
                        : chrono::sys_days(inMonth / weekday[static_cast<unsigned>(week)]);
  }
  return date.time_since_epoch().count() * secondsPerDay + secondOfDay;
}

bool TimeZoneRule::isSummerTime(std::int64_t secondsSinceEpoch) const noexcept {
  const auto begin = [this](int year) {
    return summerTime_->begin.localTime(year) - secondsAhead_;
  };
  const auto end = [this](int year) {
    return summerTime_->end.localTime(year) - summerTime_->secondsAhead;
  };
  const std::chrono::sys_days day{
      std::chrono::floor<std::chrono::days>(std::chrono::seconds(secondsSinceEpoch))};
  const int year = static_cast<int>(std::chrono::year_month_day(day).year());
  // South of the equator it ends in the year after. With times of day of up to a week either way,
  // it may have begun in the year before last, by UTC, or begin in the next.
  for (int first = year - 2; first <= year + 1; ++first) {
    const std::int64_t from = begin(first);
    const std::int64_t sameYear = end(first);
    const std::int64_t until = from <= sameYear ? sameYear : end(first + 1);
    if (secondsSinceEpoch >= from && secondsSinceEpoch < until) return true;
  }
  return false;
}

int TimeZoneRule::secondsAheadOfUTC(Instant instant) const noexcept {
  if (!summerTime_) return secondsAhead_;
  // The calendar, weekdays included, repeats every 400 years, so this works for every instant.
  constexpr std::int64_t cycle = 146097 * secondsPerDay;
  std::int64_t inCycle = instant.secondsSinceEpoch % cycle;
  if (inCycle < 0) inCycle += cycle;
  return isSummerTime(inCycle) ? summerTime_->secondsAhead : secondsAhead_;
}

}  // namespace vemra::date
