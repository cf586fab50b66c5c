#include "VemraPlatform/date/TimeZoneRule.hpp"

#include <limits>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using date::Instant;
using date::TimeZoneRule;

constexpr int hour = 3600;

std::optional<int> aheadAt(const std::string& rule, const std::string& instant) {
  const auto parsed = TimeZoneRule::parse(rule);
  const auto read = date::parseInternetDateTime(instant);
  return parsed && read ? std::optional(parsed->secondsAheadOfUTC(*read)) : std::nullopt;
}

/// The offset of a rule without summer time.
std::optional<int> ahead(const std::string& rule) {
  return aheadAt(rule, "2025-01-05T00:00:00Z");
}

/// Whether summer time of +1 begins, or ends, exactly at an instant.
bool changesAt(const std::string& rule, const std::string& instant) {
  const auto parsed = TimeZoneRule::parse(rule);
  const auto read = date::parseInternetDateTime(instant);
  if (!parsed || !read) return false;
  return parsed->secondsAheadOfUTC(*read) !=
         parsed->secondsAheadOfUTC({read->secondsSinceEpoch - 1});
}

TEST(TimeZoneRule, CountsWestward) {
  EXPECT_EQ(ahead("JST-9"), 9 * hour);
  EXPECT_EQ(ahead("XYZ5"), -5 * hour);
  EXPECT_EQ(ahead("XYZ+5"), -5 * hour);
  EXPECT_EQ(ahead("XYZ0"), 0);
  EXPECT_EQ(ahead("<+0530>-5:30"), 5 * hour + 1800);
  EXPECT_EQ(ahead("XYZ05:06:07"), -(5 * hour + 6 * 60 + 7));
  EXPECT_EQ(ahead("XYZ5:6:7"), -(5 * hour + 6 * 60 + 7));
  EXPECT_EQ(ahead("XYZ-24:59:59"), 24 * hour + 3599);
}

TEST(TimeZoneRule, NamesHaveThreeLettersOrMore) {
  EXPECT_EQ(ahead("abZ-1"), hour);
  EXPECT_EQ(ahead("Zaz-1"), hour);
  EXPECT_EQ(ahead("AzA-1"), hour);
  EXPECT_EQ(ahead("ABCDEFGHIJKLMNOP-1"), hour);
  EXPECT_EQ(ahead("<a0z>-1"), hour);
  EXPECT_EQ(ahead("<9+->-1"), hour);
  for (const char* rule : {"",       "AB-1",    "-1",      "1",       "<>-1",
                           "<+1>-1", "<+01-1",  "<+01",    "+01>-1",  "A1B-1",
                           "A+B-1",  "<A_B>-1", "<A B>-1", "[AB-1",   "@AB-1",
                           "`ab-1",  "{ab-1",   "<A/B>-1", "<A:B>-1", "\xC3\x84\xC3\x84-1"}) {
    EXPECT_EQ(ahead(rule), std::nullopt) << rule;
  }
}

TEST(TimeZoneRule, HasAnOffsetInBounds) {
  EXPECT_EQ(ahead("XYZ24"), -24 * hour);
  EXPECT_EQ(ahead("XYZ-0:59:59"), 3599);
  for (const char* rule : {"XYZ",
                           "XYZ-",
                           "XYZ+",
                           "XYZ--1",
                           "XYZ+-1",
                           "XYZ 1",
                           "XYZ25",
                           "XYZ-25",
                           "XYZ001",
                           "XYZ1:",
                           "XYZ1:60",
                           "XYZ1:2:",
                           "XYZ1:2:60",
                           "XYZ1:2:3:4",
                           "XYZ1:002",
                           "XYZ1:-2",
                           "XYZ1,",
                           "XYZ1 ",
                           "XYZ1,M3.5.0,M10.5.0",
                           "XYZ/1",
                           "XYZ1A",
                           "XYZ1AB",
                           "XYZ1ABC-",
                           "XYZ1ABC25",
                           "XYZ1ABC2 "}) {
    EXPECT_EQ(ahead(rule), std::nullopt) << rule;
  }
}

