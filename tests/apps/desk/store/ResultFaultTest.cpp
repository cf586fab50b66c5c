#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/ResultFault.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <cstdint>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

using ResultFault = StoreFile;

TEST_F(ResultFault, IsOnlyTheSmallestHopCount) {
  GetGoalSnapshotResponse result = goal("g", "t");
  for (const GoalWhyDTO& why :
       {GoalWhyDTO::connection(INT64_MIN + 1), GoalWhyDTO::connection(INT64_MAX),
        GoalWhyDTO::connection(0), GoalWhyDTO::sharedActivity(INT64_MIN, INT64_MIN),
        GoalWhyDTO::evidence("", "", ""), GoalWhyDTO::nameMatch(), GoalWhyDTO::generic()}) {
    result.people = {{"p", {}, why, {}}};
    result.paths = {{{"p"}, why, INT64_MIN}};
    result.coverage.evidenceCount = INT64_MIN;
    EXPECT_FALSE(faultIn(result));
    EXPECT_FALSE(faultOfImport(result));
  }
}

TEST_F(ResultFault, NamesTheFirstPlace) {
  const GoalWhyDTO fatal = GoalWhyDTO::connection(INT64_MIN);
  GetGoalSnapshotResponse result = goal("g", "t");
  result.paths = {{{"p"}, {}, 0}, {{"p"}, fatal, 0}, {{"p"}, fatal, 0}};
  ASSERT_TRUE(faultIn(result));
  EXPECT_EQ(faultIn(result)->pointer, "/paths/1/why/hopCount");
  result.people = {{"p", {}, fatal, {}}};
  ASSERT_TRUE(faultIn(result));
  EXPECT_EQ(faultIn(result)->pointer, "/people/0/why/hopCount");
  EXPECT_EQ(faultOfImport(result)->pointer, "/people/0/why/hopCount");
  EXPECT_EQ(faultIn(result)->problem,
            "expected an integer from -9223372036854775807, which a screen can show; found "
            "-9223372036854775808");
}

SharedArray<std::string> many(std::size_t count) {
  return SharedArray<std::string>(std::vector<std::string>(count));
}

TEST_F(ResultFault, IsTheListThatMakesTheTextsTooMany) {
  const auto fill = [](GetGoalSnapshotResponse& result, int list, std::size_t count) {
    if (list == 0) result.goal.keywords = many(count);
    if (list == 1) result.goal.constraints = many(count);
    if (list == 2) result.goal.attachmentRefs = many(count);
    if (list == 3) result.people = {{"a", {}, {}, {}}, {"b", {}, {}, many(count)}};
    if (list == 4) result.paths = {{many(count), {}, 0}};
    if (list == 5) result.group = {{"a", {}}, {"b", many(count)}};
    if (list == 6) result.coverage.sources = many(count);
  };
  const char* const pointers[] = {
      "/goal/keywords",      "/goal/constraints",   "/goal/attachmentRefs", "/people/1/evidenceIDs",
      "/paths/0/personRefs", "/group/1/personRefs", "/coverage/sources"};
  for (int last = 0; last < 7; ++last) {
    GetGoalSnapshotResponse result;
    for (int list = 0; list <= last; ++list) fill(result, list, 1);
    const std::size_t most = mostTexts(result);
    const auto before = static_cast<std::size_t>(last);
    fill(result, last, most - before);
    EXPECT_FALSE(faultOfImport(result)) << pointers[last] << ": exactly as many as there may be";
    fill(result, last, most - before + 1);
    const auto fault = faultOfImport(result);
    ASSERT_TRUE(fault) << pointers[last];
    EXPECT_EQ(fault->pointer, pointers[last]);
    EXPECT_EQ(fault->problem, "expected at most " + std::to_string(most) +
                                  " texts in the lists of a result; found " +
                                  std::to_string(most + 1) + " up to here");
    EXPECT_FALSE(faultIn(result)) << "it can be shown";
  }
}

TEST_F(ResultFault, AllowsTenMoreTextsForEachPersonPathAndGroup) {
  GetGoalSnapshotResponse result;
  EXPECT_EQ(mostTexts(result), 1'000'000U);
  result.people = std::vector<GoalPersonCandidateDTO>(200'000, {"p", {}, {}, many(10)});
  EXPECT_EQ(mostTexts(result), 3'000'000U);
  EXPECT_FALSE(faultOfImport(result)) << "two million pieces of evidence";
  result.paths = {{{}, {}, 0}};
  EXPECT_EQ(mostTexts(result), 3'000'010U);
  result.group = {{"g", {}}};
  EXPECT_EQ(mostTexts(result), 3'000'020U);
}

TEST_F(ResultFault, KeepsEveryResultOfOneImportOutOfTheStore) {
  GoalStore store = GoalStore::open(file);
  GetGoalSnapshotResponse fatal = goal("fatal", "t");
  fatal.people = {{"p", {}, GoalWhyDTO::connection(INT64_MIN), {}}};
  try {
    store.import({goal("fine", "t"), fatal});
    ADD_FAILURE() << "the result was imported";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.what(), file + ": does not take in the result of the goal \"fatal\": " +
                                faultIn(fatal)->pointer + ": " + faultIn(fatal)->problem);
  }
  EXPECT_TRUE(store.goals().empty());
}

}  // namespace
}  // namespace vemra::desk
