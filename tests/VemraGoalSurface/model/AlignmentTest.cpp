#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraPlatform/task/Start.hpp"
#include "tests/VemraGoalEngine/KeepOverAnAwait.hpp"
#include "tests/VemraGoalSurface/model/SampleSnapshot.hpp"

#include <cstddef>

#include <gtest/gtest.h>

// A host may keep these over a `co_await`, in a coroutine frame, which is aligned to 16 bytes only.
// The build that checks alignment stops at the first misaligned object.

namespace vemra {
namespace {

static_assert(alignof(GoalOutcomeRecordingInput) <= alignof(std::max_align_t));
static_assert(alignof(GoalResultSnapshotV1) <= alignof(std::max_align_t));

TEST(RecordAlignment, ARecordingIsKeptOverAnAwait) {
  const GoalOutcomeRecordingInput input = GoalOutcomeRecordingFormLogic::recordingInput(
      GoalOutcomeSubjectKind::path, "ren", GoalOutcomeValue::helped, "met", sample::outcome());
  testing::ManyKeeping<GoalOutcomeRecordingInput> many(input);
  for (auto& keeping : many.tasks) EXPECT_EQ(task::wait(std::move(keeping)), input);
}

TEST(RecordAlignment, ASnapshotIsKeptOverAnAwait) {
  const GoalResultSnapshotV1 snapshot = sample::snapshot();
  testing::ManyKeeping<GoalResultSnapshotV1> many(snapshot);
  for (auto& keeping : many.tasks) EXPECT_TRUE(task::wait(std::move(keeping)) == snapshot);
}

TEST(RecordAlignment, TheOutcomeInForceIsKeptOverAnAwait) {
  const std::optional<GoalOutcomeDTO> inForce =
      sample::snapshot().effectiveOutcome(GoalOutcomeSubjectKind::path, "ren" + sample::composed);
  ASSERT_TRUE(inForce.has_value());
  testing::ManyKeeping<std::optional<GoalOutcomeDTO>> many(inForce);
  for (auto& keeping : many.tasks) EXPECT_EQ(task::wait(std::move(keeping)), inForce);
}

}  // namespace
}  // namespace vemra
