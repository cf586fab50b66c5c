// A story of a list, shown whole and through windows: both end with the states of a model. The
// bytes choose the events.

#include "tests/VemraPlatform/ui/RowsStory.hpp"
#include "tests/fuzz/GoogleTestAssertions.hpp"
#include "tests/fuzz/Target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vemra;
  fuzz::stopAtFailedAssertions();
  ui::sample::Random random(std::span(data, size));
  ui::sample::RowsStory story(random);
  constexpr int most = 200;
  for (int step = 0; step < most && !random.isUsedUp(); ++step) story.step();
  story.compareStates();
  return 0;
}
