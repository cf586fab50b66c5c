#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "tests/VemraPlatform/date/Environment.hpp"
#include "tests/VemraPlatform/date/ReleaseOfCLDR.hpp"

#include <fstream>
#include <limits>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using date::abbreviatedDate;

std::string written(const std::string& instant, const std::string& locale,
                    const std::string& timeZone = "UTC") {
  const std::optional<date::Instant> read = date::parseInternetDateTime(instant);
  return read ? abbreviatedDate(*read, locale, timeZone) : "unreadable: " + instant;
}

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

TEST(AbbreviatedDate, IsWhatPeopleOfTheLocaleWrite) {
  const auto day = [](const std::string& locale) {
    return written("2025-01-05T10:00:00Z", locale);
  };
  EXPECT_EQ(day("en_US"), "Jan 5, 2025");
  EXPECT_EQ(day("en_GB"), "5 Jan 2025");
  EXPECT_EQ(day("de_DE"), "5. Jan. 2025");
  EXPECT_EQ(day("fr_FR"), "5 janv. 2025");
  EXPECT_EQ(day("es_ES"), "5 ene 2025");
  EXPECT_EQ(day("pt_PT"), "5/01/2025");
  EXPECT_EQ(day("ja_JP"), "2025年1月5日");
  EXPECT_EQ(day("ko_KR"), "2025년 1월 5일");
  EXPECT_EQ(day("he_IL"), "5 בינו׳ 2025");
}

TEST(AbbreviatedDate, UsesTheCalendarAndTheDigitsOfTheLocale) {
  const auto day = [](const std::string& locale) {
    return written("2025-01-05T10:00:00Z", locale);
  };
  EXPECT_EQ(day("th_TH"), "5 ม.ค. 2568");
  EXPECT_EQ(day("fa_IR"), "۱۶ دی ۱۴۰۳");
  EXPECT_EQ(day("ar_EG"), "٥ يناير ٢٠٢٥");
}

TEST(AbbreviatedDate, UsesTheCalendarOfTheRequestedRegion) {
  EXPECT_EQ(written("2025-01-05T10:00:00Z", "en-US-u-rg-thzzzz"), "Jan 5, 2568 BE");
  EXPECT_EQ(written("2025-01-05T10:00:00Z", "en_US@rg=thzzzz"), "Jan 5, 2568 BE");
}

TEST(AbbreviatedDate, KnowsTheTimeZonesThatOnlyICUHas) {
  const auto inSydney = [](const std::string& instant) { return written(instant, "en_US", "AET"); };
  ASSERT_FALSE(std::ifstream("/usr/share/zoneinfo/AET"));
  EXPECT_EQ(inSydney("2025-01-05T12:59:59Z"), "Jan 5, 2025") << "eleven hours ahead in summer";
  EXPECT_EQ(inSydney("2025-01-05T13:00:00Z"), "Jan 6, 2025");
  EXPECT_EQ(inSydney("2025-07-05T13:59:59Z"), "Jul 5, 2025") << "and ten in winter";
  EXPECT_EQ(inSydney("2025-07-05T14:00:00Z"), "Jul 6, 2025");
}

TEST(AbbreviatedDate, UsesTheRequestedCalendarAndDigits) {
  const auto day = [](const std::string& locale) {
    return written("2025-01-05T10:00:00Z", locale);
  };
  EXPECT_EQ(day("en-US-u-nu-arab"), "Jan ٥, ٢٠٢٥");
  EXPECT_EQ(day("en_US@numbers=arab"), "Jan ٥, ٢٠٢٥");
  EXPECT_EQ(day("ar-EG-u-nu-latn"), "5 يناير 2025");
  EXPECT_EQ(day("th-TH-u-ca-gregory"), "5 ม.ค. 2025");
  EXPECT_EQ(day("th_TH@calendar=gregorian"), "5 ม.ค. 2025");
  EXPECT_EQ(day("en_US@x=" + std::string(120, 'a')), "Jan 5, 2025");
  EXPECT_NE(day("en-US-u-ca-buddhist").find("2568"), std::string::npos);
}

TEST(AbbreviatedDate, NamesTheDayOfTheTimeZone) {
  EXPECT_EQ(written("2025-01-05T23:30:00Z", "en_US", "UTC"), "Jan 5, 2025");
  EXPECT_EQ(written("2025-01-05T23:30:00Z", "en_US", "Europe/Berlin"), "Jan 6, 2025");
  EXPECT_EQ(written("2025-01-01T04:59:59Z", "en_US", "America/New_York"), "Dec 31, 2024");
  EXPECT_EQ(written("2025-07-01T03:59:59Z", "en_US", "America/New_York"), "Jun 30, 2025");
}

