// Setting a root while the graph is busy.

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

}  // namespace

TEST(RootTest, ARootFromInsideACallbackTakesEffectWhenTheEventEnds) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  std::vector<std::string> during;
  graph.setRoot(Group({Counter{}, Button("new", [&] {
                         graph.setRoot(Text("first"));
                         graph.setRoot(Text("second"));
                         during = texts(graph.root());
                       })}));
  const auto bodies = graph.work().bodies;
  press(graph, "new");
  EXPECT_EQ(during, std::vector<std::string>{"counter=0"});
  EXPECT_EQ(texts(graph.root()), std::vector<std::string>{"second"});
  EXPECT_EQ(graph.work().bodies, bodies);
  EXPECT_EQ(difference(graph, tree), "");
}

TEST(RootTest, ARootFromInsideApplyOrABodyTakesEffectAfterwards) {
  ViewGraph graph;
  Window window;
  graph.attach(window);
  window.onApply = [&](const std::vector<Patch>&) {
    window.onApply = nullptr;
    graph.setRoot(Body{[&]() -> View {
      graph.setRoot(Text("third"));
      return Text("second");
    }});
    EXPECT_EQ(texts(graph.root()), std::vector<std::string>{"first"});
  };
  graph.setRoot(Text("first"));
  EXPECT_EQ(texts(graph.root()), std::vector<std::string>{"third"});
  EXPECT_EQ(difference(graph, window.tree), "");
}

TEST(RootTest, EveryNodeThatIsMadeIsCountedOnce) {
  ViewGraph graph;
  graph.setRoot(Group({Text("a"), Counter{}, View()}));
  EXPECT_EQ(graph.work().nodes, 6U) << "the group, the text, the counter and the three in it";
  graph.setRoot(Group({Text("b"), Counter{}, Text("c")}));
  EXPECT_EQ(graph.work().nodes, 7U);
}

TEST(RootTest, AnActionMayReplaceTheVeryButtonThatRunsIt) {
  ViewGraph graph;
  auto alive = std::make_shared<int>(1);
  const std::weak_ptr<int> watch = alive;
  graph.setRoot(Button("go", [&graph, &watch, held = std::move(alive)] {
    graph.setRoot(View());
    EXPECT_FALSE(watch.expired()) << "the action's captures must live as long as it runs";
  }));
  press(graph, "go");
  EXPECT_EQ(graph.root(), nullptr);
  EXPECT_TRUE(watch.expired());
}

}  // namespace vemra::ui
