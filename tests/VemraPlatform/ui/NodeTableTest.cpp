#include "VemraPlatform/ui/NodeTable.hpp"
#include "tests/Allocations.hpp"

#include <functional>
#include <map>
#include <new>
#include <random>
#include <string>

#include <gtest/gtest.h>

using vemra::ui::NodeID;
using vemra::ui::NodeTable;

namespace {

/// A value that reports its destruction.
struct Mortal {
  explicit Mortal(std::function<void()> onDestruction) : onDestruction_(std::move(onDestruction)) {}
  Mortal(Mortal&& other) noexcept : onDestruction_(std::exchange(other.onDestruction_, nullptr)) {}
  ~Mortal() {
    if (onDestruction_) onDestruction_();
  }
  std::function<void()> onDestruction_;
};

}  // namespace

TEST(NodeTable, ContainsTheValuesOfAMapAtConstantAddresses) {
  NodeTable<std::string> table;
  std::map<std::uint64_t, std::string> expected;
  std::map<std::uint64_t, const std::string*> places;
  std::mt19937_64 random(11);
  std::uint64_t last = 0;
  for (int step = 0; step < 20'000; ++step) {
    const std::uint64_t known = last == 0 ? 1 : 1 + random() % last;
    if (random() % 2 == 0) {
      last += 1 + random() % 3;
      const std::string value = "value of node " + std::to_string(last);
      places[last] = &table.insert(NodeID{last}, value);
      expected[last] = value;
    } else {
      table.erase(NodeID{known});
      expected.erase(known);
    }
    const std::string* const found = table.find(NodeID{known});
    ASSERT_EQ(found != nullptr, expected.contains(known)) << known;
    if (step % 100 == 0) {
      ASSERT_EQ(table.size(), expected.size());
    }
  }
  for (const auto& [id, value] : expected) {
    ASSERT_EQ(table.find(NodeID{id}), places[id]) << "it has moved";
    ASSERT_EQ(*table.find(NodeID{id}), value);
  }
  std::map<std::string, int> visited;
  table.forEach([&](const std::string& value) { ++visited[value]; });
  EXPECT_EQ(visited.size(), expected.size());
}

TEST(NodeTable, TheEmptyIdHasNoValue) {
  NodeTable<int> table;
  EXPECT_EQ(table.find(NodeID{}), nullptr);
  EXPECT_EQ(table.find(NodeID{64}), nullptr);
  table.insert(NodeID{64}, 1);
  EXPECT_EQ(table.find(NodeID{}), nullptr);
  EXPECT_EQ(table.find(NodeID{32}), nullptr) << "the same place of another page";
}

TEST(NodeTable, EveryValueIsDestroyedOnce) {
  int destructions = 0;
  {
    NodeTable<Mortal> table;
    for (std::uint64_t id = 1; id <= 100; ++id) {
      table.insert(NodeID{id}, Mortal([&] { ++destructions; }));
    }
    for (std::uint64_t id = 1; id <= 100; id += 2) table.erase(NodeID{id});
    table.erase(NodeID{1});
    EXPECT_EQ(destructions, 50);
    const NodeTable<Mortal> moved = std::move(table);
    EXPECT_EQ(destructions, 50);
    EXPECT_NE(moved.find(NodeID{2}), nullptr);
  }
  EXPECT_EQ(destructions, 100);
}

TEST(NodeTable, AValueBeingDestroyedFindsTheOthersAndNotItself) {
  NodeTable<Mortal> table;
  table.insert(NodeID{1}, Mortal(nullptr));
  bool sawOther = false;
  bool sawItself = true;
  table.insert(NodeID{2}, Mortal([&] {
                 sawOther = table.find(NodeID{1}) != nullptr;
                 sawItself = table.find(NodeID{2}) != nullptr;
               }));
  table.erase(NodeID{2});
  EXPECT_TRUE(sawOther);
  EXPECT_FALSE(sawItself);
}

TEST(NodeTable, WithoutMemoryForAPageItStaysUnchanged) {
#ifdef VEMRA_ALLOCATIONS_ARE_NOT_COUNTED
  GTEST_SKIP() << "no allocation can be refused here";
#endif
  const auto insertIsRefused = [](NodeTable<int>& table, std::uint64_t granted) {
    vemra::testing::refuseAllocationAfter(granted);
    bool refused = false;
    try {
      table.insert(NodeID{1000}, 20);
    } catch (const std::bad_alloc&) {
      refused = true;
    }
    vemra::testing::refuseNoAllocation();
    return refused;
  };
  std::uint64_t granted = 0;
  for (; granted < 100; ++granted) {
    SCOPED_TRACE("after " + std::to_string(granted) + " allocations");
    NodeTable<int> table;
    table.insert(NodeID{1}, 10);
    if (!insertIsRefused(table, granted)) break;
    EXPECT_EQ(table.find(NodeID{1000}), nullptr);
    int sum = 0;
    table.forEach([&](int value) { sum += value; });
    EXPECT_EQ(sum, 10);
    table.erase(NodeID{1000});
    table.insert(NodeID{1000}, 30);
    EXPECT_EQ(*table.find(NodeID{1000}), 30);
    EXPECT_EQ(*table.find(NodeID{1}), 10);
  }
  EXPECT_GE(granted, 2U) << "a page and its entry are two allocations that can fail";
  EXPECT_LT(granted, 100U);
}
