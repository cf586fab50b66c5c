#include "VemraPlatform/page/FocusOrder.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"

#include <algorithm>

#include <gtest/gtest.h>

namespace vemra::page {

using namespace sample;
using Direction = FocusOrder::Direction;

namespace {

/// Requested rows arrive at once, beside the existing ones.
class FocusOrderTest : public ::testing::Test, protected RowSupply {
 protected:
  std::string first(Laid& laid, Direction direction = Direction::forward) {
    supplied = &laid;
    return shown(FocusOrder(laid.tree, *this).firstIn(*laid.tree.root(), direction));
  }
  std::string next(Laid& laid, std::string_view from, Direction direction = Direction::forward) {
    supplied = &laid;
    return shown(FocusOrder(laid.tree, *this).next(laid.leaf(from), direction));
  }
  std::string nextTo(Laid& laid, const LostPlace& lost, Direction direction = Direction::forward) {
    supplied = &laid;
    return shown(FocusOrder(laid.tree, *this).nextTo(lost, direction));
  }
  static std::string shown(const Node* leaf) { return leaf ? nameOf(*leaf) : "none"; }

  Node* bringRow(Node& list, std::size_t index) override {
    ++asked;
    const auto find = [&](const ui::NodeID id) -> Node* {
      Node* const still = supplied->tree.find(id);
      if (!still) return nullptr;
      const auto row = std::ranges::find(still->children(), index, &Node::rowIndex);
      return row == still->children().end() ? nullptr : &*row;
    };
    const ui::NodeID id = list.id;
    if (isLate) return find(id);
    std::vector<ui::RowRange> ranges{{index, index + 1}};
    for (const Node& row : list.children()) ranges.push_back({row.rowIndex, row.rowIndex + 1});
    supplied->graph.showRows(id, std::move(ranges));
    return find(id);
  }
  bool rowsComeLater() const override { return isLate; }

