#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/Repeated.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

namespace {

/// Allocations of at least so many bytes fail.
std::atomic<std::size_t> refusedFrom{SIZE_MAX};
/// So many allocations succeed, the next one fails, and all later ones succeed again.
std::atomic<std::int64_t> granted{INT64_MAX};

}  // namespace

// Not inline: g++ 12 would inline one of a pair of functions and warn that the pair does not match.
[[gnu::noinline]] void* operator new(std::size_t size) {
  const bool isGranted = size < refusedFrom && granted-- != 0;
  void* const block = isGranted ? std::malloc(size) : nullptr;
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return size < refusedFrom ? std::malloc(size) : nullptr;
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
  std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

namespace vemra::desk {
namespace {

using MemoryTest = StoreFile;

TEST_F(MemoryTest, TextsThatCannotBeComparedFailOnlyTheirQuery) {
  // Comparing decomposes the texts, with four bytes for each character; all other allocations are
  // smaller.
  const std::string composed = repeated("\u00e9", 50'000);
  const std::string decomposed = repeated("e\u0301", 50'000);
  GoalStore store = GoalStore::open(file);
  store.import({goal(composed, "Found")});

  refusedFrom = 300'000;
  std::string said = "nothing was thrown";
  try {
    store.result(decomposed);
  } catch (const StoreError& error) {
    said = error.what();
  } catch (const std::bad_alloc&) {
    said = "an exception came through SQLite";
  }
  refusedFrom = SIZE_MAX;

  EXPECT_EQ(said, file + ": needs more memory than there is");
  EXPECT_EQ(store.result(decomposed).goal.title, "Found");
  store.import({goal(decomposed, "Replaced")});
  EXPECT_EQ(store.goals().size(), 1u);
}

TEST_F(MemoryTest, AnAllocationThatFailsLeavesNoTransactionOpen) {
  GoalStore store = GoalStore::open(file);
  store.import({goal("g", "There")});
  int failures = 0;
  for (int number = 0; number < 100; ++number) {
    granted = number;
    try {
      store.goals();
    } catch (const std::bad_alloc&) {
      ++failures;
    }
    granted = INT64_MAX;
    ASSERT_EQ(store.goals().size(), 1u) << "after " << number << " allocations";
  }
  EXPECT_GT(failures, 0);
  EXPECT_LT(failures, 100) << "beyond the last allocation nothing fails";
}

TEST_F(MemoryTest, ARecordedOutcomeIsNotRefusedWhenMemoryRunsOut) {
  GoalStore store = GoalStore::open(file);
  store.import({goal("g1", "t")});
  const GoalOutcomeRecordingInput input{
      GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::helped, repeated("note ", 20), {}};
  std::size_t recorded = 0;
  std::int64_t refusals = 0;
  for (bool isRefused = true; isRefused; ++refusals) {
    store.result("g1");
    granted = refusals;
    try {
      store.record("g1", input, "o" + std::to_string(refusals));
      ++recorded;
    } catch (const std::exception&) {
      // Not recorded.
    }
    isRefused = granted < 0;
    granted = INT64_MAX;
    ASSERT_EQ(GoalStore::open(file).outcomes("g1").size(), recorded)
        << "after " << refusals << " blocks";
  }
  EXPECT_GT(refusals, 10);
  EXPECT_EQ(store.result("g1"), GoalStore::open(file).result("g1"));
}

}  // namespace
}  // namespace vemra::desk
