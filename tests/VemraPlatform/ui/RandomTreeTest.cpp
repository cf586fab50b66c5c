#include "tests/VemraPlatform/ui/RandomTree.hpp"

#include <set>
#include <string>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

using Numbers = StateCellOf<Counter::State>;

int numberOf(const Node& node) {
  return node.state ? static_cast<const Numbers&>(*node.state).value().count : 0;
}

/// Gives every composite a number of its own, as its state.
void numberAll(const std::map<std::string, const Node*>& places, int& last) {
  std::vector<std::shared_ptr<StateCell>> cells;
  for (const auto& [name, node] : places) {
    if (node->state) cells.push_back(node->state);
  }
  for (const auto& cell : cells) static_cast<Numbers&>(*cell).set(&Counter::State::count, ++last);
}

struct Known {
  NodeID id;
  int number = 0;
};

Plan presentPlan(Random& random) {
  Plan plan = randomPlan(random, 3);
  while (plan.children.empty() && !random.oneIn(4)) plan = randomPlan(random, 3);
  plan.absent = false;
  return plan;
}

}  // namespace

// The laws of identity, of state and of patches, held against an account of places that knows
// nothing of the view layer's own.
TEST(RandomTreeTest, NodesStateAndPatchesFollowIdentity) {
  constexpr int chains = rounds(1'700);
  constexpr int steps = 12;
  Random random(7);
  int lastNumber = 0;
  int compared = 0;
  int kept = 0;
  for (int chain = 0; chain < chains; ++chain) {
    ViewGraph graph;
    testing::RenderedTree tree;
    graph.attach(tree);
    std::set<NodeID> used;
    std::map<std::string, Known> before;
    Plan plan = presentPlan(random);
    for (int step = 0; step < steps; ++step) {
      SCOPED_TRACE("chain " + std::to_string(chain) + ", step " + std::to_string(step));
      graph.setRoot(makeView(plan));
      ASSERT_TRUE(graph.root());
      ASSERT_EQ(difference(graph, tree), "");
      const auto places = placesByName(plan, *graph.root());
      ASSERT_FALSE(HasFailure());
      for (const auto& [name, node] : places) {
        const auto known = before.find(name);
        if (known == before.end()) {
          ASSERT_TRUE(used.insert(node->id).second) << "a new place has an old node: " << name;
          ASSERT_EQ(numberOf(*node), 0) << "a new place has old state: " << name;
        } else {
          ++kept;
          ASSERT_EQ(node->id, known->second.id) << "the same place has another node: " << name;
          ASSERT_EQ(numberOf(*node), known->second.number) << "state was lost or mixed: " << name;
        }
      }
      for (const auto& [name, known] : before) {
        if (places.contains(name)) continue;
        ASSERT_FALSE(graph.find(known.id)) << "not gone: " << name;
      }

      const std::size_t patches = tree.patchCount();
      graph.setRoot(makeView(plan));
      ASSERT_EQ(tree.patchCount(), patches) << "an unchanged tree is no patch";

      numberAll(places, lastNumber);
      ASSERT_EQ(difference(graph, tree), "");
      before.clear();
      for (const auto& [name, node] : placesByName(plan, *graph.root())) {
        before.emplace(name, Known{node->id, numberOf(*node)});
      }
      ++compared;
      plan = random.oneIn(9) ? presentPlan(random) : changedPlan(std::move(plan), random);
      plan.absent = false;
    }
  }
  EXPECT_GE(compared, rounds(20'000));
  EXPECT_GT(kept, rounds(40'000)) << "or there is little to keep";
}

}  // namespace vemra::ui
