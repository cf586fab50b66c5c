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

TEST_F(SidePaneTest, AnUnknownPersonIsShownWithNameAndReference) {
  pane.showPerson(ada());
  EXPECT_THAT(texts(), ElementsAre("Person", "Ada", "Reference: p1"));
  PersonKnowledge nameless;
  nameless.personRef = "p2";
  pane.showPerson(nameless);
  EXPECT_THAT(texts(), ElementsAre("Person", "Unnamed person", "Reference: p2"));
}

TEST_F(SidePaneTest, ASuggestionShowsGoalNameReasonAndSources) {
  PersonKnowledge person = ada();
  person.suggestions = {{"First", "Ada", GoalWhyDTO::nameMatch(), {}},
                        {"Second",
                         "Countess",
                         GoalWhyDTO::connection(std::numeric_limits<std::int64_t>::min()),
                         {"e1", "e2"}},
                        {"Third", std::nullopt, GoalWhyDTO::connection(1), {"e3"}}};
  pane.showPerson(person);
  const std::vector<std::string> all = texts();
  ASSERT_EQ(all.size(), 3u + 1 + 2 + 4 + 3);
  EXPECT_THAT(std::vector<std::string>(all.begin() + 3, all.begin() + 5),
              ElementsAre("Worth considering for", "First"));
  EXPECT_THAT(std::vector<std::string>(all.begin() + 6, all.begin() + 11),
              ElementsAre("Second", "As Countess", "Connected", "Sources: e1, e2", "Third"));
  EXPECT_EQ(all.back(), "Sources: e3");
}

TEST_F(SidePaneTest, GoalsAndPathsEachHaveAHeading) {
  PersonKnowledge person = ada();
  person.goalsTowards = {"One", "Two"};
  person.goalsWithPaths = {"Three"};
  pane.showPerson(person);
  EXPECT_THAT(texts(), ElementsAre("Person", "Ada", "Reference: p1", "The person to reach for",
                                   "One", "Two", "On a path for", "Three"));
}

TEST_F(SidePaneTest, AnOutcomeShowsValueDayCorrectionNoteAndGoal) {
  GoalOutcomeDTO plain, corrected, odd;
  plain.recordedAt = "2025-01-05T23:30:00Z";
  plain.note = "a note";
  corrected.correctsOutcomeID = "o1";
  odd.recordedAt = "yesterday";
  PersonKnowledge person = ada();
  person.outcomes = {{"First", plain}, {"Second", corrected}, {"Third", odd}};
  ui::Environment environment;
  environment.locale = "en_US";
  pane.setEnvironment(environment);
  pane.showPerson(person);
  const std::vector<std::string> all = texts();
  ASSERT_EQ(all.size(), 3u + 1 + 3 + 2 + 2);
  EXPECT_EQ(all[3], "Recorded");
  EXPECT_TRUE(all[4].ends_with(", Jan 5, 2025")) << all[4];
  EXPECT_EQ(all[5], "a note");
  EXPECT_EQ(all[6], "First");
  EXPECT_TRUE(all[7].ends_with(" · corrected")) << all[7];
  EXPECT_EQ(all[7].find(','), std::string::npos) << "no day is known";
  EXPECT_EQ(all[8], "Second");
  EXPECT_EQ(all[9].find(','), std::string::npos) << "this one cannot be read either";
  EXPECT_EQ(all[10], "Third");
}

TEST_F(SidePaneTest, ASourceShowsItsStatementsAndTheirPeople) {
  EvidenceKnowledge evidence;
  evidence.evidenceID = "mail-1";
  pane.showEvidence(evidence);
  EXPECT_THAT(texts(),
              ElementsAre("Source", "mail-1", "The store holds nothing more about this source."));
  evidence.statements = {{"Goal", "Label", "Detail"}, {"Other", "", "Only"}};
  pane.showEvidence(evidence);
  EXPECT_THAT(texts(), ElementsAre("Source", "mail-1", "What it says", "Label", "Detail", "Goal",
                                   "Only", "Other"));
  evidence.statements.clear();
  evidence.people = {{"Goal", "p1", "Ada", 0, GoalWhyDTO::nameMatch()},
                     {"Goal", "p2", std::nullopt, 1, GoalWhyDTO::nameMatch()}};
  pane.showEvidence(evidence);
  const std::vector<std::string> all = texts();
  ASSERT_EQ(all.size(), 3u + 4 + 4);
  EXPECT_EQ(all[2], "Whom it speaks for");
  EXPECT_EQ(all[3], "Ada");
  EXPECT_EQ(all[5], "The strongest source for them");
  EXPECT_EQ(all[6], "Goal");
  EXPECT_EQ(all[7], "Unnamed person");
  EXPECT_EQ(all[9], "One of several sources");
}

TEST_F(SidePaneTest, APathIsNamedAfterItsLastPerson) {
  GoalPathCandidateDTO path;
  path.personRefs = std::vector<std::string>{"p1", "p2"};
  path.why = GoalWhyDTO::connection(std::numeric_limits<std::int64_t>::min());
  pane.showPath(path, {"Ada"});
  EXPECT_THAT(texts(), ElementsAre("Starfold", "Path to p2", "Connected"));
  EXPECT_EQ(pane.findChild<PathGraph*>()->accessibleDescription(), "Ada, then p2");
  EXPECT_EQ(pane.accessibleName(), "Starfold: Path to p2");
  pane.showPath(path, {std::nullopt, "Bo"});
  EXPECT_EQ(pane.findChild<PathGraph*>()->accessibleDescription(), "p1, then Bo");
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
