// The work of a page follows its visible part, not the length of its list: the same steps on a page
// of two hundred rows and on one of twenty thousand make the same calls.

#include "tests/Random.hpp"
#include "tests/VemraPlatform/page/CellHost.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace vemra::page {

using namespace sample;
using Direction = FocusOrder::Direction;

namespace {

/// Counts the calls of a page to its graph and its host.
struct Calls {
  std::uint64_t measured = 0, described = 0, rows = 0, nodes = 0, patches = 0, drawn = 0;
  friend bool operator==(const Calls&, const Calls&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Calls& calls) {
    return out << calls.measured << " measured, " << calls.described << " described, " << calls.rows
               << " rows, " << calls.nodes << " nodes, " << calls.patches << " patches, "
               << calls.drawn << " drawn";
  }
};

/// A list whose rows are of many heights, most of them with a button.
struct LongPage {
  explicit LongPage(std::size_t newCount) : count(newCount) { show(0); }

  void show(std::size_t version) {
    graph.setRoot(
        column({button("top"), list(numbered(count), [version](const std::string& id) -> ui::View {
                  const std::size_t row = std::stoul(id.substr(3)) + version;
                  const std::string tall(1 + row * 7 % 60, 'x');
                  if (row % 5 == 0) return text(tall);
                  return column({text(tall), button(id)});
                })}));
    host.page.settleIfNeeded();
  }
  Calls calls() const {
    const ui::WorkCount& work = graph.work();
    return {static_cast<std::uint64_t>(host.measured),
            work.bodies,
            work.rows,
            work.nodes,
            work.patches,
            host.placed};
  }

  std::size_t count;
  ui::ViewGraph graph;
  CellHost host{graph};
};

/// Carries out a random step; the same seed gives the same steps.
void happen(LongPage& page, testing::Random& random) {
  CellHost& host = page.host;
  switch (random.below(7)) {
    case 0:
      host.scrollTo(static_cast<int>(random.below(2000)));
      break;
    case 1:
      host.scrollTo(std::max(0, host.position + static_cast<int>(random.below(200)) - 100));
      break;
    case 2:
      host.resize({150 + static_cast<int>(random.below(200)), host.size.height});
      break;
    case 3:
      host.resize({host.size.width, 100 + static_cast<int>(random.below(400))});
      break;
    case 4:
      host.page.focusFirst(Direction::forward);
      break;
    case 5:
      host.page.focusNext(Direction::forward);
      break;
    default:
      page.show(random.below(3));
  }
}

}  // namespace

TEST(PageWork, IsTheSameForAListAHundredTimesAsLong) {
  for (std::uint64_t seed = 1; seed <= 30; ++seed) {
    testing::Random ofShort(seed), ofLong(seed);
    LongPage shorter(200), longer(20'000);
    ASSERT_EQ(longer.calls(), shorter.calls()) << "at first";
    for (int step = 0; step < 12; ++step) {
      happen(shorter, ofShort);
      happen(longer, ofLong);
      ASSERT_EQ(longer.calls(), shorter.calls()) << "story " << seed << ", step " << step;
      ASSERT_EQ(longer.host.position, shorter.host.position);
    }
  }
}

TEST(PageWork, OneMoreRowMeansTheWorkForThatRow) {
  LongPage page(20'000);
  const Calls before = page.calls();
  page.host.scrollTo(30);
  EXPECT_LE(page.calls().rows - before.rows, 4u);
  EXPECT_LE(page.calls().measured - before.measured, 8u);
}

}  // namespace vemra::page
