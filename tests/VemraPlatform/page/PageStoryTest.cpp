// The laws of a windowed page, over random lists, heights, sizes, scrolls, focus moves and presses:
// - what is in view is what a page that lays out every row would show there;
// - what the reader looks at does not move, unless the reader scrolls;
// - the focus is never on what is not there, and never lands on what is not enabled;
// - the rows that are there cover the viewport, and few others are;
// - what is in view is drawn where it stands.

#include "tests/VemraPlatform/page/PageStory.hpp"

#include <cstdlib>

#include <gtest/gtest.h>

namespace vemra::page {

TEST(PageStory, KeepsItsLaws) {
  // VEMRA_STORIES asks for more of them, or for the one at which VEMRA_STORY begins.
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
