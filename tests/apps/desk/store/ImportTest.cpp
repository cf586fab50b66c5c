#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/ResultRows.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/store/Transaction.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
using enum GoalOutcomeValue;

class ImportTest : public StoreFile {
 protected:
  std::vector<std::string> recordedIDs(const std::string& goalID) {
    std::vector<std::string> ids;
    for (const auto& outcome : store.outcomes(goalID)) ids.push_back(outcome.id);
    return ids;
  }

  /// A goal whose people all have evidence.
  static GetGoalSnapshotResponse crowd(std::size_t count, const std::string& name) {
    GetGoalSnapshotResponse result = goal("g1", name);
    std::vector<GoalPersonCandidateDTO> people;
    for (std::size_t i = 0; i < count; ++i) {
      const std::string id = std::to_string(i);
      people.push_back(build::person("p" + id, name + id, {"e" + id, "f" + id}));
    }
    result.people = std::move(people);
    return result;
  }

  using IDs = std::vector<std::string>;
  GoalStore store = GoalStore::open(file);
};

TEST_F(ImportTest, ReplacesAnExistingGoal) {
  store.import({goal("g1", "before"), goal("g2", "other")});
  GetGoalSnapshotResponse after = goal("g1", "after");
  after.people = {};
  after.paths = {{{"p1", "p9"}, GoalWhyDTO::nameMatch(), 4}};
  after.coverage = {{}, 0, std::nullopt};
  store.import({after});
  EXPECT_EQ(store.result("g1"), after);
  EXPECT_EQ(store.goals(), (std::vector<GoalListing>{{"g1", "after"}, {"g2", "other"}}))
      << "the order of the goals must not change";
}

TEST_F(ImportTest, KeepsRecordedOutcomesWhenAGoalIsReplaced) {
  store.import({goal("g1", "t", {outcome("o1", "p1", helped)})});
  const std::string mine =
      store.record("g1", {GoalOutcomeSubjectKind::person, "p1", invited, "note", "o1"}).id;
  store.import({goal("g1", "t", {})});
  EXPECT_EQ(recordedIDs("g1"), (IDs{"o1", mine}));
}

TEST_F(ImportTest, AddsNothingWhenADocumentIsImportedTwice) {
  const auto document =
      goal("g1", "t", {outcome("o1", "p1", helped), outcome("o2", "p1", invited)});
  EXPECT_TRUE(store.import({document}).empty());
  EXPECT_TRUE(store.import({document}).empty());
  EXPECT_EQ(recordedIDs("g1"), (IDs{"o1", "o2"}));
}

TEST_F(ImportTest, RecordsNewOutcomesBehindTheOthers) {
  store.import({goal("g1", "t", {outcome("o1", "p1", helped)})});
  const std::string mine =
      store.record("g1", {GoalOutcomeSubjectKind::person, "p1", invited, {}, {}}).id;
  store.import({goal(
      "g1", "t",
      {outcome("o0", "p1", notAFit), outcome("o1", "p1", helped), outcome("o2", "p1", helped)})});
  EXPECT_EQ(recordedIDs("g1"), (IDs{"o1", mine, "o0", "o2"}));
}

TEST_F(ImportTest, NeverChangesARecordAndReportsTheDifference) {
  store.import({goal("g1", "t", {outcome("o1", "p1", helped), outcome("o2", "p1", helped)})});
  const auto leftOut =
      store.import({goal("other", "t"),
                    goal("g1", "t", {outcome("o2", "p1", helped), outcome("o1", "p1", notAFit)})});
  EXPECT_EQ(store.outcomes("g1")[0].value, helped);
  EXPECT_EQ(recordedIDs("g1"), (IDs{"o1", "o2"}));
  ASSERT_EQ(leftOut.size(), 1u);
  EXPECT_EQ(leftOut[0].document, 1u);
  EXPECT_EQ(leftOut[0].outcome, 1u);
}

TEST_F(ImportTest, TreatsOutcomeIdsOfDifferentGoalsAsDifferentOutcomes) {
  store.import({goal("g1", "t", {outcome("o1", "p1", helped)}),
                goal("g2", "t", {outcome("o1", "p1", notAFit)})});
  EXPECT_EQ(store.outcomes("g1")[0].value, helped);
  EXPECT_EQ(store.outcomes("g2")[0].value, notAFit);
}

