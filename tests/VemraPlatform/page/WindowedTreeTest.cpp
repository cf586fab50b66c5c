// Which lists are windowed, and which measurements are discarded when patches change the tree.

#include "tests/VemraPlatform/page/Laid.hpp"

#include <stdexcept>

#include <gtest/gtest.h>

namespace vemra::page {

using namespace sample;
using ui::Group;
using ui::HStack;
using ui::VerticalAlignment;
using ui::View;

namespace {

View beside(View view) {
  return HStack(VerticalAlignment::top, 0, {std::move(view)});
}

}  // namespace

TEST(WindowedTree, AListInAColumnIsWindowed) {
  Laid laid(column({text("head"), Group({column({list(numbered(3))})})}));
  EXPECT_EQ(laid.tree.lists().size(), 1u);
  EXPECT_EQ(laid.tree.wholeLists().size(), 0u);
  EXPECT_TRUE(laid.list().rows);
}

TEST(WindowedTree, AListBesideAnotherElementOrInARowIsShownWhole) {
  Laid inLine(column({beside(column({list(numbered(3))}))}));
  EXPECT_EQ(inLine.tree.lists().size(), 0u);
  ASSERT_EQ(inLine.tree.wholeLists().size(), 1u);
  EXPECT_FALSE(inLine.tree.wholeLists().front()->rows);

  Laid inRow(column({list(numbered(3), [](const std::string&) { return list(numbered(2)); })}));
  inRow.ask({{0, 2}});
  EXPECT_EQ(inRow.tree.lists().size(), 1u);
  EXPECT_EQ(inRow.tree.wholeLists().size(), 2u) << "one in each row that is there";
  inRow.ask({});
  EXPECT_EQ(inRow.tree.wholeLists().size(), 0u) << "lists go with their rows";
}

TEST(WindowedTree, RemovingReportsTheNodeWhileItsSubtreeIsInPlace) {
  std::string leaves;
  WindowedTree tree([&](Node& node) {
    forEachLeaf(node, [&](const Node& leaf) { leaves += leaf.element.shownLabel(); });
  });
  struct Window final : ui::Renderer {
    explicit Window(WindowedTree& newTree) : tree(newTree) {}
    ui::RowDemand rowDemand() const override { return ui::RowDemand::everything; }
    void apply(const ui::Changes& changes) override { tree.apply(changes); }
    WindowedTree& tree;
  } window(tree);
  ui::ViewGraph graph;
  graph.attach(window);
  graph.setRoot(column({text("a"), column({text("b"), text("c")})}));
  graph.setRoot(column({text("a")}));
  EXPECT_EQ(leaves, "bc");
  graph.detach();
}

TEST(WindowedTree, HeightsMoveWithTheirRowsToANewList) {
  const auto tall = [](const std::string& id) -> View {
    return id == "row5" ? column({text(id), text("more"), text("more")}) : View(text(id));
  };
  IDs ids = numbered(100);
  Laid laid(column({list(ids, tall)}));
  laid.ask({{4, 7}});
  EXPECT_EQ(laid.list().rows->height(5), 60);
  ids.erase(ids.begin() + 2);
  ids.insert(ids.begin(), {"new1", "new2"});
  laid.show(column({list(ids, tall)}));
  EXPECT_EQ(laid.list().rows->height(6), 60);
  EXPECT_EQ(laid.list().rows->height(5), 20);
  EXPECT_EQ(laid.list().rows->height(8), laid.list().rows->estimate());
}

TEST(WindowedTree, HeightsAreEstimatedAgainWhenRowsChangePlaces) {
  const auto tall = [](const std::string& id) -> View {
    return id == "row5" ? column({text(id), text("more"), text("more")}) : View(text(id));
  };
  IDs ids = numbered(100);
  Laid laid(column({list(ids, tall)}));
  laid.ask({{4, 7}});
  laid.ask({{6, 7}});
  EXPECT_EQ(laid.list().rows->height(5), 60);
  std::swap(ids[6], ids[50]);
  laid.show(column({list(ids, tall)}));
  EXPECT_EQ(laid.list().rows->height(5), laid.list().rows->estimate());
}

TEST(WindowedTree, IdsThatCannotBeReadThrowAfterAllPatchesAreCarriedOut) {
  struct Broken {
    const std::string* ids;
    std::size_t count;
    std::size_t size() const { return count; }
    const std::string& operator[](std::size_t index) const { return ids[index]; }
  };
  static const std::string ids[] = {"a", "b", "c", "d"};
  static bool isBroken = false;
  const auto listOf = [](std::size_t count) {
    return View(ui::ForEach(
        Broken{ids, count},
        [](const std::string& id) -> const std::string& {
          if (isBroken) throw std::runtime_error("no id");
          return id;
        },
        [](const std::string& id) -> View { return text(id); }));
  };
  WindowedTree tree([](Node&) {});
  const auto patch = [](ui::Patch::Kind kind, std::uint64_t node, std::uint64_t parent,
                        std::uint64_t after, View shown) {
    return ui::Patch{kind, ui::NodeID{node}, ui::NodeID{parent}, ui::NodeID{after},
                     ui::Element(std::move(shown), {}, {})};
  };
  const auto rowsOf = [](const View& list) {
    const auto& rows = std::get<ui::ForEachContent>(list.description().content).rows;
    return ui::ListRows{ui::NodeID{2}, rows, {}};
  };
  using Kind = ui::Patch::Kind;
  const View before = listOf(3), after = listOf(4);
  tree.apply({{patch(Kind::insert, 1, 0, 0, column({})), patch(Kind::insert, 2, 1, 0, before),
               patch(Kind::insert, 3, 1, 2, text("x"))},
              {rowsOf(before)}});
  isBroken = true;
  EXPECT_THROW(
      tree.apply({{patch(Kind::update, 2, 0, 0, after), patch(Kind::update, 3, 0, 0, text("y"))},
                  {rowsOf(after)}}),
      std::runtime_error);
  isBroken = false;
  EXPECT_EQ(tree.find(ui::NodeID{3})->element.shownLabel(), "y");
  EXPECT_EQ(tree.lists().at(0)->rows->count(), 4u);
}

TEST(WindowedTree, AChangeDiscardsTheMeasurementsOfAllNodesAroundIt) {
  Laid laid(column({text("a"), column({text("b")})}));
  laid.graph.setRoot(column({text("a"), column({text("c")})}));
  EXPECT_EQ(laid.leaf("a").measuredWidth, 300);
  EXPECT_EQ(laid.leaf("c").measuredWidth, -1);
  EXPECT_EQ(laid.leaf("c").parent->measuredWidth, -1);
  EXPECT_EQ(laid.tree.root()->measuredWidth, -1);
  laid.layOut();
  laid.tree.invalidateAll();
  EXPECT_EQ(laid.leaf("a").measuredWidth, -1);
}

}  // namespace vemra::page
