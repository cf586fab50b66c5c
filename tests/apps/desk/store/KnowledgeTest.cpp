#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreSteps.hpp"

#include <algorithm>
#include <chrono>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class KnowledgeTest : public ::testing::Test {
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

TEST_F(KnowledgeTest, OfAPersonIsCollectedAcrossGoalsAndNormalForms) {
  const PersonKnowledge person = store.person("ren\u00E9e");
  EXPECT_EQ(person.name, "Renée");
  ASSERT_EQ(person.suggestions.size(), 2u);
  EXPECT_EQ(person.suggestions[0].goal, (GoalListing{"g1", "First"}));
  EXPECT_EQ(person.suggestions[0].evidenceIDs, (std::vector<std::string>{"ev1", "ev2"}));
  EXPECT_EQ(person.suggestions[1].why, GoalWhyDTO::nameMatch());
  EXPECT_EQ(person.goalsTowards, (std::vector<GoalListing>{{"g2", "Second"}}));
  EXPECT_EQ(person.goalsWithPaths, (std::vector<GoalListing>{{"g1", "First"}}));
  ASSERT_EQ(person.outcomes.size(), 1u);
  EXPECT_EQ(person.outcomes[0].outcome.id, "o1");
  EXPECT_EQ(person.outcomes[0].goal, (GoalListing{"g1", "First"}));
}

TEST_F(KnowledgeTest, OfAPersonHasTheOutcomesOfEachEquivalentReference) {
  const std::vector<std::string> refs{"K",
                                      "\u212A",
                                      "k",
                                      "ren\u00E9e",
                                      "rene\u0301e",
                                      "rene",
                                      "ren\u00E9\u00E9",
                                      "",
                                      "a;b",
                                      "a\u037Eb",
                                      std::string("K\0", 2),
                                      std::string("K\0\u00E9", 4)};
  for (const std::string& ref : refs) {
    store.record("g2", {GoalOutcomeSubjectKind::person, ref, GoalOutcomeValue::helped, {}, {}});
    store.record("g2", {GoalOutcomeSubjectKind::path, ref, GoalOutcomeValue::helped, {}, {}});
  }
  for (const std::string& wanted : refs) {
    std::vector<std::string> expected;
    for (const char* id : {"g1", "g2"}) {
      for (const GoalOutcomeDTO& outcome : store.outcomes(id)) {
        if (outcome.subjectKind == GoalOutcomeSubjectKind::person &&
            text::equal(*outcome.subjectRef, wanted)) {
          expected.push_back(outcome.id);
        }
      }
    }
    std::vector<std::string> found;
    for (const auto& outcome : store.person(wanted).outcomes) found.push_back(outcome.outcome.id);
    EXPECT_EQ(found, expected) << wanted;
    EXPECT_FALSE(found.empty());
  }
}

