// The laws of a windowed page, over random lists, heights, sizes, scrolls, focus moves and presses:
// - the elements in view are those that a page that lays out every row shows there;
// - the elements in view do not move, unless the reader scrolls;
// - the focus is never on a missing element, and never moves to a disabled one;
// - the rows with nodes cover the viewport, and few other rows have nodes;
// - every element in view is drawn at its frame.

#include "tests/VemraPlatform/page/PageStory.hpp"

#include <cstdlib>

#include <gtest/gtest.h>

namespace vemra::page {

TEST(PageStory, KeepsItsLaws) {
  // VEMRA_STORIES sets their number, and VEMRA_STORY the first one.
  const char* const wanted = std::getenv("VEMRA_STORIES");
  const char* const first = std::getenv("VEMRA_STORY");
  const std::uint64_t begin = first ? std::strtoull(first, nullptr, 10) : 1;
  const std::uint64_t count = wanted ? std::strtoull(wanted, nullptr, 10) : 200;
  for (std::uint64_t seed = begin; seed < begin + count; ++seed) {
    testing::Random random(seed);
    sample::PageStory story(random);
    std::string told;
    for (int step = 0; step < 20; ++step) {
      const std::string problem = story.broken();
      ASSERT_EQ(problem, "") << "story " << seed << ":" << told;
      told += "\n  " + story.step();
    }
  }
}

}  // namespace vemra::page
