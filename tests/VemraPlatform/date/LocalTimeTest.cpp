#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "VemraPlatform/date/TimeZoneRule.hpp"
#include "tests/VemraPlatform/date/Environment.hpp"

#include <array>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

#include <gtest/gtest.h>
#include <unicode/strenum.h>
#include <unicode/timezone.h>

// Local time as the C library computes it for a TZ, and so as the rest of the machine shows it.

namespace vemra::testing {
namespace {

namespace fs = std::filesystem;

const fs::path zoneinfo = "/usr/share/zoneinfo";

/// Runs the C library and our own code under one TZ.
class LocalTime {
 public:
  explicit LocalTime(const std::string& setting)
      : environment_("TZ", setting), timeZone_(date::systemTimeZone()) {
    tzset();
  }

  /// Compares our dates with the C library's for the last second before the local midnight next to
  /// an instant and for that midnight: an offset that is wrong by any number of seconds gives a
  /// wrong date at one of the two. Returns the differences, or "".
  std::string differenceAround(std::time_t instant) const {
    const std::time_t offset = fields(instant).tm_gmtoff;
    const std::time_t sinceMidnight = ((instant + offset) % 86400 + 86400) % 86400;
    std::string difference;
    for (const std::time_t second : {instant - sinceMidnight - 1, instant - sinceMidnight}) {
      const std::string ours = date::abbreviatedDate({second}, "en_US", timeZone_);
      const std::string expected = written(fields(second));
      if (ours != expected) {
        difference += std::to_string(second) + ": " + ours + " instead of " + expected + "; ";
      }
    }
    return difference;
  }

 private:
  static std::tm fields(std::time_t instant) {
    std::tm local{};
    localtime_r(&instant, &local);
    return local;
  }

  static std::string written(const std::tm& local) {
    constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return std::string(months.at(static_cast<std::size_t>(local.tm_mon))) + " " +
           std::to_string(local.tm_mday) + ", " + std::to_string(local.tm_year + 1900);
  }

  Environment environment_;
  std::string timeZone_;
};

class Instants {
 public:
  Instants(int firstYear, int lastYear) : seconds_(date(firstYear), date(lastYear)) {}
  std::time_t next() { return seconds_(random_); }

 private:
  static std::time_t date(int year) { return static_cast<std::time_t>((year - 1970) * 31556952LL); }

  std::mt19937_64 random_{20250105};
  std::uniform_int_distribution<std::time_t> seconds_;
};

/// The names of the files below the zoneinfo folder that are time zones, those that count leap
/// seconds left out.
std::vector<std::string> zoneNames() {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(zoneinfo)) {
    const std::string name = entry.path().lexically_relative(zoneinfo).string();
    if (!entry.is_regular_file() || name.starts_with("right/")) continue;
    std::array<char, 4> magic{};
    std::ifstream(entry.path()).read(magic.data(), magic.size());
    if (std::string_view(magic.data(), magic.size()) == "TZif") names.push_back(name);
  }
  return names;
}

TEST(LocalTime, IsThatOfTheCLibraryInEveryZoneOfTheMachine) {
  const std::vector<std::string> names = zoneNames();
  ASSERT_GE(names.size(), 400U);
  Instants instants(1900, 2400);
  std::size_t compared = 0;
  for (const std::string& name : names) {
    const std::string path = (zoneinfo / name).string();
    for (const std::string& setting : {name, ":" + name, path, ":" + path}) {
      const LocalTime local(setting);
      for (int round = 0; round < 8; ++round, compared += 2) {
        EXPECT_EQ(local.differenceAround(instants.next()), "") << setting;
      }
    }
  }
  EXPECT_GE(compared, 10000U);
}

TEST(LocalTime, IsThatOfTheCLibraryUnderANameThatOnlyICUHas) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::StringEnumeration> names(
      icu::TimeZone::createTimeZoneIDEnumeration(UCAL_ZONE_TYPE_ANY, nullptr, nullptr, status));
  ASSERT_TRUE(U_SUCCESS(status));
  Instants instants(1900, 2400);
  int compared = 0;
  while (const char* name = names->next(nullptr, status)) {
    // To the C library, Etc/Unknown is a name like any other that it does not have.
    if (fs::exists(zoneinfo / name) || !date::isKnownTimeZone(name)) continue;
    // PST8PDT and two more, where they have no files: a rule without dates, see below.
    if (date::TimeZoneRule::parse(name)) continue;
    const LocalTime local(name);
    for (int round = 0; round < 8; ++round, ++compared) {
      EXPECT_EQ(local.differenceAround(instants.next()), "") << name;
    }
  }
  EXPECT_GE(compared, 100) << "JST, IST, PST and the like";
}

TEST(LocalTime, IsThatOfTheCLibraryUnderARule) {
  Instants instants(1980, 2400);
  for (const char* rule :
       {"CET-1CEST,M3.5.0,M10.5.0/3", "<+0330>-3:30<+0430>,J79/24,J263/24",
        "EST5EDT4,M3.2.0,M11.1.0", "UTC-3", "<+0530>-5:30", "XYZ+5:45:30",
        "AEST-10AEDT,M10.1.0,M4.1.0/3", "NZST-12NZDT,M9.5.0,M4.1.0/3",
        "<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45", "IST-1GMT0,M10.5.0,M3.5.0/1",
        "EET-2EEST,M3.4.4/50,M10.4.4/50", "<-02>2<-01>,M3.5.0/-1,M10.5.0/0", "XXX3YYY,59,300",
        "XXX3YYY,J60,J300", "XXX-14YYY-15:30,M2.1.6/-167,M11.5.3/+167:59:59",
        "STD24DST-24:59:59,100/0,200/0", "<A+1>+0<B-2>2:30,J100/3:15,250/4:5:6"}) {
    const LocalTime local(rule);
    for (int round = 0; round < 300; ++round) {
      EXPECT_EQ(local.differenceAround(instants.next()), "") << rule;
    }
  }
}

/// Those of the C library come from a file, `posixrules`, with the dates of other years;
/// after 2037 it takes New York's offset from there as well.
TEST(LocalTime, UnderARuleWithoutDatesUsesTheDatesOfTheUnitedStates) {
  Instants instants(1970, 2400);
  for (const char* rule : {"CET-1CEST", "EST5EDT4", "<+0330>-3:30<+0430>", "XXX3YYY-15:30"}) {
    const std::string dated = std::string(rule) + ",M3.2.0/2,M11.1.0/2:00:00";
    for (int round = 0; round < 300; ++round) {
      const std::time_t instant = instants.next();
      for (int hour = 0; hour < 24; ++hour) {
        const date::Instant at{instant + hour * 3600};
        EXPECT_EQ(date::abbreviatedDate(at, "en_US", rule),
                  date::abbreviatedDate(at, "en_US", dated));
      }
    }
  }
}

}  // namespace
}  // namespace vemra::testing
