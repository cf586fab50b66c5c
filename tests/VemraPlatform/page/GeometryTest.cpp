#include "VemraPlatform/page/Viewport.hpp"
#include "tests/VemraPlatform/page/Boxes.hpp"

#include <gtest/gtest.h>

namespace vemra::page {

TEST(Geometry, TheRightAndBottomEdgesAreOutsideARectangle) {
  const Rect rect{3, 4, 10, 20};
  EXPECT_EQ(rect.right(), 13);
  EXPECT_EQ(rect.bottom(), 24);
  EXPECT_FALSE(rect.isEmpty());
  EXPECT_TRUE((Rect{3, 4, 10, 0}).isEmpty());
  EXPECT_TRUE((Rect{3, 4, 0, 20}).isEmpty());
  EXPECT_EQ(rect.movedBy(-3, 6), (Rect{0, 10, 10, 20}));
}

TEST(Geometry, TheUnionIsTheSmallestRectangleAroundBoth) {
  EXPECT_EQ(united({0, 0, 4, 4}, {10, 2, 2, 9}), (Rect{0, 0, 12, 11}));
  EXPECT_EQ(united({5, 5, 1, 1}, {-3, -2, 4, 1}), (Rect{-3, -2, 9, 8}));
  EXPECT_EQ(united({}, {10, 2, 2, 9}), (Rect{10, 2, 2, 9}));
  EXPECT_EQ(united({10, 2, 2, 9}, {}), (Rect{10, 2, 2, 9}));
  EXPECT_EQ(united({10, 2, 0, 9}, {12, 30, 1, 1}), (Rect{10, 2, 3, 29})) << "an empty text counts";
}

TEST(Geometry, MirroringReflectsAFrameAtTheMiddleOfItsScope) {
  EXPECT_EQ(mirrored({24, 5, 40, 20}, 200), (Rect{136, 5, 40, 20}));
  EXPECT_EQ(mirrored(mirrored({24, 5, 40, 20}, 200), 200), (Rect{24, 5, 40, 20}));
}

TEST(Viewport, ShowsFramesThatOverlapIt) {
  const Viewport viewport{100, 50, 200};
  EXPECT_FALSE(viewport.shows({0, 190, 10, 10})) << "ends where the viewport begins";
  EXPECT_TRUE(viewport.shows({0, 190, 10, 11}));
  EXPECT_TRUE(viewport.shows({0, 249, 10, 1}));
  EXPECT_FALSE(viewport.shows({0, 250, 10, 1})) << "begins where the viewport ends";
  EXPECT_TRUE(viewport.shows({0, 190, 10, 1}, 10));
  EXPECT_FALSE(viewport.shows({0, 189, 10, 1}, 10));
  EXPECT_TRUE(viewport.shows({0, 259, 10, 1}, 10));
  EXPECT_FALSE(viewport.shows({0, 260, 10, 1}, 10));
}

}  // namespace vemra::page