TEST(KnowledgeWork, OfAPersonIsTheSameForFewAndManyOutcomesOfOthers) {
  const auto stepsWith = [](std::size_t strays) {
    const TemporaryFolder folder;
    GetGoalSnapshotResponse result = goal("g1", "t");
    std::vector<GoalOutcomeDTO> outcomes{outcome("mine", "p1", GoalOutcomeValue::helped)};
    for (std::size_t i = 0; i < strays; ++i) {
      outcomes.push_back(
          outcome("s" + std::to_string(i), "stray" + std::to_string(i), GoalOutcomeValue::invited));
    }
    result.outcomes = std::move(outcomes);
    const StoreSteps steps;
    GoalStore store = GoalStore::open(folder.file("goals.sqlite"));
    store.import({result});
    StoreSteps::start();
    EXPECT_EQ(store.person("p1").outcomes.size(), 1u);
    return StoreSteps::steps();
  };
  EXPECT_EQ(stepsWith(20'000), stepsWith(20));
}

TEST_F(KnowledgeTest, OfAnUnknownPersonIsEmpty) {
  const PersonKnowledge person = store.person("nobody");
  EXPECT_FALSE(person.name);
  EXPECT_TRUE(person.suggestions.empty() && person.goalsTowards.empty() &&
              person.goalsWithPaths.empty() && person.outcomes.empty());
}

TEST_F(KnowledgeTest, OfEvidenceContainsItsStatementsAndItsPeople) {
  const EvidenceKnowledge evidence = store.evidence("ev2");
  ASSERT_EQ(evidence.statements.size(), 2u);
  EXPECT_EQ(evidence.statements[0].detail, "Said hello");
  EXPECT_EQ(evidence.statements[1].detail, "Met");
  ASSERT_EQ(evidence.people.size(), 2u);
  EXPECT_EQ(evidence.people[0].personRef, "ren\u00E9e");
  EXPECT_EQ(evidence.people[0].goal, (GoalListing{"g1", "First"}));
  EXPECT_EQ(evidence.people[0].rank, 1u);
  EXPECT_EQ(evidence.people[1].displayName, "Bo");
  EXPECT_EQ(evidence.people[1].rank, 0u);
  EXPECT_TRUE(store.evidence("ev7").people.empty());
}

TEST_F(KnowledgeTest, OfAPersonContainsNoOutcomeOfAPath) {
  store.record("g1", {GoalOutcomeSubjectKind::path, "bo", GoalOutcomeValue::helped, {}, {}});
  EXPECT_TRUE(store.person("bo").outcomes.empty());
  store.record("g2", {GoalOutcomeSubjectKind::person, "bo", GoalOutcomeValue::invited, "n", "o"});
  const auto outcomes = store.person("bo").outcomes;
  ASSERT_EQ(outcomes.size(), 1u);
  EXPECT_EQ(outcomes[0].goal, (GoalListing{"g2", "Second"}));
  EXPECT_EQ(outcomes[0].outcome, store.outcomes("g2")[0]);
}

TEST_F(KnowledgeTest, OfAPersonIsInTheOrderOfGoalsAndOfRecording) {
  auto early = goal("g0", "Third");  // the third imported goal
  early.people = {{"ren\u00E9e", "Later name", {}, {}}, {"ren\u00E9e", {}, {}, {"ev5"}}};
  early.goal.targetPersonRef = "ren\u00E9e";
  early.paths = {{{"ren\u00E9e"}, {}, 0}, {{"ren\u00E9e"}, {}, 0}};
  store.import({early});
  store.record("g0", {GoalOutcomeSubjectKind::person, "ren\u00E9e", {}, "second", {}});
  store.record("g1", {GoalOutcomeSubjectKind::person, "ren\u00E9e", {}, "third", {}});
  const PersonKnowledge person = store.person("ren\u00E9e");
  std::vector<std::string> titles;
  for (const auto& suggestion : person.suggestions) titles.push_back(suggestion.goal.title);
  EXPECT_EQ(titles, (std::vector<std::string>{"First", "Second", "Third", "Third"}));
  EXPECT_EQ(person.suggestions[3].evidenceIDs, std::vector<std::string>{"ev5"});
  EXPECT_EQ(person.name, "Ren\u00E9e") << "the first one";
  EXPECT_EQ(person.goalsTowards, (std::vector<GoalListing>{{"g2", "Second"}, {"g0", "Third"}}));
  EXPECT_EQ(person.goalsWithPaths, (std::vector<GoalListing>{{"g1", "First"}, {"g0", "Third"}}))
      << "each once";
  ASSERT_EQ(person.outcomes.size(), 3u);
  EXPECT_EQ(person.outcomes[1].outcome.note, "second");
  EXPECT_EQ(person.outcomes[2].outcome.note, "third");
}

TEST_F(KnowledgeTest, OfEvidenceHasEachStatementOnceAndPeopleBeforePaths) {
  auto third = goal("g3", "Third");
  const auto why = GoalWhyDTO::evidence("Email", "Twice", "ev8");
  third.people = {{"a", {}, why, {}}, {"b", {}, why, {}}};
  third.paths = {{{"a"}, GoalWhyDTO::evidence("Call", "Later", "ev8"), 0}};
  store.import({third});
  const auto statements = store.evidence("ev8").statements;
  ASSERT_EQ(statements.size(), 2u);
  EXPECT_EQ(statements[0].goal, (GoalListing{"g3", "Third"}));
  EXPECT_EQ(statements[0].label, "Email");
  EXPECT_EQ(statements[0].detail, "Twice");
  EXPECT_EQ(statements[1].label, "Call");
  EXPECT_EQ(store.evidence("ev8").evidenceID, "ev8");
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

// With a search for each reference, this took minutes, during which the window's other queries
// waited.
TEST_F(KnowledgeTest, NamesOfALongPathTakeOnePassOverThePeople) {
  constexpr std::size_t count = 30'000;
  std::vector<GoalPersonCandidateDTO> people(count, {"", "Somebody", {}, {}});
  std::vector<std::string> path;
  for (std::size_t i = 0; i < count; ++i) {
    people[i].personRef = "person " + std::to_string(i);
    path.push_back("person " + std::to_string(2 * i));
  }
  auto third = goal("g3", "Third");
  third.people = people;
  store.import({third});
  const auto start = std::chrono::steady_clock::now();
  const auto names = store.names("g1", path);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(std::count(names.begin(), names.end(), "Somebody"), count / 2);
}

}  // namespace
}  // namespace vemra::desk
