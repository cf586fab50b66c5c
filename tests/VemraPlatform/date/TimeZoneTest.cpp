#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "VemraPlatform/date/TimeZone.hpp"
#include "tests/VemraPlatform/date/Environment.hpp"

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using namespace std::string_literals;

TEST(KnownTimeZone, isANameOfTheDatabase) {
  for (const char* timeZone :
       {"UTC", "GMT", "Etc/UTC", "Europe/Berlin", "America/St_Johns", "US/Pacific",
        "America/Argentina/Buenos_Aires", "EST5EDT", "Etc/GMT-2"}) {
    EXPECT_TRUE(date::isKnownTimeZone(timeZone)) << timeZone;
  }
}

TEST(KnownTimeZone, isNothingElse) {
  std::vector<std::string> timeZones = {
      "",       "Mars/Olympus",  "Etc/Unknown",    "GMT+2",          "GMT+02:00",
      "+02:00", "europe/berlin", ":Europe/Berlin", "Europe/Berlin ", "Europe",
      "UTC\0"s, "\xFF",          "CET-1CEST"};
  timeZones.emplace_back(10000, 'a');
  for (const std::string& timeZone : timeZones) {
    EXPECT_FALSE(date::isKnownTimeZone(timeZone)) << timeZone.substr(0, 100);
  }
}

std::string systemTimeZone(const std::optional<std::string>& setting) {
  const Environment environment("TZ", setting);
  return date::systemTimeZone();
}

TEST(SystemTimeZone, isTheOneOfTZ) {
  EXPECT_EQ(systemTimeZone("Europe/Berlin"), "Europe/Berlin");
  EXPECT_EQ(systemTimeZone(":Asia/Tokyo"), "Asia/Tokyo");
  EXPECT_EQ(systemTimeZone("/usr/share/zoneinfo/America/New_York"), "America/New_York");
  EXPECT_EQ(systemTimeZone("EST5EDT,M3.2.0,M11.1.0"), "EST5EDT");
  EXPECT_EQ(systemTimeZone("UTC"), "UTC");
  EXPECT_EQ(systemTimeZone(""), "UTC");
}

TEST(SystemTimeZone, ofAPOSIXRuleIsItsStandardTime) {
  EXPECT_EQ(systemTimeZone("UTC-3"), "GMT+03:00") << "POSIX counts westward";
  EXPECT_EQ(systemTimeZone("JST-9"), "GMT+09:00");
  EXPECT_EQ(systemTimeZone("XYZ+5"), "GMT-05:00");
  EXPECT_EQ(systemTimeZone("<+0530>-5:30"), "GMT+05:30");
  EXPECT_EQ(systemTimeZone("CET-1CEST,M3.5.0,M10.5.0/3"), "GMT+01:00");
  const date::Instant lateEvening{*date::parseInternetDateTime("2025-01-05T23:30:00Z")};
  EXPECT_EQ(date::abbreviatedDate(lateEvening, "en_US", systemTimeZone("CET-1CEST")),
            "Jan 6, 2025");
}

TEST(SystemTimeZone, isKnownWhateverTZSays) {
  for (const char* setting :
       {"Mars/Olympus", "UTC-99", "<+03", "AB-3", "UTC-3:77", "\xFF", ":", ","}) {
    EXPECT_TRUE(date::isKnownTimeZone(systemTimeZone(setting))) << setting;
  }
  EXPECT_TRUE(date::isKnownTimeZone(systemTimeZone(std::nullopt)));
}

}  // namespace
}  // namespace vemra::testing