TEST(TimeZoneRule, SummerTimeIsAnHourAheadByDefault) {
  const std::string dates = ",M3.5.0,M10.5.0";
  EXPECT_EQ(aheadAt("CET-1CEST" + dates, "2025-07-01T00:00:00Z"), 2 * hour);
  EXPECT_EQ(aheadAt("CET-1CEST-3:30" + dates, "2025-07-01T00:00:00Z"), 3 * hour + 1800);
  EXPECT_EQ(aheadAt("CET-1CEST0" + dates, "2025-07-01T00:00:00Z"), 0);
  EXPECT_EQ(aheadAt("CET-1<+02>" + dates, "2025-07-01T00:00:00Z"), 2 * hour);
  EXPECT_EQ(aheadAt("CET-1CEST" + dates, "2025-01-01T00:00:00Z"), hour);
}

TEST(TimeZoneRule, ChangesOnAWeekdayOfAMonth) {
  // In 2025 March begins with a Saturday and has five Sundays, November begins with a Saturday.
  EXPECT_TRUE(changesAt("XXX0YYY,M3.5.0,M11.1.6", "2025-03-30T02:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,M3.5.0,M11.1.6", "2025-11-01T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,M3.1.6,M11.1.0", "2025-03-01T02:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,M3.1.6,M11.1.0", "2025-11-02T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,M3.4.0,M12.5.3", "2025-03-23T02:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,M3.4.0,M12.5.3", "2025-12-31T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,M01.2.1,M2.5.5", "2025-01-13T02:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,M01.2.1,M2.5.5", "2025-02-28T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,M2.5.4,M4.3.2", "2024-02-29T02:00:00Z"));
}

TEST(TimeZoneRule, ChangesOnADayOfTheYear) {
  // With `J`, days count from one and omit 29 February; without it, they count from zero and
  // include it.
  EXPECT_TRUE(changesAt("XXX0YYY,J59,J60", "2024-02-28T02:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J59,J60", "2024-03-01T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J59,J60", "2025-02-28T02:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J59,J60", "2025-03-01T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,58,59", "2024-02-28T02:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,58,59", "2024-02-29T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,58,59", "2025-03-01T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J1,J365", "2024-01-01T02:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J1,J365", "2024-12-31T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,0,365", "2024-01-01T02:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,0,365", "2024-12-31T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,0/3,365", "2026-01-01T01:00:00Z")) << "day 366 of 2025";
}

TEST(TimeZoneRule, ChangesAtALocalTimeOfDay) {
  EXPECT_TRUE(changesAt("XXX0YYY,J100/0,J200/24", "2025-04-10T00:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J100/0,J200/24", "2025-07-19T23:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J100/-1:2:3,J200/+4:05:06", "2025-04-09T22:57:57Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J100/-1:2:3,J200/+4:05:06", "2025-07-19T03:05:06Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J100/167,J200/-167:59:59", "2025-04-16T23:00:00Z"));
  EXPECT_TRUE(changesAt("XXX0YYY,J100/167,J200/-167:59:59", "2025-07-11T23:00:01Z"));
  EXPECT_TRUE(changesAt("XXX-3YYY-5,J100/4,J200/4", "2025-04-10T01:00:00Z"));
  EXPECT_TRUE(changesAt("XXX-3YYY-5,J100/4,J200/4", "2025-07-18T23:00:00Z"));
}

TEST(TimeZoneRule, HasTwoDatesInBounds) {
  for (const char* dates : {",",
                            ",M3.5.0",
                            ",M3.5.0,",
                            ",M3.5.0,M10.5.0,",
                            ",M3.5.0,M10.5.0 ",
                            "M3.5.0,M10.5.0",
                            ",M3.5.0 M10.5.0",
                            ",M0.5.0,M10.5.0",
                            ",M13.5.0,M10.5.0",
                            ",M3.0.0,M10.5.0",
                            ",M3.6.0,M10.5.0",
                            ",M3.5.7,M10.5.0",
                            ",M3.5,M10.5.0",
                            ",M3,M10.5.0",
                            ",M.5.0,M10.5.0",
                            ",M3.5.,M10.5.0",
                            ",M3..0,M10.5.0",
                            ",M003.5.0,M10.5.0",
                            ",M3.05.0,M10.5.0",
                            ",m3.5.0,M10.5.0",
                            ",J0,J9",
                            ",J366,J9",
                            ",J,J9",
                            ",J0001,J9",
                            ",366,9",
                            ",-1,9",
                            ",1,9/168",
                            ",1,9/-168",
                            ",1,9/",
                            ",1,9/1:60",
                            ",1,9/0001",
                            ",1/,9",
                            ",1/168,9"}) {
    EXPECT_FALSE(TimeZoneRule::parse(std::string("XXX0YYY") + dates)) << dates;
  }
}

