// The translated screen: every key is translated, and no verbatim text.

#include "VemraQt/QtStringsTable.hpp"
#include "tests/TranslationFiles.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/Strings.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <fstream>
#include <regex>
#include <sstream>

#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::Contains;
using ::testing::ElementsAreArray;
using ::testing::IsSupersetOf;

namespace {

ui::Environment with(std::shared_ptr<const ui::StringsTable> strings) {
  ui::Environment environment;
  environment.strings = std::move(strings);
  return environment;
}

/// Every key of the screen, from all its variants.
std::set<std::string> keysOfTheScreen() {
  auto table = std::make_shared<PseudoStrings>();
  Result nothing;
  WindowHost empty(nothing);
  empty.widget.setEnvironment(with(table));
  WindowHost host(resultWith(4));
  host.widget.setEnvironment(with(table));
  for (const char* ref : {"p0", "p1"}) {
    const std::string prefix = std::string("vemra.goal.person.") + ref + ".outcome";
    host.press(prefix + ".start");
    host.press(prefix + ".save");
    host.press(prefix + ".correct");
    host.press(prefix + ".save");
  }
  return table->asked();
}

}  // namespace

TEST(Strings, EachLanguageHasExactlyTheScreensKeys) {
  const std::set<std::string> keys = keysOfTheScreen();
  EXPECT_EQ(keys.size(), 12u);
  const auto languages = translatedLanguages("VemraQt/translations", "vemra");
  EXPECT_THAT(languages, IsSupersetOf({"de", "he"}));
  for (const std::string& language : languages) {
    SCOPED_TRACE(language);
    const QString name = QString::fromStdString(language);
    auto table = qt::QtStringsTable::builtIn({name + "-XX", "en"});
    ASSERT_NE(table, nullptr);
    for (const std::string& key : keys) {
      const auto translation = table->lookup(key);
      ASSERT_TRUE(translation) << key;
      EXPECT_FALSE(translation->empty()) << key;
      EXPECT_NE(*translation, key);
    }
    std::ifstream file(VEMRA_REPOSITORY "/VemraQt/translations/vemra_" + language + ".ts");
    std::stringstream text;
    text << file.rdbuf();
    const std::string content = text.str();
    const std::regex source("<source>([^<]*)</source>");
    std::set<std::string> sources;
    for (std::sregex_iterator match(content.begin(), content.end(), source), end; match != end;
         ++match) {
      sources.insert((*match)[1]);
    }
    EXPECT_EQ(sources, keys);
  }
}

TEST(Strings, TheScreenInGerman) {
  WindowHost host(resultWith(1));
  host.widget.setEnvironment(with(qt::QtStringsTable::builtIn({"de"})));
  for (const char* word : {"Menschen, die infrage kommen", "Quelle anzeigen", "Belegter Weg",
                           "In Starfold ansehen", "Ergebnis festhalten"}) {
    EXPECT_THAT(host.visibleTexts(), Contains(word));
  }
  EXPECT_THAT(host.visibleTexts(), Contains("Person Number 0"));
}

TEST(Strings, TheScreenInHebrew) {
  WindowHost host(resultWith(1));
  host.widget.setEnvironment(with(qt::QtStringsTable::builtIn({"he"})));
  for (const char* word : {"אנשים שכדאי לשקול", "הצגת המקור", "רישום תוצאה"}) {
    EXPECT_THAT(host.visibleTexts(), Contains(word));
  }
}

TEST(Strings, TheUsersLanguageDecides) {
  EXPECT_EQ(qt::QtStringsTable::builtIn({"en-GB", "de"}), nullptr);
  EXPECT_EQ(qt::QtStringsTable::builtIn({"C"}), nullptr);
  EXPECT_EQ(qt::QtStringsTable::builtIn({"xx"}), nullptr);
  EXPECT_NE(qt::QtStringsTable::builtIn({"fr_FR", "de_DE"}), nullptr);
  EXPECT_EQ(qt::QtStringsTable::builtIn({"he_IL", "de"})->lookup("Save"), "שמירה");
  EXPECT_EQ(qt::QtStringsTable::load("/no/such/file.qm"), nullptr);
}

