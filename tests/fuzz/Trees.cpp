// A story of trees, shown one after another: nodes, state and patches follow identity, compared
// with a model of places that shares no code with the view layer. The bytes choose the trees.

#include "tests/VemraPlatform/ui/TreeStory.hpp"
#include "tests/fuzz/GoogleTestAssertions.hpp"
#include "tests/fuzz/Target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vemra;
  fuzz::stopAtFailedAssertions();
  ui::sample::Random random(std::span(data, size));
  ui::sample::TreeStory story(random);
  constexpr int most = 64;
  for (int step = 0; step < most && (step < 2 || !random.isUsedUp()); ++step) story.step();
  return 0;
}
