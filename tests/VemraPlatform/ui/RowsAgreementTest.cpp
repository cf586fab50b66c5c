#include "tests/VemraPlatform/ui/RowsStory.hpp"

#include <gtest/gtest.h>

namespace vemra::ui {

using namespace sample;

TEST(RowsAgreementTest, WindowsAndWholeListsEndWithTheSameStates) {
  constexpr int sequences = rounds(5'000);
  constexpr int steps = 12;
  Random random(99);
  int slept = 0;
  for (int sequence = 0; sequence < sequences; ++sequence) {
    RowsStory story(random);
    for (int step = 0; step < steps; ++step) story.step();
    story.compareStates();
    ASSERT_FALSE(HasFailure());
    slept += story.slept();
  }
  EXPECT_GT(slept, rounds(1'000)) << "or the test proves nothing";
}

}  // namespace vemra::ui
