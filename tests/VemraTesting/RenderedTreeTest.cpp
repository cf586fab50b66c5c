#include "VemraTesting/RenderedTree.hpp"
#include "tests/VemraPlatform/ui/Patches.hpp"

#include <string>

#include <gtest/gtest.h>

namespace vemra::testing {

namespace {

using namespace ui;
using ui::sample::insert;
using ui::sample::move;
using ui::sample::removal;
using Kind = Patch::Kind;

std::string order(const RenderedTree& tree) {
  std::string ids;
  for (const RenderedTree::Node* node : tree.nodes()) ids += std::to_string(node->id.value);
  return ids;
}

class RenderedTreeTest : public ::testing::Test {
 protected:
  RenderedTreeTest() {
    tree.apply(
        {{insert(1, 0, 0), insert(2, 1, 0), insert(3, 1, 2), insert(4, 1, 3), insert(5, 3, 0)}});
  }
  RenderedTree tree;
};

}  // namespace

TEST_F(RenderedTreeTest, KeepsTheTreeAndCountsThePatches) {
  tree.apply({{insert(6, 1, 4), removal(2), insert(7, 1, 0), move(4, 1, 7)}});
  EXPECT_EQ(order(tree), "174356");
  EXPECT_EQ(tree.patchCount(), 9U);
  tree.apply({{removal(1)}});
  EXPECT_TRUE(tree.nodes().empty());
}

}  // namespace vemra::testing