TEST(TimeZoneRule, SouthOfTheEquatorSummerTimeGoesOverNewYear) {
  const std::string sydney = "AEST-10AEDT,M10.1.0,M4.1.0/3";
  EXPECT_EQ(aheadAt(sydney, "2024-12-31T23:59:59Z"), 11 * hour);
  EXPECT_EQ(aheadAt(sydney, "2025-01-01T00:00:00Z"), 11 * hour);
  EXPECT_EQ(aheadAt(sydney, "2025-07-01T00:00:00Z"), 10 * hour);
  EXPECT_TRUE(changesAt(sydney, "2025-04-05T16:00:00Z"));
  EXPECT_TRUE(changesAt(sydney, "2025-10-04T16:00:00Z"));
}

TEST(TimeZoneRule, SummerTimeMayLastAllYearOrNever) {
  for (const char* instant :
       {"2024-12-31T23:59:59Z", "2025-01-01T00:00:00Z", "2025-01-01T03:59:59Z",
        "2025-01-01T04:00:00Z", "2025-07-01T00:00:00Z", "2025-12-31T23:59:59Z"}) {
    EXPECT_EQ(aheadAt("XXX3EDT4,0/0,J365/23", instant), -4 * hour) << instant;
    EXPECT_EQ(aheadAt("XXX3YYY,J100/2,J100/3", instant), -3 * hour) << instant;
  }
}

TEST(TimeZoneRule, MayChangeInTheYearBefore) {
  // Begins on 25 December by UTC, as a week before 1 January, and ends a week before 2 January.
  const std::string rule = "XXX0YYY,J1/-167,J2/-166";
  EXPECT_TRUE(changesAt(rule, "2024-12-25T01:00:00Z"));
  EXPECT_EQ(aheadAt(rule, "2024-12-25T01:00:00Z"), hour);
  EXPECT_TRUE(changesAt(rule, "2024-12-26T01:00:00Z"));
  EXPECT_EQ(aheadAt(rule, "2024-12-26T01:00:00Z"), 0);
}

TEST(TimeZoneRule, MayEndInTheYearAfterNext) {
  // The summer time that the rule begins in 2023 starts on 6 January 2024; the end that the rule
  // has for 2024 is on 6 January 2025.
  const std::string rule = "XXX0YYY,J365/167,J365/166";
  EXPECT_EQ(aheadAt(rule, "2025-01-03T00:00:00Z"), hour);
  EXPECT_TRUE(changesAt(rule, "2025-01-06T21:00:00Z"));
  EXPECT_EQ(aheadAt(rule, "2025-01-06T22:00:00Z"), 0);
  EXPECT_TRUE(changesAt(rule, "2025-01-06T23:00:00Z"));
}

TEST(TimeZoneRule, AppliesToEveryYear) {
  const std::string rule = "CET-1CEST,M3.5.0,M10.5.0/3";
  EXPECT_TRUE(changesAt(rule, "1969-03-30T01:00:00Z"));
  EXPECT_TRUE(changesAt(rule, "0001-03-25T01:00:00Z"));
  EXPECT_TRUE(changesAt(rule, "9999-10-31T01:00:00Z"));
  EXPECT_TRUE(changesAt(rule, "1970-10-25T01:00:00Z"));
  EXPECT_TRUE(changesAt(rule, "2369-03-30T01:00:00Z"));
  EXPECT_TRUE(changesAt(rule, "2370-03-29T01:00:00Z"));
  const auto parsed = TimeZoneRule::parse(rule);
  for (const std::int64_t end :
       {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
    const int offset = parsed->secondsAheadOfUTC({end});
    EXPECT_TRUE(offset == hour || offset == 2 * hour) << offset;
  }
}

}  // namespace
}  // namespace vemra::testing
