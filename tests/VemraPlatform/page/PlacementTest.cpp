#include "VemraPlatform/page/Placement.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::page {

using namespace sample;

namespace {

/// Five controls, each 22 high, in a viewport of 40 that reaches 10 further.
class PlacementTest : public ::testing::Test {
 protected:
  Placements place(const Node* focused = nullptr, const PinnedRows& pinned = {}) {
    return placeLeaves(laid.tree, laid.frames(), viewport, 10, pinned, focused);
  }
  static std::vector<std::string> placed(const Placements& placements) {
    std::vector<std::string> names;
    for (const Placement& each : placements.placed) names.push_back(nameOf(*each.leaf));
    return names;
  }
  static std::vector<std::string> released(const Placements& placements) {
    std::vector<std::string> names;
    for (const Node* leaf : placements.released) names.push_back(nameOf(*leaf));
    return names;
  }
  using Names = std::vector<std::string>;

  Laid laid{column({button("a"), button("b"), button("c"), button("d"), button("e")})};
  Viewport viewport{300, 40, 0};
};

}  // namespace

TEST_F(PlacementTest, LeavesInTheViewportAndItsMarginArePlacedInTreeOrder) {
  const Placements placements = place();
  EXPECT_EQ(placed(placements), (Names{"a", "b", "c"}));
  EXPECT_EQ(placements.placed[1].frame, laid.frames().of(laid.leaf("b")));
  EXPECT_TRUE(laid.leaf("c").isPlaced);
  EXPECT_FALSE(laid.leaf("d").isPlaced);
  EXPECT_EQ(released(placements), Names{});
}

TEST_F(PlacementTest, ALeafThatIsScrolledAwayIsReleasedOnce) {
  place();
  viewport.position = 60;
  EXPECT_EQ(released(place()), (Names{"a", "b"}));
  EXPECT_EQ(released(place()), Names{});
}

TEST_F(PlacementTest, TheFocusedLeafStaysPlacedWhereverThePageIsScrolled) {
  const Node* const focused = &laid.leaf("a");
  place(focused);
  viewport.position = 60;
  EXPECT_EQ(placed(place(focused)), (Names{"a", "c", "d", "e"}));
  EXPECT_EQ(released(place()), Names{"a"}) << "when it loses the focus";
}

TEST_F(PlacementTest, ALeafThatWasNeverPlacedIsNotPlacedForTheFocus) {
  EXPECT_EQ(placed(place(&laid.leaf("e"))), (Names{"a", "b", "c"}));
}

TEST_F(PlacementTest, AWholePinnedRowStaysPlaced) {
  laid.show(column({list(numbered(20), [](const std::string& id) -> ui::View {
    return column({text(id), button("of " + id)});
  })}));
  laid.ask({{0, 20}});
  PinnedRows pinned;
  pinned.focused = laid.list().firstChild;
  place(nullptr, pinned);
  viewport.position = 500;
  const Names names = placed(place(nullptr, pinned));
  EXPECT_EQ(names[0], "row0");
  EXPECT_EQ(names[1], "of row0");
  EXPECT_EQ(names[2], "of row11") << "the rows between are released";
}

TEST_F(PlacementTest, NothingIsPlacedOfAnEmptyTree) {
  laid.graph.setRoot(ui::View());
  EXPECT_EQ(placed(place()), Names{});
}

}  // namespace vemra::page