TEST(Strings, AKeyWithoutATranslationIsShownUnchanged) {
  auto german = qt::QtStringsTable::builtIn({"de"});
  EXPECT_EQ(german->lookup("Nobody asked for this"), std::nullopt);
  EXPECT_EQ(german->lookup(""), std::nullopt);
}

TEST(Strings, VerbatimTextsStayUnchangedWithATableThatTranslatesEveryKey) {
  Result result = resultWith(3);
  result.goal.title = "Save";
  std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
  people[0].displayName = "Cancel";
  people[1].displayName = "Record outcome";
  people[2].displayName = std::nullopt;
  result.people = people;
  result.outcomes = {correctedOutcome("p2", "Outcome")};
  const auto everything = std::make_shared<PseudoStrings>();
  const auto own = [&](const char* key) { return *everything->lookup(key); };
  WindowHost host(result);
  host.widget.setEnvironment(with(everything));
  press(*accessible(host, "vemra.goal.person.p1.outcome.start"));
  std::vector<std::string> shown;
  for (QAccessibleInterface* element : elementsBelow(accessiblePage(host))) {
    shown.push_back(name(*element));
  }
  const std::vector<std::string> expected{
      "Save",
      own("People worth considering"),  // the section
      own("People worth considering"),
      "",        // the list
      "Cancel",  // the row
      "Cancel",
      "Email: Asked about design leads in March",
      own("Show source"),
      own("Record outcome"),
      "Record outcome",  // the row
      "Record outcome",
      "Connected through 1 shared relationship",
      own("Outcome"),
      "Reached out",
      "Invited",
      "Introduced",
      "Helped",
      "Was useful",
      "Not a fit",
      "No action taken",
      "Something else",
      own("Note (optional)"),
      own("Save"),
      own("Cancel"),
      "Unnamed person",  // the row
      "Unnamed person",
      "4 shared threads, 2 shared meetings",
      own("Show source"),
      "Reached out",
      own("\u00b7 corrected"),
      own("Correct"),
      "Outcome",
      own("Supported path"),  // the section
      own("Supported path"),
      "Connected through 1 shared relationship",
      own("See in Starfold"),
      own("Record outcome"),
      "Based on 12 piece(s) of evidence from Mail, Calendar, through Jan 5, 2025.",
  };
  EXPECT_THAT(shown, ElementsAreArray(expected));
  EXPECT_EQ(accessible(host, "vemra.goal.person.p1.outcome.picker")->text(QAccessible::Value),
            "Was useful");
}

TEST(Strings, TheTestTablesWordsAreLongerAndAccented) {
  PseudoStrings pseudo;
  for (const std::string& key : keysOfTheScreen()) {
    const std::string text = *pseudo.lookup(key);
    const auto letters = [](const std::string& of) { return QString::fromStdString(of).size(); };
    EXPECT_GE(letters(text), letters(key) * 14 / 10 + 2) << text;
    EXPECT_EQ(text.front(), '[') << text;
    EXPECT_EQ(text.back(), ']') << text;
    EXPECT_NE(text.find_first_of("\xc3\xc5"), std::string::npos) << text << " has no accent";
    const auto hebrew = HebrewStrings().lookup(key);
    ASSERT_TRUE(hebrew) << key;
    EXPECT_TRUE(QString::fromStdString(*hebrew).isRightToLeft() || key[0] == '\xc2') << *hebrew;
  }
}

TEST(Strings, AnotherLanguageTakesEffectAtOnceAndKeepsTypedText) {
  WindowHost host(resultWith(2));
  host.press("vemra.goal.person.p1.outcome.start");
  auto& note = host.get<QWidget>("vemra.goal.person.p1.outcome.note");
  note.setFocus();
  host.widget.setEnvironment(with(qt::QtStringsTable::builtIn({"de"})));
  EXPECT_TRUE(note.hasFocus());
  EXPECT_THAT(host.visibleTexts(), Contains("Speichern"));
}
