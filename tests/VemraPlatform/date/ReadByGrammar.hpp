#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <regex>
#include <string>

namespace vemra::testing {

/// Reads an internet date-time by other means than the product: a regular expression, a table of
/// months, and counting. Gives the seconds since the epoch, nothing for unreadable text.
inline std::optional<std::int64_t> readByGrammar(const std::string& text) {
  static const std::regex grammar(
      "([0-9]{4})-(0[1-9]|1[0-2])-([0-9]{2})T([01][0-9]|2[0-3]):([0-5][0-9]):([0-5][0-9])"
      "(?:Z|([+-])([01][0-9]|2[0-3]):?([0-5][0-9]))");
  std::smatch part;
  if (!std::regex_match(text, part, grammar)) return std::nullopt;
  const auto number = [&](std::size_t index) { return std::stoi(part[index].str()); };
  const auto isLeap = [](int year) {
    return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
  };
  const int year = number(1);
  std::array<int, 12> months = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (isLeap(year)) months[1] = 29;
  const auto month = static_cast<std::size_t>(number(2)) - 1;
  const int day = number(3);
  if (year == 0 || day == 0 || day > months[month]) return std::nullopt;

  std::int64_t days = day - 1;
  for (int passed = 1970; passed < year; ++passed) days += isLeap(passed) ? 366 : 365;
  for (int coming = year; coming < 1970; ++coming) days -= isLeap(coming) ? 366 : 365;
  for (std::size_t passed = 0; passed < month; ++passed) days += months[passed];
  std::int64_t minutes = (days * 24 + number(4)) * 60 + number(5);
  if (part[7].matched) {
    minutes -= (part[7] == "+" ? 1 : -1) * (number(8) * 60 + number(9));
  }
  return minutes * 60 + number(6);
}

}  // namespace vemra::testing