TEST_F(ImportTest, KeepsAnIdThatADocumentUsesTwice) {
  const auto document =
      goal("g1", "t", {outcome("o1", "p1", helped), outcome("o1", "p1", invited)});
  store.import({document});
  EXPECT_EQ(store.result("g1"), document);
  EXPECT_TRUE(store.import({document}).empty());
  EXPECT_EQ(store.result("g1"), document);
}

TEST_F(ImportTest, TreatsCanonicallyEquivalentIdsAsOneId) {
  store.import({goal("caf\u00E9", "composed", {outcome("\u00E9", "p1", helped)})});
  store.import({goal("cafe\u0301", "decomposed", {outcome("e\u0301", "p1", helped)})});
  ASSERT_EQ(store.goals().size(), 1u);
  EXPECT_EQ(store.goals()[0].id, "cafe\u0301") << "the later document's bytes";
  EXPECT_EQ(store.result("caf\u00E9").goal.title, "decomposed");
  EXPECT_EQ(recordedIDs("caf\u00E9"), IDs{"\u00E9"}) << "the bytes as they were recorded";
}

TEST_F(ImportTest, StoresAGoalNamedTwiceInOneCallAsInTwoCalls) {
  store.import({goal("g1", "first", {outcome("o1", "p1", helped)}),
                goal("g1", "second", {outcome("o2", "p1", invited)})});
  EXPECT_EQ(store.result("g1").goal.title, "second");
  EXPECT_EQ(recordedIDs("g1"), (IDs{"o1", "o2"}));
}

TEST_F(ImportTest, StoresAllOrNone) {
  store.import({goal("g1", "before")});
  auto refused = goal("g3", "t");
  refused.coverage.sources = {"\xFF"};  // written last
  EXPECT_THROW(
      store.import({goal("g1", "after", {outcome("o1", "p1", helped)}), goal("g2", "t"), refused}),
      StoreError);
  EXPECT_EQ(store.goals(), (std::vector<GoalListing>{{"g1", "before"}}));
  EXPECT_TRUE(store.outcomes("g1").empty());
  EXPECT_EQ(RawDatabase(file).value("SELECT count(*) FROM people"), "1");

  refused = goal("g3", "t");
  store.import({goal("g2", "t"), refused});
  EXPECT_EQ(store.result("g3"), refused) << "the store must work after a failure";
}

TEST_F(ImportTest, KeepsTheOldPeopleWhenARowIsRefusedBehindManyOthers) {
  const GetGoalSnapshotResponse before = crowd(500, "before");
  store.import({before});
  GetGoalSnapshotResponse refused = crowd(120, "after");
  std::vector<GoalPersonCandidateDTO> people(refused.people.begin(), refused.people.end());
  people.back().displayName = "\xFF";
  refused.people = std::move(people);
  EXPECT_THROW(store.import({refused}), StoreError);
  EXPECT_EQ(store.result("g1"), before);
}

// While a result is written, no trigger runs; SQLite still refuses a row that is not unique.
TEST_F(ImportTest, KeepsTheOldPeopleWhenSQLiteRefusesABatch) {
  const GetGoalSnapshotResponse before = crowd(500, "before");
  store.import({before});
  RawDatabase other(file);
  ASSERT_EQ(other.run("CREATE UNIQUE INDEX single ON people (display_name)"), "");
  GetGoalSnapshotResponse refused = crowd(120, "after");
  std::vector<GoalPersonCandidateDTO> people(refused.people.begin(), refused.people.end());
  people.back().displayName = people.front().displayName;
  refused.people = std::move(people);
  {
    Database database(file, Database::Opening::orCreate, usualPatience);
    Transaction transaction(database, Transaction::Kind::writing);
    EXPECT_THROW(replaceResult(database, 1, refused), StoreError);
    EXPECT_EQ(database.number("SELECT count(*) FROM people"), 100) << "two batches were inserted";
  }
  ASSERT_EQ(other.run("DROP INDEX single"), "");
  EXPECT_EQ(store.result("g1"), before);
}

}  // namespace
}  // namespace vemra::desk
