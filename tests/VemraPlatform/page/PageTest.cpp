#include "VemraPlatform/page/Page.hpp"
#include "tests/VemraPlatform/page/CellHost.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"
#include "tests/VemraPlatform/page/Once.hpp"

#include <functional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace vemra::page {

using namespace sample;
using Direction = FocusOrder::Direction;

namespace {

using RowView = std::function<ui::View(const std::string&)>;

/// A page of 300 rows, each twenty high, in a viewport of fifteen.
class PageTest : public ::testing::Test {
 protected:
  void show(const RowView& row, std::size_t first = 0) {
    graph.setRoot(column({list(numbered(300), row)}));
    host.page.settleIfNeeded();
    if (first > 0) scrollTo(first);
  }
  const Node* find(std::string_view name) const {
    const Node* found = nullptr;
    if (!host.page.tree().root()) return found;
    forEachLeaf(*host.page.tree().root(), [&](const Node& leaf) {
      if (nameOf(leaf) == name) found = &leaf;
    });
    return found;
  }
  void scrollTo(std::size_t row) { host.page.revealRow(host.page.tree().lists().at(0)->id, row); }
  void press(std::string_view name) { host.page.deliver(find(name)->id, ui::Press{}); }
  /// Shows the rows, focuses the button in the middle, and presses it, which removes it.
  void loseTheFocus(const RowView& row) {
    show(row, 150);
    host.page.focus(find("row150")->id, FocusReason::other);
    press("row150");
  }
  std::string focused() const {
    const Node* const node = host.page.focused();
    return node ? nameOf(*node) : "nothing";
  }
  /// The first text in view that names its row.
  const Node* firstSeen() const {
    const Node* first = nullptr;
    forEachLeaf(*host.page.tree().root(), [&](const Node& leaf) {
      const bool isSeen = leaf.isPlaced && top(nameOf(leaf)) >= 0;
      if (!first && isSeen && nameOf(leaf).starts_with("row")) first = &leaf;
    });
    return first;
  }
  /// The position of an element in the viewport.
  int top(std::string_view name) const {
    return host.page.frames().of(*find(name)).y - host.position;
  }

  ui::ViewGraph graph;
  CellHost host{graph};
};

/// Texts, except for a button that disappears when it is pressed and one that stays.
RowView rows(std::string goes, std::string stays = "") {
  return [=](const std::string& id) -> ui::View {
    if (id == goes) return Once{id};
    return id == stays ? ui::View(button(id)) : ui::View(text(id));
  };
}

/// A text of one to seven lines.
ui::View ofManyHeights(const std::string& id) {
  const std::size_t row = std::stoul(id.substr(3));
  return column({text(std::string(1 + row * 37 % 140, 'x')), text(id)});
}

}  // namespace

TEST_F(PageTest, AnotherEnvironmentReachesTheHostBeforeTheLeavesAreMeasuredAgain) {
  show(rows(""), 200);
  ASSERT_EQ(host.environments, std::vector{ui::Environment{}}) << "the first one";
  const std::string name = nameOf(*firstSeen());
  const int before = top(name);
  const int height = host.page.frames().of(*find(name)).height;
  ui::Environment large;
  large.textScale = 3;
  large.layoutDirection = ui::LayoutDirection::rightToLeft;
  host.followsTextScale = true;
  graph.setEnvironment(large);
  EXPECT_EQ(host.environments.back(), large);
  EXPECT_EQ(host.page.environment(), large);
  EXPECT_EQ(host.page.frames().of(*find(name)).height, 3 * height);
  EXPECT_EQ(top(name), before) << "the first row in view stays where it is";
  EXPECT_EQ(host.page.frames().of(*find(name)).right(), host.page.tree().root()->measuredWidth);
}

TEST_F(PageTest, AScrollBarThatTakesHeightLengthensTheScrollRange) {
  host.bar = {0, 40};
  show(rows(""));
  ASSERT_TRUE(host.hasBar);
  EXPECT_EQ(host.maximum, host.page.contentHeight() - (host.size.height - 40));
}