/// Every locale of CLDR with a Gregorian everyday calendar; see scripts/date-expectations.
TEST(AbbreviatedDate, AgreesWithTheRawDataOfCLDR) {
  const int release = releaseOfCLDR();
  std::ifstream table(VEMRA_TEST_DATA "/expected/abbreviated-dates-" + std::to_string(release) +
                      ".tsv");
  std::string line;
  if (!std::getline(table, line)) {
    ASSERT_FALSE(release == 42 || release == 46 || release == 48) << "the table is missing";
    GTEST_SKIP() << "there is no table for CLDR " << release;
  }
  ASSERT_TRUE(std::getline(table, line));
  const std::vector<std::string> columns = split(line, '\t');
  std::set<std::string> timeZones;
  std::size_t locales = 0;
  std::vector<std::string> unknown;
  while (std::getline(table, line)) {
    const std::vector<std::string> row = split(line, '\t');
    ASSERT_EQ(row.size(), columns.size()) << line;
    for (const std::string& locale : split(row[0], ' ')) {
      if (!date::isKnownLocale(locale)) {
        unknown.push_back(locale);
        continue;
      }
      ++locales;
      for (std::size_t column = 1; column < columns.size(); ++column) {
        const std::size_t blank = columns[column].find(' ');
        const std::string timeZone = columns[column].substr(blank + 1);
        timeZones.insert(timeZone);
        EXPECT_EQ(written(columns[column].substr(0, blank), locale, timeZone), row[column])
            << locale << ", " << columns[column];
      }
    }
  }
  EXPECT_GE(timeZones.size(), 6U);
  EXPECT_GE(locales, 450U) << ::testing::PrintToString(unknown);
}

TEST(AbbreviatedDate, IsProlepticGregorian) {
  EXPECT_EQ(written("1582-10-14T12:00:00Z", "en_US"), "Oct 14, 1582");
  EXPECT_EQ(written("1582-10-10T12:00:00Z", "en_US"), "Oct 10, 1582");
  EXPECT_EQ(written("1500-03-01T12:00:00Z", "en_US"), "Mar 1, 1500");
  EXPECT_EQ(written("0001-01-01T00:00:00Z", "en_US"), "Jan 1, 1");
  EXPECT_EQ(written("9999-12-31T23:59:59Z", "en_US"), "Dec 31, 9999");
  EXPECT_EQ(written("1500-03-01T12:00:00Z", "th_TH"), "1 มี.ค. 2043");
}

TEST(AbbreviatedDate, UsesRootAndUTCForUnknownNames) {
  const Environment german("LC_ALL", "de_DE.UTF-8");
  const std::string root = written("2025-01-05T10:00:00Z", "root");
  EXPECT_EQ(root, "2025 M01 5");
  for (const char* locale : {"", "xx", "xx_YY", "en_US.UTF-8", "en-US-u-nu-nonsense", "\xFF"}) {
    EXPECT_EQ(written("2025-01-05T10:00:00Z", locale), root) << locale;
  }
  for (const char* timeZone : {"", "Mars/Olympus", "\xFF"}) {
    EXPECT_EQ(written("2025-01-05T23:59:59Z", "en_US", timeZone), "Jan 5, 2025") << timeZone;
    EXPECT_EQ(written("2025-01-05T00:00:00Z", "en_US", timeZone), "Jan 5, 2025") << timeZone;
  }
}

TEST(AbbreviatedDate, WritesEveryLocaleOnEveryVisit) {
  // More pairs than the cache has room for, twice: a format that is made again must write the same
  // dates.
  const std::vector<std::string> locales = {"en_US", "de_DE", "fr_FR", "ja_JP", "ar_EG", "th_TH"};
  const std::vector<std::string> timeZones = {"UTC",        "Europe/Berlin", "Asia/Tokyo",
                                              "Asia/Dubai", "Asia/Kolkata",  "Europe/Paris",
                                              "Asia/Seoul", "Africa/Cairo"};
  std::vector<std::string> first;
  for (int visit = 0; visit < 2; ++visit) {
    std::vector<std::string> dates;
    for (const std::string& locale : locales) {
      for (const std::string& timeZone : timeZones) {
        dates.push_back(written("2025-01-05T10:00:00Z", locale, timeZone));
      }
    }
    if (visit == 0) first = dates;
    EXPECT_EQ(dates, first);
  }
}

TEST(AbbreviatedDate, WritesAnyInstant) {
  for (const std::int64_t instant :
       {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
    for (const char* timeZone : {"UTC", "Europe/Berlin", "CET-1CEST", "Etc/GMT-14"}) {
      EXPECT_NE(abbreviatedDate({instant}, "en_US", timeZone), "") << timeZone;
    }
  }
}

}  // namespace
}  // namespace vemra::testing
