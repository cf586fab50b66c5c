#include "VemraPlatform/page/Anchor.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"

#include <gtest/gtest.h>

namespace vemra::page {

using namespace sample;
using Reason = Anchor::Reason;

namespace {

/// A column of texts, each 20 high, below one that is `lines` lines high.
ui::View texts(int lines, IDs names) {
  std::string tall(static_cast<std::size_t>(lines) * 10, 'x');
  ui::Children children{text(std::move(tall))};
  for (const std::string& name : names) children.push_back(ui::View(text(name)).id(name));
  return column(std::move(children));
}

class AnchorTest : public ::testing::Test {
 protected:
  AnchorTest() : laid(texts(10, {"a", "b", "c", "d", "e", "f"}), 100) {}
  Anchor anchor(Reason reason, const Node* focused = nullptr) {
    return {reason, laid.tree, laid.frames(), viewport, focused, laid.metrics};
  }
  int position(const Anchor& anchor) {
    return anchor.position(laid.tree, laid.frames(), viewport, laid.metrics);
  }
  Laid laid;
  Viewport viewport{100, 60, 210};  ///< shows the second half of "a", then "b", "c" and half of "d"
};

}  // namespace

TEST_F(AnchorTest, TheFirstElementInViewStaysInPlace) {
  const Anchor before = anchor(Reason::changed);
  laid.show(texts(15, {"a", "b", "c", "d", "e", "f"}));
  EXPECT_EQ(position(before), 310);
}

TEST_F(AnchorTest, TheNextElementStaysInPlaceWhenTheFirstIsRemoved) {
  const Anchor before = anchor(Reason::changed);
  laid.show(texts(10, {"b", "c", "d", "e", "f"}));
  EXPECT_EQ(position(before), 190) << "b stands twenty higher";
}

TEST_F(AnchorTest, TheFocusedElementComesFirstWhenItIsInView) {
  const Anchor before = anchor(Reason::changed, &laid.leaf("c"));
  laid.show(texts(10, {"a", "b", "new", "c", "d", "e", "f"}));
  const int top = laid.frames().of(laid.leaf("c")).y - position(before);
  EXPECT_EQ(top, 240 - 210);
}

TEST_F(AnchorTest, AFocusedElementOutOfViewIsIgnored) {
  const Anchor before = anchor(Reason::changed, &laid.leaf("f"));
  laid.show(texts(15, {"a", "b", "c", "d", "e", "f"}));
  EXPECT_EQ(position(before), 310);
}

TEST_F(AnchorTest, TheVisiblePartOfATallElementStaysInPlace) {
  viewport.position = 100;  // half of the tall text is above
  const Anchor before = anchor(Reason::resized);
  laid.width = 50;
  laid.layOut();
  EXPECT_EQ(laid.tree.root()->firstChild->frame.height, 400);
  EXPECT_EQ(position(before), 200);
}

namespace {

/// The lines of a tall leaf are its parts, in an order that the test changes.
class LineMetrics final : public LeafMetrics {
 public:
  Size measure(const Node&, int) override { return {}; }
  std::optional<std::size_t> partAt(const Node&, int y) const override {
    return static_cast<std::size_t>(y / 20);
  }
  std::optional<int> topOfPart(const Node&, std::size_t part) const override {
    if (forgets) return std::nullopt;
    return static_cast<int>(part) * 20 + inserted;
  }
  int inserted = 0;
  bool forgets = false;
};

}  // namespace

TEST_F(AnchorTest, ThePartOfATallElementThatItsRendererKnowsStaysInPlace) {
  LineMetrics lines;
  viewport.position = 105;  // five below the top of line 5
  const Anchor before(Reason::resized, laid.tree, laid.frames(), viewport, nullptr, lines);
  laid.width = 50;
  laid.layOut();  // by proportion, the position would be 210
  lines.inserted = 40;
  EXPECT_EQ(before.position(laid.tree, laid.frames(), viewport, lines), 145);
  lines.forgets = true;
  EXPECT_EQ(before.position(laid.tree, laid.frames(), viewport, lines), 210);
}

TEST_F(AnchorTest, AtTheVeryTopThePageStaysThere) {
  viewport.position = 0;
  const Anchor before = anchor(Reason::changed);
  laid.show(texts(15, {"a", "b"}));
  EXPECT_EQ(position(before), 0);
}

TEST_F(AnchorTest, AtTheVeryTopAFocusedElementInViewStaysInPlace) {
  viewport = {100, 300, 0};
  const Anchor before = anchor(Reason::changed, &laid.leaf("b"));
  laid.show(texts(15, {"a", "b"}));
  EXPECT_EQ(position(before), 100);
}

TEST_F(AnchorTest, AfterAJumpToTheEndThePageStaysAtTheEnd) {
  const Anchor before = anchor(Reason::scrolledToEnd);
  laid.show(texts(15, {"a", "b"}));
  EXPECT_EQ(position(before), 340) << "the whole page; the caller keeps it on the page";
}

TEST_F(AnchorTest, WhenEveryElementInViewIsRemovedTheRowIndexStaysInPlace) {
  Laid rows(column({list(numbered(100))}), 100);
  rows.ask({{0, 30}});
  const Viewport seen{100, 60, 205};
  const Anchor before(Reason::changed, rows.tree, rows.frames(), seen, nullptr, rows.metrics);
  rows.ask({});
  EXPECT_EQ(before.position(rows.tree, rows.frames(), seen, rows.metrics), 205);
  rows.list().rows->setHeight(3, 120);
  EXPECT_EQ(before.position(rows.tree, rows.frames(), seen, rows.metrics), 305);
}

TEST_F(AnchorTest, TheRowIndexStaysInPlaceAlsoBelowOtherElements) {
  Laid rows(column({text(std::string(100, 'x')), list(numbered(100))}), 100);
  rows.ask({{0, 30}});
  const Viewport seen{100, 60, 405};  // in row 10 of the list, which begins at 200
  const Anchor before(Reason::changed, rows.tree, rows.frames(), seen, nullptr, rows.metrics);
  rows.ask({});
  EXPECT_EQ(before.position(rows.tree, rows.frames(), seen, rows.metrics), 405);
}

TEST_F(AnchorTest, ARowThatGotShorterKeepsItsLastLineInPlace) {
  Laid rows(column({list(numbered(100))}), 100);
  rows.ask({{0, 30}});
  rows.list().rows->setHeight(3, 120);
  const Viewport seen{100, 60, 150};  // 90 of the row are above
  const Anchor before(Reason::changed, rows.tree, rows.frames(), seen, nullptr, rows.metrics);
  rows.ask({});
  rows.list().rows->setHeight(3, 20);
  EXPECT_EQ(before.position(rows.tree, rows.frames(), seen, rows.metrics), 60 + 19);
}

TEST_F(AnchorTest, AListBelowTheTopOfTheViewportIsNoAnchor) {
  const auto page = [](const char* id, int lines) {
    const std::string tall(static_cast<std::size_t>(lines) * 10, 'x');
    return column({ui::View(text(tall)).id(id), list(numbered(100))});
  };
  Laid rows(page("one", 10), 100);
  rows.ask({{0, 30}});
  const Viewport seen{100, 160, 60};  // the list begins at 200
  const Anchor before(Reason::changed, rows.tree, rows.frames(), seen, nullptr, rows.metrics);
  rows.show(page("another", 15));
  rows.ask({});
  EXPECT_EQ(before.position(rows.tree, rows.frames(), seen, rows.metrics), 60);
}

TEST_F(AnchorTest, AListThatHasBecomeEmptyIsNoAnchor) {
  const auto page = [](const char* id, int lines, std::size_t rows) {
    const std::string tall(static_cast<std::size_t>(lines) * 10, 'x');
    return column({ui::View(text(tall)).id(id), list(numbered(rows))});
  };
  Laid rows(page("one", 1, 100), 100);
  rows.ask({{0, 30}});
  rows.show(page("two", 40, 0));
  const Viewport seen{100, 60, 205};  // below the top of the removed rows
  const Anchor before(Reason::changed, rows.tree, rows.frames(), seen, nullptr, rows.metrics);
  rows.show(page("three", 5, 100));
  EXPECT_EQ(before.position(rows.tree, rows.frames(), seen, rows.metrics), 205);
}

}  // namespace vemra::page
