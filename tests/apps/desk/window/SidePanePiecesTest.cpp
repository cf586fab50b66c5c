// The side pane shows long texts and lists piece by piece.

#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/SidePane.hpp"

#include <string>
#include <utility>
#include <vector>

#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class SidePanePiecesTest : public ::testing::Test {
 protected:
  SidePanePiecesTest() { pane.resize(290, 700); }

  QStringList texts() const {
    QStringList texts;
    for (const auto* label : pane.widget()->findChildren<QLabel*>()) texts.append(label->text());
    return texts;
  }
  /// Presses the first "Show more of …".
  bool showMore(const QString& what) const {
    for (auto* more : pane.findChildren<QPushButton*>("desk.side.more")) {
      if (more->isHidden() || more->accessibleName() != "Show more of " + what) continue;
      more->click();
      return true;
    }
    return false;
  }
  /// The amount that a pane lays out at once, for any content.
  void expectBounded() const {
    EXPECT_LT(texts().size(), 200);
    for (const QString& text : texts()) EXPECT_LE(text.size(), mostUnitsAtOnce + 1);
    EXPECT_LE(pane.accessibleName().size(), mostUnitsAtOnce + 50);
  }

  static std::vector<std::string> ids(std::size_t count) {
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < count; ++i) ids.push_back("ev" + std::to_string(i));
    return ids;
  }

  SidePane pane;
};

TEST_F(SidePanePiecesTest, EveryTextOfAPersonIsShownInPieces) {
  const std::string longText = (u'x' + QString::fromUtf8("\u0301").repeated(20'000)).toStdString();
  PersonKnowledge person;
  person.personRef = longText;
  person.name = longText;
  person.goalsTowards = {{"g", longText}};
  person.goalsWithPaths = {{"g", longText}};
  person.suggestions = {{{"g", longText},
                         "other" + longText,
                         GoalWhyDTO::evidence(longText, longText, "ev"),
                         {longText}}};
  GoalOutcomeDTO outcome;
  outcome.note = longText;
  person.outcomes = {{{"g", longText}, outcome}};
  pane.showPerson(person);
  expectBounded();
  EXPECT_TRUE(showMore("the text"));
}

TEST_F(SidePanePiecesTest, EveryListOfAPersonIsShownInPieces) {
  PersonKnowledge person;
  person.suggestions.resize(300, {{"g", "goal"}, "Ada", GoalWhyDTO::connection(1), {"ev"}});
  person.goalsTowards.resize(300, {"g", "towards"});
  person.goalsWithPaths.resize(300, {"g", "path"});
  person.outcomes.resize(300, {{"g", "outcome"}, {}});
  pane.showPerson(person);
  expectBounded();
  EXPECT_EQ(texts().count("towards"), 20);
  EXPECT_EQ(texts().count("path"), 20);
  EXPECT_EQ(texts().count("goal"), 20);
  EXPECT_EQ(texts().count("outcome"), 20);
  EXPECT_TRUE(showMore("the outcomes"));
  EXPECT_EQ(texts().count("outcome"), 40);
  EXPECT_EQ(texts().count("goal"), 20) << "the others have as many as before";
}

TEST_F(SidePanePiecesTest, AMillionSourcesAreCounted) {
  PersonKnowledge person;
  person.suggestions = {{{"g", "goal"}, "Ada", GoalWhyDTO::nameMatch(), ids(1'000'000)}};
  pane.showPerson(std::move(person));
  expectBounded();
  EXPECT_TRUE(texts().contains("Sources: 1,000,000")) << texts().join("\n").toStdString();
}

TEST_F(SidePanePiecesTest, EverythingOfASourceIsShownInPieces) {
  EvidenceKnowledge evidence;
  evidence.evidenceID = std::string(5'000, 'w');
  evidence.statements.resize(300, {{"g", "goal"}, "label", "detail"});
  evidence.people.resize(300, {{"g", "aim"}, "p", "Ada", 0, GoalWhyDTO::nameMatch()});
  pane.showEvidence(evidence);
  expectBounded();
  EXPECT_EQ(texts().count("detail"), 20);
  EXPECT_EQ(texts().count("Ada"), 20);
  EXPECT_TRUE(showMore("the statements"));
  EXPECT_EQ(texts().count("detail"), 40);
  EXPECT_TRUE(showMore("the people"));
  EXPECT_EQ(texts().count("Ada"), 40);
}

TEST_F(SidePanePiecesTest, ALongPathIsDrawnInPartsUnderTheNameOfItsLastPerson) {
  GoalPathCandidateDTO path;
  path.personRefs = ids(45);
  std::vector<std::optional<std::string>> names;
  for (const std::string& id : path.personRefs) names.emplace_back("person " + id);
  pane.showPath(path, names);
  const auto graphs = [&] { return pane.findChildren<PathGraph*>(); };
  ASSERT_EQ(graphs().size(), 1);
  EXPECT_EQ(graphs()[0]->accessibleName(), "Path to person ev44");
  EXPECT_TRUE(graphs()[0]->accessibleDescription().endsWith("then person ev19"));
  EXPECT_TRUE(showMore("the path"));
  EXPECT_TRUE(showMore("the path"));
  EXPECT_FALSE(showMore("the path"));
  ASSERT_EQ(graphs().size(), 3);
  EXPECT_EQ(graphs()[2]->accessibleDescription(),
            "person ev40, then person ev41, then person ev42, then person ev43, then person ev44");
  path.personRefs = ids(20);
  pane.showPath(path, {});
  EXPECT_FALSE(showMore("the path"));
}

}  // namespace
}  // namespace vemra::desk
