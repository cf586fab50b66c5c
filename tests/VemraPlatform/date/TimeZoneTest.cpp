#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "VemraPlatform/date/SystemTimeZone.hpp"
#include "VemraPlatform/date/TimeZone.hpp"
#include "tests/VemraPlatform/date/Environment.hpp"

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using namespace std::string_literals;

TEST(KnownTimeZone, IsANameOfTheDatabase) {
  for (const char* timeZone :
       {"UTC", "GMT", "Etc/UTC", "Europe/Berlin", "America/St_Johns", "US/Pacific",
        "America/Argentina/Buenos_Aires", "EST5EDT", "Etc/GMT-2"}) {
    EXPECT_TRUE(date::isKnownTimeZone(timeZone)) << timeZone;
  }
}

TEST(KnownTimeZone, IsNoOtherText) {
  std::vector<std::string> timeZones = {
      "",       "Mars/Olympus",  "Etc/Unknown",    "GMT+2",          "GMT+02:00",
      "+02:00", "europe/berlin", ":Europe/Berlin", "Europe/Berlin ", "Europe",
      "UTC\0"s, "\xFF",          "CET-1CEST",      "Europe//Berlin"};
  timeZones.emplace_back(10000, 'a');
  for (const std::string& timeZone : timeZones) {
    EXPECT_FALSE(date::isKnownTimeZone(timeZone)) << timeZone.substr(0, 100);
  }
}

std::string systemTimeZone(const std::optional<std::string>& setting) {
  const Environment environment("TZ", setting);
  return date::systemTimeZone();
}

TEST(SystemTimeZone, IsTheTimeZoneInTZ) {
  EXPECT_EQ(systemTimeZone("Europe/Berlin"), "Europe/Berlin");
  EXPECT_EQ(systemTimeZone(":Asia/Tokyo"), "Asia/Tokyo");
  EXPECT_EQ(systemTimeZone("/usr/share/zoneinfo/America/New_York"), "America/New_York");
  EXPECT_EQ(systemTimeZone("UTC"), "UTC");
}

TEST(SystemTimeZone, OfANameThatOnlyICUHasIsUTC) {
  ASSERT_TRUE(date::isKnownTimeZone("JST"));
  EXPECT_EQ(systemTimeZone("JST"), "UTC");
  EXPECT_EQ(systemTimeZone(":IST"), "UTC");
}

TEST(SystemTimeZone, IsUTCWhenTZIsEmpty) {
  EXPECT_EQ(systemTimeZone(""), "UTC");
  EXPECT_EQ(systemTimeZone(":"), "UTC");
}

TEST(SystemTimeZone, FollowsAPathToTheZoneOfTheFile) {
  const std::string system = systemTimeZone(std::nullopt);
  EXPECT_EQ(systemTimeZone("/etc/localtime"), system);
  EXPECT_EQ(systemTimeZone(":/etc/localtime"), system);
  EXPECT_EQ(systemTimeZone("../../../etc/localtime"), system);
  EXPECT_EQ(systemTimeZone("/usr/share/zoneinfo/posix/Asia/Tokyo"), "Asia/Tokyo");
  EXPECT_EQ(systemTimeZone(":/usr/share/zoneinfo/right/Asia/Tokyo"), "Asia/Tokyo");
  EXPECT_EQ(systemTimeZone("posix/Asia/Tokyo"), "Asia/Tokyo");
  EXPECT_EQ(systemTimeZone(":right/Asia/Tokyo"), "Asia/Tokyo");
  EXPECT_EQ(systemTimeZone("/usr/share/zoneinfo//Asia/../Asia/Tokyo"), "Asia/Tokyo");
  EXPECT_EQ(systemTimeZone("Asia//Tokyo"), "Asia/Tokyo");
}

TEST(SystemTimeZone, OfAPOSIXRuleIsTheRule) {
  for (const char* rule : {"UTC-3", "JST-9", "XYZ+5", "<+0530>-5:30", "CET-1CEST",
                           "CET-1CEST,M3.5.0,M10.5.0/3", "EST5EDT,M3.2.0,M11.1.0"}) {
    EXPECT_EQ(systemTimeZone(rule), rule);
    EXPECT_EQ(systemTimeZone(std::string(":") + rule), rule);
  }
}

TEST(SystemTimeZone, IsTheSystemsWhenTZCannotBeRead) {
  const std::string system = systemTimeZone(std::nullopt);
  for (const char* setting :
       {"Mars/Olympus", "UTC-99", "<+03", "AB-3", "UTC-3:77", "\xFF", ",", "Europe",
        "/usr/share/zoneinfo/Europe", "/nowhere", "/dev/null", "/etc/hostname", "tzdata.zi",
        "CET-1CEST,M3.5.0", "CET-1CEST,M3.5.0,M10.5.0/3,"}) {
    EXPECT_EQ(systemTimeZone(setting), system) << setting;
  }
}

TEST(SystemTimeZone, IsKnownOrARule) {
  EXPECT_TRUE(date::isKnownTimeZone(systemTimeZone(std::nullopt)));
}

}  // namespace
}  // namespace vemra::testing
