#include "VemraPlatform/date/SystemTimeZone.hpp"

#include "VemraPlatform/date/TimeZoneSetting.hpp"

#include <cstdlib>
#include <utility>

namespace vemra::date {

std::string systemTimeZone() {
  if (const char* setting = std::getenv("TZ")) {
    if (auto zone = zoneOfSetting(*setting == ':' ? setting + 1 : setting)) return *std::move(zone);
  }
  return zoneOfPath("/etc/localtime").value_or("UTC");
}

}  // namespace vemra::date
