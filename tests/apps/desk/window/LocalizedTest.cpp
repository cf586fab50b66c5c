#include "apps/desk/window/Localized.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <filesystem>
#include <regex>
#include <set>
#include <string>

#include <QCoreApplication>
#include <QTranslator>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;

/// The argument of every call of `localized` in the sources of the window.
std::set<std::string> textsInSources() {
  static const std::regex call(R"rx(\blocalized\(\s*((?:"(?:[^"\\]|\\.)*"\s*)+)\))rx");
  static const std::regex piece(R"rx("((?:[^"\\]|\\.)*)")rx");
  std::set<std::string> texts;
  for (const auto& entry : fs::directory_iterator(VEMRA_REPOSITORY "/apps/desk/window")) {
    if (entry.path().extension() != ".cpp") continue;
    const std::string source = TemporaryFolder::readFile(entry.path().string());
    for (std::sregex_iterator found(source.begin(), source.end(), call), end; found != end;
         ++found) {
      const std::string literals = (*found)[1];
      std::string text;
      for (std::sregex_iterator each(literals.begin(), literals.end(), piece); each != end;
           ++each) {
        text += (*each)[1];
      }
      texts.insert(std::regex_replace(text, std::regex(R"(\\n)"), "\n"));
    }
  }
  return texts;
}

class LocalizedTest : public ::testing::Test {
 protected:
  ~LocalizedTest() override {
    for (auto* translator : QCoreApplication::instance()->findChildren<QTranslator*>()) {
      QCoreApplication::removeTranslator(translator);
      delete translator;
    }
  }
};

TEST_F(LocalizedTest, EveryTextOfTheWindowExistsInGerman) {
  const std::set<std::string> texts = textsInSources();
  EXPECT_GT(texts.size(), 4u) << "the search finds the calls";
  installTranslations({"de-AT", "de"});
  for (const std::string& text : texts) {
    const QString found = QCoreApplication::translate("VemraDesk", text.c_str());
    const bool isSameInBoth = text == "%1 (%2)" || text == "%1: %2" || text == "Vemra Desk %1";
    EXPECT_EQ(found == QString::fromStdString(text), isSameInBoth) << text;
  }
}

TEST_F(LocalizedTest, AnUnknownLanguageIsSkippedAndEnglishEndsTheSearch) {
  installTranslations({"tlh", "en", "de"});
  EXPECT_EQ(localized("the path"), "the path");
  installTranslations({"tlh", "de", "en"});
  EXPECT_EQ(localized("the path"), "den Weg");
}

}  // namespace
}  // namespace vemra::desk
