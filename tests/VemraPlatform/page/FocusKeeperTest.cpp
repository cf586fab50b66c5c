#include "VemraPlatform/page/FocusKeeper.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"

#include <gtest/gtest.h>

namespace vemra::page {

using namespace sample;
using Sight = FocusKeeper::Sight;

namespace {

/// A page whose rows arrive when the test requests them, after a search.
class FocusKeeperTest : public ::testing::Test, protected RowSupply {
 protected:
  Node* bringRow(Node& list, std::size_t index) override {
    for (Node& row : list.children()) {
      if (row.rowIndex == index) return &row;
    }
    return nullptr;
  }
  bool rowsComeLater() const override { return true; }

  /// Removes the focused control `name` by showing `then`.
  void lose(std::string_view name, const ui::View& then, Sight sight = Sight::inView) {
    const Node& leaf = laid.leaf(name);
    keeper.removing(leaf, &leaf, nullptr, sight);
    laid.show(then);
  }
  std::string control() {
    const Node* const found = keeper.control();
    return found ? nameOf(*found) : "none";
  }

  Laid laid{column({button("a"), button("b"), button("c")})};
  FocusKeeper keeper{laid.tree, *this};
};

}  // namespace

TEST_F(FocusKeeperTest, DoesNotSearchBeforeTheFocusIsLost) {
  keeper.removing(laid.leaf("b"), &laid.leaf("a"), &laid.leaf("c"), Sight::inView);
  EXPECT_FALSE(keeper.isSearching());
  EXPECT_EQ(control(), "none");
}

TEST_F(FocusKeeperTest, TheControlAfterTheLostControlComesFirst) {
  lose("b", column({button("a"), text("x"), button("c")}));
  ASSERT_TRUE(keeper.isSearching());
  EXPECT_EQ(control(), "c");
}

TEST_F(FocusKeeperTest, WithoutAControlAfterItTheControlBeforeItGetsTheFocus) {
  lose("b", column({button("a"), text("x"), button("c").disabled(true)}));
  EXPECT_EQ(control(), "a");
}

TEST_F(FocusKeeperTest, WithoutAnyControlNoElementGetsTheFocus) {
  lose("b", column({button("a").disabled(true), text("x"), text("c")}));
  EXPECT_EQ(control(), "none");
  EXPECT_FALSE(keeper.isUnfinished(nullptr));
}

TEST_F(FocusKeeperTest, AnElementRemovedOutOfViewPassesTheFocusToNoControl) {
  lose("b", column({button("a"), text("x"), button("c")}), Sight::outOfView);
  EXPECT_TRUE(keeper.isSearching()) << "the page itself must get the focus";
  EXPECT_EQ(control(), "none");
}

TEST_F(FocusKeeperTest, APressedElementPassesTheFocusOnAlsoOutOfView) {
  const Node& pressed = laid.leaf("b");
  keeper.removing(pressed, nullptr, &pressed, Sight::outOfView);
  laid.show(column({button("a"), text("x"), button("c")}));
  EXPECT_EQ(control(), "c");
}

TEST_F(FocusKeeperTest, WhenTheParentIsRemovedTooTheParentsPlaceCounts) {
  Laid inner(column({button("a"), column({text("x"), button("b")}), button("c")}));
  FocusKeeper kept(inner.tree, *this);
  const Node& lost = inner.leaf("b");
  kept.removing(lost, &lost, nullptr, Sight::inView);
  kept.removing(*lost.parent, nullptr, nullptr, Sight::outOfView);
  inner.show(column({button("a"), button("new"), button("c")}));
  EXPECT_EQ(nameOf(*kept.control()), "new");
}

TEST_F(FocusKeeperTest, TheFoundControlStaysUntilItHasTheFocus) {
  lose("b", column({button("a"), text("x"), button("c")}));
  const Node* const found = keeper.control();
  EXPECT_TRUE(keeper.isUnfinished(nullptr));
  EXPECT_TRUE(keeper.isUnfinished(&laid.leaf("a")));
  EXPECT_EQ(keeper.control(), found);
  EXPECT_FALSE(keeper.isUnfinished(found));
  keeper.end();
  EXPECT_FALSE(keeper.isSearching());
}

TEST_F(FocusKeeperTest, AFoundControlThatIsDisabledMeanwhileIsNotKept) {
  lose("b", column({button("a"), text("x"), button("c")}));
  EXPECT_EQ(control(), "c");
  laid.show(column({button("a"), text("x"), button("c").disabled(true)}));
  EXPECT_EQ(control(), "a");
}

TEST_F(FocusKeeperTest, KeepsTheRowOfTheFoundControl) {
  const auto page = [](ui::View first) {
    return column({std::move(first), list(numbered(9), button)});
  };
  Laid rows(page(button("lost")));
  rows.ask({{0, 3}});
  FocusKeeper kept(rows.tree, *this);
  const Node& lost = rows.leaf("lost");
  kept.removing(lost, &lost, nullptr, Sight::inView);
  rows.show(page(text("x")));
  ASSERT_EQ(kept.row(), nullptr) << "the lost place is in no row";
  const Node* const found = kept.control();
  ASSERT_EQ(nameOf(*found), "row0");
  EXPECT_EQ(kept.row(), rowOf(found));
}

TEST_F(FocusKeeperTest, ASearchThatWaitsForRowsEndsAndKeepsItsOwnRow) {
  Laid rows(column({list(numbered(100))}));
  rows.ask({{50, 51}});
  FocusKeeper kept(rows.tree, *this);
  kept.moveTo({rows.list().firstChild->id, {}, std::nullopt});
  int rounds = 0;
  std::vector<std::size_t> first{51, 49};
  while (!kept.control() && kept.isUnfinished(nullptr)) {
    ASSERT_LT(++rounds, 200) << "it never comes to rest";
    ASSERT_EQ(kept.row()->rowIndex, 50u);
    // Acts like a page: gets the row at the place and then one row after another into the tree.
    const std::size_t next = rounds <= 49 ? 50 + static_cast<std::size_t>(rounds)
                                          : 99 - static_cast<std::size_t>(rounds);
    rows.ask({{50, 51}, {next, next + 1}});
  }
  EXPECT_EQ(kept.control(), nullptr);
  EXPECT_EQ(rounds, 49 + 50) << "the search waited once for every other row";
}

}  // namespace vemra::page
