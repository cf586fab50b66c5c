#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "tests/VemraGoalSurface/model/SampleSnapshot.hpp"

#include <functional>
#include <limits>

#include <gtest/gtest.h>

namespace vemra {
namespace {

std::optional<GoalPeopleGap> peopleGap(std::size_t peopleCount, std::int64_t evidenceCount) {
  GetGoalSnapshotResponse response = sample::response();
  response.people = std::vector<GoalPersonCandidateDTO>(peopleCount);
  response.coverage.evidenceCount = evidenceCount;
  return GoalResultSnapshotV1(std::move(response)).peopleGap();
}

GoalResultSnapshotV1 withPaths(std::size_t pathCount, std::optional<std::string> targetPersonRef) {
  GetGoalSnapshotResponse response = sample::response();
  response.paths = std::vector<GoalPathCandidateDTO>(pathCount);
  response.goal.targetPersonRef = std::move(targetPersonRef);
  return GoalResultSnapshotV1(std::move(response));
}

constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();

TEST(PeopleGap, WithoutPeopleTheEvidenceCountDecides) {
  EXPECT_EQ(peopleGap(0, 0), GoalPeopleGap::noEvidenceYet);
  for (std::int64_t count : {std::int64_t{1}, std::int64_t{3}, std::int64_t{-1}, least, most}) {
    EXPECT_EQ(peopleGap(0, count), GoalPeopleGap::evidenceButNoRelevantPeople) << count;
  }
}

TEST(PeopleGap, WithPeopleThereIsNoGapForAnyEvidence) {
  for (std::int64_t count : {std::int64_t{0}, std::int64_t{3}, std::int64_t{-1}}) {
    EXPECT_EQ(peopleGap(1, count), std::nullopt) << count;
    EXPECT_EQ(peopleGap(2, count), std::nullopt) << count;
  }
}

// Sources or a date without a count are no evidence, and other lists do not count as people.
TEST(PeopleGap, DependsOnNothingElse) {
  GetGoalSnapshotResponse response = sample::response();
  response.people = {};
  response.coverage.evidenceCount = 0;
  ASSERT_FALSE(response.coverage.sources.empty());
  EXPECT_EQ(GoalResultSnapshotV1(response).peopleGap(), GoalPeopleGap::noEvidenceYet);
  response.coverage = {};
  response.coverage.evidenceCount = 1;
  response.paths = {};
  response.group = {};
  response.outcomes = {};
  EXPECT_EQ(GoalResultSnapshotV1(response).peopleGap(), GoalPeopleGap::evidenceButNoRelevantPeople);
}

TEST(PathGap, WithoutPathsTheTargetPersonDecides) {
  EXPECT_EQ(withPaths(0, std::nullopt).pathGap(), GoalPathGap::noTargetPerson);
  EXPECT_EQ(withPaths(0, "ren").pathGap(), GoalPathGap::noConnectionFound);
  EXPECT_EQ(withPaths(0, "").pathGap(), GoalPathGap::noConnectionFound)
      << "an empty reference is a reference";
}

TEST(PathGap, WithPathsThereIsNoGapForAnyTarget) {
  EXPECT_EQ(withPaths(1, std::nullopt).pathGap(), std::nullopt);
  EXPECT_EQ(withPaths(2, "ren").pathGap(), std::nullopt);
}

TEST(PathGap, APathIsSupportedWhenThereIsOne) {
  EXPECT_FALSE(withPaths(0, "ren").hasSupportedPath());
  EXPECT_FALSE(withPaths(0, std::nullopt).hasSupportedPath());
  EXPECT_TRUE(withPaths(1, "ren").hasSupportedPath());
  EXPECT_TRUE(withPaths(1, std::nullopt).hasSupportedPath()) << "also one that was not requested";
  EXPECT_TRUE(withPaths(3, "ren").hasSupportedPath());
}

TEST(GapCases, CompareAndHashByIndex) {
  EXPECT_EQ(static_cast<int>(GoalPeopleGap::noEvidenceYet), 0);
  EXPECT_EQ(static_cast<int>(GoalPeopleGap::evidenceButNoRelevantPeople), 1);
  EXPECT_EQ(static_cast<int>(GoalPathGap::noTargetPerson), 0);
  EXPECT_EQ(static_cast<int>(GoalPathGap::noConnectionFound), 1);
  const std::hash<GoalPeopleGap> peopleHash;
  const std::hash<GoalPathGap> pathHash;
  EXPECT_NE(peopleHash(GoalPeopleGap(0)), peopleHash(GoalPeopleGap(1)));
  EXPECT_NE(pathHash(GoalPathGap(0)), pathHash(GoalPathGap(1)));
}

}  // namespace
}  // namespace vemra
