#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Reasons.hpp"
#include "tests/TranslationFiles.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <string>

#include <QApplication>
#include <QRegularExpression>
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
  ~LocalizedTest() override { speak("en"); }

  /// Makes the window speak this language alone.
  static void speak(const QString& language) {
    for (auto* translator : QCoreApplication::instance()->findChildren<QTranslator*>()) {
      QCoreApplication::removeTranslator(translator);
      delete translator;
    }
    installTranslations({language});
  }
};

/// The languages that the window speaks besides English.
QStringList languages() {
  QStringList languages;
  for (const auto& each : translatedLanguages("apps/desk/window/translations", "vemra_desk")) {
    languages.append(QString::fromStdString(each));
  }
  return languages;
}

TEST_F(LocalizedTest, EveryTextOfTheWindowExistsInEachLanguage) {
  const std::set<std::string> texts = textsInSources();
  EXPECT_GT(texts.size(), 4u) << "the search finds the calls";
  for (const QString& language : languages()) {
    speak(language + "-XX");
    for (const std::string& text : texts) {
      const QString found = QCoreApplication::translate("VemraDesk", text.c_str());
      const bool isSameInBoth = text == "%1 (%2)" || text == "%1: %2" || text == "Vemra Desk %1";
      EXPECT_EQ(found == QString::fromStdString(text), isSameInBoth)
          << language.toStdString() << ": " << text;
    }
  }
}

/// The pieces of messages in the sources of a folder: literals of two words and more in lower case.
std::set<std::string> messagesIn(const std::string& folder) {
  static const std::regex literal(R"rx("((?:[^"\\]|\\.)*)")rx");
  static const std::regex gap(R"rx("\s+")rx");
  static const std::regex message(R"rx(^\W*([a-z][-a-z']* .*[a-z'])\W*$)rx");
  static const std::regex code(R"rx([A-Z]{4}|[=?_#\[])rx");  // SQL, names and file modes
  std::set<std::string> messages;
  for (const auto& entry : fs::directory_iterator(VEMRA_REPOSITORY "/apps/" + folder)) {
    if (entry.path().extension() != ".cpp") continue;
    const std::string source =
        std::regex_replace(TemporaryFolder::readFile(entry.path().string()), gap, "");
    for (std::sregex_iterator found(source.begin(), source.end(), literal), end; found != end;
         ++found) {
      const std::string text = (*found)[1];
      std::smatch match;
      if (std::regex_match(text, match, message) && !std::regex_search(text, code)) {
        messages.insert(match[1]);
      }
    }
  }
  return messages;
}

TEST_F(LocalizedTest, EveryMessageOfTheStoreAndOfDocumentsIsPartOfAPattern) {
  static const std::regex between(R"rx(^expected |; found ?|: )rx");
  const std::set<std::string> others{
      // not for people, or matched with what follows
      "a query",
      "people or paths",
      "vemra-desk waiting outcomes",
      "two texts could not be compared",
      "of device",
      "made at",
      "in database main",
      "the byte 0x",
      "an integer from -9223372036854775808 to 9223372036854775807, without fraction or exponent",
      R"(one of the escapes \" \\ \/ \b \f \n \r \t \u)",
      R"(four hexadecimal digits after \\u)"};
  std::set<std::string> messages = messagesIn("desk/store");
  messages.merge(messagesIn("documents"));
  EXPECT_GT(messages.size(), 80u) << "the search finds the messages";
  for (const std::string& message : messages) {
    if (others.contains(message)) continue;
    for (std::sregex_token_iterator each(message.begin(), message.end(), between, -1), end;
         each != end; ++each) {
      const std::string part = each->str();
      EXPECT_TRUE(std::ranges::any_of(reasonPatterns(), [&](const std::string& pattern) {
        return pattern.find(part) != std::string::npos;
      })) << message;
    }
  }
}

TEST_F(LocalizedTest, EveryPatternOfAReasonExistsInEachLanguageWithTheSameGaps) {
  for (const QString& language : languages()) {
    speak(language);
    for (const char* pattern : reasonPatterns()) {
      const QString found = QCoreApplication::translate("VemraDesk", pattern);
      EXPECT_NE(found, QString(pattern)) << language.toStdString();
      for (const char* each : {"%1", "%2", "%3", "%4"}) {
        EXPECT_EQ(found.count(each), QString(pattern).count(each))
            << language.toStdString() << ": " << pattern;
      }
    }
  }
}

TEST_F(LocalizedTest, AReasonKeepsItsFileItsPlaceAndTheTextsFromFiles) {
  const auto german = [](const char* english) { return localizedReason(english).toStdString(); };
  EXPECT_EQ(german("/a: b.sqlite: is read-only"), "/a: b.sqlite: is read-only");
  installTranslations({"de"});
  EXPECT_EQ(german("/a: b.sqlite: is read-only"), "/a: b.sqlite: ist schreibgeschützt");
  EXPECT_EQ(german("s: has no goal with the id \"is read-only\""),
            "s: enthält kein Ziel mit der Kennung \"is read-only\"");
  EXPECT_EQ(
      german("b.json: /goal: line 2, column 7: expected one of the keys a, b; found \"c\""),
      "b.json: /goal: Zeile 2, Spalte 7: erwartet: einer der Schlüssel a, b; gefunden: \"c\"");
  EXPECT_EQ(
      german("s: is damaged: people (goal 1): name: expected a text in UTF-8; found NULL"),
      "s: ist beschädigt: people (goal 1): name: erwartet: ein Text in UTF-8; gefunden: NULL");
  EXPECT_EQ(german("s: cannot be opened: No such file or directory"),
            "s: kann nicht geöffnet werden: Datei oder Ordner nicht gefunden");
  EXPECT_EQ(german("words of another library"), "words of another library");
}

TEST_F(LocalizedTest, TheLayoutHasTheDirectionOfTheLanguage) {
  QApplication::setLayoutDirection(Qt::RightToLeft);
  installTranslations({"ar", "de"});
  EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight) << "the window speaks German";
  installTranslations({"he-IL", "de"});
  EXPECT_EQ(QApplication::layoutDirection(), Qt::RightToLeft);
  EXPECT_EQ(localized("the path"), "המסלול");
  installTranslations({"en"});
  EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
}

TEST_F(LocalizedTest, AnUnknownLanguageIsSkippedAndEnglishEndsTheSearch) {
  installTranslations({"tlh", "en", "de"});
  EXPECT_EQ(localized("the path"), "the path");
  installTranslations({"tlh", "de", "en"});
  EXPECT_EQ(localized("the path"), "den Weg");
}

}  // namespace
}  // namespace vemra::desk
