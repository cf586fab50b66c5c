#include "VemraGoalEngine/GoalOutcomeValue.hpp"

#include <unordered_set>

#include <gtest/gtest.h>

namespace vemra {
namespace {

TEST(GoalOutcomeValue, AllCasesAreInIndexOrder) {
  ASSERT_EQ(allGoalOutcomeValues.size(), 8U);
  for (std::size_t index = 0; index < allGoalOutcomeValues.size(); ++index) {
    EXPECT_EQ(static_cast<std::size_t>(allGoalOutcomeValues[index]), index);
  }
  EXPECT_EQ(static_cast<int>(GoalOutcomeValue::reachedOut), 0);
  EXPECT_EQ(static_cast<int>(GoalOutcomeValue::invited), 1);
  EXPECT_EQ(static_cast<int>(GoalOutcomeValue::introduced), 2);
  EXPECT_EQ(static_cast<int>(GoalOutcomeValue::helped), 3);
  EXPECT_EQ(static_cast<int>(GoalOutcomeValue::wasUseful), 4);
  EXPECT_EQ(static_cast<int>(GoalOutcomeValue::notAFit), 5);
  EXPECT_EQ(static_cast<int>(GoalOutcomeValue::noActionTaken), 6);
  EXPECT_EQ(static_cast<int>(GoalOutcomeValue::somethingElse), 7);
}

TEST(GoalOutcomeValue, HashesByCase) {
  std::unordered_set<GoalOutcomeValue> values(allGoalOutcomeValues.begin(),
                                              allGoalOutcomeValues.end());
  values.insert(GoalOutcomeValue::helped);
  EXPECT_EQ(values.size(), 8U);
}

TEST(GoalOutcomeSubjectKind, PersonComesBeforePath) {
  EXPECT_EQ(static_cast<int>(GoalOutcomeSubjectKind::person), 0);
  EXPECT_EQ(static_cast<int>(GoalOutcomeSubjectKind::path), 1);
}

TEST(CaseNames, OfValues) {
  const std::string_view names[] = {"reachedOut", "invited", "introduced",    "helped",
                                    "wasUseful",  "notAFit", "noActionTaken", "somethingElse"};
  for (GoalOutcomeValue value : allGoalOutcomeValues) {
    EXPECT_EQ(caseName(value), names[static_cast<std::size_t>(value)]);
  }
}

TEST(CaseNames, OfSubjectKinds) {
  EXPECT_EQ(caseName(GoalOutcomeSubjectKind::person), "person");
  EXPECT_EQ(caseName(GoalOutcomeSubjectKind::path), "path");
}

TEST(CaseNames, AnInvalidValueHasNoName) {
  EXPECT_EQ(caseName(static_cast<GoalOutcomeValue>(8)), "");
  EXPECT_EQ(caseName(static_cast<GoalOutcomeSubjectKind>(2)), "");
}

}  // namespace
}  // namespace vemra