  Laid* supplied = nullptr;
  int asked = 0;
  bool isLate = false;  ///< missing rows arrive after the search
};

ui::View controls(std::size_t count) {
  return column({text("head"), button("one"), column({button("off").disabled(true), field("two")}),
                 list(numbered(count), button), text("between"), button("last")});
}

}  // namespace

TEST_F(FocusOrderTest, OnlyEnabledControlsTakeTheFocus) {
  Laid laid(controls(0));
  EXPECT_FALSE(takesFocus(laid.leaf("head")));
  EXPECT_TRUE(takesFocus(laid.leaf("one")));
  EXPECT_FALSE(takesFocus(laid.leaf("off")));
  EXPECT_TRUE(takesFocus(laid.leaf("two")));
  EXPECT_FALSE(takesFocus(*laid.tree.root()));
}

TEST_F(FocusOrderTest, GoesInTreeOrderThroughRowsWithoutNodes) {
  Laid laid(controls(3));
  EXPECT_EQ(first(laid), "one");
  EXPECT_EQ(next(laid, "one"), "two");
  EXPECT_EQ(next(laid, "two"), "row0");
  EXPECT_EQ(next(laid, "row0"), "row1");
  EXPECT_EQ(next(laid, "row1"), "row2");
  EXPECT_EQ(next(laid, "row2"), "last");
  EXPECT_EQ(next(laid, "last"), "none");
}

TEST_F(FocusOrderTest, GoesBackwardsTheSameWay) {
  Laid laid(controls(3));
  EXPECT_EQ(first(laid, Direction::backward), "last");
  EXPECT_EQ(next(laid, "last", Direction::backward), "row2");
  EXPECT_EQ(next(laid, "row2", Direction::backward), "row1");
  EXPECT_EQ(next(laid, "row1", Direction::backward), "row0");
  EXPECT_EQ(next(laid, "row0", Direction::backward), "two");
  EXPECT_EQ(next(laid, "two", Direction::backward), "one");
  EXPECT_EQ(next(laid, "one", Direction::backward), "none");
}

TEST_F(FocusOrderTest, LeavesAListWithoutControlsAfterSixtyFourRows) {
  Laid laid(column({button("before"), list(numbered(10'000)), button("after")}));
  EXPECT_EQ(next(laid, "before"), "after");
  EXPECT_EQ(asked, 64);
  asked = 0;
  EXPECT_EQ(next(laid, "after", Direction::backward), "before");
  EXPECT_EQ(asked, 64);
}

TEST_F(FocusOrderTest, TheRowAtTheLostIndexReplacesALostRow) {
  Laid laid(controls(5));
  LostPlace lost;
  lost.within = laid.list().id;
  lost.row = 3;
  EXPECT_EQ(nextTo(laid, lost), "row3");
  lost.row = 9;
  EXPECT_EQ(nextTo(laid, lost), "row4") << "the last row, when the lost one was behind it";
}

TEST_F(FocusOrderTest, TheNodeBehindTheSameNeighbourReplacesALostElement) {
  Laid laid(column({text("a"), button("b"), button("c")}));
  const LostPlace lost = LostPlace::of(laid.leaf("b"));
  EXPECT_EQ(lost.within, laid.tree.root()->id);
  EXPECT_EQ(lost.after, laid.leaf("a").id);
  EXPECT_FALSE(lost.row);
  laid.show(column({text("a"), column({text("x"), button("y")}), button("c")}));
  EXPECT_EQ(nextTo(laid, lost), "y");
  EXPECT_EQ(LostPlace::of(laid.leaf("a")).after, ui::NodeID{}) << "nothing before it";
}

TEST_F(FocusOrderTest, OnlyALostRowHasAnIndex) {
  Laid laid(controls(5));
  laid.ask({{1, 4}});
  const Node& row = *laid.list().firstChild->next;
  EXPECT_EQ(LostPlace::of(row).within, laid.list().id);
  EXPECT_EQ(LostPlace::of(row).row, 2u);
  EXPECT_EQ(LostPlace::of(laid.leaf("one")).row, std::nullopt);
}

TEST_F(FocusOrderTest,
       WithoutAControlInTheLostRowTheLaterRowsComeFirstAndThenTheNodesBehindTheList) {
  const auto only = [](const std::string& id) {
    return [id](const std::string& row) { return row == id ? ui::View(button(row)) : text(row); };
  };
  Laid laid(column({button("before"), list(numbered(20), only("row9")), button("after")}));
  LostPlace lost;
  lost.within = laid.list().id;
  lost.row = 5;
  EXPECT_EQ(nextTo(laid, lost), "row9");
  EXPECT_EQ(nextTo(laid, lost, Direction::backward), "before");
  lost.row = 12;
  EXPECT_EQ(nextTo(laid, lost), "after");
  EXPECT_EQ(nextTo(laid, lost, Direction::backward), "row9");
}

TEST_F(FocusOrderTest, BackwardsTheNeighbourComesFirstAndThenTheNodesBeforeTheParent) {
  Laid laid(column({button("head"), column({button("a"), text("b"), button("c")})}));
  const LostPlace lost = LostPlace::of(laid.leaf("c"));
  laid.show(column({button("head"), column({button("a"), text("b")})}));
  EXPECT_EQ(nextTo(laid, lost), "none");
  EXPECT_EQ(nextTo(laid, lost, Direction::backward), "a");
  laid.show(column({button("head"), column({text("a"), text("b")})}));
  EXPECT_EQ(nextTo(laid, lost, Direction::backward), "head");
}

TEST_F(FocusOrderTest, ANeighbourThatHasMovedAwayIsIgnored) {
  Laid laid(column({button("head"), column({button("a"), button("b")}), button("c")}));
  LostPlace lost;
  lost.within = laid.leaf("a").parent->id;
  lost.after = laid.leaf("c").id;
  EXPECT_EQ(nextTo(laid, lost), "a");
  EXPECT_EQ(nextTo(laid, lost, Direction::backward), "head");
}

TEST_F(FocusOrderTest, ALostRowOfAnEmptyListHasNoNeighbours) {
  Laid laid(column({button("before"), list({}), button("after")}));
  LostPlace lost;
  lost.within = laid.list().id;
  lost.row = 0;
  EXPECT_EQ(nextTo(laid, lost), "after");
  EXPECT_EQ(nextTo(laid, lost, Direction::backward), "before");
}

TEST_F(FocusOrderTest, WaitsForTheFirstLateRowAndRequestsNoOther) {
  Laid laid(column({button("before"), list(numbered(100)), button("after")}));
  supplied = &laid;
  isLate = true;
  FocusOrder order(laid.tree, *this);
  EXPECT_EQ(order.next(laid.leaf("before"), Direction::forward), nullptr);
  ASSERT_TRUE(order.waiting());
  EXPECT_EQ(order.waiting()->row, 0u);
  EXPECT_EQ(asked, 1);
}

TEST_F(FocusOrderTest, WaitsForTheNextRowAndDoesNotLeaveTheList) {
  Laid laid(column({button("before"), list(numbered(100), button), button("after")}));
  supplied = &laid;
  laid.ask({{50, 51}});
  isLate = true;
  for (const auto& [direction, row] :
       {std::pair(Direction::forward, 51u), std::pair(Direction::backward, 49u)}) {
    FocusOrder order(laid.tree, *this);
    EXPECT_EQ(shown(order.next(laid.leaf("row50"), direction)), "none");
    ASSERT_TRUE(order.waiting());
    EXPECT_EQ(order.waiting()->row, row);
  }
}

TEST_F(FocusOrderTest, AResumedSearchContinuesAndNeverGoesBack) {
  Laid laid(column({button("before"), list(numbered(200)), button("after")}));
  supplied = &laid;
  isLate = true;
  FocusOrder order(laid.tree, *this);
  Node* control = order.next(laid.leaf("before"), Direction::forward);
  std::vector<std::size_t> waitedFor;
  while (const auto waiting = order.waiting()) {
    waitedFor.push_back(waiting->row);
    laid.ask({{waiting->row, waiting->row + 10}});  // the rows before it have been removed again
    control = order.resume(*waiting);
  }
  EXPECT_EQ(shown(control), "after");
  EXPECT_EQ(waitedFor, (std::vector<std::size_t>{0, 10, 20, 30, 40, 50, 60})) << "64 rows in all";
}

TEST_F(FocusOrderTest, AResumedSearchFindsAControlInALateRow) {
  Laid laid(column({button("before"), list(numbered(100), button), button("after")}));
  supplied = &laid;
  isLate = true;
  FocusOrder order(laid.tree, *this);
  order.next(laid.leaf("after"), Direction::backward);
  ASSERT_TRUE(order.waiting());
  laid.ask({{95, 100}});
  EXPECT_EQ(shown(order.resume(*order.waiting())), "row99");
  EXPECT_FALSE(order.waiting());
}

TEST_F(FocusOrderTest, NoControlIsFoundInARemovedParent) {
  Laid laid(controls(2));
  LostPlace lost;
  lost.within = laid.leaf("two").parent->id;
  laid.show(text("all gone"));
  EXPECT_EQ(nextTo(laid, lost), "none");
}

TEST_F(FocusOrderTest, EndsWhenTheTreeIsRemovedDuringTheSearch) {
  // The content of a row cannot be read: the graph removes the whole tree.
  const auto broken = [](const std::string&) -> ui::View {
    return ui::TextField(
        "f", ui::Binding<std::string>([]() -> std::string { throw 1; }, [](const std::string&) {}));
  };
  Laid laid(column({button("before"), list(numbered(10), broken), button("after")}));
  supplied = &laid;
  struct Guard final : RowSupply {
    explicit Guard(RowSupply& newRows) : rows(newRows) {}
    Node* bringRow(Node& list, std::size_t index) override {
      try {
        return rows.bringRow(list, index);
      } catch (int) {
        return nullptr;
      }
    }
    RowSupply& rows;
  } guard(*this);
  EXPECT_EQ(shown(FocusOrder(laid.tree, guard).next(laid.leaf("before"), Direction::forward)),
            "none");
  EXPECT_EQ(laid.tree.root(), nullptr);
}

}  // namespace vemra::page
