#pragma once

#include "tests/VemraPlatform/ui/RandomTree.hpp"

#include <map>
#include <set>
#include <string>

namespace vemra::ui::sample {

/// A view graph that shows one random tree after another.
///
/// Each step compares the graph's nodes, their state and the renderer's tree with a model of places
/// of its own, with GoogleTest's assertions.
class TreeStory {
 public:
  /// `random` chooses the trees and must outlive the story.
  explicit TreeStory(Random& random);
  TreeStory(const TreeStory&) = delete;
  TreeStory& operator=(const TreeStory&) = delete;

  /// Shows the next tree and compares.
  void step();

  /// The number of places that were the same before and after a step, over all steps.
  int keptPlaces() const { return kept_; }

 private:
  struct Known {
    NodeID id;
    int number = 0;
  };

  void comparePlaces(const std::map<std::string, const Node*>& places);

  Random& random_;
  testing::RenderedTree tree_;
  ViewGraph graph_;
  std::set<NodeID> used_;
  std::map<std::string, Known> before_;
  Plan plan_;
  int lastNumber_ = 0;
  int kept_ = 0;
};

}  // namespace vemra::ui::sample
