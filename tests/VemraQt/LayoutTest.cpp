#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraQt/Layout.hpp"

#include <map>
#include <string>

#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::ui;
using qt::RenderNode;
using qt::RenderTree;

namespace {

/// Every character is ten wide and a line twenty high; buttons are two higher, fields take all.
class BoxyMetrics final : public qt::LeafMetrics {
 public:
  QSize measure(RenderNode& leaf, int width) const override {
    const int length = static_cast<int>(leaf.element.shownLabel().size()) * 10;
    const int lines = std::max(1, (length + width - 1) / width);
    QSize size(std::min(length, width), lines * 20);
    if (leaf.element.kind() == ElementKind::button) size.rheight() += 2;
    if (leaf.element.kind() == ElementKind::textField) size.setWidth(width);
    return size;
  }
};

/// A view laid out in a width, without a window.
class Laid final : public Renderer {
 public:
  Laid(View root, int width, RowDemand demand = RowDemand::everything)
      : demand_(demand), tree_([](RenderNode&) {}) {
    graph_.attach(*this);
    graph_.setRoot(std::move(root));
    size = qt::measureScope(*tree_.root(), width, 0, metrics_);
    qt::forEachLeaf(*tree_.root(), [&](RenderNode& leaf) {
      frames[std::string(leaf.element.shownLabel())] = leaf.frame;
    });
  }
  RowDemand rowDemand() const override { return demand_; }
  void apply(const std::vector<Patch>& patches) override { tree_.apply(patches); }

  RenderTree& tree() { return tree_; }
  QSize size;
  std::map<std::string, QRect> frames;

 private:
  RowDemand demand_;
  BoxyMetrics metrics_;
  RenderTree tree_;
  ViewGraph graph_;
};

Text text(const char* content) {
  return Text(verbatim(content));
}
Button button(const char* title) {
  return Button(verbatim(title), [] {});
}

}  // namespace

TEST(Layout, AColumnStacksWithItsSpacingAndPadding) {
  Laid laid(
      VStack(HorizontalAlignment::leading, 7, {text("ab"), text("abcd"), text("a")}).padding(24),
      500);
  EXPECT_EQ(laid.frames["ab"], QRect(24, 24, 20, 20));
  EXPECT_EQ(laid.frames["abcd"], QRect(24, 51, 40, 20));
  EXPECT_EQ(laid.frames["a"], QRect(24, 78, 10, 20));
  EXPECT_EQ(laid.size, QSize(88, 122));
}

TEST(Layout, PaddingOnSomeEdgesOnly) {
  Laid laid(
      VStack(HorizontalAlignment::leading, 0,
             {text("a").padding(Edges::vertical, 4), text("b").padding(Edges::horizontal, 9)}),
      500);
  EXPECT_EQ(laid.frames["a"], QRect(0, 4, 10, 20));
  EXPECT_EQ(laid.frames["b"], QRect(9, 28, 10, 20));
}

TEST(Layout, CentredColumnsCentreWithinTheWidestChild) {
  Laid laid(VStack(HorizontalAlignment::center, 0, {text("abcd"), text("ab")}), 500);
  EXPECT_EQ(laid.frames["ab"].x(), 10);
}

TEST(Layout, ARowStandsSideBySideAndCentred) {
  Laid laid(HStack(VerticalAlignment::center, 8, {text("ab"), button("cd")}), 500);
  EXPECT_EQ(laid.frames["ab"], QRect(0, 1, 20, 20));
  EXPECT_EQ(laid.frames["cd"], QRect(28, 0, 20, 22));
}

TEST(Layout, ARowAtTheTop) {
  Laid laid(HStack(VerticalAlignment::top, 8, {text("ab"), button("cd")}), 500);
  EXPECT_EQ(laid.frames["ab"].y(), 0);
}

TEST(Layout, ARowThatDoesNotFitGoesOnInAFurtherLine) {
  Laid laid(HStack(VerticalAlignment::center, 8, {text("aaaa"), text("bbbb"), text("cc")}), 100);
  EXPECT_EQ(laid.frames["aaaa"], QRect(0, 0, 40, 20));
  EXPECT_EQ(laid.frames["bbbb"], QRect(48, 0, 40, 20));
  EXPECT_EQ(laid.frames["cc"], QRect(0, 28, 20, 20));
  EXPECT_LE(laid.size.width(), 100);
}

