#include "VemraPlatform/date/Locale.hpp"
#include "tests/VemraPlatform/date/Environment.hpp"

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using namespace std::string_literals;

TEST(KnownLocale, IsOneThatICULists) {
  for (const char* locale :
       {"en", "en_US", "en-US", "de_DE", "sr_Latn_RS", "sr-Latn-RS", "en_US_POSIX", "es_419",
        "en_001", "zh_Hant_TW", "nb_NO", "yue", "en_DE", "EN-us"}) {
    EXPECT_TRUE(date::isKnownLocale(locale)) << locale;
  }
  for (const char* locale : {"zh_TW", "zh_CN", "sr_RS", "iw_IL", "no_NO", "tl_PH", "in_ID"}) {
    EXPECT_TRUE(date::isKnownLocale(locale)) << locale << ", an older name";
  }
  EXPECT_FALSE(date::isKnownLocale("root")) << "the root is not a locale";
  EXPECT_FALSE(date::isKnownLocale("und"));
}

TEST(KnownLocale, MayRequestACalendarAndDigits) {
  for (const char* locale :
       {"en-US-u-nu-arab", "en-US-u-ca-buddhist", "en-US-u-ca-buddhist-nu-thai",
        "en_US@numbers=arab", "en_US@calendar=buddhist;numbers=thai", "en_US@calendar=gregory",
        "de@collation=phonebook", "und-u-nu-arab", "zh-Hant-TW-u-ca-roc", "hi-IN-u-nu-native"}) {
    EXPECT_TRUE(date::isKnownLocale(locale)) << locale;
  }
}

TEST(KnownLocale, IsNoOtherText) {
  std::vector<std::string> locales = {"",
                                      "xx",
                                      "xx_YY",
                                      "en_XX",
                                      "english",
                                      "C",
                                      "POSIX",
                                      "C.UTF-8",
                                      "de_DE@euro",
                                      "en_US.UTF-8",
                                      "sr_RS@latin",
                                      " en_US",
                                      "en_US ",
                                      "en US",
                                      "en_US_",
                                      "_US",
                                      "en__US",
                                      "en_US@",
                                      "en_US@x",
                                      "en_US@=x",
                                      "en_US@numbers=",
                                      "en_US@numbers=arab;",
                                      "en_US@numbers=nonsense",
                                      "en_US@calendar=nonsense",
                                      "en-US-u",
                                      "en-US-u-nu-nonsense",
                                      "en-US-u-ca-nonsense",
                                      "en-US-u-nu-arab@numbers=thai",
                                      "en_US\0"s,
                                      "en_US\n",
                                      "\xFF",
                                      "../en_US"};
  for (const char* keywords : {"nu bers=arab", "numbers=ar ab", "numbers=arab;x", "x=1;;y=2"}) {
    locales.push_back(std::string("en_US@") + keywords);
  }
  std::string endless;
  endless.resize(10000, 'a');
  locales.push_back(endless);
  locales.push_back("en_US@numbers=" + endless);
  for (const std::string& locale : locales) {
    EXPECT_FALSE(date::isKnownLocale(locale)) << locale.substr(0, 100);
  }
}

struct Settings {
  std::optional<std::string> all;
  std::optional<std::string> time;
  std::optional<std::string> language;
};

std::string systemLocale(const Settings& settings) {
  const Environment all("LC_ALL", settings.all);
  const Environment time("LC_TIME", settings.time);
  const Environment language("LANG", settings.language);
  const Environment messages("LC_MESSAGES", "ko_KR.UTF-8");  // says nothing about dates
  return date::systemLocale();
}

TEST(SystemLocale, ComesFromTheFirstVariableThatIsNotEmpty) {
  EXPECT_EQ(systemLocale({"de_DE", "fr_FR", "en_GB"}), "de_DE");
  EXPECT_EQ(systemLocale({std::nullopt, "fr_FR", "en_GB"}), "fr_FR");
  EXPECT_EQ(systemLocale({"", "fr_FR", "en_GB"}), "fr_FR");
  EXPECT_EQ(systemLocale({"", "", "en_GB"}), "en_GB");
  EXPECT_EQ(systemLocale({std::nullopt, std::nullopt, "en_GB"}), "en_GB");
}

TEST(SystemLocale, HasNoEncodingAndNoModifierOfPOSIX) {
  const auto read = [](const char* language) {
    return systemLocale({std::nullopt, std::nullopt, language});
  };
  EXPECT_EQ(read("en_GB.UTF-8"), "en_GB");
  EXPECT_EQ(read("ja_JP.eucJP"), "ja_JP");
  EXPECT_EQ(read("de_DE@euro"), "de_DE");
  EXPECT_EQ(read("de_DE.ISO-8859-15@euro"), "de_DE");
  EXPECT_EQ(read("sr_RS@latin"), "sr_Latn_RS");
  EXPECT_EQ(read("sr_RS.UTF-8@latin"), "sr_Latn_RS");
  EXPECT_EQ(read("uz_UZ.UTF-8@cyrillic"), "uz_Cyrl_UZ");
  EXPECT_EQ(read("en-US-u-nu-arab"), "en-US-u-nu-arab");
}

TEST(SystemLocale, KeepsKeywordsBehindAnEncoding) {
  const auto read = [](const char* language) {
    return systemLocale({std::nullopt, std::nullopt, language});
  };
  EXPECT_EQ(read("fa_IR.UTF-8@calendar=gregory"), "fa_IR@calendar=gregory");
  EXPECT_EQ(read("ar_EG.UTF-8@numbers=latn"), "ar_EG@numbers=latn");
  EXPECT_EQ(read("fa_IR.UTF-8@calendar"), "fa_IR") << "not a keyword";
}

TEST(SystemLocale, OfThePortableEnvironmentIsEnglish) {
  EXPECT_EQ(systemLocale({}), "en_US_POSIX");
  EXPECT_EQ(systemLocale({"C", "de_DE", "de_DE"}), "en_US_POSIX");
  EXPECT_EQ(systemLocale({std::nullopt, std::nullopt, "POSIX"}), "en_US_POSIX");
  EXPECT_EQ(systemLocale({std::nullopt, std::nullopt, "C.UTF-8"}), "en_US_POSIX");
}

TEST(SystemLocale, OfAnEmptyLanguageIsRoot) {
  EXPECT_EQ(systemLocale({std::nullopt, std::nullopt, ""}), "root");
  EXPECT_EQ(systemLocale({"", "", ""}), "root");
}

TEST(SystemLocale, IsKnownInEveryEnvironment) {
  const auto read = [](const char* language) {
    return systemLocale({std::nullopt, std::nullopt, language});
  };
  EXPECT_EQ(read("en_XX.UTF-8"), "en");
  EXPECT_EQ(read("xx_YY.UTF-8"), "root");
  EXPECT_EQ(read("sr_XX@latin"), "sr_Latn");
  for (const char* language :
       {"@", ".", "_", "-", "@euro", ".UTF-8", "____", "\xFF\xFE", "en_", "@latin"}) {
    const std::string locale = read(language);
    EXPECT_TRUE(locale == "root" || date::isKnownLocale(locale)) << language << " gives " << locale;
  }
}

}  // namespace
}  // namespace vemra::testing
