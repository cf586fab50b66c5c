#include "tests/VemraPlatform/ui/TreeStory.hpp"

#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui::sample {

namespace {

using Numbers = StateCellOf<Counter::State>;

int numberOf(const Node& node) {
  return memoryOf(node).state ? static_cast<const Numbers&>(*memoryOf(node).state).value().count
                              : 0;
}

/// Gives every composite a number of its own, as its state.
void numberAll(const std::map<std::string, const Node*>& places, int& last) {
  std::vector<std::shared_ptr<StateCell>> cells;
  for (const auto& [name, node] : places) {
    if (memoryOf(*node).state) cells.push_back(memoryOf(*node).state);
  }
  for (const auto& cell : cells) static_cast<Numbers&>(*cell).set(&Counter::State::count, ++last);
}

Plan presentPlan(Random& random) {
  Plan plan = randomPlan(random, 3);
  while (plan.children.empty() && !random.oneIn(4)) plan = randomPlan(random, 3);
  plan.absent = false;
  return plan;
}

}  // namespace

TreeStory::TreeStory(Random& random) : random_(random), plan_(presentPlan(random)) {
  graph_.attach(tree_);
}

void TreeStory::step() {
  graph_.setRoot(makeView(plan_));
  ASSERT_TRUE(graph_.root());
  ASSERT_EQ(difference(graph_, tree_), "");
  const auto places = placesByName(plan_, *graph_.root());
  comparePlaces(places);

  const std::size_t patches = tree_.patchCount();
  graph_.setRoot(makeView(plan_));
  ASSERT_EQ(tree_.patchCount(), patches) << "an unchanged tree is no patch";

  numberAll(places, lastNumber_);
  ASSERT_EQ(difference(graph_, tree_), "");
  before_.clear();
  for (const auto& [name, node] : placesByName(plan_, *graph_.root())) {
    before_.emplace(name, Known{node->id, numberOf(*node)});
  }
  plan_ = random_.oneIn(9) ? presentPlan(random_) : changedPlan(std::move(plan_), random_);
  plan_.absent = false;
}

void TreeStory::comparePlaces(const std::map<std::string, const Node*>& places) {
  for (const auto& [name, node] : places) {
    const auto known = before_.find(name);
    if (known == before_.end()) {
      ASSERT_TRUE(used_.insert(node->id).second) << "a new place has an old node: " << name;
      ASSERT_EQ(numberOf(*node), 0) << "a new place has old state: " << name;
    } else {
      ++kept_;
      ASSERT_EQ(node->id, known->second.id) << "the same place has another node: " << name;
      ASSERT_EQ(numberOf(*node), known->second.number) << "state was lost or mixed: " << name;
    }
  }
  for (const auto& [name, known] : before_) {
    if (places.contains(name)) continue;
    ASSERT_FALSE(graph_.find(known.id)) << "not gone: " << name;
  }
}

}  // namespace vemra::ui::sample
