// The pane's texts about a person, a source and a path.

#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/SidePane.hpp"

#include <limits>
#include <string>
#include <vector>

#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;

class SidePaneTest : public ::testing::Test {
 protected:
  /// The pane's texts in their order.
  std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    collect(*pane.widget()->layout(), texts);
    return texts;
  }

  PersonKnowledge ada() const {
    PersonKnowledge person;
    person.personRef = "p1";
    person.name = "Ada";
    return person;
  }

  SidePane pane;
  const GoalListing first{"g1", "First"}, second{"g2", "Second"}, third{"g3", "Third"};

 private:
  static void collect(const QLayout& layout, std::vector<std::string>& texts) {
    for (int i = 0; i < layout.count(); ++i) {
      QLayoutItem* item = layout.itemAt(i);
      if (item->layout()) collect(*item->layout(), texts);
      if (auto* label = qobject_cast<QLabel*>(item->widget())) {
        texts.push_back(label->text().toStdString());
      }
    }
  }
};

TEST_F(SidePaneTest, IsHiddenUntilItHasContent) {
  EXPECT_TRUE(pane.isHidden());
  EXPECT_EQ(pane.objectName(), "desk.side");
  EXPECT_EQ(pane.focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(pane.minimumWidth(), 220);
  EXPECT_EQ(pane.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
  pane.showPerson(ada());
  EXPECT_FALSE(pane.isHidden());
  EXPECT_EQ(pane.accessibleName(), "Person: Ada");
}

TEST_F(SidePaneTest, OfAnUnknownPersonItShowsTheNameAndNoReference) {
  pane.showPerson(ada());
  EXPECT_THAT(texts(),
              ElementsAre("Person", "Ada", "The store holds nothing more about this person."));
  PersonKnowledge nameless;
  nameless.personRef = "p2";
  pane.showPerson(nameless);
  EXPECT_THAT(texts(), ElementsAre("Person", "Unnamed person",
                                   "The store holds nothing more about this person."));
}

TEST_F(SidePaneTest, ASuggestionShowsGoalNameReasonAndSources) {
  PersonKnowledge person = ada();
  person.suggestions = {{first, "Ada", GoalWhyDTO::nameMatch(), {}},
                        {second,
                         "Countess",
                         GoalWhyDTO::connection(std::numeric_limits<std::int64_t>::min()),
                         {"e1", "e2"}},
                        {third, std::nullopt, GoalWhyDTO::connection(1), {"e3"}}};
  pane.showPerson(person);
  const std::vector<std::string> all = texts();
  ASSERT_EQ(all.size(), 2u + 1 + 2 + 4 + 3);
  EXPECT_THAT(std::vector<std::string>(all.begin() + 2, all.begin() + 4),
              ElementsAre("Worth considering for", "First"));
  EXPECT_THAT(std::vector<std::string>(all.begin() + 5, all.begin() + 10),
              ElementsAre("Second", "As Countess", "Connected", "Sources: 2", "Third"));
  EXPECT_EQ(all.back(), "Sources: 1");
}

TEST_F(SidePaneTest, GoalsAndPathsEachHaveAHeading) {
  PersonKnowledge person = ada();
  person.goalsTowards = {first, second};
  person.goalsWithPaths = {third};
  pane.showPerson(person);
  EXPECT_THAT(texts(), ElementsAre("Person", "Ada", "The person to reach for", "First", "Second",
                                   "On a path for", "Third"));
}

TEST_F(SidePaneTest, AnOutcomeShowsValueDayCorrectionNoteAndGoal) {
  GoalOutcomeDTO plain, corrected, odd;
  plain.recordedAt = "2025-01-05T23:30:00Z";
  plain.note = "a note";
  corrected.correctsOutcomeID = "o1";
  odd.recordedAt = "yesterday";
  PersonKnowledge person = ada();
  person.outcomes = {{first, plain}, {second, corrected}, {third, odd}};
  ui::Environment environment;
  environment.locale = "en_US";
  pane.setEnvironment(environment);
  pane.showPerson(person);
  const std::vector<std::string> all = texts();
  ASSERT_EQ(all.size(), 2u + 1 + 3 + 2 + 2);
  EXPECT_EQ(all[2], "Recorded");
  EXPECT_TRUE(all[3].ends_with(", Jan 5, 2025")) << all[3];
  EXPECT_EQ(all[4], "a note");
  EXPECT_EQ(all[5], "First");
  EXPECT_TRUE(all[6].ends_with(" · corrected")) << all[6];
  EXPECT_EQ(all[6].find(','), std::string::npos) << "no day is known";
  EXPECT_EQ(all[7], "Second");
  EXPECT_EQ(all[8].find(','), std::string::npos) << "this one cannot be read either";
  EXPECT_EQ(all[9], "Third");
}

TEST_F(SidePaneTest, ASourceShowsItsStatementsAndTheirPeople) {
  EvidenceKnowledge evidence;
  evidence.evidenceID = "mail-1";
  pane.showEvidence(evidence);
  EXPECT_THAT(texts(), ElementsAre("Source", "Unnamed source",
                                   "The store holds nothing more about this source."));
  evidence.statements = {{first, "Label", "Detail"}, {second, "", "Only"}};
  pane.showEvidence(evidence);
  EXPECT_THAT(texts(), ElementsAre("Source", "Label", "What it says", "Label", "Detail", "First",
                                   "Only", "Second"));
  evidence.statements.clear();
  evidence.people = {{first, "p1", "Ada", 0, GoalWhyDTO::nameMatch()},
                     {first, "p2", std::nullopt, 1, GoalWhyDTO::nameMatch()}};
  pane.showEvidence(evidence);
  const std::vector<std::string> all = texts();
  ASSERT_EQ(all.size(), 3u + 4 + 4);
  EXPECT_EQ(all[2], "Whom it speaks for");
  EXPECT_EQ(all[3], "Ada");
  EXPECT_EQ(all[5], "The strongest source for them");
  EXPECT_EQ(all[6], "First");
  EXPECT_EQ(all[7], "Unnamed person");
  EXPECT_EQ(all[9], "One of several sources");
}

TEST_F(SidePaneTest, APathIsNamedAfterItsLastPerson) {
  GoalPathCandidateDTO path;
  path.personRefs = std::vector<std::string>{"p1", "p2"};
  path.why = GoalWhyDTO::connection(std::numeric_limits<std::int64_t>::min());
  pane.showPath(path, {"Ada"});
  EXPECT_THAT(texts(), ElementsAre("Starfold", "Path to Unnamed person", "Connected"));
  EXPECT_EQ(pane.findChild<PathGraph*>()->accessibleDescription(), "Ada, then Unnamed person");
  EXPECT_EQ(pane.accessibleName(), "Starfold: Path to Unnamed person");
  pane.showPath(path, {std::nullopt, "Bo"});
  EXPECT_EQ(pane.findChild<PathGraph*>()->accessibleDescription(), "Unnamed person, then Bo");
  path.personRefs = std::vector<std::string>();
  pane.showPath(path, {});
  EXPECT_THAT(texts(), ElementsAre("Starfold", "Path to Nobody", "Connected"));
}

TEST_F(SidePaneTest, ItsButtonAsksToCloseIt) {
  int closed = 0;
  QObject::connect(&pane, &SidePane::closed, [&] { ++closed; });
  pane.showPerson(ada());
  auto* close = pane.findChild<QToolButton*>("desk.side.close");
  ASSERT_TRUE(close);
  EXPECT_EQ(close->text(), "Close");
  EXPECT_EQ(close->focusPolicy(), Qt::StrongFocus);
  close->click();
  EXPECT_EQ(closed, 1);
  EXPECT_FALSE(pane.isHidden()) << "the window decides";
}

}  // namespace
}  // namespace vemra::desk
