#include "VemraPlatform/page/WantedRows.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"

#include <gmock/gmock.h>

namespace vemra::ui {

inline void PrintTo(const RowRange& range, std::ostream* out) {
  *out << range.first << " to " << range.last;
}

}  // namespace vemra::ui

namespace vemra::page {

using namespace sample;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::RowRange;

namespace {

constexpr Margins margins{.ask = 40, .keep = 100, .air = 0};

/// Rows of 20 each.
std::vector<RowRange> wanted(Laid& laid, int position, const PinnedRows& pinned = {}) {
  return wantedRows(laid.list(), {300, 200, position}, margins, pinned);
}

class WantedRows : public ::testing::Test {
 protected:
  WantedRows() : laid(column({list(numbered(1000))})) {
    laid.ask({{0, 1}});
    laid.ask({});
  }
  Laid laid;
};

}  // namespace

TEST_F(WantedRows, AreThoseInTheViewportAndALittleBeyond) {
  EXPECT_THAT(wanted(laid, 0), ElementsAre(RowRange{0, 13}));
  EXPECT_THAT(wanted(laid, 2000), ElementsAre(RowRange{98, 113}));
  EXPECT_THAT(wanted(laid, 19'800), ElementsAre(RowRange{988, 1000}));
}

TEST_F(WantedRows, AreEmptyForAListAwayFromTheViewport) {
  EXPECT_THAT(wanted(laid, 30'000), IsEmpty());
  EXPECT_THAT(wanted(laid, -1000), IsEmpty());
}

TEST_F(WantedRows, StayFurtherFromTheViewportThanTheyAreRequested) {
  laid.ask({{98, 113}});
  EXPECT_THAT(wanted(laid, 2040), ElementsAre(RowRange{98, 115}));
  EXPECT_THAT(wanted(laid, 1960), ElementsAre(RowRange{96, 113}));
  EXPECT_THAT(wanted(laid, 2400), ElementsAre(RowRange{118, 133})) << "too far away";
}

TEST_F(WantedRows, StayAsFarAsTheMarginAndNoFurther) {
  laid.ask({{90, 125}});
  EXPECT_THAT(wanted(laid, 2040), ElementsAre(RowRange{96, 119}))
      << "row 95 begins, and row 119 too, where the margin ends";
}

TEST_F(WantedRows, AreEmptyForAnEmptyList) {
  Laid empty(column({text("a"), list({})}));
  EXPECT_THAT(wanted(empty, 0), IsEmpty());
}

TEST_F(WantedRows, ContainTheFocusedRowAndTheNextOneWhereverTheyAre) {
  laid.ask({{98, 113}});
  PinnedRows pinned;
  pinned.focused = rowOf(&laid.leaf("row100"));
  pinned.next = rowOf(&laid.leaf("row104"));
  EXPECT_THAT(wanted(laid, 10'000, pinned),
              ElementsAre(RowRange{100, 101}, RowRange{104, 105}, RowRange{498, 513}));
}

TEST_F(WantedRows, ContainTheSixteenLastFocusedRowsWithATextField) {
  Laid fields(column({list(numbered(1000), field)}));
  fields.ask({{0, 40}});
  std::uint64_t count = 0;
  for (Node& row : fields.list().children()) {
    if (row.rowIndex >= 20) row.focusedAt = ++count;
  }
  EXPECT_THAT(wanted(fields, 10'000), ElementsAre(RowRange{24, 40}, RowRange{498, 513}));
  EXPECT_TRUE(isPinned(*fields.list().firstChild, {}));
  EXPECT_FALSE(isPinned(*Laid(column({text("a")})).tree.root(), {}));
}

TEST_F(WantedRows, AreRequestedOnlyWhenTheListHasOtherRows) {
  const Viewport viewport{300, 200, 2000};
  std::vector<RowRequest> requests = rowRequests(laid.tree, viewport, margins, {});
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests.front().list, laid.list().id);
  EXPECT_THAT(requests.front().ranges, ElementsAre(RowRange{98, 113}));
  laid.ask(requests.front().ranges);
  EXPECT_THAT(rowRequests(laid.tree, viewport, margins, {}), IsEmpty());
  laid.ask({{98, 112}});
  EXPECT_EQ(rowRequests(laid.tree, viewport, margins, {}).size(), 1u);
  laid.ask({{98, 113}, {400, 401}});
  EXPECT_EQ(rowRequests(laid.tree, viewport, margins, {}).size(), 1u);
}

TEST_F(WantedRows, AreAllRowsOfAListThatIsShownWhole) {
  Laid whole(ui::HStack(ui::VerticalAlignment::top, 0, {list(numbered(5))}));
  const std::vector<RowRequest> requests = rowRequests(whole.tree, {300, 20, 0}, margins, {});
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_THAT(requests.front().ranges, ElementsAre(RowRange{0, 5}));
}

}  // namespace vemra::page
