#include "tests/VemraPlatform/ui/Sample.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

// The content of a view (a button's action, a row's closure, a state) may own an object whose
// destructor calls the graph. It must find a consistent graph without the whole removed subtree;
// the sanitizers check that it reads no freed memory.

namespace vemra::ui {

namespace {

using namespace sample;

/// Calls a function when it is destroyed.
class OnDestruction {
 public:
  explicit OnDestruction(std::function<void()> act) : act_(std::move(act)) {}
  ~OnDestruction() { act_(); }
  OnDestruction(const OnDestruction&) = delete;
  OnDestruction& operator=(const OnDestruction&) = delete;

 private:
  std::function<void()> act_;
};
using Held = std::shared_ptr<const OnDestruction>;

/// A view whose state owns one.
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

/// Reads every node below `node`.
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

/// Requests rows by range and keeps nothing, so that the graph alone owns the views.
class Nowhere final : public Renderer {
 public:
  RowDemand rowDemand() const override { return RowDemand::onRequest; }
  void apply(const Changes&) override {}
};

class DestructorTest : public ::testing::Test {
 protected:
  DestructorTest() { graph->attach(nowhere); }
  ~DestructorTest() override {
    if (graph) graph->detach();
  }

  /// Reads the whole graph and the removed node `gone`, and writes the state of a view.
  Held onDestruction() {
    return std::make_shared<OnDestruction>([this, &its = *graph] {
      ++destructions;
      readAll(its, its.root());
      for (const NodeID id : gone) {
        EXPECT_FALSE(its.find(id)) << "gone as a whole";
        EXPECT_EQ(its.deliver(id, Press{}), Delivery::queued);
      }
      if (const Node* counter = counterOf(its.root())) {
        auto& cell = static_cast<StateCellOf<Counter::State>&>(*memoryOf(*counter).state);
        cell.set(&Counter::State::count, cell.value().count + 1);
      }
    });
  }
  static const Node* counterOf(const Node* root) {
    return root && !root->children.empty() && memoryOf(*root->children[0]).state ? root->children[0]
                                                                                 : nullptr;
  }
  static View holding(Held held) {
    return Button(verbatim("holding"), [held = std::move(held)] {});
  }
  /// Records `node` and all nodes below it as those that will be removed.
  void nameAsGone(const Node* node) {
    gone.push_back(node->id);
    for (const Node* child : node->children) nameAsGone(child);
  }
  void expectOneDestruction() {
    EXPECT_EQ(destructions, 1);
    EXPECT_EQ(texts(graph->root()).front(), "counter=1") << "the written state is shown";
  }

  Nowhere nowhere;
  std::unique_ptr<ViewGraph> graph = std::make_unique<ViewGraph>();
  std::vector<NodeID> gone;
  int destructions = 0;
};

}  // namespace

TEST_F(DestructorTest, OfAnActionInARemovedSubtree) {
  // Made in a body, so that nothing but the button's own node has the action.
  Held held = onDestruction();
  const Body inner{[&] { return holding(std::exchange(held, nullptr)); }};
  graph->setRoot(Group({Counter{}, Group({Text("x"), Group({inner, Text("y")})})}));
  nameAsGone(graph->root()->children[1]);
  graph->setRoot(Group({Counter{}}));
  expectOneDestruction();
}

TEST_F(DestructorTest, OfAStateInARemovedSubtree) {
  std::optional<LocalState<Holding::State>> lent;
  graph->setRoot(Group({Counter{}, Group({Text("x"), Holding{&lent}, Text("y")})}));
  lent->set(&Holding::State::held, onDestruction());
  lent.reset();
  nameAsGone(graph->root()->children[1]);
  graph->setRoot(Group({Counter{}, Text("z")}));
  expectOneDestruction();
}

TEST_F(DestructorTest, OfARowThatGoesToSleepAndOfAPeekedRow) {
  std::vector<Held> held = {onDestruction(), onDestruction()};
  graph->setRoot(Group({Counter{}, list({{"a"}, {"b"}, {"c"}}, [&](const Line& line) -> View {
                          if (line.id == "c") return Text("c");
                          return Group({Text(verbatim(line.id)), holding(held[line.id == "b"])});
                        })}));
  const NodeID forEach = graph->root()->children[1]->id;
  graph->showRows(forEach, {{0, 1}});
  nameAsGone(graph->find(forEach)->children[0]);
  held[0].reset();
  graph->showRows(forEach, {{2, 3}});
  expectOneDestruction();
  nameAsGone(graph->find(graph->peekRow(forEach, 1)));
  held[1].reset();
  graph->setRoot(Group({Counter{}}));
  EXPECT_EQ(destructions, 2);
}

TEST_F(DestructorTest, OfASleepingStateWhoseRowIsRemoved) {
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
  lent->set(&Holding::State::held, onDestruction());
  lent.reset();
  nameAsGone(graph->find(forEach)->children[0]);
  graph->showRows(forEach, {{1, 2}});
  EXPECT_EQ(destructions, 0) << "it sleeps";
  graph->setRoot(screen({{"b"}}));
  expectOneDestruction();
}

TEST_F(DestructorTest, OfTheWholeTree) {
  View root = Group({Counter{}, Group({holding(onDestruction())})});
  graph->setRoot(std::exchange(root, View()));
  nameAsGone(graph->root());
  graph->setRoot(View());
  EXPECT_EQ(destructions, 1);
  EXPECT_FALSE(graph->root());
}

TEST_F(DestructorTest, OfTheGraphItself) {
  graph->setRoot(Group({Counter{}, Group({Text("x"), Group({holding(onDestruction())})})}));
  nameAsGone(graph->root());
  graph->detach();
  graph.reset();
  EXPECT_EQ(destructions, 1);
}

}  // namespace vemra::ui
