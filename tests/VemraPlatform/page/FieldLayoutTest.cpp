// Text fields beside other elements: they share the room of a line, and give it back.

#include "VemraPlatform/page/Layout.hpp"
#include "VemraPlatform/page/WindowedTree.hpp"
#include "tests/Random.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"
#include "tests/VemraPlatform/page/Places.hpp"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::page {

namespace {

using sample::button;
using sample::column;
using sample::field;
using sample::Laid;
using sample::text;
using ui::View;

// A field is at least 120 wide beside other elements; a character is 10 wide, a line 20 high.

View beside(ui::Children children, int spacing = 8) {
  return ui::HStack(ui::VerticalAlignment::top, spacing, std::move(children));
}

}  // namespace

TEST(FieldLayout, AFieldTakesTheRoomThatAButtonLeaves) {
  Laid laid(beside({field("f"), button("ok")}), 500);
  EXPECT_EQ(laid.leaf("f").frame, (Rect{0, 0, 472, 20}));
  EXPECT_EQ(laid.leaf("ok").frame, (Rect{480, 0, 20, 22}));
}

TEST(FieldLayout, AFieldGivesTheRoomBackAndTakesItAgain) {
  Laid laid(beside({field("f")}), 500);
  EXPECT_EQ(laid.leaf("f").frame.width, 500);
  laid.show(beside({field("f"), button("cancel")}));
  EXPECT_EQ(laid.leaf("f").frame.width, 432);
  laid.show(beside({field("f"), button("no")}));
  EXPECT_EQ(laid.leaf("f").frame.width, 472);
  laid.show(beside({field("f")}));
  EXPECT_EQ(laid.leaf("f").frame.width, 500);
}

TEST(FieldLayout, ALineIsBrokenOnlyWhenTheNarrowestFieldLeavesTooLittleRoom) {
  const View row = beside({field("f"), button("ok")});
  EXPECT_EQ(Laid(row, 148).leaf("ok").frame, (Rect{128, 0, 20, 22}));
  Laid broken(row, 147);
  EXPECT_EQ(broken.leaf("f").frame, (Rect{0, 0, 147, 20}));
  EXPECT_EQ(broken.leaf("ok").frame, (Rect{0, 28, 20, 22}));
  EXPECT_EQ(Laid(row, 100).leaf("f").frame.width, 100) << "never wider than the page";
}

TEST(FieldLayout, SeveralFieldsShareTheRoomOfTheirLine) {
  Laid laid(beside({field("a"), text("to"), field("b").padding(ui::Edges::horizontal, 10)}), 500);
  EXPECT_EQ(laid.leaf("a").frame, (Rect{0, 0, 222, 20}));
  EXPECT_EQ(laid.leaf("to").frame, (Rect{230, 0, 20, 20}));
  EXPECT_EQ(laid.leaf("b").frame, (Rect{268, 0, 222, 20}));
  Laid lines(beside({field("a"), field("b"), field("c")}), 260);
  EXPECT_EQ(lines.leaf("b").frame, (Rect{134, 0, 126, 20}));
  EXPECT_EQ(lines.leaf("c").frame, (Rect{0, 28, 260, 20}));
}

TEST(FieldLayout, AColumnOrARowWithAFieldGivesWayToo) {
  Laid inColumn(beside({column({text("name"), field("f")}), button("ok")}), 300);
  EXPECT_EQ(inColumn.leaf("f").frame, (Rect{0, 20, 272, 20}));
  EXPECT_EQ(inColumn.leaf("ok").frame.x, 280);
  Laid inRow(beside({beside({text("name"), field("f")}), button("ok")}), 300);
  EXPECT_EQ(inRow.leaf("f").frame, (Rect{48, 0, 224, 20}));
  EXPECT_EQ(inRow.leaf("ok").frame.x, 280);
}

TEST(FieldLayout, ATextIsNotNarrowedForAField) {
  Laid laid(beside({text(std::string(30, 'x')), field("f")}), 350);
  EXPECT_EQ(laid.leaf(std::string(30, 'x')).frame, (Rect{0, 0, 300, 20}));
  EXPECT_EQ(laid.leaf("f").frame, (Rect{0, 28, 350, 20}));
}

namespace {

/// A random view whose leaves have different names.
View randomView(testing::Random& random, int depth, int& name) {
  const int kind = static_cast<int>(random.below(depth > 0 ? 6 : 3));
  const std::string own = std::string(1 + random.below(12), 'x') + std::to_string(++name);
  const auto padded = [&](View view) {
    return random.oneIn(3) ? view.padding(ui::Edges::horizontal, static_cast<int>(random.below(9)))
                           : view;
  };
  if (kind == 0) return padded(text(own));
  if (kind == 1) return padded(button(own));
  if (kind == 2) return padded(field(own));
  ui::Children children;
  for (std::size_t i = random.below(4); i > 0; --i) {
    children.push_back(randomView(random, depth - 1, name));
  }
  if (kind == 3) return padded(column(std::move(children)));
  if (kind == 4) return ui::Group(std::move(children));
  return padded(beside(std::move(children), static_cast<int>(random.below(9))));
}

std::vector<std::pair<std::string, Rect>> framesIn(Laid& laid) {
  std::vector<std::pair<std::string, Rect>> frames;
  forEachLeaf(*laid.tree.root(),
              [&](Node& leaf) { frames.emplace_back(sample::nameOf(leaf), leaf.frame); });
  return frames;
}

}  // namespace

TEST(FieldLayout, AfterAnyChangesIsThatOfANewPage) {
  testing::Random random(20'261);
  for (int round = 0; round < testing::rounds(400); ++round) {
    int name = 0;
    const auto screen = [&](std::uint64_t seed) {
      testing::Random parts(seed);
      name = 0;
      return beside({randomView(parts, 3, name), View(text("beside")), field("always"),
                     randomView(parts, 2, name)});
    };
    const std::uint64_t first = random.below(1'000'000);
    Laid changed(screen(first), 40 + static_cast<int>(random.below(700)));
    for (int step = 0; step < 4; ++step) {
      // Either another width, or another part beside the same parts.
      if (random.oneIn(2)) {
        changed.width = 40 + static_cast<int>(random.below(700));
        changed.layOut();
      }
      const std::string word(1 + random.below(30), 'w');
      const auto with = [&] { return beside({screen(first), View(button(word))}, 3); };
      changed.show(with());
      Laid fresh(with(), changed.width);
      ASSERT_EQ(framesIn(changed), framesIn(fresh)) << "round " << round << ", step " << step;
      forEachLeaf(*changed.tree.root(),
                  [&](Node& leaf) { EXPECT_LE(leaf.frame.width, changed.width); });
    }
  }
}

}  // namespace vemra::page