TEST_F(PageTest, AFocusLostAmongRowsWithoutControlsIsGivenUpAndThePageComesToRest) {
  show(rows("row150"), 150);
  const int before = host.position;
  loseTheFocus(rows("row150"));
  EXPECT_EQ(focused(), "nothing");
  EXPECT_EQ(host.vain, 1);
  EXPECT_EQ(host.position, before);
}

TEST_F(PageTest, AFocusLostAmongDisabledControlsIsGivenUpToo) {
  loseTheFocus([](const std::string& id) -> ui::View {
    return id == "row150" ? ui::View(Once{id}) : ui::View(button(id).disabled(true));
  });
  EXPECT_EQ(focused(), "nothing");
  EXPECT_EQ(host.vain, 1);
}

TEST_F(PageTest, ALostFocusGoesToARowFurtherDownWithoutNodes) {
  loseTheFocus(rows("row150", "row200"));
  EXPECT_EQ(focused(), "row200");
  EXPECT_GE(top("row200"), 0);
}

TEST_F(PageTest, ALostFocusGoesToARowFurtherUpWhenNoneIsFurtherDown) {
  loseTheFocus(rows("row150", "row100"));
  EXPECT_EQ(focused(), "row100");
}

TEST_F(PageTest, TabBehindTheLastControlLeavesThePageWhereItIs) {
  show(rows("", "row150"), 150);
  ASSERT_TRUE(host.page.focus(find("row150")->id, FocusReason::other));
  const int before = host.position;
  EXPECT_FALSE(host.page.focusNext(Direction::forward));
  EXPECT_EQ(host.position, before);
  EXPECT_FALSE(host.page.focusNext(Direction::backward));
  EXPECT_EQ(host.position, before);
  EXPECT_EQ(focused(), "row150");
}

TEST_F(PageTest, APageWithoutControlsStaysAtItsTopWhenTheFocusComesIn) {
  show(rows(""));
  EXPECT_FALSE(host.page.focusFirst(Direction::forward));
  EXPECT_EQ(host.position, 0);
  EXPECT_FALSE(host.page.focusFirst(Direction::backward));
  EXPECT_EQ(host.position, 0);
}

TEST_F(PageTest, AnElementIsScrolledInOnlyWhenItIsOutOfView) {
  show(rows("", "row150"), 150);
  host.scrollTo(150 * 20);
  host.page.scrollIn(find("row150")->id);
  EXPECT_EQ(host.position, 150 * 20) << "its top is the viewport's";
  host.scrollTo(150 * 20 + 12);
  host.page.scrollIn(find("row150")->id);
  EXPECT_EQ(top("row150"), 12) << "with air above it";
}

TEST_F(PageTest, AHiddenPageWaitsUntilItIsShown) {
  host.isSeen = false;
  show(rows(""));
  EXPECT_TRUE(host.drawn.empty());
  host.isSeen = true;
  host.page.settle();
  EXPECT_FALSE(host.drawn.empty());
}

TEST_F(PageTest, AnExceptionOfADescriptionGoesToTheHostAndThePageContinues) {
  show(
      [](const std::string& id) -> ui::View {
        if (id == "row150") throw std::runtime_error(id);
        return text(id);
      },
      150);
  ASSERT_EQ(host.errors.size(), 1u);
  EXPECT_THROW(std::rethrow_exception(host.errors[0]), std::runtime_error);
  EXPECT_NE(find("row151"), nullptr);
  EXPECT_EQ(host.maximum, host.page.contentHeight() - host.size.height);
}

TEST_F(PageTest, AScrollBarThatNarrowsThePageTakesEffectInTheSamePass) {
  show(rows(""));
  EXPECT_TRUE(host.hasBar);
  EXPECT_EQ(host.page.tree().root()->measuredWidth, host.size.width - 10);
  const int rests = host.rests;
  graph.setRoot(text("short"));
  host.page.settleIfNeeded();
  EXPECT_FALSE(host.hasBar);
  EXPECT_EQ(host.page.tree().root()->measuredWidth, host.size.width);
  EXPECT_GT(host.rests, rests);
}

TEST_F(PageTest, ARowThatDoesNotExistIsNotScrolledTo) {
  show(rows(""));
  scrollTo(300);
  EXPECT_EQ(host.position, 0);
  scrollTo(299);
  EXPECT_EQ(host.position, host.maximum);
}

