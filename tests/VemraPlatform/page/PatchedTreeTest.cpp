#include "VemraPlatform/page/PatchedTree.hpp"
#include "tests/VemraPlatform/ui/Patches.hpp"

#include <ranges>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace vemra::page {

namespace {

using namespace ui;
using ui::sample::insert;
using ui::sample::move;
using ui::sample::removal;
using Kind = Patch::Kind;
using page::Node;

/// The ids in tree order; also checks that every link between two nodes leads back.
std::string order(const Node* node) {
  if (!node) return "";
  std::string ids = std::to_string(node->id.value);
  std::size_t count = 0;
  const Node* previous = nullptr;
  for (const Node& child : node->children()) {
    EXPECT_EQ(child.parent, node);
    EXPECT_EQ(child.previous, previous);
    previous = &child;
    ++count;
    ids += order(&child);
  }
  EXPECT_EQ(node->lastChild, previous);
  EXPECT_EQ(node->childCount, count);
  return ids;
}
std::string order(const PatchedTree& tree) {
  return order(tree.root());
}

class PatchedTreeTest : public ::testing::Test {
 protected:
  PatchedTreeTest() {
    tree.apply(
        {{insert(1, 0, 0), insert(2, 1, 0), insert(3, 1, 2), insert(4, 1, 3), insert(5, 3, 0)}});
  }
  PatchedTree tree;
};

}  // namespace

TEST_F(PatchedTreeTest, InsertsMovesAndRemoves) {
  EXPECT_EQ(order(tree), "12354");
  tree.apply({{move(4, 1, 0)}});
  EXPECT_EQ(order(tree), "14235");
  tree.apply({{move(4, 1, 2)}});
  EXPECT_EQ(order(tree), "12435");
  tree.apply({{insert(6, 1, 4), removal(2), insert(7, 1, 0)}});
  EXPECT_EQ(order(tree), "174635");
  tree.apply({{removal(3)}});
  EXPECT_EQ(order(tree), "1746");
  EXPECT_EQ(tree.find(NodeID{5}), nullptr) << "a removal takes the whole subtree";
}

TEST_F(PatchedTreeTest, ANodeInsertedIntoASubtreeIsRemovedWithItAlsoInTheSameChanges) {
  tree.apply({{insert(8, 5, 0), insert(9, 3, 5), move(9, 3, 0), removal(3)}});
  EXPECT_EQ(order(tree), "124");
  for (const std::uint64_t gone : {3U, 5U, 8U, 9U}) EXPECT_EQ(tree.find(NodeID{gone}), nullptr);
}

TEST_F(PatchedTreeTest, TheRootCanBeReplaced) {
  tree.apply({{removal(1)}});
  EXPECT_FALSE(tree.root());
  tree.apply({{insert(20, 0, 0)}});
  EXPECT_EQ(tree.root(), tree.find(NodeID{20}));
}

TEST_F(PatchedTreeTest, APatchForAnUnknownNodeThrowsTheReason) {
  const auto problemWith = [&](const Patch& patch) -> std::string {
    try {
      tree.apply({{patch}});
    } catch (const std::out_of_range& error) {
      return error.what();
    }
    return "";
  };
  const std::string notThere = "a patch names a node that does not exist";
  EXPECT_EQ(problemWith(removal(99)), notThere);
  EXPECT_EQ(problemWith(move(99, 1, 0)), notThere);
  EXPECT_EQ(problemWith(insert(30, 99, 0)), notThere);
  EXPECT_EQ(problemWith(insert(31, 1, 99)), notThere);
  EXPECT_EQ(problemWith(insert(2, 1, 0)), "a node was inserted twice");
  const std::string notASibling = "a node was placed behind one that is not its sibling";
  EXPECT_EQ(problemWith(insert(32, 1, 5)), notASibling);
  EXPECT_EQ(problemWith(move(4, 1, 5)), notASibling);
  EXPECT_EQ(problemWith(move(4, 1, 4)), notASibling);
  EXPECT_EQ(problemWith(move(4, 99, 0)), notThere);
  EXPECT_EQ(problemWith(move(3, 5, 0)), "a node was placed inside itself");
  EXPECT_EQ(problemWith(insert(33, 0, 0)), "a tree got a second root");
  EXPECT_EQ(order(tree), "12354") << "a patch that throws changes nothing";
  EXPECT_EQ(tree.size(), 5U);
  for (const std::uint64_t id : {30U, 31U, 32U, 33U}) EXPECT_EQ(tree.find(NodeID{id}), nullptr);
}

