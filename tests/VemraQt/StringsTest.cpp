// The screen in other words: complete, never translating what is verbatim.

#include "VemraQt/QtStringsTable.hpp"
#include "tests/VemraQt/Strings.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <fstream>
#include <regex>
#include <sstream>

#include <QLocale>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::Contains;
using ::testing::Not;

namespace {

ui::Environment with(std::shared_ptr<const ui::StringsTable> strings) {
  ui::Environment environment;
  environment.strings = std::move(strings);
  return environment;
}

/// Every key of the screen, on every face of it.
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

TEST(Strings, GermanIsCompleteAndHasNothingElse) {
  auto german = qt::QtStringsTable::builtIn({"de-AT", "en"});
  ASSERT_NE(german, nullptr);
  const std::set<std::string> keys = keysOfTheScreen();
  EXPECT_EQ(keys.size(), 12u);
  for (const std::string& key : keys) {
    const auto translation = german->lookup(key);
    ASSERT_TRUE(translation) << key;
    EXPECT_FALSE(translation->empty()) << key;
    EXPECT_NE(*translation, key);
  }
  std::ifstream file(std::string(VEMRA_REPOSITORY) + "/VemraQt/translations/vemra_de.ts");
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

TEST(Strings, TheScreenInGerman) {
  WindowHost host(resultWith(1));
  host.widget.setEnvironment(with(qt::QtStringsTable::builtIn({"de"})));
  for (const char* word : {"Menschen, die infrage kommen", "Quelle anzeigen", "Belegter Weg",
                           "In Starfold ansehen", "Ergebnis festhalten"}) {
    EXPECT_THAT(host.visibleTexts(), Contains(word));
  }
  EXPECT_THAT(host.visibleTexts(), Contains("Person Number 0"));
}

TEST(Strings, TheUsersLanguageDecides) {
  EXPECT_EQ(qt::QtStringsTable::builtIn({"en-GB", "de"}), nullptr);
  EXPECT_EQ(qt::QtStringsTable::builtIn({"C"}), nullptr);
  EXPECT_EQ(qt::QtStringsTable::builtIn({"xx"}), nullptr);
  EXPECT_NE(qt::QtStringsTable::builtIn({"fr_FR", "de_DE"}), nullptr);
  EXPECT_EQ(qt::QtStringsTable::load("/no/such/file.qm"), nullptr);
}

TEST(Strings, AKeyWithoutATranslationIsShown) {
  auto german = qt::QtStringsTable::builtIn({"de"});
  EXPECT_EQ(german->lookup("Nobody asked for this"), std::nullopt);
  EXPECT_EQ(german->lookup(""), std::nullopt);
}

TEST(Strings, VerbatimTextsAreLeftAloneByATableThatTranslatesEverything) {
  Result result = resultWith(2);
  result.goal.title = "Save";
  std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
  people[0].displayName = "Cancel";
  people[1].displayName = "Record outcome";
  result.people = people;
  WindowHost host(result);
  host.widget.setEnvironment(with(std::make_shared<PseudoStrings>()));
  EXPECT_THAT(host.visibleTexts(), Contains("Save"));
  EXPECT_THAT(host.visibleTexts(), Contains("Cancel"));
  EXPECT_THAT(host.visibleTexts(), Contains("Record outcome"));
  EXPECT_THAT(host.visibleTexts(), Not(Contains("Supported path")));
}

TEST(Strings, ALanguageIsTakenUpLiveAndKeepsWhatIsTyped) {
  WindowHost host(resultWith(2));
  host.press("vemra.goal.person.p1.outcome.start");
  auto& note = host.get<QWidget>("vemra.goal.person.p1.outcome.note");
  note.setFocus();
  host.widget.setEnvironment(with(qt::QtStringsTable::builtIn({"de"})));
  EXPECT_TRUE(note.hasFocus());
  EXPECT_THAT(host.visibleTexts(), Contains("Sichern"));
}
