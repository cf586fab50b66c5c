#include "VemraPlatform/ui/ListDiff.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using sample::Random;
using Items = std::vector<NodeID>;

constexpr int pairs = sample::rounds(25'000);

/// Up to twelve of sixteen items, in any order.
Items randomItems(Random& random) {
  Items all;
  for (std::uint64_t value = 1; value <= 16; ++value) all.push_back(NodeID{value});
  for (std::size_t i = all.size() - 1; i > 0; --i) std::swap(all[i], all[random.below(i + 1)]);
  all.resize(random.below(13));
  return all;
}

/// `items` after a few changes, as is usual for lists on a screen.
Items changed(Items items, Random& random) {
  for (std::size_t changes = random.below(4); changes > 0; --changes) {
    const auto at = items.begin() + static_cast<std::ptrdiff_t>(random.below(items.size() + 1));
    if (at != items.end() && random.oneIn(2)) {
      const NodeID moved = *at;
      items.erase(at);
      if (random.oneIn(2))
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(random.below(items.size() + 1)),
                     moved);
    } else {
      items.insert(at, NodeID{100 + random.below(1'000'000'000)});
    }
  }
  return items;
}

std::string written(const Items& items) {
  std::string text;
  for (const NodeID item : items) text += std::to_string(item.value) + ' ';
  return text;
}

Items carriedOut(Items list, const std::vector<ListOperation>& steps) {
  for (const ListOperation& step : steps) {
    if (step.kind != ListOperation::Kind::insert) {
      EXPECT_EQ(std::erase(list, step.item), 1U) << "not there to be taken";
    }
    if (step.kind == ListOperation::Kind::remove) continue;
    auto place = list.begin();
    if (step.after) {
      place = std::ranges::find(list, step.after);
      EXPECT_NE(place, list.end()) << "the neighbour is not inserted yet";
      if (place != list.end()) ++place;
    }
    list.insert(place, step.item);
  }
  return list;
}

/// The length of a longest increasing run of old places, by the simple quadratic algorithm.
std::size_t longestKeptRun(const Items& before, const Items& after) {
  std::vector<std::ptrdiff_t> places;
  for (const NodeID item : after) {
    const auto found = std::ranges::find(before, item);
    if (found != before.end()) places.push_back(found - before.begin());
  }
  std::vector<std::size_t> longest(places.size(), 1);
  std::size_t best = 0;
  for (std::size_t i = 0; i < places.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (places[j] < places[i]) longest[i] = std::max(longest[i], longest[j] + 1);
    }
    best = std::max(best, longest[i]);
  }
  return best;
}

std::size_t common(const Items& before, const Items& after) {
  return static_cast<std::size_t>(std::ranges::count_if(
      after, [&](NodeID item) { return std::ranges::find(before, item) != before.end(); }));
}

template <class Check>
void forRandomPairs(const Check& check) {
  Random random(20'240'229);
  for (int pair = 0; pair < pairs; ++pair) {
    const Items before = randomItems(random);
    const Items after = random.oneIn(2) ? randomItems(random) : changed(before, random);
    check(before, after);
    if (::testing::Test::HasFailure()) {
      FAIL() << "from " << written(before) << "to " << written(after);
    }
  }
}

}  // namespace

TEST(ListDiffLawsTest, TheStepsProduceTheNewList) {
  forRandomPairs([](const Items& before, const Items& after) {
    EXPECT_EQ(carriedOut(before, diff(before, after)), after);
  });
}

TEST(ListDiffLawsTest, EveryStepHasAnEffect) {
  forRandomPairs([](const Items& before, const Items& after) {
    Items list = before;
    for (const ListOperation& step : diff(before, after)) {
      const Items next = carriedOut(list, {step});
      EXPECT_NE(next, list) << "a step for " << step.item.value << " changes nothing";
      list = next;
    }
  });
}

TEST(ListDiffLawsTest, MovesAreTheFewestPossible) {
  forRandomPairs([](const Items& before, const Items& after) {
    const auto steps = diff(before, after);
    const std::size_t shared = common(before, after);
    const auto count = [&](ListOperation::Kind kind) {
      return static_cast<std::size_t>(std::ranges::count(steps, kind, &ListOperation::kind));
    };
    EXPECT_EQ(count(ListOperation::Kind::remove), before.size() - shared);
    EXPECT_EQ(count(ListOperation::Kind::insert), after.size() - shared);
    EXPECT_EQ(count(ListOperation::Kind::move), shared - longestKeptRun(before, after));
  });
}

TEST(ListDiffLawsTest, RemovalsComeFirstAndNoItemIsNamedTwice) {
  forRandomPairs([](const Items& before, const Items& after) {
    std::unordered_set<NodeID> named;
    bool removing = true;
    for (const ListOperation& step : diff(before, after)) {
      EXPECT_TRUE(named.insert(step.item).second) << step.item.value << " is named twice";
      if (step.kind != ListOperation::Kind::remove) removing = false;
      EXPECT_EQ(step.kind == ListOperation::Kind::remove, removing);
    }
  });
}

// The reason for naming a place by its neighbour: the same steps with the item's index in the new
// list instead give wrong lists, because items that have yet to move away still count in the index.
TEST(ListDiffLawsTest, TheSameStepsPlacedByIndexGiveWrongLists) {
  int wrong = 0;
  forRandomPairs([&](const Items& before, const Items& after) {
    Items list = before;
    for (const ListOperation& step : diff(before, after)) {
      if (step.kind != ListOperation::Kind::insert) std::erase(list, step.item);
      if (step.kind == ListOperation::Kind::remove) continue;
      const auto index = std::ranges::find(after, step.item) - after.begin();
      list.insert(list.begin() + std::min<std::ptrdiff_t>(index, std::ssize(list)), step.item);
    }
    if (list != after) ++wrong;
  });
  std::cout << "placed by index, " << wrong << " of " << pairs << " go wrong\n";
  EXPECT_GT(wrong, pairs / 100) << "then indexes would work as places";
}

}  // namespace vemra::ui
