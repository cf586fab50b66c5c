#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/SampleGoals.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/TemporaryFolder.hpp"

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class KnowledgeTest : public testing::Test {
 protected:
  KnowledgeTest() {
    auto first = goal("g1", "First", {outcome("o1", "ren\u00E9e", GoalOutcomeValue::helped)});
    first.people = {{"ren\u00E9e", std::nullopt, GoalWhyDTO::connection(1), {"ev1", "ev2"}},
                    {"bo", "Bo", GoalWhyDTO::evidence("Email", "Said hello", "ev2"), {"ev2"}}};
    first.paths = {{{"bo", "rene\u0301e"}, GoalWhyDTO::evidence("Note", "Met", "ev2"), 0}};
    auto second = goal("g2", "Second");
    second.goal.targetPersonRef = "rene\u0301e";
    second.people = {{"rene\u0301e", "Renée", GoalWhyDTO::nameMatch(), {}}};
    store.import({first, second});
  }

  TemporaryFolder folder;
  GoalStore store = GoalStore::open(folder.file("goals.sqlite"));
};

TEST_F(KnowledgeTest, OfAPersonGoesAcrossGoalsAndNormalForms) {
  const PersonKnowledge person = store.person("ren\u00E9e");
  EXPECT_EQ(person.name, "Renée");
  ASSERT_EQ(person.suggestions.size(), 2u);
  EXPECT_EQ(person.suggestions[0].goalTitle, "First");
  EXPECT_EQ(person.suggestions[0].evidenceIDs, (std::vector<std::string>{"ev1", "ev2"}));
  EXPECT_EQ(person.suggestions[1].why, GoalWhyDTO::nameMatch());
  EXPECT_EQ(person.goalsTowards, std::vector<std::string>{"Second"});
  EXPECT_EQ(person.goalsWithPaths, std::vector<std::string>{"First"});
  ASSERT_EQ(person.outcomes.size(), 1u);
  EXPECT_EQ(person.outcomes[0].outcome.id, "o1");
  EXPECT_EQ(person.outcomes[0].goalTitle, "First");
}

TEST_F(KnowledgeTest, OfANobodyIsEmpty) {
  const PersonKnowledge person = store.person("nobody");
  EXPECT_FALSE(person.name);
  EXPECT_TRUE(person.suggestions.empty() && person.goalsTowards.empty() &&
              person.goalsWithPaths.empty() && person.outcomes.empty());
}

TEST_F(KnowledgeTest, OfEvidenceSaysWhatItSaysAndForWhomItSpeaks) {
  const EvidenceKnowledge evidence = store.evidence("ev2");
  ASSERT_EQ(evidence.statements.size(), 2u);
  EXPECT_EQ(evidence.statements[0].detail, "Said hello");
  EXPECT_EQ(evidence.statements[1].detail, "Met");
  ASSERT_EQ(evidence.people.size(), 2u);
  EXPECT_EQ(evidence.people[0].personRef, "ren\u00E9e");
  EXPECT_EQ(evidence.people[0].rank, 1u);
  EXPECT_EQ(evidence.people[1].displayName, "Bo");
  EXPECT_EQ(evidence.people[1].rank, 0u);
  EXPECT_TRUE(store.evidence("ev7").people.empty());
}

TEST_F(KnowledgeTest, NamesComeFromTheGoalFirstAndThenFromAnyOther) {
  store.import({[] {
    auto third = goal("g3", "Third");
    third.people = {{"bo", "Bodil", GoalWhyDTO::generic(), {}}};
    return third;
  }()});
  const auto names = [&](const char* goalID) { return store.names(goalID, {"bo", "x", "renée"}); };
  using Names = std::vector<std::optional<std::string>>;
  EXPECT_EQ(names("g1"), (Names{"Bo", std::nullopt, "Renée"}));
  EXPECT_EQ(names("g3"), (Names{"Bodil", std::nullopt, "Renée"}));
  EXPECT_EQ(names("not there"), (Names{"Bo", std::nullopt, "Renée"}));
}

// What the sample goals are for: every face of the screen is in one of them.
TEST(SampleGoals, ShowEveryFaceOfTheScreen) {
  const auto goals = sampleGoals();
  ASSERT_EQ(goals.size(), 3u);
  std::set<std::size_t> reasons;
  bool source = false, noSource = false, nameless = false;
  for (const auto& person : goals[0].people) {
    const auto* plain = std::get_if<GoalWhyDTO::Plain>(&person.why.reason);
    reasons.insert(person.why.reason.index() + (plain != nullptr ? std::size_t(*plain) : 0));
    (person.topEvidenceID() ? source : noSource) = true;
    nameless |= !person.displayName;
  }
  EXPECT_EQ(reasons.size(), 5u);
  EXPECT_TRUE(source && noSource && nameless);
  EXPECT_FALSE(goals[0].paths.empty());
  bool noted = false, corrected = false;
  for (const auto& outcome : goals[0].outcomes) {
    noted |= outcome.note.has_value();
    corrected |= outcome.correctsOutcomeID.has_value();
  }
  EXPECT_TRUE(noted && corrected);

  EXPECT_TRUE(goals[1].people.empty() && !goals[1].goal.targetPersonRef);
  EXPECT_EQ(goals[1].coverage.evidenceCount, 0);

  EXPECT_TRUE(goals[2].people.empty() && goals[2].paths.empty());
  EXPECT_TRUE(goals[2].goal.targetPersonRef);
  EXPECT_GT(goals[2].coverage.evidenceCount, 0);
}

}  // namespace
}  // namespace vemra::desk
