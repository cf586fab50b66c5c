#include "VemraTesting/RenderedTree.hpp"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::testing {

namespace {

using namespace ui;
using Kind = Patch::Kind;

Patch insert(std::uint64_t node, std::uint64_t parent, std::uint64_t after) {
  const View view = Text(verbatim(std::to_string(node)));
  return {Kind::insert, NodeID{node}, NodeID{parent}, NodeID{after}, Element(view, {}, {})};
}
Patch move(std::uint64_t node, std::uint64_t parent, std::uint64_t after) {
  return {Kind::move, NodeID{node}, NodeID{parent}, NodeID{after}, std::nullopt};
}
Patch removal(std::uint64_t node) {
  return {Kind::remove, NodeID{node}, {}, {}, std::nullopt};
}

std::string order(const RenderedTree& tree) {
  std::string ids;
  for (const RenderedTree::Node* node : tree.nodes()) ids += std::to_string(node->id.value);
  return ids;
}

class RenderedTreeTest : public ::testing::Test {
 protected:
  RenderedTreeTest() {
    tree.apply(
        {insert(1, 0, 0), insert(2, 1, 0), insert(3, 1, 2), insert(4, 1, 3), insert(5, 3, 0)});
  }
  RenderedTree tree;
};

}  // namespace

TEST_F(RenderedTreeTest, PutsInMovesAndTakesOut) {
  EXPECT_EQ(order(tree), "12354");
  tree.apply({move(4, 1, 0)});
  EXPECT_EQ(order(tree), "14235");
  tree.apply({move(4, 1, 2)});
  EXPECT_EQ(order(tree), "12435");
  tree.apply({insert(6, 1, 4), removal(2), insert(7, 1, 0)});
  EXPECT_EQ(order(tree), "174635");
  tree.apply({removal(3)});
  EXPECT_EQ(order(tree), "1746");
  EXPECT_EQ(tree.find(NodeID{5}), nullptr) << "a removal takes the whole subtree";
  EXPECT_EQ(tree.patchCount(), 11U);
}

TEST_F(RenderedTreeTest, WhatIsPutIntoASubtreeGoesWithItEvenInOneGo) {
  tree.apply({insert(8, 5, 0), insert(9, 3, 5), move(9, 3, 0), removal(3)});
  EXPECT_EQ(order(tree), "124");
  for (const std::uint64_t gone : {3U, 5U, 8U, 9U}) EXPECT_EQ(tree.find(NodeID{gone}), nullptr);
}

TEST_F(RenderedTreeTest, TheRootMayGoAndAnotherCome) {
  tree.apply({removal(1)});
  EXPECT_FALSE(tree.root());
  EXPECT_TRUE(tree.nodes().empty());
  tree.apply({insert(20, 0, 0)});
  EXPECT_EQ(tree.root(), NodeID{20});
}

TEST_F(RenderedTreeTest, APatchThatSpeaksOfNothingThrowsAndSaysSo) {
  const auto problemWith = [&](const Patch& patch) -> std::string {
    try {
      tree.apply({patch});
    } catch (const std::out_of_range& error) {
      return error.what();
    }
    return "";
  };
  const std::string notThere = "a patch speaks of a node that is not there";
  EXPECT_EQ(problemWith(removal(99)), notThere);
  EXPECT_EQ(problemWith(move(99, 1, 0)), notThere);
  EXPECT_EQ(problemWith(insert(30, 99, 0)), notThere);
  EXPECT_EQ(problemWith(insert(31, 1, 99)), notThere);
  EXPECT_EQ(problemWith(insert(2, 1, 0)), "a node was inserted twice");
  EXPECT_EQ(problemWith(insert(32, 1, 5)), "a node was placed behind one that is not its sibling");
}

}  // namespace vemra::testing
