#include "VemraPlatform/page/Layout.hpp"
#include "VemraPlatform/page/WindowedTree.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"

#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::ui;
using page::Rect;
using page::Size;
using page::sample::button;
using page::sample::column;
using page::sample::Laid;
using page::sample::list;
using page::sample::numbered;
using page::sample::text;

TEST(Layout, AColumnStacksWithItsSpacingAndPadding) {
  Laid laid(
      VStack(HorizontalAlignment::leading, 7, {text("ab"), text("abcd"), text("a")}).padding(24),
      500);
  EXPECT_EQ(laid.leaf("ab").frame, (Rect{24, 24, 20, 20}));
  EXPECT_EQ(laid.leaf("abcd").frame, (Rect{24, 51, 40, 20}));
  EXPECT_EQ(laid.leaf("a").frame, (Rect{24, 78, 10, 20}));
  EXPECT_EQ(laid.tree.root()->size, (Size{88, 122}));
}

TEST(Layout, PaddingOnSomeEdgesOnly) {
  Laid laid(
      VStack(HorizontalAlignment::leading, 0,
             {text("a").padding(Edges::vertical, 4), text("b").padding(Edges::horizontal, 9)}),
      500);
  EXPECT_EQ(laid.leaf("a").frame, (Rect{0, 4, 10, 20}));
  EXPECT_EQ(laid.leaf("b").frame, (Rect{9, 28, 10, 20}));
}

TEST(Layout, CentredColumnsCentreWithinTheWidestChild) {
  Laid laid(VStack(HorizontalAlignment::center, 0, {text("abcd"), text("ab")}), 500);
  EXPECT_EQ(laid.leaf("ab").frame.x, 10);
}

TEST(Layout, ARowStandsSideBySideAndCentred) {
  Laid laid(HStack(VerticalAlignment::center, 8, {text("ab"), button("cd")}), 500);
  EXPECT_EQ(laid.leaf("ab").frame, (Rect{0, 1, 20, 20}));
  EXPECT_EQ(laid.leaf("cd").frame, (Rect{28, 0, 20, 22}));
}

TEST(Layout, ARowAtTheTop) {
  Laid laid(HStack(VerticalAlignment::top, 8, {text("ab"), button("cd")}), 500);
  EXPECT_EQ(laid.leaf("ab").frame.y, 0);
}

TEST(Layout, ARowThatDoesNotFitContinuesInAFurtherLine) {
  Laid laid(HStack(VerticalAlignment::center, 8, {text("aaaa"), text("bbbb"), text("cc")}), 100);
  EXPECT_EQ(laid.leaf("aaaa").frame, (Rect{0, 0, 40, 20}));
  EXPECT_EQ(laid.leaf("bbbb").frame, (Rect{48, 0, 40, 20}));
  EXPECT_EQ(laid.leaf("cc").frame, (Rect{0, 28, 20, 20}));
  EXPECT_LE(laid.tree.root()->size.width, 100);
  EXPECT_EQ(laid.tree.root()->size.height, 48) << "two lines and their gap";
}

TEST(Layout, ARowThatJustFitsStaysOnOneLine) {
  const View row = HStack(VerticalAlignment::center, 8, {text("aaaa"), text("bbbb")});
  EXPECT_EQ(Laid(row, 88).leaf("bbbb").frame, (Rect{48, 0, 40, 20}));
  EXPECT_EQ(Laid(row, 87).leaf("bbbb").frame, (Rect{0, 28, 40, 20}));
}

TEST(Layout, ARowWithoutElementsHasNoSize) {
  Laid laid(HStack(VerticalAlignment::center, 8, {}), 100);
  EXPECT_EQ(laid.tree.root()->size, (Size{0, 0}));
}

