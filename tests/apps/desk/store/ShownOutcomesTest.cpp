#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/ShownOutcomes.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"
#include "tests/apps/desk/store/StoreSteps.hpp"

#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// Three people and two paths, one of them without people.
GetGoalSnapshotResponse threePeople(const std::string& third = "K") {
  GetGoalSnapshotResponse result = goal("g1", "One");
  result.people = {build::person("p1", "Ada", {}, GoalWhyDTO::nameMatch()),
                   build::person("caf\u00E9", "Bo", {}, GoalWhyDTO::nameMatch()),
                   build::person(third, "Cy", {}, GoalWhyDTO::nameMatch())};
  result.paths = {{{"p1", "p9"}, GoalWhyDTO::connection(2), 7}, {{}, GoalWhyDTO::connection(2), 1}};
  return result;
}

std::vector<GoalOutcomeDTO> strays(std::size_t count) {
  std::vector<GoalOutcomeDTO> outcomes;
  for (std::size_t i = 0; i < count; ++i) {
    outcomes.push_back(
        outcome("s" + std::to_string(i), "stray" + std::to_string(i), GoalOutcomeValue::invited));
  }
  return outcomes;
}

class ShownOutcomesTest : public StoreFile {
 protected:
  GoalStore storeWith(std::vector<GoalOutcomeDTO> outcomes, const std::string& third = "K") {
    GetGoalSnapshotResponse result = threePeople(third);
    result.outcomes = std::move(outcomes);
    GoalStore store = GoalStore::open(file);
    store.import({result});
    return store;
  }
};

TEST_F(ShownOutcomesTest, AScreenGetsAllOfAFewOutcomes) {
  GoalStore store = storeWith(strays(fewOutcomes));
  EXPECT_EQ(store.shownResult("g1").outcomes.size(), fewOutcomes);
  EXPECT_EQ(store.shownResult("g1"), store.result("g1"));
}

TEST_F(ShownOutcomesTest, OfManyOutcomesAScreenGetsThoseInForceAndAnExportGetsAll) {
  const std::vector<std::string> refs{"p1", "caf\u00E9", "cafe\u0301", "K",     "\u212A",
                                      "p9", "another",   "",           "\u00E9"};
  std::mt19937 random(7);
  for (int round = 0; round < 20; ++round) {
    std::vector<GoalOutcomeDTO> outcomes = strays(fewOutcomes);
    // Few enough that some subjects have none.
    const std::size_t more = random() % 12;
    for (std::size_t i = 0; i < more; ++i) {
      GoalOutcomeDTO one = outcome("o" + std::to_string(i), refs[random() % refs.size()],
                                   allGoalOutcomeValues.at(random() % 8));
      one.subjectKind =
          random() % 2 == 0 ? GoalOutcomeSubjectKind::person : GoalOutcomeSubjectKind::path;
      if (random() % 6 == 0) one.subjectRef.reset();
      outcomes.insert(outcomes.begin() + static_cast<std::ptrdiff_t>(random() % outcomes.size()),
                      std::move(one));
    }
    outcomes.push_back(outcome("last", "stray", GoalOutcomeValue::helped));
    GoalStore store = storeWith(outcomes, round % 2 == 0 ? "K" : "\u212A");
    const GetGoalSnapshotResponse shown = store.shownResult("g1");
    const GetGoalSnapshotResponse whole = store.result("g1");
    EXPECT_EQ(whole.outcomes, SharedArray<GoalOutcomeDTO>(outcomes));
    EXPECT_LE(shown.outcomes.size(), more);
    const GoalResultSnapshotV1 screen(shown);
    const GoalResultSnapshotV1 all(whole);
    for (const auto& person : whole.people) {
      EXPECT_EQ(screen.effectiveOutcome(GoalOutcomeSubjectKind::person, person.personRef),
                all.effectiveOutcome(GoalOutcomeSubjectKind::person, person.personRef));
    }
    for (const std::optional<std::string_view> target :
         {std::optional<std::string_view>("p9"), {}}) {
      EXPECT_EQ(screen.effectiveOutcome(GoalOutcomeSubjectKind::path, target),
                all.effectiveOutcome(GoalOutcomeSubjectKind::path, target));
    }
    std::filesystem::remove(file);
    std::filesystem::remove(file + "-wal");
    std::filesystem::remove(file + "-shm");
  }
}

