#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/ResultFault.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/SampleResults.hpp"

#include <cstdint>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

TEST(ResultFault, IsTheSmallestHopCountAlone) {
  GetGoalSnapshotResponse result = goal("g", "t");
  for (const GoalWhyDTO& why :
       {GoalWhyDTO::connection(INT64_MIN + 1), GoalWhyDTO::connection(INT64_MAX),
        GoalWhyDTO::connection(0), GoalWhyDTO::sharedActivity(INT64_MIN, INT64_MIN),
        GoalWhyDTO::evidence("", "", ""), GoalWhyDTO::nameMatch(), GoalWhyDTO::generic()}) {
    result.people = {{"p", {}, why, {}}};
    result.paths = {{{"p"}, why, INT64_MIN}};
    result.coverage.evidenceCount = INT64_MIN;
    EXPECT_FALSE(faultIn(result));
  }
}

TEST(ResultFault, NamesTheFirstPlace) {
  const GoalWhyDTO fatal = GoalWhyDTO::connection(INT64_MIN);
  GetGoalSnapshotResponse result = goal("g", "t");
  result.paths = {{{"p"}, {}, 0}, {{"p"}, fatal, 0}, {{"p"}, fatal, 0}};
  ASSERT_TRUE(faultIn(result));
  EXPECT_EQ(faultIn(result)->pointer, "/paths/1/why/hopCount");
  result.people = {{"p", {}, fatal, {}}};
  ASSERT_TRUE(faultIn(result));
  EXPECT_EQ(faultIn(result)->pointer, "/people/0/why/hopCount");
  EXPECT_EQ(faultIn(result)->problem,
            "expected an integer from -9223372036854775807, which a screen can show; found "
            "-9223372036854775808");
}

TEST(ResultFault, KeepsEveryResultOfOneImportOutOfTheStore) {
  const TemporaryFolder folder;
  const std::string file = folder.file("goals.sqlite");
  GoalStore store = GoalStore::open(file);
  GetGoalSnapshotResponse fatal = goal("fatal", "t");
  fatal.people = {{"p", {}, GoalWhyDTO::connection(INT64_MIN), {}}};
  try {
    store.import({goal("fine", "t"), fatal});
    ADD_FAILURE() << "the result was taken in";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.what(), file + ": does not take in the result of the goal \"fatal\": " +
                                faultIn(fatal)->pointer + ": " + faultIn(fatal)->problem);
  }
  EXPECT_TRUE(store.goals().empty());
}

}  // namespace
}  // namespace vemra::desk