TEST(Layout, NothingIsWiderThanThePage) {
  Laid laid(VStack(HorizontalAlignment::leading, 4,
                   {text("a rather long text"), HStack(VerticalAlignment::center, 8,
                                                       {button("a long title"), button("other")})})
                .padding(24),
            100);
  page::forEachLeaf(*laid.tree.root(), [](const page::Node& leaf) {
    EXPECT_GE(leaf.frame.x, 24) << leaf.element.shownLabel();
    EXPECT_LE(leaf.frame.right(), 76) << leaf.element.shownLabel();
  });
}

TEST(Layout, GroupsAddNothingAndPassTheirPaddingToTheirChildren) {
  Laid plain(VStack(HorizontalAlignment::leading, 5, {text("a"), Group({text("b"), text("c")})}),
             99);
  EXPECT_EQ(plain.leaf("c").frame, (Rect{0, 50, 10, 20}));
  Laid padded(VStack(HorizontalAlignment::leading, 5, {Group({text("b"), text("c")}).padding(3)}),
              99);
  EXPECT_EQ(padded.leaf("b").frame, (Rect{3, 3, 10, 20}));
  EXPECT_EQ(padded.leaf("c").frame, (Rect{3, 34, 10, 20}));
}

TEST(Layout, AbsentChildrenLeaveNoGap) {
  Laid laid(VStack(HorizontalAlignment::leading, 5,
                   {text("a"), View(), Group({}), If(false, [] { return text("x"); }), text("b")}),
            99);
  EXPECT_EQ(laid.leaf("b").frame.y, 25);
}

TEST(Layout, RowsThatWereNotRequestedHaveTheEstimatedHeight) {
  Laid laid(column({text("head"), list(numbered(1000)), text("foot")}, 10));
  const page::Node& rows = laid.list();
  EXPECT_EQ(rows.frame.y, 30);
  EXPECT_EQ(rows.frame.height, 1000 * rows.rows->estimate() + 999 * 10);
  EXPECT_EQ(laid.leaf("foot").frame.y, rows.frame.bottom() + 10);
}

TEST(Layout, AnotherWidthEstimatesAgainFromTheExistingRows) {
  page::sample::IDs twoLines;
  for (int i = 0; i < 100; ++i) twoLines.push_back("a row of 15, " + std::to_string(10 + i));
  Laid laid(column({list(twoLines)}), 300);
  laid.ask({{0, 10}});
  ASSERT_EQ(laid.list().rows->estimate(), 20);
  laid.width = 100;
  laid.layOut();
  EXPECT_EQ(laid.list().rows->estimate(), 40);
}

TEST(Layout, AnEmptyListLeavesNoGap) {
  Laid laid(column({text("head"), list({}), text("foot")}, 10));
  EXPECT_EQ(laid.leaf("foot").frame.y, 30);
}

TEST(Layout, OnlyChangedNodesAreMeasuredAgain) {
  struct Counting final : page::LeafMetrics {
    Size measure(const page::Node&, int) override {
      ++count;
      return {10, 10};
    }
    int count = 0;
  } metrics;
  struct Holder final : Renderer {
    page::WindowedTree tree{[](page::Node&) {}};
    RowDemand rowDemand() const override { return RowDemand::everything; }
    void apply(const Changes& changes) override { tree.apply(changes); }
  } holder;
  ViewGraph graph;
  graph.attach(holder);
  const auto view = [](const char* changing) {
    return VStack(HorizontalAlignment::leading, 1,
                  {text("a"), VStack(HorizontalAlignment::leading, 1, {text("b"), text("c")}),
                   text(changing)});
  };
  graph.setRoot(view("d"));
  page::measureScope(*holder.tree.root(), 100, 0, metrics);
  EXPECT_EQ(metrics.count, 4);
  graph.setRoot(view("e"));
  page::measureScope(*holder.tree.root(), 100, 0, metrics);
  EXPECT_EQ(metrics.count, 5);
  page::measureScope(*holder.tree.root(), 90, 0, metrics);
  EXPECT_EQ(metrics.count, 9);
}