TEST(Layout, NothingIsWiderThanThePageItStandsOn) {
  Laid laid(VStack(HorizontalAlignment::leading, 4,
                   {text("a rather long text"), HStack(VerticalAlignment::center, 8,
                                                       {button("a long title"), button("other")})})
                .padding(24),
            100);
  for (const auto& [label, frame] : laid.frames) {
    EXPECT_GE(frame.left(), 24) << label;
    EXPECT_LE(frame.right() + 1, 76) << label;
  }
}

TEST(Layout, GroupsAddNothingAndHandTheirPaddingOn) {
  Laid plain(VStack(HorizontalAlignment::leading, 5, {text("a"), Group({text("b"), text("c")})}),
             99);
  EXPECT_EQ(plain.frames["c"], QRect(0, 50, 10, 20));
  Laid padded(VStack(HorizontalAlignment::leading, 5, {Group({text("b"), text("c")}).padding(3)}),
              99);
  EXPECT_EQ(padded.frames["b"], QRect(3, 3, 10, 20));
  EXPECT_EQ(padded.frames["c"], QRect(3, 34, 10, 20));
}

TEST(Layout, AbsentChildrenLeaveNoGap) {
  Laid laid(VStack(HorizontalAlignment::leading, 5,
                   {text("a"), View(), Group({}), If(false, [] { return text("x"); }), text("b")}),
            99);
  EXPECT_EQ(laid.frames["b"].y(), 25);
}

TEST(Layout, MirroringTurnsAFrameAboutTheMiddle) {
  EXPECT_EQ(qt::mirrored(QRect(24, 5, 40, 20), 200), QRect(136, 5, 40, 20));
}

TEST(Layout, RowsNotAskedForStandByTheEstimate) {
  const std::vector<std::string> names(1000, "row");
  auto list = ForEach(
      names, [](const std::string& name) { return std::string_view(name); },
      [](const std::string& name) { return Text(verbatim(name)); });
  Laid laid(VStack(HorizontalAlignment::leading, 10, {text("head"), list, text("foot")}), 300,
            RowDemand::onRequest);
  RenderNode& rows = *laid.tree().lists().at(0);
  EXPECT_EQ(rows.frame.top(), 30);
  EXPECT_EQ(rows.frame.height(), 1000 * rows.rows->estimate() + 999 * 10);
  EXPECT_EQ(laid.frames["foot"].top(), rows.frame.bottom() + 1 + 10);
}

TEST(Layout, AnEmptyListLeavesNoGap) {
  auto list = ForEach(
      std::vector<std::string>(), [](const std::string& name) { return std::string_view(name); },
      [](const std::string& name) { return Text(verbatim(name)); });
  Laid laid(VStack(HorizontalAlignment::leading, 10, {text("head"), list, text("foot")}), 300,
            RowDemand::onRequest);
  EXPECT_EQ(laid.frames["foot"].top(), 30);
}

TEST(Layout, OnlyWhatChangedIsMeasuredAgain) {
  struct Counting final : qt::LeafMetrics {
    QSize measure(RenderNode&, int) const override {
      ++count;
      return QSize(10, 10);
    }
    mutable int count = 0;
  } metrics;
  struct Holder final : Renderer {
    RenderTree tree{[](RenderNode&) {}};
    RowDemand rowDemand() const override { return RowDemand::everything; }
    void apply(const std::vector<Patch>& patches) override { tree.apply(patches); }
  } holder;
  ViewGraph graph;
  graph.attach(holder);
  const auto view = [](const char* changing) {
    return VStack(HorizontalAlignment::leading, 1,
                  {text("a"), VStack(HorizontalAlignment::leading, 1, {text("b"), text("c")}),
                   text(changing)});
  };
  graph.setRoot(view("d"));
  qt::measureScope(*holder.tree.root(), 100, 0, metrics);
  EXPECT_EQ(metrics.count, 4);
  graph.setRoot(view("e"));
  qt::measureScope(*holder.tree.root(), 100, 0, metrics);
  EXPECT_EQ(metrics.count, 5);
  qt::measureScope(*holder.tree.root(), 90, 0, metrics);
  EXPECT_EQ(metrics.count, 9);
}
