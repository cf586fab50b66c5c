#include "VemraGoalSurface/presentation/ScreenKeys.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <functional>
#include <memory>
#include <set>

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using ::testing::ElementsAre;
using testing::Screen;

/// A strings table made from a function; it logs the keys that are looked up.
class Table final : public ui::StringsTable {
 public:
  using Translate = std::function<std::optional<std::string>(std::string_view key)>;
  explicit Table(Translate translate) : translate_(std::move(translate)) {}

  std::optional<std::string> lookup(std::string_view key) const override {
    asked_.emplace(key);
    return translate_(key);
  }
  const std::set<std::string>& asked() const { return asked_; }

 private:
  Translate translate_;
  mutable std::set<std::string> asked_;
};

ui::Environment withStrings(std::shared_ptr<const Table> table) {
  ui::Environment environment;
  environment.strings = std::move(table);
  return environment;
}

/// Translates every text, also names and sentences.
std::shared_ptr<Table> everything() {
  return std::make_shared<Table>([](std::string_view key) { return '[' + std::string(key) + ']'; });
}

/// Every variant of the screen: a recorded person with an open path editor, and a second screen
/// with gaps.
Result everyFace() {
  Result result = ordinaryResult();
  result.people = {person("p1", "Show source", {"ev9"}), person("p2", "Cancel"), person("p3")};
  result.goal.title = "Save";
  result.coverage.sources = {"Correct"};
  result.coverage.latestEvidenceAt = "2025-01-05T10:00:00Z";
  result.outcomes = {outcome("o1", SubjectKind::person, "p1", Value::helped, "Record outcome", "")};
  return result;
}

class Localization : public ::testing::Test {
 protected:
  Calls calls_;
};

TEST_F(Localization, TranslatesHeadingsAndTitlesAndNothingElse) {
  Screen screen(viewOf(everyFace(), calls_), withStrings(everything()));
  screen.press("vemra.goal.person.p2.outcome.start");
  EXPECT_THAT(screen.shownTexts(),
              ElementsAre("Save", "[People worth considering]",
                          // A recorded person with a source; the name and the note are keys, too.
                          "Show source", "Matches on name", "[Show source]", "Helped",
                          "[\u00B7 corrected]", "[Correct]", "Record outcome",
                          // A person with the editor open.
                          "Cancel", "Matches on name", "[Outcome]", "Reached out", "Invited",
                          "Introduced", "Helped", "Was useful", "Not a fit", "No action taken",
                          "Something else", "[Note (optional)]", "[Save]", "[Cancel]",
                          // A person without a name and with nothing recorded.
                          "Unnamed person", "Matches on name", "[Record outcome]",  //
                          "[Supported path]", "Connected through 1 shared relationship",
                          "[See in Starfold]", "[Record outcome]",
                          "Based on 12 piece(s) of evidence from Correct, through Jan 5, 2025."));
}

TEST_F(Localization, TheListOfKeysHasAllThatTheScreenLooksUpAndNoOthers) {
  const auto table = everything();
  Screen screen(viewOf(everyFace(), calls_), withStrings(table));
  screen.press("vemra.goal.person.p2.outcome.start");
  screen.show(viewOf(Result(), calls_));
  EXPECT_EQ(table->asked(),
            std::set<std::string>(goalResultScreenKeys.begin(), goalResultScreenKeys.end()));
}

TEST_F(Localization, NeverTranslatesGapsButTranslatesTheMissingEvidence) {
  Result result;
  Screen screen(viewOf(result, calls_), withStrings(everything()));
  EXPECT_THAT(screen.shownTexts(),
              ElementsAre("", "[People worth considering]", "No relevant people found yet.",
                          "[Supported path]", "This goal doesn't name someone to find a path to.",
                          "[No source evidence yet.]"));
}

TEST_F(Localization, ShowsTheKeyWithoutATranslation) {
  auto table = std::make_shared<Table>([](std::string_view key) -> std::optional<std::string> {
    if (key == "Supported path") return "Möglicher Weg";
    return std::nullopt;
  });
  Screen screen(viewOf(ordinaryResult(), calls_), withStrings(table));
  EXPECT_TRUE(screen.has(testing::byText("Möglicher Weg")));
  EXPECT_TRUE(screen.has(testing::byText("People worth considering")));
}

TEST_F(Localization, ShowsAnEmptyTranslationAsEmpty) {
  auto nothing = std::make_shared<Table>([](std::string_view) { return std::string(); });
  Screen screen(viewOf(ordinaryResult(), calls_), withStrings(nothing));
  EXPECT_EQ(screen.get("vemra.goal.path.see-in-starfold").element.shownLabel(), "");
  EXPECT_THAT(screen.shownTexts(),
              ElementsAre("Find a design lead", "", "Ada", "Matches on name", "", "", "",
                          "Connected through 1 shared relationship", "", "",
                          "Based on 12 piece(s) of evidence from Mail."));
}

TEST_F(Localization, ChangesNoIdentifierAndNoCallback) {
  Screen english(viewOf(everyFace(), calls_));
  Screen screen(viewOf(everyFace(), calls_), withStrings(everything()));
  EXPECT_EQ(screen.identifiers(), english.identifiers());
  screen.press(testing::button("[Show source]"));
  screen.press("vemra.goal.person.p3.outcome.start");
  screen.press(testing::button("[Save]"));
  EXPECT_THAT(calls_.log, ElementsAre("evidence \"ev9\"",
                                      "record person \"p3\" wasUseful note=nil corrects=nil"));
}

TEST_F(Localization, FollowsANewTableWhileTheEditorIsOpen) {
  Screen screen(viewOf(ordinaryResult(), calls_));
  screen.press("vemra.goal.path.outcome.start");
  screen.type("vemra.goal.path.outcome.note", "Save");
  screen.setEnvironment(withStrings(everything()));
  EXPECT_EQ(screen.get("vemra.goal.path.outcome.save").element.shownLabel(), "[Save]");
  EXPECT_EQ(screen.get("vemra.goal.path.outcome.note").element.text(), "Save");
}

}  // namespace
}  // namespace vemra::screentest
