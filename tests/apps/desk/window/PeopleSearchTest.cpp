#include "apps/desk/window/PeopleSearch.hpp"
#include "tests/RecordBuilders.hpp"
#include "tests/apps/desk/window/Becomes.hpp"

#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PeopleSearchTest : public ::testing::Test {
 protected:
  void add(const std::string& name, GoalWhyDTO why = GoalWhyDTO::generic()) {
    people.push_back(build::person("p" + std::to_string(people.size()), name, {}, std::move(why)));
  }
  void addNote(std::size_t index, const std::string& note) {
    GoalOutcomeDTO outcome =
        build::outcome("o" + std::to_string(outcomes.size()), GoalOutcomeSubjectKind::person,
                       "p" + std::to_string(index), GoalOutcomeValue::helped);
    outcome.note = note;
    outcomes.push_back(outcome);
  }
  GoalResultSnapshotV1 goal() const {
    GetGoalSnapshotResponse result;
    result.people = people;
    result.outcomes = outcomes;
    return GoalResultSnapshotV1(result);
  }
  /// The people found for a text, in the order of the search.
  std::vector<std::size_t> found(const QString& text, std::size_t from = 0) {
    search.start(goal(), text, from);
    EXPECT_TRUE(becomes([&] { return search.isDone(); }));
    return search.hits();
  }

  std::vector<GoalPersonCandidateDTO> people;
  std::vector<GoalOutcomeDTO> outcomes;
  PeopleSearch search;
};

TEST_F(PeopleSearchTest, NamesReasonsAndNotesAreSearched) {
  add("Ada");
  add("Grace", GoalWhyDTO::evidence("Worked on compilers", "for years", "ev1"));
  add("Barbara");
  addNote(2, "Knows a compiler team");
  EXPECT_THAT(found("ada"), ElementsAre(0u));
  EXPECT_THAT(found("compiler"), ElementsAre(1u, 2u));
  EXPECT_THAT(found("nobody here"), IsEmpty());
}

TEST_F(PeopleSearchTest, OnlyTheNoteThatCountsIsSearched) {
  add("Ada");
  addNote(0, "first");
  addNote(0, "second");
  outcomes[1].correctsOutcomeID = outcomes[0].id;
  EXPECT_THAT(found("second"), ElementsAre(0u));
  EXPECT_THAT(found("first"), IsEmpty());
}

TEST_F(PeopleSearchTest, APersonWithoutANameHasTheNameOfTheScreen) {
  people.push_back(build::person("p0", "", {}, GoalWhyDTO::generic()));
  people.back().displayName = std::nullopt;
  EXPECT_THAT(found("unnamed"), ElementsAre(0u));
}

TEST_F(PeopleSearchTest, NeitherCaseNorAccentsCount) {
  add("Am\u00e9lie");
  add("Bob");
  EXPECT_THAT(found("AMELIE"), ElementsAre(0u));
}

TEST_F(PeopleSearchTest, ATextInWhichNothingCountsIsFoundNowhere) {
  add("Ada");
  EXPECT_THAT(found("\u0301"), IsEmpty());
}

TEST_F(PeopleSearchTest, TheSearchBeginsAtAPersonAndGoesOnWithTheFirst) {
  for (const char* name : {"Ada 0", "Bob", "Ada 2", "Ada 3"}) add(name);
  EXPECT_THAT(found("ada", 2), ElementsAre(2u, 3u, 0u));
  EXPECT_EQ(search.position(0), 2u);
  EXPECT_EQ(search.position(1), 3u);
  EXPECT_EQ(search.position(2), 1u);
  EXPECT_THAT(found("ada", 99), ElementsAre(0u, 2u, 3u));
}

TEST_F(PeopleSearchTest, TheFirstHitIsThereAtOnceAndAllOfManyFollow) {
  constexpr std::size_t count = 20'000;
  for (std::size_t i = 0; i < count; ++i) add("Ada " + std::to_string(i));
  search.start(goal(), "ada", 19'000);
  ASSERT_FALSE(search.hits().empty());
  EXPECT_EQ(search.hits()[0], 19'000u);
  EXPECT_TRUE(becomes([&] { return search.isDone(); }));
  EXPECT_EQ(search.hits().size(), count);
}

TEST_F(PeopleSearchTest, AStoppedSearchFindsNothingMore) {
  for (int i = 0; i < 20'000; ++i) add("Ada");
  search.start(goal(), "ada", 0);
  search.stop();
  QCoreApplication::processEvents();
  EXPECT_THAT(search.hits(), IsEmpty());
  EXPECT_TRUE(search.isDone());
}

}  // namespace
}  // namespace vemra::desk
