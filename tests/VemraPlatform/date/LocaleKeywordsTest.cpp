#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "VemraPlatform/date/Locale.hpp"
#include "tests/VemraPlatform/date/ReleaseOfCLDR.hpp"

#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include <gtest/gtest.h>
#include <unicode/calendar.h>
#include <unicode/locid.h>
#include <unicode/numsys.h>
#include <unicode/strenum.h>

// A calendar and a numbering system have names of CLDR's ("islamic-civil") and of BCP 47
// ("islamicc"), in any case. Each name must give the date of its own calendar.

namespace vemra::testing {
namespace {

std::string written(const std::string& locale) {
  return date::isKnownLocale(locale) ? date::abbreviatedDate({1736071200}, locale, "UTC")
                                     : "not known: " + locale;
}

std::vector<std::string> all(std::unique_ptr<icu::StringEnumeration> names) {
  std::vector<std::string> list;
  UErrorCode status = U_ZERO_ERROR;
  while (const char* name = names->next(nullptr, status)) list.emplace_back(name);
  return list;
}

std::vector<std::string> calendars() {
  UErrorCode status = U_ZERO_ERROR;
  return all(std::unique_ptr<icu::StringEnumeration>(
      icu::Calendar::getKeywordValuesForLocale("calendar", icu::Locale::getRoot(), false, status)));
}

std::vector<std::string> numberingSystems() {
  UErrorCode status = U_ZERO_ERROR;
  return all(
      std::unique_ptr<icu::StringEnumeration>(icu::NumberingSystem::getAvailableNames(status)));
}

/// A name, in capitals, and with every second letter a capital.
std::vector<std::string> inCases(const std::string& name) {
  std::string capitals = name;
  std::string mixed = name;
  for (std::size_t index = 0; index < name.size(); ++index) {
    if (name[index] < 'a' || name[index] > 'z') continue;
    capitals[index] = static_cast<char>(name[index] - 'a' + 'A');
    if (index % 2 == 0) mixed[index] = capitals[index];
  }
  return {name, capitals, mixed};
}

const std::multimap<std::string, std::string> otherNames = {
    {"gregorian", "gregory"}, {"islamic-civil", "islamicc"}, {"ethiopic-amete-alem", "ethioaa"}};

/// The name of an era, which CLDR 48 has changed.
std::string era(const char* before, const char* since48) {
  return releaseOfCLDR() >= 48 ? since48 : before;
}

/// 5 January 2025 in English; the texts differ by calendar, except for three calendars.
const std::map<std::string, std::string> dates = {
    {"gregorian", "Jan 5, 2025"},
    // Since CLDR 46 with the parts in the order of ISO 8601.
    {"iso8601", releaseOfCLDR() >= 46 ? "2025 Jan 5" : "Jan 5, 2025"},
    {"japanese", "Jan 5, 7 Reiwa"},
    {"buddhist", "Jan 5, 2568 BE"},
    {"roc", "Jan 5, 114 Minguo"},
    {"persian", "Dey 16, 1403 AP"},
    {"islamic-civil", "Raj. 5, 1446 AH"},
    {"islamic", "Raj. 6, 1446 AH"},
    {"islamic-umalqura", "Raj. 5, 1446 AH"},
    {"islamic-tbla", "Raj. 6, 1446 AH"},
    {"islamic-rgsa", "Raj. 6, 1446 AH"},
    {"hebrew", "5 Tevet 5785"},
    {"chinese", "Mo12 6, 2024"},
    {"dangi", "Mo12 6, 2024"},
    {"indian", "Pausa 15, 1946 " + era("Saka", "Śaka")},
    {"coptic", "Kiahk 27, 1741 " + era("ERA1", "AM")},
    {"ethiopic", "Tahsas 27, 2017 " + era("ERA1", "AM")},
    {"ethiopic-amete-alem", "Tahsas 27, 7517 " + era("ERA0", "AA")},
};

TEST(LocaleKeywords, EveryNameOfACalendarGivesItsDate) {
  std::size_t tried = 0;
  for (const std::string& calendar : calendars()) {
    std::vector<std::string> names = {calendar};
    const auto [first, last] = otherNames.equal_range(calendar);
    for (auto other = first; other != last; ++other) names.push_back(other->second);
    const auto date = dates.find(calendar);
    ASSERT_NE(date, dates.end()) << calendar;
    for (const std::string& name : names) {
      for (const std::string& spelling : inCases(name)) {
        for (const std::string& locale :
             {"en_US@calendar=" + spelling, "en-US@CALENDAR=" + spelling,
              "en_US@calendar=" + spelling + ";numbers=latn", "en-US-u-ca-" + spelling,
              "EN-us-U-CA-" + spelling + "-nu-latn"}) {
          // "gregorian" is too long for a subtag of BCP 47.
          if (name == "gregorian" && locale.find('@') == std::string::npos) continue;
          EXPECT_EQ(written(locale), date->second) << locale;
          ++tried;
        }
      }
    }
  }
  EXPECT_GE(tried, 18U * 15U);
}

TEST(LocaleKeywords, ACalendarReplacesTheRegionsOwn) {
  for (const char* locale :
       {"fa_IR@calendar=gregory", "fa_IR@calendar=gregorian", "fa_IR@calendar=GREGORY",
        "fa-IR-u-ca-gregory", "fa_IR@CALENDAR=Gregorian"}) {
    EXPECT_EQ(written(locale), "۵ ژانویه ۲۰۲۵") << locale;
  }
  EXPECT_EQ(written("fa_IR"), "۱۶ دی ۱۴۰۳");
}

TEST(LocaleKeywords, EveryNameOfANumberingSystemGivesItsDigits) {
  const std::vector<std::string> systems = numberingSystems();
  ASSERT_GE(systems.size(), 80U);
  std::set<std::string> texts;
  for (const std::string& system : systems) {
    const std::string expected = written("en_US@numbers=" + system);
    texts.insert(expected);
    const std::vector<std::string> spellings = inCases(system);
    for (const std::string& locale :
         {"en_US@numbers=" + spellings[1], "en_US@NUMBERS=" + spellings[2],
          "en-US-u-nu-" + spellings[0], "en-us-u-nu-" + spellings[1],
          "en_US@calendar=gregory;numbers=" + spellings[2]}) {
      EXPECT_EQ(written(locale), expected) << locale;
    }
  }
  EXPECT_GE(texts.size(), 70U) << "digits of their own";
  EXPECT_TRUE(texts.contains("Jan ٥, ٢٠٢٥"));
  EXPECT_TRUE(texts.contains("Jan ๕, ๒๐๒๕"));
}

TEST(LocaleKeywords, DigitsMayBeTheRegionsOwn) {
  for (const std::string name : {"native", "traditional", "traditio", "finance", "default"}) {
    const std::string expected = written("hi_IN@numbers=" + name);
    for (const std::string& spelling : inCases(name)) {
      EXPECT_EQ(written("hi_IN@numbers=" + spelling), expected) << spelling;
      if (name.size() > 8) continue;  // the most that a subtag of BCP 47 may have
      EXPECT_EQ(written("hi-IN-u-nu-" + spelling), expected) << spelling;
    }
  }
  EXPECT_EQ(written("hi_IN@numbers=NATIVE"), "५ जन॰ २०२५");
  EXPECT_EQ(written("hi_IN"), "5 जन॰ 2025");
  EXPECT_EQ(written("ta_IN@numbers=Traditio"), written("ta_IN@numbers=traditional"));
  EXPECT_NE(written("ta_IN@numbers=traditio"), written("ta_IN"));
}

TEST(LocaleKeywords, WithUnknownNamesAreRefused) {
  for (const char* locale :
       {"en_US@calendar=", "en_US@calendar=gregorianum", "en_US@calendar=islamic-",
        "en_US@calendar=-", "en_US@calendar=islamic-civilian", "en_US@calendar=yes",
        "en_US@numbers=ara", "en_US@numbers=_", "en_US@numbers=latn-arab", "en-US-u-ca-gregorian",
        "en-US-u-ca", "en-US-u-nu", "en_US@calendar=gregory;numbers=nonsense",
        "en_US@numbers=arab;calendar=nonsense"}) {
    EXPECT_FALSE(date::isKnownLocale(locale)) << locale;
  }
}

TEST(LocaleKeywords, HaveOnlyLettersDigitsAndHyphens) {
  for (const char* locale :
       {"en_US@x=a", "en_US@x=z", "en_US@x=A", "en_US@x=Z", "en_US@x=0", "en_US@x=9", "en_US@x=a-b",
        "en_US@x=a_b", "en_US@a0=1", "en_US@zZ=1", "en_US@x=1;y=2;z=3"}) {
    EXPECT_TRUE(date::isKnownLocale(locale)) << locale;
    EXPECT_EQ(written(locale), "Jan 5, 2025") << locale;
  }
  for (const char* locale :
       {"en_US@x=`",    "en_US@x={",   "en_US@x=@",   "en_US@x=[",        "en_US@x=/",
        "en_US@x=:",    "en_US@x=a b", "en_US@x=a.b", "en_US@a-b=1",      "en_US@a_b=1",
        "en_US@a b=1",  "en_US@`=1",   "en_US@:=1",   "en_US@x=1;=2",     "en_US@x=1;y",
        "en_US@x=1;y=", "en_US@;x=1",  "en_US@x=1=2", "en_US@x=\xC3\xA4", "en_US@\xC3\xA4=1"}) {
    EXPECT_FALSE(date::isKnownLocale(locale)) << locale;
  }
}

TEST(LocaleKeywords, FitIntoANameOfICUs) {
  constexpr std::size_t longest = 156;
  const std::string base = "en_US@x=";
  EXPECT_EQ(written(base + std::string(longest - base.size(), 'a')), "Jan 5, 2025");
  EXPECT_FALSE(date::isKnownLocale(base + std::string(longest + 1 - base.size(), 'a')));
  const std::string digits = "en_US@numbers=arab;x=";
  EXPECT_EQ(written(digits + std::string(longest - digits.size(), 'a')), "Jan ٥, ٢٠٢٥");
  // Other spellings may be longer than the given one.
  const std::string calendar = "en_US@calendar=ethioaa;x=";
  EXPECT_EQ(written(calendar + std::string(longest - calendar.size(), 'a')),
            dates.at("ethiopic-amete-alem"));
}

}  // namespace
}  // namespace vemra::testing
