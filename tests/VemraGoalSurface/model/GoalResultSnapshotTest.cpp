#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "tests/VemraGoalSurface/model/SampleSnapshot.hpp"

#include <type_traits>

#include <gtest/gtest.h>

namespace vemra {
namespace {

GoalResultSnapshotV1 memberwise(const GetGoalSnapshotResponse& from) {
  return GoalResultSnapshotV1(from.goal, from.people, from.paths, from.group, from.coverage,
                              from.outcomes);
}

void expectToHoldTheFieldsOf(const GoalResultSnapshotV1& snapshot,
                             const GetGoalSnapshotResponse& response) {
  EXPECT_TRUE(snapshot.goal() == response.goal);
  EXPECT_TRUE(snapshot.people().sharesStorage(response.people));
  EXPECT_TRUE(snapshot.paths().sharesStorage(response.paths));
  EXPECT_TRUE(snapshot.group().sharesStorage(response.group));
  EXPECT_TRUE(snapshot.coverage() == response.coverage);
  EXPECT_TRUE(snapshot.outcomes().sharesStorage(response.outcomes));
}

TEST(GoalResultSnapshot, KeepsTheSixValuesUnchanged) {
  const GetGoalSnapshotResponse response = sample::response();
  expectToHoldTheFieldsOf(memberwise(response), response);
  expectToHoldTheFieldsOf(GoalResultSnapshotV1(response), response);
}

TEST(GoalResultSnapshot, BothConstructorsGiveEqualSnapshots) {
  EXPECT_TRUE(memberwise(sample::response()) == GoalResultSnapshotV1(sample::response()));
  EXPECT_TRUE(memberwise(GetGoalSnapshotResponse{}) ==
              GoalResultSnapshotV1(GetGoalSnapshotResponse{}));
}

TEST(GoalResultSnapshot, StringsKeepTheirBytes) {
  GetGoalSnapshotResponse response = sample::response(sample::decomposed);
  response.goal.title = std::string("  e\u0301\0\xff ", 8);
  const std::string title = response.goal.title;
  const GoalResultSnapshotV1 snapshot(std::move(response));
  EXPECT_EQ(snapshot.goal().title, title);
  EXPECT_EQ(snapshot.people()[0].personRef, "persone\u0301");
}

TEST(GoalResultSnapshot, MovesTheResponseInsteadOfCopyingIt) {
  GetGoalSnapshotResponse response = sample::response();
  response.goal.title = std::string(1000, 't');
  const char* bytes = response.goal.title.data();
  const GoalResultSnapshotV1 snapshot(std::move(response));
  EXPECT_EQ(snapshot.goal().title.data(), bytes);
}

TEST(GoalResultSnapshot, KeepsEveryListInTheGivenOrderWithItsDuplicates) {
  GetGoalSnapshotResponse response;
  for (const char* ref : {"b", "a", "b"}) {
    GoalPersonCandidateDTO person;
    person.personRef = ref;
    std::vector<GoalPersonCandidateDTO> people(response.people.begin(), response.people.end());
    people.push_back(person);
    response.people = std::move(people);
  }
  const GoalResultSnapshotV1 snapshot(std::move(response));
  ASSERT_EQ(snapshot.people().size(), 3U);
  EXPECT_EQ(snapshot.people()[0].personRef, "b");
  EXPECT_EQ(snapshot.people()[1].personRef, "a");
  EXPECT_EQ(snapshot.people()[2].personRef, "b");
}

TEST(GoalResultSnapshot, ACopySharesTheStorage) {
  const GoalResultSnapshotV1 snapshot = sample::snapshot();
  const GoalResultSnapshotV1 copy = snapshot;
  EXPECT_EQ(&copy.goal(), &snapshot.goal());
  EXPECT_EQ(&copy.people(), &snapshot.people());
  EXPECT_EQ(&copy.paths(), &snapshot.paths());
  EXPECT_EQ(&copy.group(), &snapshot.group());
  EXPECT_EQ(&copy.coverage(), &snapshot.coverage());
  EXPECT_EQ(&copy.outcomes(), &snapshot.outcomes());
  EXPECT_EQ(copy.people().data(), snapshot.people().data());
  EXPECT_EQ(sizeof(GoalResultSnapshotV1), sizeof(std::shared_ptr<const void>));
}

TEST(GoalResultSnapshot, OutlivesItsOriginal) {
  auto original = std::make_unique<GoalResultSnapshotV1>(sample::snapshot());
  const GoalResultSnapshotV1 copy = *original;
  original.reset();
  EXPECT_TRUE(copy == sample::snapshot());
}

TEST(GoalResultSnapshot, AMovedFromSnapshotStaysValid) {
  GoalResultSnapshotV1 original = sample::snapshot();
  const GoalResultSnapshotV1 taken = std::move(original);
  EXPECT_EQ(&original.goal(), &taken.goal());
  GoalResultSnapshotV1 assigned(GetGoalSnapshotResponse{});
  assigned = std::move(original);
  EXPECT_EQ(&original.goal(), &assigned.goal());
}

TEST(GoalResultSnapshot, GivesOnlyConstantReferences) {
  using Snapshot = GoalResultSnapshotV1;
  const auto isConstReference = []<class T>(T (Snapshot::*)() const) {
    return std::is_lvalue_reference_v<T> && std::is_const_v<std::remove_reference_t<T>>;
  };
  EXPECT_TRUE(isConstReference(&Snapshot::goal));
  EXPECT_TRUE(isConstReference(&Snapshot::people));
  EXPECT_TRUE(isConstReference(&Snapshot::paths));
  EXPECT_TRUE(isConstReference(&Snapshot::group));
  EXPECT_TRUE(isConstReference(&Snapshot::coverage));
  EXPECT_TRUE(isConstReference(&Snapshot::outcomes));
}

}  // namespace
}  // namespace vemra
