#include "VemraPlatform/date/TimeZone.hpp"
#include "VemraPlatform/date/ZoneinfoFolder.hpp"

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using date::zoneOfDatabase;

TEST(ZoneOfDatabase, OnAMachineWithoutTimeZoneFilesIsNil) {
  EXPECT_TRUE(zoneOfDatabase("Asia/Tokyo"));
  EXPECT_FALSE(zoneOfDatabase("Asia/Tokyo", "/no/such/zoneinfo"));
}

TEST(ZoneOfDatabase, HasAName) {
  for (const char* name : {"Asia/Tokyo", "GMT", "Etc/Zulu", "America/Port-au-Prince", "Etc/GMT+9",
                           "America/Argentina/Buenos_Aires"}) {
    EXPECT_TRUE(zoneOfDatabase(name)) << name;
  }
  EXPECT_TRUE(date::isKnownTimeZone("America/Coyhaique")) << "younger than ICU's database";
}

TEST(ZoneOfDatabase, IsNoOtherFile) {
  for (const char* name :
       {"", "localtime", "posixrules", "posix/Asia/Tokyo", "right/Asia/Tokyo", "tzdata.zi",
        "zone.tab", "Asia", "Asia/", "/usr/share/zoneinfo/UTC", "Asia/../Asia/Tokyo",
        "Asia/./Tokyo", "Asia//Tokyo", "Asia/Tokyo/", "Asia/Tokyo ", "asia/Tokyo"}) {
    EXPECT_FALSE(zoneOfDatabase(name)) << name;
  }
}

}  // namespace
}  // namespace vemra::testing