TEST_F(ShownOutcomesTest, ALongHistoryCostsAScreenNothing) {
  std::vector<int> steps;
  for (const std::size_t count : {1'000, 20'000}) {
    const std::string one = folder.file(std::to_string(count));
    GetGoalSnapshotResponse result = threePeople();
    std::vector<GoalOutcomeDTO> outcomes = strays(count);
    for (std::size_t i = 0; i < count; ++i) outcomes[i].subjectRef = i % 2 == 0 ? "p1" : "K";
    result.outcomes = outcomes;
    GoalStore::open(one).import({result});
    const StoreSteps counted;
    GoalStore store = GoalStore::open(one);
    StoreSteps::start();
    EXPECT_EQ(store.shownResult("g1").outcomes.size(), 2u);
    steps.push_back(StoreSteps::steps());
  }
  EXPECT_GT(steps[0], 100);
  EXPECT_EQ(steps[0], steps[1]);
}

TEST_F(ShownOutcomesTest, AnOutcomeRecordedUnderALongHistoryIsShown) {
  GoalStore store = storeWith(strays(fewOutcomes + 1));
  EXPECT_TRUE(store.shownResult("g1").outcomes.empty());
  const GoalOutcomeDTO recorded =
      store.record("g1", {GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::helped, {}, {}});
  EXPECT_EQ(store.shownResult("g1").outcomes, SharedArray<GoalOutcomeDTO>{recorded});
  EXPECT_EQ(store.result("g1").outcomes.size(), fewOutcomes + 2);
  EXPECT_EQ(store.shownResult("g1").outcomes, SharedArray<GoalOutcomeDTO>{recorded});
}

TEST_F(ShownOutcomesTest, AStoreOfVersion1ThatIsOnlyReadKeepsItsVersionAndShowsAll) {
  file = folder.file("version-1.sqlite");
  ASSERT_EQ(RawDatabase(file).run(TemporaryFolder::readFile(VEMRA_STORE_OF_VERSION_1)), "");
  std::string many = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                     std::to_string(fewOutcomes) +
                     ") INSERT INTO outcomes SELECT NULL, 1, 'm' || i, '', 'person', 'p' || i, "
                     "'helped', NULL, NULL, NULL, NULL FROM n";
  ASSERT_EQ(RawDatabase(file).run(many), "");
  EXPECT_EQ(GoalStore::openExisting(file)->shownResult("g").outcomes.size(), fewOutcomes + 1);
  EXPECT_EQ(RawDatabase(file).value("PRAGMA user_version"), "1");

  EXPECT_LE(GoalStore::open(file).shownResult("g").outcomes.size(), 4u);
  EXPECT_EQ(RawDatabase(file).value("PRAGMA user_version"), "2");
  EXPECT_EQ(RawDatabase(file).value("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(GoalStore::openExisting(file)->result("g").outcomes.size(), fewOutcomes + 1);
}

TEST_F(ShownOutcomesTest, AStoreOfVersion1IsUpgradedAlsoByAnImport) {
  file = folder.file("version-1.sqlite");
  ASSERT_EQ(RawDatabase(file).run(TemporaryFolder::readFile(VEMRA_STORE_OF_VERSION_1)), "");
  GoalStore::importInto(file, {goal("g2", "Two")});
  EXPECT_EQ(RawDatabase(file).value("PRAGMA user_version"), "2");
  EXPECT_EQ(RawDatabase(file).value("SELECT count(*) FROM result_stamps"), "2");
}

}  // namespace
}  // namespace vemra::desk