TEST_F(PatchedTreeTest, NumbersTheRowsOfAList) {
  EXPECT_EQ(tree.find(NodeID{2})->rowIndex, Node::nowhere);
  tree.apply({{move(4, 1, 0)}, {{NodeID{1}, nullptr, {{3, 4}, {7, 9}}}}});
  EXPECT_EQ(tree.find(NodeID{4})->rowIndex, 3U);
  EXPECT_EQ(tree.find(NodeID{2})->rowIndex, 7U);
  EXPECT_EQ(tree.find(NodeID{3})->rowIndex, 8U);
  EXPECT_EQ(tree.find(NodeID{5})->rowIndex, Node::nowhere) << "it is no child of the list";
  EXPECT_THROW(tree.apply({{}, {{NodeID{1}, nullptr, {{0, 2}}}}}), std::out_of_range);
  EXPECT_THROW(tree.apply({{}, {{NodeID{1}, nullptr, {{0, 4}}}}}), std::out_of_range);
  EXPECT_THROW(tree.apply({{}, {{NodeID{9}, nullptr, {}}}}), std::out_of_range);
}

TEST_F(PatchedTreeTest, TheChildrenCanBeReadBackwards) {
  std::string ids;
  for (const Node& child : tree.root()->children() | std::views::reverse) {
    ids += std::to_string(child.id.value);
  }
  EXPECT_EQ(ids, "432");
}

TEST_F(PatchedTreeTest, ItsSizeCountsTheNodesBelowARemovedOneOut) {
  EXPECT_EQ(PatchedTree().size(), 0U);
  EXPECT_EQ(tree.size(), 5U);
  tree.apply({{move(5, 1, 0), insert(6, 3, 0)}});
  EXPECT_EQ(tree.size(), 6U);
  tree.apply({{removal(3)}});
  EXPECT_EQ(tree.size(), 4U);
  tree.apply({{removal(1)}});
  EXPECT_EQ(tree.size(), 0U);
}

TEST_F(PatchedTreeTest, ANodeStaysTheSameObjectUntilItIsRemoved) {
  const Node* const four = tree.find(NodeID{4});
  tree.apply({{move(4, 3, 5), insert(6, 1, 0), removal(2)}});
  EXPECT_EQ(tree.find(NodeID{4}), four);
}

namespace {

struct Log final : PatchedTree::Observer {
  std::string lines;
  void inserted(Node& node) override { add("insert", node); }
  void updated(Node& node) override { add("update", node); }
  void childrenChanged(Node& parent) override { add("children", parent); }
  void removing(Node& node) override { add("remove", node); }
  void add(const std::string& what, const Node& node) { lines += what + " " + order(&node) + " "; }
};

}  // namespace

TEST(PatchedTreeObserver, IsCalledForEveryChangeWhileTheTreeIsWhole) {
  Log log;
  PatchedTree tree(log);
  tree.apply({{insert(1, 0, 0), insert(2, 1, 0)}});
  EXPECT_EQ(log.lines, "insert 1 children 12 insert 2 ");
  log.lines.clear();
  Patch other = insert(2, 1, 0);
  other.kind = Kind::update;
  other.element = Element(Text(verbatim("new")), {}, {});
  tree.apply({{other}});
  EXPECT_EQ(log.lines, "update 2 ");
  EXPECT_EQ(tree.find(NodeID{2})->element.shownLabel(), "new");
  log.lines.clear();
  tree.apply({{insert(3, 2, 0), removal(2)}});
  EXPECT_EQ(log.lines, "children 23 insert 3 remove 23 children 1 ");
}

}  // namespace vemra::page
