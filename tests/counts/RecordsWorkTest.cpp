// A store that loads a goal again copies no record that has not changed. The allocations are
// counted: a copy of a person or of a piece of evidence makes several.

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "benchmarks/data/SampleResult.hpp"
#include "tests/Allocations.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include <gtest/gtest.h>

using namespace vemra;

namespace {

/// A store with one goal, which has been loaded once.
class StoreOfPeople {
 public:
  explicit StoreOfPeople(std::size_t people) {
    const GetGoalSnapshotResponse result = bench::sampleResult({.people = people});
    goalID_ = result.goal.id;
    person_ = result.people[1].personRef;
    store_.import({result});
    load();
    for (int first = 0; first < 3; ++first) {  // SQLite and the lists get the room that they keep
      record(store_);
      load();
    }
  }

  desk::GoalStore& store() { return store_; }
  desk::GoalStore another() const { return desk::GoalStore::open(file_); }

  void record(desk::GoalStore& store) const {
    store.record(goalID_, {GoalOutcomeSubjectKind::person, person_, GoalOutcomeValue::helped,
                           "a note of more than fifteen bytes", std::nullopt});
  }

  /// Loads the goal and shows it. Returns the number of allocations.
  std::uint64_t load() {
    const std::uint64_t before = vemra::testing::allocations();
    GoalResultSnapshotV1 snapshot(store_.shownResult(goalID_));
    const std::uint64_t count = vemra::testing::allocations() - before;
    snapshot_ = std::move(snapshot);
    return count;
  }

 private:
  TemporaryFolder folder_;
  std::string file_ = folder_.file("goals.sqlite");
  desk::GoalStore store_ = desk::GoalStore::open(file_);
  std::string goalID_, person_;
  std::optional<GoalResultSnapshotV1> snapshot_;
};

/// Expects the same number of allocations, fewer than the records have, for each number of people.
template <class Cost>
void expectNoCopies(const Cost& cost) {
#ifdef VEMRA_ALLOCATIONS_ARE_NOT_COUNTED
  GTEST_SKIP() << "the sanitizers count on their own operator new";
#endif
  std::map<std::size_t, std::uint64_t> counts;
  for (const std::size_t people : {100, 10'000}) {
    StoreOfPeople store(people);
    counts[people] = cost(store);
  }
  EXPECT_EQ(counts[10'000], counts[100]);
  EXPECT_LT(counts[100], 60U) << "100 people with their evidence have more than that";
}

}  // namespace

TEST(RecordsWork, OfAGoalThatIsLoadedAgain) {
  expectNoCopies([](StoreOfPeople& store) { return store.load(); });
}

TEST(RecordsWork, OfAnOutcomeThatThisProgramHasRecorded) {
  expectNoCopies([](StoreOfPeople& store) {
    store.record(store.store());
    return store.load();
  });
}

TEST(RecordsWork, OfAnOutcomeThatAnotherProgramHasRecorded) {
  expectNoCopies([](StoreOfPeople& store) {
    desk::GoalStore another = store.another();
    store.record(another);
    store.load();  // prepares the statements of such a change
    store.record(another);
    return store.load();
  });
}
