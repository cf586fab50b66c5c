#include "VemraPlatform/task/Start.hpp"
#include "tests/VemraGoalEngine/KeepOverAnAwait.hpp"
#include "tests/VemraGoalEngine/SampleRecords.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

// An engine that waits keeps records in coroutine frames, which g++ and clang align to 16 bytes and
// no more. A record with a larger alignment is misaligned there, and a program that moves it with
// aligned vector instructions crashes.

namespace vemra {
namespace {

template <class... Record>
constexpr bool noneIsOverAligned = ((alignof(Record) <= alignof(std::max_align_t)) && ...);

static_assert(
    noneIsOverAligned<GoalDTO, GoalPersonCandidateDTO, GoalPathCandidateDTO, GoalGroupCandidateDTO,
                      GoalCoverageDTO, GoalOutcomeDTO, GoalWhyDTO, GetGoalSnapshotResponse>);

template <class Record>
void expectToBeKeptOverAnAwait(const Record& record) {
  testing::ManyKeeping<Record> many(record);
  for (task::Task<Record>& keeping : many.tasks) {
    EXPECT_EQ(task::wait(std::move(keeping)), record);
  }
}

// The build that checks alignment stops at the first misaligned record.
TEST(RecordAlignment, AGoalIsKeptOverAnAwait) {
  expectToBeKeptOverAnAwait(sample::goal());
}

TEST(RecordAlignment, APersonIsKeptOverAnAwait) {
  expectToBeKeptOverAnAwait(sample::person());
}

TEST(RecordAlignment, APathIsKeptOverAnAwait) {
  expectToBeKeptOverAnAwait(sample::path());
}

TEST(RecordAlignment, AGroupIsKeptOverAnAwait) {
  expectToBeKeptOverAnAwait(sample::group());
}

TEST(RecordAlignment, ACoverageIsKeptOverAnAwait) {
  expectToBeKeptOverAnAwait(sample::coverage());
}

TEST(RecordAlignment, AnOutcomeIsKeptOverAnAwait) {
  expectToBeKeptOverAnAwait(sample::outcome());
}

TEST(RecordAlignment, AReasonIsKeptOverAnAwait) {
  expectToBeKeptOverAnAwait(sample::person().why);
}

TEST(RecordAlignment, AResponseIsKeptOverAnAwait) {
  expectToBeKeptOverAnAwait(sample::response());
}

#ifdef __GLIBCXX__  // the padding of an outcome counts with this library's strings
// A scan over many outcomes then waits for one cache line of each.
TEST(RecordAlignment, KindAndReferenceOfEachOutcomeInAnArrayLieInOneCacheLine) {
  constexpr std::uintptr_t cacheLine = 64;
  const SharedArray<GoalOutcomeDTO> outcomes = std::vector<GoalOutcomeDTO>(5, sample::outcome());
  for (const GoalOutcomeDTO& outcome : outcomes) {
    const auto first = reinterpret_cast<std::uintptr_t>(&outcome.subjectKind);
    const auto last = reinterpret_cast<std::uintptr_t>(&outcome.subjectRef + 1) - 1;
    EXPECT_EQ(first / cacheLine, last / cacheLine);
  }
}
#endif

}  // namespace
}  // namespace vemra