TEST_F(PageTest, FocusInPlaceFocusesTheControlBehindThatPlace) {
  show([](const std::string& id) { return ui::View(button(id)); });
  const Node* const row = rowOf(find("row3"));
  ASSERT_TRUE(row);
  host.page.focusInPlace(row->parent->id, row->id);
  EXPECT_EQ(focused(), "row4");
}

TEST_F(PageTest, APageAtItsEndDoesNotScrollWhenItGetsLonger) {
  show(rows(""));
  host.scrollTo(host.maximum);
  const int before = host.maximum;
  graph.setRoot(column({list(numbered(300), rows("")), text("one more"), text("and another")}));
  host.page.settleIfNeeded();
  ASSERT_GT(host.maximum, before);
  EXPECT_EQ(host.position, before);
}

TEST_F(PageTest, ChangesWhileThePageIsHiddenMoveNoElementInView) {
  IDs ids = numbered(300);
  graph.setRoot(column({list(ids)}));
  scrollTo(150);
  const int before = top("row150");
  host.isSeen = false;
  for (int i = 0; i < 10; ++i) ids.insert(ids.begin(), "new" + std::to_string(i));
  graph.setRoot(column({list(ids)}));
  host.resize({host.size.width + 50, host.size.height});
  host.isSeen = true;
  host.page.settle();
  EXPECT_EQ(top("row150"), before);
}

TEST_F(PageTest, ScrolledToItsEndThePageStaysThereWhileRowsGetTheirHeights) {
  show(ofManyHeights);
  host.scrollTo(host.maximum);
  EXPECT_EQ(host.position, host.maximum);
  EXPECT_EQ(top("row299") + find("row299")->size.height, host.size.height);
}

TEST_F(PageTest, ScrollingUpMovesExactlyAsFarWhileRowsAboveGetTheirHeights) {
  show(ofManyHeights, 150);
  for (int i = 0; i < 5; ++i) {
    const Node* const seen = firstSeen();
    const int before = top(nameOf(*seen));
    host.scrollTo(host.position - 100);
    EXPECT_EQ(top(nameOf(*seen)), before + 100);
  }
}

TEST_F(PageTest, APageThatWillCertainlyScrollMeasuresEachElementOnce) {
  graph.setRoot(column({text("head"), list(numbered(300)), text("foot")}));
  host.page.settleIfNeeded();
  ASSERT_TRUE(host.hasBar);
  int leaves = 0;
  forEachLeaf(*host.page.tree().root(), [&](const Node&) { ++leaves; });
  EXPECT_EQ(host.measured, leaves);
}

TEST_F(PageTest, OfManyTextFieldsTheLastFocusedOnesStay) {
  show(field, 150);
  host.focusedElement = find("row151")->id;  // a click, which the page does not see
  host.page.settle();
  std::vector<std::string> used;
  for (int row = 150; row < 180; row += 2) used.push_back("row" + std::to_string(row));
  for (const std::string& name : used) {
    ASSERT_NE(find(name), nullptr);
    host.page.focus(find(name)->id, FocusReason::other);
  }
  used.push_back("row151");
  host.scrollTo(host.maximum);
  for (const std::string& name : used) EXPECT_NE(find(name), nullptr) << name;
  EXPECT_EQ(find("row153"), nullptr) << "this control did not have the focus";
}

TEST_F(PageTest, AnElementThatIsNotDrawnDoesNotGetTheFocus) {
  show(rows(""));
  host.isSeen = false;
  graph.setRoot(column({button("new"), list(numbered(300))}));
  host.page.focus(find("new")->id, FocusReason::other);
  EXPECT_TRUE(host.landed.empty());
}

TEST_F(PageTest, ALostFocusThatTheHostRefusesIsOfferedOnce) {
  show(rows("row3", "row5"));
  host.page.focus(find("row3")->id, FocusReason::other);
  host.refusesFocus = true;
  const int rests = host.rests;
  press("row3");
  EXPECT_EQ(host.refused, 1);
  EXPECT_GT(host.rests, rests);
  host.scrollTo(100);
  EXPECT_EQ(host.refused, 1);
}

}  // namespace vemra::page
