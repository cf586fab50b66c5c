#include "Environment.hpp"
#include "VemraPlatform/date/TimeZone.hpp"

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

TEST(SystemTimeZone, isKnownWhateverTZSays) {
  for (const char* setting : {"Mars/Olympus", "CET-1CEST,M3.5.0,M10.5.0/3", "\xFF", ":", ","}) {
    EXPECT_TRUE(date::isKnownTimeZone(systemTimeZone(setting))) << setting;
  }
  EXPECT_TRUE(date::isKnownTimeZone(systemTimeZone(std::nullopt)));
}

}  // namespace
}  // namespace vemra::testing
