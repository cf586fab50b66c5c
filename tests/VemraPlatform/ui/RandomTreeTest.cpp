#include "tests/VemraPlatform/ui/TreeStory.hpp"

#include <string>

#include <gtest/gtest.h>

namespace vemra::ui {

using namespace sample;

// The laws of identity, of state and of patches, compared with a model of places that shares no
// code with the view layer.
TEST(RandomTreeTest, NodesStateAndPatchesFollowIdentity) {
  constexpr int chains = rounds(1'700);
  constexpr int steps = 12;
  Random random(7);
  int compared = 0;
  int kept = 0;
  for (int chain = 0; chain < chains; ++chain) {
    TreeStory story(random);
    for (int step = 0; step < steps; ++step) {
      SCOPED_TRACE("chain " + std::to_string(chain) + ", step " + std::to_string(step));
      story.step();
      ASSERT_FALSE(HasFailure());
      ++compared;
    }
    kept += story.keptPlaces();
  }
  EXPECT_GE(compared, rounds(20'000));
  EXPECT_GT(kept, rounds(40'000)) << "or there is little to keep";
}

}  // namespace vemra::ui
