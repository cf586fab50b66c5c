#include "benchmarks/model/SampleView.hpp"

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraPlatform/ui/NodeAccess.hpp"

#include <stdexcept>
#include <vector>

namespace vemra::bench {

ui::View sampleView(SampleSize size) {
  return GoalResultView(
      GoalResultSnapshotV1(sampleResult(size)), [](const std::string&) {},
      [](const std::string&) {}, [](const GoalPathCandidateDTO&) {},
      [](const GoalOutcomeRecordingInput&) {});
}

const ui::Node& listOf(const ui::Node& root) {
  std::vector<const ui::Node*> pending{&root};
  while (!pending.empty()) {
    const ui::Node* node = pending.back();
    pending.pop_back();
    if (memoryOf(*node).rows) return *node;
    pending.insert(pending.end(), node->children.begin(), node->children.end());
  }
  throw std::logic_error("the screen has no list");
}

}  // namespace vemra::bench
