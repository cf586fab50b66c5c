#include "VemraPlatform/date/InternetDateTime.hpp"
#include "tests/VemraPlatform/date/ReadByGrammar.hpp"

#include <array>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using namespace std::string_literals;
using date::parseInternetDateTime;

constexpr auto unreadable = std::optional<std::int64_t>();

std::optional<std::int64_t> read(const std::string& text) {
  const std::optional<date::Instant> instant = parseInternetDateTime(text);
  if (!instant) return std::nullopt;
  return instant->secondsSinceEpoch;
}

struct Verdict {
  std::string text;
  std::optional<std::int64_t> seconds;
};

// The numbers are those of GNU date, where it can read the text too.
const std::vector<Verdict> verdicts = {
    {"1970-01-01T00:00:00Z", 0},
    {"1970-01-01T00:00:01Z", 1},
    {"1969-12-31T23:59:59Z", -1},
    {"2025-01-05T10:00:00Z", 1736071200},
    {"2025-01-05T10:00:00+00:00", 1736071200},
    {"2025-01-05T10:00:00-00:00", 1736071200},
    {"2025-01-05T10:00:00+0000", 1736071200},
    {"2025-01-05T11:00:00+01:00", 1736071200},
    {"2025-01-05T11:00:00+0100", 1736071200},
    {"2025-01-05T05:00:00-05:00", 1736071200},
    {"2025-01-05T15:30:00+05:30", 1736071200},
    {"2025-01-05T06:30:00-0330", 1736071200},
    {"2025-01-05T10:00:00+23:59", 1735984860},
    {"2025-01-05T10:00:00-23:59", 1736157540},
    {"2000-02-29T12:34:56Z", 951827696},
    {"2024-02-29T00:00:00Z", 1709164800},
    {"2024-12-31T23:59:59Z", 1735689599},
    {"2038-01-19T03:14:08Z", 2147483648},
    {"1582-10-10T00:00:00Z", -12219724800},
    {"0001-01-01T00:00:00Z", -62135596800},
    {"0001-01-01T00:00:00+01:00", -62135600400},
    {"9999-12-31T23:59:59Z", 253402300799},
    {"9999-12-31T23:59:59-01:00", 253402304399},

    {"", unreadable},
    {"yesterday", unreadable},
    {"2025-01-05", unreadable},
    {"2025-01-05T10:00:00", unreadable},
    {"2025-01-05T10:00Z", unreadable},
    {"2025-01-05T10Z", unreadable},
    {"10:00:00Z", unreadable},
    {"2025-01-05T10:00:00.250Z", unreadable},
    {"2025-01-05T10:00:00.Z", unreadable},
    {"2025-01-05T10:00:00,5Z", unreadable},
    {"2025-01-05t10:00:00Z", unreadable},
    {"2025-01-05T10:00:00z", unreadable},
    {"2025-01-05 10:00:00Z", unreadable},
    {" 2025-01-05T10:00:00Z", unreadable},
    {"2025-01-05T10:00:00Z ", unreadable},
    {"2025-01-05T10:00:00Z\n", unreadable},
    {"2025-01-05T10:00:00 Z", unreadable},
    {"2025-01-05T10:00:00ZZ", unreadable},
    {"2025-01-05T10:00:00Z\0"s, unreadable},
    {"\xEF\xBB\xBF"
     "2025-01-05T10:00:00Z",
     unreadable},
    {"2025-01-05T10:00:00+02", unreadable},
    {"2025-01-05T10:00:00+2", unreadable},
    {"2025-01-05T10:00:00+2:00", unreadable},
    {"2025-01-05T10:00:00+020", unreadable},
    {"2025-01-05T10:00:00+02:", unreadable},
    {"2025-01-05T10:00:00+02:0", unreadable},
    {"2025-01-05T10:00:00+02:00:00", unreadable},
    {"2025-01-05T10:00:00+020000", unreadable},
    {"2025-01-05T10:00:00+24:00", unreadable},
    {"2025-01-05T10:00:00+25:00", unreadable},
    {"2025-01-05T10:00:00+02:60", unreadable},
    {"2025-01-05T10:00:00\u221202:00", unreadable},
    {"2025-01-05T10:00:00GMT", unreadable},
    {"2025-01-05T10:00:00UTC", unreadable},
    {"2025-01-05T10:00:00Z+02:00", unreadable},
    {"2025-01-05T10:00:00+02:00Z", unreadable},
    {"2025-01-05T24:00:00Z", unreadable},
    {"2025-01-05T23:60:00Z", unreadable},
    {"2025-01-05T23:59:60Z", unreadable},
    {"2016-12-31T23:59:60Z", unreadable},
    {"2025-1-05T10:00:00Z", unreadable},
    {"2025-01-5T10:00:00Z", unreadable},
    {"2025-01-05T9:00:00Z", unreadable},
    {"2025-00-05T10:00:00Z", unreadable},
    {"2025-13-05T10:00:00Z", unreadable},
    {"2025-01-00T10:00:00Z", unreadable},
    {"2025-01-32T10:00:00Z", unreadable},
    {"2025-04-31T10:00:00Z", unreadable},
    {"2025-02-29T10:00:00Z", unreadable},
    {"2025-02-30T10:00:00Z", unreadable},
    {"1900-02-29T00:00:00Z", unreadable},
    {"2100-02-29T00:00:00Z", unreadable},
    {"0000-01-01T00:00:00Z", unreadable},
    {"10000-01-01T00:00:00Z", unreadable},
    {"-2025-01-05T10:00:00Z", unreadable},
    {"+2025-01-05T10:00:00Z", unreadable},
    {"+02025-01-05T10:00:00Z", unreadable},
    {"025-01-05T10:00:00Z", unreadable},
    {"20250105T100000Z", unreadable},
    {"2025-01-05T100000Z", unreadable},
    {"20250105T10:00:00Z", unreadable},
    {"2025-005T10:00:00Z", unreadable},
    {"2025-W01-7T10:00:00Z", unreadable},
    {"2025/01/05T10:00:00Z", unreadable},
    {"2025-01-05T10.00.00Z", unreadable},
    {"\u0662\u0660\u0662\u0665-01-05T10:00:00Z", unreadable},
    {"2025-01-05T10:00:0\uFF10Z", unreadable},
    {"Sun, 05 Jan 2025 10:00:00 GMT", unreadable},
    {"1736071200", unreadable},
};

