#include "tests/VemraPlatform/ui/Sample.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

// What goes with a view (a button's action, a row's closure, a state) may hold something whose
// destructor comes back to the graph. It must find a graph that agrees with itself, from which the
// whole subtree is gone; the sanitizers watch that it meets nothing that has been freed.

namespace vemra::ui {

namespace {

using namespace sample;

/// Does something when it goes.
class Farewell {
 public:
  explicit Farewell(std::function<void()> act) : act_(std::move(act)) {}
  ~Farewell() { act_(); }
  Farewell(const Farewell&) = delete;
  Farewell& operator=(const Farewell&) = delete;

 private:
  std::function<void()> act_;
};
using Held = std::shared_ptr<const Farewell>;

/// A view whose state holds it.
struct Holding {
  struct State {
    Held held;
    friend bool operator==(const State&, const State&) = default;
  };
  std::optional<LocalState<State>>* lent;
  View body(const LocalState<State>& state) const {
    lent->emplace(state);
    return Text("holding");
  }
};

/// Reads every node that can be reached from `node`.
std::size_t readAll(const ViewGraph& graph, const Node* node) {
  if (!node) return 0;
  EXPECT_EQ(graph.find(node->id), node);
  std::size_t read = std::string(kindName(node->element.kind())).size() + node->identity.key.size();
  for (const Node* child : node->children) {
    EXPECT_EQ(child->parent, node);
    read += readAll(graph, child);
  }
  if (node->parent) read += node->parent->children.size();
  return read;
}

/// Shows windows of rows and keeps nothing, so that a view goes when the graph lets go of it.
class Nowhere final : public Renderer {
 public:
  RowDemand rowDemand() const override { return RowDemand::onRequest; }
  void apply(const Changes&) override {}
};

class FarewellTest : public ::testing::Test {
 protected:
  FarewellTest() { graph->attach(nowhere); }
  ~FarewellTest() override {
    if (graph) graph->detach();
  }

  /// Comes back to the graph: reads all of it and what was called `gone`, and writes into a view.
  Held farewell() {
    return std::make_shared<Farewell>([this, &its = *graph] {
      ++farewells;
      readAll(its, its.root());
      for (const NodeID id : gone) {
        EXPECT_FALSE(its.find(id)) << "gone as a whole";
        EXPECT_EQ(its.deliver(id, Press{}), Delivery::queued);
      }
      if (const Node* counter = counterOf(its.root())) {
        auto& cell = static_cast<StateCellOf<Counter::State>&>(*counter->state);
        cell.set(&Counter::State::count, cell.value().count + 1);
      }
    });
  }
  static const Node* counterOf(const Node* root) {
    return root && !root->children.empty() && root->children[0]->state ? root->children[0]
                                                                       : nullptr;
  }
  static View holding(Held held) {
    return Button(verbatim("holding"), [held = std::move(held)] {});
  }
  /// Names all nodes below `node`, and itself, as those that are about to go.
  void nameAsGone(const Node* node) {
    gone.push_back(node->id);
    for (const Node* child : node->children) nameAsGone(child);
  }
  void expectOneFarewell() {
    EXPECT_EQ(farewells, 1);
    EXPECT_EQ(texts(graph->root()).front(), "counter=1") << "what was written was described";
  }

  Nowhere nowhere;
  std::unique_ptr<ViewGraph> graph = std::make_unique<ViewGraph>();
  std::vector<NodeID> gone;
  int farewells = 0;
};

}  // namespace

TEST_F(FarewellTest, OfAnActionInASubtreeThatLeaves) {
  // Made in a body, so that nothing but the button's own node has the action.
  Held held = farewell();
  const Body inner{[&] { return holding(std::exchange(held, nullptr)); }};
  graph->setRoot(Group({Counter{}, Group({Text("x"), Group({inner, Text("y")})})}));
  nameAsGone(graph->root()->children[1]);
  graph->setRoot(Group({Counter{}}));
  expectOneFarewell();
}

TEST_F(FarewellTest, OfAStateInASubtreeThatLeaves) {
  std::optional<LocalState<Holding::State>> lent;
  graph->setRoot(Group({Counter{}, Group({Text("x"), Holding{&lent}, Text("y")})}));
  lent->set(&Holding::State::held, farewell());
  lent.reset();
  nameAsGone(graph->root()->children[1]);
  graph->setRoot(Group({Counter{}, Text("z")}));
  expectOneFarewell();
}

TEST_F(FarewellTest, OfARowThatFallsAsleepAndOfOneThatWasLookedAt) {
  std::vector<Held> held = {farewell(), farewell()};
  graph->setRoot(Group({Counter{}, list({{"a"}, {"b"}, {"c"}}, [&](const Line& line) -> View {
                          if (line.id == "c") return Text("c");
                          return Group({Text(verbatim(line.id)), holding(held[line.id == "b"])});
                        })}));
  const NodeID forEach = graph->root()->children[1]->id;
  graph->showRows(forEach, {{0, 1}});
  nameAsGone(graph->find(forEach)->children[0]);
  held[0].reset();
  graph->showRows(forEach, {{2, 3}});
  expectOneFarewell();
  nameAsGone(graph->find(graph->lookAtRow(forEach, 1)));
  held[1].reset();
  graph->setRoot(Group({Counter{}}));
  EXPECT_EQ(farewells, 2);
}

TEST_F(FarewellTest, OfASleepingStateWhoseRowLeavesTheList) {
  std::optional<LocalState<Holding::State>> lent;
  const auto screen = [&](std::vector<Line> lines) {
    return Group({Counter{}, list(std::move(lines), [&](const Line& line) -> View {
                    if (line.id == "b") return Text("b");
                    return Holding{&lent};
                  })});
  };
  graph->setRoot(screen({{"a"}, {"b"}}));
  const NodeID forEach = graph->root()->children[1]->id;
  graph->showRows(forEach, {{0, 1}});
  lent->set(&Holding::State::held, farewell());
  lent.reset();
  nameAsGone(graph->find(forEach)->children[0]);
  graph->showRows(forEach, {{1, 2}});
  EXPECT_EQ(farewells, 0) << "it sleeps";
  graph->setRoot(screen({{"b"}}));
  expectOneFarewell();
}

TEST_F(FarewellTest, OfTheWholeTree) {
  View root = Group({Counter{}, Group({holding(farewell())})});
  graph->setRoot(std::exchange(root, View()));
  nameAsGone(graph->root());
  graph->setRoot(View());
  EXPECT_EQ(farewells, 1);
  EXPECT_FALSE(graph->root());
}

TEST_F(FarewellTest, OfTheGraphItself) {
  graph->setRoot(Group({Counter{}, Group({Text("x"), Group({holding(farewell())})})}));
  nameAsGone(graph->root());
  graph->detach();
  graph.reset();
  EXPECT_EQ(farewells, 1);
}

}  // namespace vemra::ui
