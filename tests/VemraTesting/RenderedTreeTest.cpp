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

TEST_F(RenderedTreeTest, APatchThatSpeaksOfNothingThrows) {
  EXPECT_THROW(tree.apply({removal(99)}), std::out_of_range);
  EXPECT_THROW(tree.apply({move(99, 1, 0)}), std::out_of_range);
  EXPECT_THROW(tree.apply({insert(2, 1, 0)}), std::out_of_range) << "it is there already";
  EXPECT_THROW(tree.apply({insert(30, 99, 0)}), std::out_of_range);
  EXPECT_THROW(tree.apply({insert(31, 1, 99)}), std::out_of_range);
  EXPECT_THROW(tree.apply({insert(32, 1, 5)}), std::out_of_range) << "5 is no child of 1";
}

}  // namespace vemra::testing