TEST(InternetDateTime, IsReadOrRefusedAsInTheTable) {
  ASSERT_GE(verdicts.size(), 60U);
  for (const Verdict& verdict : verdicts)
    EXPECT_EQ(read(verdict.text), verdict.seconds) << verdict.text;
}

class Mutations : public ::testing::TestWithParam<std::string> {};

TEST_P(Mutations, TextsWithOneChangedCharacterAreReadByTheGrammar) {
  const std::string& valid = GetParam();
  ASSERT_TRUE(read(valid).has_value());
  std::size_t readable = 0;
  std::size_t all = 0;
  const auto compare = [&](const std::string& text) {
    const std::optional<std::int64_t> expected = readByGrammar(text);
    EXPECT_EQ(read(text), expected) << '"' << text << '"';
    ++all;
    if (expected) ++readable;
  };
  for (std::size_t place = 0; place <= valid.size(); ++place) {
    for (int byte = 0; byte < 256; ++byte) {
      const auto character = static_cast<char>(byte);
      compare(std::string(valid).insert(place, 1, character));
      if (place < valid.size()) compare(std::string(valid).replace(place, 1, 1, character));
    }
    if (place < valid.size()) compare(std::string(valid).erase(place, 1));
  }
  EXPECT_GT(all, 10000U);
  EXPECT_GT(readable, 30U) << "other digits are as good";
  EXPECT_LT(readable, 200U);
}

INSTANTIATE_TEST_SUITE_P(InternetDateTime, Mutations,
                         ::testing::Values("2025-01-05T10:00:00Z", "2024-02-29T23:59:59+05:30",
                                           "1900-11-30T00:00:00-0330"));

TEST(InternetDateTime, EveryDayOfTheCalendarIsCounted) {
  constexpr std::array<int, 12> longest = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  std::int64_t day = -719162;  // 0001-01-01
  for (int year = 1; year <= 9999; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int date = 1; date <= longest[static_cast<std::size_t>(month) - 1]; ++date) {
        std::array<char, 24> text{};
        std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT00:00:00Z", year & 0x3FFF,
                      month & 0xF, date & 0x1F);
        const bool isLeapDay = month == 2 && date == 29;
        const bool isThere = !isLeapDay || year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
        const auto expected = isThere ? std::optional(day++ * 86400) : unreadable;
        if (read(text.data()) != expected) FAIL() << text.data();
      }
    }
  }
  EXPECT_EQ(day, 2932897) << "10000-01-01";
}

}  // namespace
}  // namespace vemra::testing
