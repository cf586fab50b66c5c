#include "apps/inspect/Inspection.hpp"
#include "apps/inspect/JsonReport.hpp"
#include "tests/Allocations.hpp"
#include "tests/apps/inspect/CaseText.hpp"

#include <cstddef>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

namespace vemra::inspect {
namespace {

/// The screen of a goal with that many people and without outcomes.
Inspection inspectionOf(std::size_t people) {
  Case inspected;
  std::vector<GoalPersonCandidateDTO> list(people);
  for (std::size_t i = 0; i < people; ++i) list[i].personRef = "p" + std::to_string(i);
  inspected.result.people = std::move(list);
  return Inspection(inspected);
}

/// Actions that a user cannot do, one for each reason.
const std::pair<Step, std::string> impossible[] = {
    {PressIdentifier{"nowhere"}, "no element with identifier \"nowhere\""},
    {PressTitle{"Nobody"}, "no button titled \"Nobody\""},
    {PressTitle{"Nobody", 3}, "no button titled \"Nobody\" at index 3: there are 0"},
    {Select{"vemra.goal.person.p0.outcome.start", GoalOutcomeValue::helped},
     "element with identifier \"vemra.goal.person.p0.outcome.start\" is not a picker"},
    {Type{"vemra.goal.person.p0.outcome.start", "text"},
     "element with identifier \"vemra.goal.person.p0.outcome.start\" is not a text field"},
    {Submit{"nowhere"}, "no element with identifier \"nowhere\""},
};

std::uint64_t allocationsOf(Inspection& inspection, const Step& step) {
  const std::uint64_t before = testing::allocations();
  inspection.carryOut(step);
  return testing::allocations() - before;
}

TEST(ImpossibleStepTest, ReportsTheReasonAndDoesNothing) {
  Inspection inspection = inspectionOf(2);
  const std::string before = inspection.screen().outline();
  for (const auto& [step, reason] : impossible) {
    EXPECT_EQ(inspection.carryOut(step), reason);
  }
  EXPECT_EQ(inspection.screen().outline(), before);
  EXPECT_TRUE(inspection.calls().empty());
}

TEST(InspectionTest, AnOutlineWithoutAMountedScreenIsThatOfTheScreen) {
  Inspection inspection = inspectionOf(300);
  const std::string outline = inspection.outline();
  EXPECT_EQ(outline, inspection.screen().outline());
  EXPECT_EQ(outline, inspection.outline());
}

TEST(InspectionTest, AReportWithoutAMountedScreenIsThatOfTheScreen) {
  Inspection inspection = inspectionOf(300);
  const std::string report = JsonReport(false).finish(inspection);
  EXPECT_EQ(inspection.screen().find("nowhere"), nullptr) << "the screen is mounted from now on";
  EXPECT_EQ(JsonReport(false).finish(inspection), report);
  EXPECT_NE(report.find("vemra.goal.person.p299.outcome.start"), std::string::npos);
}

TEST(InspectionTest, AReportMountsNoScreen) {
  const Inspection inspection = inspectionOf(300);
  const std::string report = JsonReport(false).finish(inspection);
  std::size_t nodes = 0;
  inspection.readGraph([&](const ui::ViewGraph& graph) { nodes = graph.work().nodes; });
  EXPECT_LT(nodes, 100U) << "the graph of a mounted screen has made those of every row";
}

// A script may have a thousand such steps on a screen of ten thousand people.
TEST(ImpossibleStepTest, CostsASearchAndNoDescriptionOfTheTree) {
#ifdef VEMRA_ALLOCATIONS_ARE_NOT_COUNTED
  GTEST_SKIP() << "the sanitizers count on their own operator new";
#endif
  Inspection small = inspectionOf(10);
  Inspection large = inspectionOf(1000);
  large.screen();  // mounts it
  for (const auto& [step, reason] : impossible) {
    allocationsOf(small, step);  // so that later calls make no first-time allocations
    EXPECT_EQ(allocationsOf(large, step), allocationsOf(small, step)) << reason;
  }
}

}  // namespace
}  // namespace vemra::inspect
