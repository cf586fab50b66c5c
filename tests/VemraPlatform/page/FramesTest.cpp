#include "tests/VemraPlatform/page/Laid.hpp"

#include <gtest/gtest.h>

namespace vemra::page {

using namespace sample;
using ui::LayoutDirection;

namespace {

/// "head", 20 high, then rows 20 high with a padding of 4 at the sides and none above, then "foot".
ui::View page(std::size_t count) {
  return column(
      {text("head"), list(numbered(count)).padding(ui::Edges::horizontal, 4), text("foot")}, 10);
}

}  // namespace

TEST(Frames, AnElementOutsideListsHasItsFrameOfTheLayout) {
  Laid laid(page(3));
  EXPECT_EQ(laid.frames().of(laid.leaf("head")), (Rect{0, 0, 40, 20}));
  EXPECT_EQ(laid.frames(LayoutDirection::rightToLeft).of(laid.leaf("head")),
            (Rect{260, 0, 40, 20}));
}

TEST(Frames, AnElementInARowMovesWithItsRow) {
  Laid laid(page(100));
  laid.ask({{7, 9}});
  const int estimate = laid.list().rows->estimate();
  EXPECT_EQ(estimate, 20);
  EXPECT_EQ(laid.frames().of(laid.leaf("row8")), (Rect{4, 30 + 8 * 30, 40, 20}));
  EXPECT_EQ(laid.frames(LayoutDirection::rightToLeft).of(laid.leaf("row8")),
            (Rect{256, 30 + 8 * 30, 40, 20}));
}

TEST(Frames, ARowWithoutNodesHasTheEstimatedPosition) {
  Laid laid(page(100));
  laid.ask({{7, 9}});
  EXPECT_EQ(laid.frames().ofRow(laid.list(), 50), (Rect{0, 30 + 50 * 30, 300, 20}));
}

TEST(PositionShowing, StaysTheSameWhileTheElementIsInView) {
  Laid laid(page(100));
  laid.ask({{0, 20}});
  const Frames frames = laid.frames();
  const Viewport viewport{300, 200, 100};
  EXPECT_EQ(positionShowing(laid.leaf("row5"), frames, viewport, 12), 100);
}

TEST(PositionShowing, MovesNoFurtherThanNeededPlusTheMargin) {
  Laid laid(page(100));
  laid.ask({{0, 20}});
  const Frames frames = laid.frames();
  const Viewport viewport{300, 200, 100};
  EXPECT_EQ(positionShowing(laid.leaf("row1"), frames, viewport, 12), 60 - 12);
  EXPECT_EQ(positionShowing(laid.leaf("row15"), frames, viewport, 12),
            30 + 15 * 30 + 20 - 1 + 12 - 200);
}

TEST(PositionShowing, ShowsTheWholeRowWhenItFits) {
  const auto row = [](const std::string& id) { return column({text(id), text(id + "b")}); };
  Laid laid(column({list(numbered(100), row)}));
  laid.ask({{0, 20}});
  const Frames frames = laid.frames();
  EXPECT_EQ(positionShowing(laid.leaf("row5b"), frames, {300, 200, 300}, 12), 200 - 12);
  EXPECT_EQ(positionShowing(laid.leaf("row5b"), frames, {300, 40 + 2 * 12, 300}, 12), 200 - 12)
      << "with its air it just fits";
  EXPECT_EQ(positionShowing(laid.leaf("row5b"), frames, {300, 50, 300}, 12), 220 - 12)
      << "the row does not fit, the element does";
}

}  // namespace vemra::page
