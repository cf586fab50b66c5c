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
    EXPECT_FALSE(faultOfImport(result));
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
  EXPECT_EQ(faultOfImport(result)->pointer, "/people/0/why/hopCount");
  EXPECT_EQ(faultIn(result)->problem,
            "expected an integer from -9223372036854775807, which a screen can show; found "
            "-9223372036854775808");
}

TEST(ResultFault, IsTheListWithWhichTheTextsBecomeTooMany) {
  const auto many = [](std::size_t count) {
    return SharedArray<std::string>(std::vector<std::string>(count));
  };
  const GetGoalSnapshotResponse plain =
      goal("g", "t");  // with one source and one piece of evidence
  std::vector<std::pair<GetGoalSnapshotResponse, std::string>> cases(7, {plain, ""});
  const auto half = many(mostTexts / 2);
  const auto rest = many(mostTexts / 2 - 1);  // one too many, with the two above
  for (std::size_t i = 0; i < cases.size(); ++i) {
    GetGoalSnapshotResponse& result = cases[i].first;
    result.paths = {{i == 4 ? rest : many(0), {}, 0}};
    result.group = {{"a", many(0)}, {"b", i == 5 ? rest : many(0)}};
    if (i < 6) result.goal.keywords = i == 0 ? many(mostTexts + 1) : half;
    if (i == 1) result.goal.constraints = many(mostTexts / 2 + 1);
    if (i == 2) result.goal.attachmentRefs = many(mostTexts / 2 + 1);
    if (i == 3) result.people = {plain.people[0], {"p", {}, {}, half}};
    if (i == 6) result.coverage.sources = many(mostTexts);
  }
  const char* const pointers[] = {
      "/goal/keywords",    "/goal/constraints", "/goal/attachmentRefs", "/people/1/evidenceIDs",
      "/coverage/sources", "/coverage/sources", "/coverage/sources"};
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const auto fault = faultOfImport(cases[i].first);
    ASSERT_TRUE(fault) << i;
    EXPECT_EQ(fault->pointer, pointers[i]) << i;
    EXPECT_EQ(fault->problem,
              "expected at most 1000000 texts in the lists of a result; found 1000001 up to here");
    EXPECT_FALSE(faultIn(cases[i].first)) << "it can be shown";
  }
  GetGoalSnapshotResponse paths = plain;
  paths.coverage.sources = {};
  paths.paths = {{many(mostTexts - 1), {}, 0}};
  EXPECT_FALSE(faultOfImport(paths)) << "exactly as many as there may be";
  paths.paths = {{many(mostTexts - 1), {}, 0}, {many(1), {}, 0}};
  EXPECT_EQ(faultOfImport(paths)->pointer, "/paths/1/personRefs");
  paths.paths = {{many(mostTexts - 1), {}, 0}};
  paths.group = {{"a", many(1)}};
  EXPECT_EQ(faultOfImport(paths)->pointer, "/group/0/personRefs");
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
