#include "apps/desk/window/GoalNews.hpp"
#include "tests/Allocations.hpp"
#include "tests/apps/desk/SampleResults.hpp"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

std::string withoutIsolates(QString text) {
  return text.remove(QChar(0x2068)).remove(QChar(0x2069)).toStdString();
}

GoalResultSnapshotV1 resultWith(std::vector<std::string> refs) {
  auto result = goal("g1", "One");
  std::vector<GoalPersonCandidateDTO> people;
  for (const std::string& ref : refs) people.push_back(build::person(ref, "Name of " + ref));
  result.people = std::move(people);
  return GoalResultSnapshotV1(std::move(result));
}

std::string news(std::vector<std::string> before, std::vector<std::string> after) {
  return withoutIsolates(newsOf(resultWith(std::move(before)), resultWith(std::move(after))));
}

TEST(GoalNewsTest, NamesNewGoalsAndCountsMany) {
  const std::vector<GoalListing> one{{"g1", "One"}};
  EXPECT_EQ(newsOf(one, one), "");
  EXPECT_EQ(withoutIsolates(newsOf({}, one)), "New goals: One.");
  const std::vector<GoalListing> five{
      {"g2", "Two"}, {"g1", "Eins"}, {"g3", "Three"}, {"g4", "Four"}, {"g5", "Five"}};
  EXPECT_EQ(withoutIsolates(newsOf(one, five)), "New goals: Two, Three, Four, and 1 more.");
  EXPECT_EQ(newsOf(five, one), "");
}

TEST(GoalNewsTest, NamesPeopleWhoAreNewAndGone) {
  EXPECT_EQ(news({"a", "b"}, {"b", "a"}), "This goal has changed.") << "another order";
  EXPECT_EQ(news({"a", "b"}, {"a", "b"}), "");
  EXPECT_EQ(news({"a", "b"}, {"c", "b"}),
            "New in this goal: Name of c. No longer in this goal: Name of a.");
  EXPECT_EQ(news({}, {"é"}), "New in this goal: Name of é.");
  EXPECT_EQ(news({"\u00e9"}, {"e\u0301"}), "") << "one person under canonical equivalence";
}

TEST(GoalNewsTest, APersonWhoseReasonChangesChangesTheGoal) {
  auto changed = goal("g1", "One");
  const GoalResultSnapshotV1 before(changed);
  std::vector<GoalPersonCandidateDTO> people(changed.people.begin(), changed.people.end());
  people[0].displayName = "Another name";
  changed.people = std::move(people);
  EXPECT_EQ(newsOf(before, GoalResultSnapshotV1(changed)), "This goal has changed.");
}

TEST(GoalNewsTest, PeopleInOneStorageAreNotCompared) {
  std::vector<GoalPersonCandidateDTO> people;
  for (int i = 0; i < 1'000; ++i) people.push_back(build::person("p" + std::to_string(i), "Name"));
  auto result = goal("g1", "One");
  result.people = std::move(people);
  const GoalResultSnapshotV1 before(result);
  result.outcomes = {outcome("o1", "p1", GoalOutcomeValue::helped)};
  const GoalResultSnapshotV1 after(result);
  ASSERT_TRUE(before.people().sharesStorage(after.people()));
  const auto allocations = testing::allocations();
  EXPECT_EQ(newsOf(before, after), "");
  EXPECT_LE(testing::allocations() - allocations, 10u);
}

TEST(GoalNewsTest, NamesOutcomesThatAreNewAndCountsMany) {
  const auto heard = [](std::vector<GoalOutcomeDTO> before, std::vector<GoalOutcomeDTO> after,
                        const OutcomeIDs& known = {}) {
    return withoutIsolates(
        newsOfOutcomes(GoalResultSnapshotV1(goal("g1", "One", std::move(before))),
                       GoalResultSnapshotV1(goal("g1", "One", std::move(after))), known));
  };
  const auto helped = [](const std::string& id) {
    return outcome(id, "p1", GoalOutcomeValue::helped);
  };
  EXPECT_EQ(heard({}, {}), "");
  EXPECT_EQ(heard({}, {helped("o1")}), "Recorded by another program: “Helped” for Ada.");
  EXPECT_EQ(heard({helped("o1")}, {}), "");
  EXPECT_EQ(heard({helped("\u00e9")}, {helped("e\u0301")}), "")
      << "one id under canonical equivalence";
  EXPECT_EQ(heard({}, {helped("o1"), helped("o2")}, {{"o1", true}, {"o2", true}}), "")
      << "of this program";
  EXPECT_EQ(
      heard({helped("1")}, {helped("2"), helped("3"), helped("1"), helped("4"), helped("5")}),
      "Recorded by another program: “Helped” for Ada, “Helped” for Ada, “Helped” for Ada, and "
      "1 more.");
}

TEST(GoalNewsTest, OutcomesChangeNoPartOfTheResultAndAnotherTitleDoes) {
  const GoalResultSnapshotV1 before(goal("g1", "One"));
  const GoalResultSnapshotV1 recorded(
      goal("g1", "One", {outcome("o1", "p1", GoalOutcomeValue::helped)}));
  EXPECT_EQ(newsOf(before, recorded), "");
  EXPECT_EQ(newsOf(before, GoalResultSnapshotV1(goal("g1", "Two"))), "This goal has changed.");
}

}  // namespace
}  // namespace vemra::desk
