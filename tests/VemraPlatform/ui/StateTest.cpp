// Where state is stored, how long it is kept, and which code reads and writes it.

#include "tests/VemraPlatform/ui/Lending.hpp"
#include "tests/VemraPlatform/ui/OnGraph.hpp"

#include <string>
#include <utility>
#include <vector>

namespace vemra::ui {

namespace {

using namespace sample;

using Texts = std::vector<std::string>;

struct AccentedNote {
  struct State {
    std::string text = "\u00E9";
    friend bool operator==(const State&, const State&) = default;
  };
  View body(const LocalState<State>& state) const {
    return TextField("note", state.binding(&State::text));
  }
};

using StateTest = OnGraph;

}  // namespace

TEST_F(StateTest, IsInitialAtFirstMountOnly) {
  graph.setRoot(Counter{"a"});
  EXPECT_EQ(texts(graph.root()), Texts{"a=0"});
  press(graph, "+");
  graph.setRoot(Counter{"b"});
  EXPECT_EQ(texts(graph.root()), Texts{"b=1"});
}

TEST_F(StateTest, IsKeptOverInsertMoveAndReorder) {
  testing::RenderedTree tree;
  graph.attach(tree);
  const auto show = [&](std::vector<Line> lines) {
    graph.setRoot(list(std::move(lines), [](const Line& line) { return View(Counter{line.id}); }));
    return texts(graph.root());
  };
  show({{"a"}, {"b"}, {"c"}});
  graph.deliver(buttonTitled(graph.root()->children[1], "+")->id, Press{});
  EXPECT_EQ(show({{"x"}, {"a"}, {"b"}, {"c"}}), (Texts{"x=0", "a=0", "b=1", "c=0"}));
  EXPECT_EQ(show({{"b"}, {"x"}, {"a"}, {"c"}}), (Texts{"b=1", "x=0", "a=0", "c=0"}));
  EXPECT_EQ(show({{"c"}, {"a"}, {"x"}, {"b"}}), (Texts{"c=0", "a=0", "x=0", "b=1"}));
  EXPECT_EQ(show({{"c"}, {"b"}}), (Texts{"c=0", "b=1"}));
  EXPECT_EQ(show({{"c"}}), Texts{"c=0"});
  EXPECT_EQ(show({{"c"}, {"b"}}), (Texts{"c=0", "b=0"}))
      << "a person who was removed and added again has new state";
}

TEST_F(StateTest, IsLostOnRemovalAndReturn) {
  const auto screen = [](bool shown) {
    return column({If(shown, [] { return View(Counter{"it"}); })});
  };
  graph.setRoot(screen(true));
  press(graph, "+");
  graph.setRoot(screen(false));
  EXPECT_TRUE(texts(graph.root()).empty());
  graph.setRoot(screen(true));
  EXPECT_EQ(texts(graph.root()), Texts{"it=0"});
}

TEST_F(StateTest, IsLostOnAChangeOfBranchAndBack) {
  const auto screen = [](bool first) {
    return If(first, [] { return View(Counter{"one"}); }).otherwise([] {
      return View(Counter{"two"});
    });
  };
  graph.setRoot(screen(true));
  press(graph, "+");
  graph.setRoot(screen(false));
  EXPECT_EQ(texts(graph.root()), Texts{"two=0"});
  graph.setRoot(screen(true));
  EXPECT_EQ(texts(graph.root()), Texts{"one=0"});
}

TEST_F(StateTest, AWriteIsVisibleToTheNextReadAndTheBodyRunsOnce) {
  const auto lent = borrowed();
  std::vector<int> read;
  graph.setRoot(column({Lending{lent}, Button("go", [&] {
                          for (int value = 1; value <= 3; ++value) {
                            (*lent)->set(&Counter::State::count, value);
                            read.push_back((**lent)->count);
                          }
                        })}));
  const auto bodies = graph.work().bodies;
  EXPECT_EQ(press(graph, "go"), Delivery::acted);
  EXPECT_EQ(read, (std::vector{1, 2, 3}));
  EXPECT_EQ(graph.work().bodies, bodies + 1);
  EXPECT_EQ(texts(graph.root()).front(), "3");
}

TEST_F(StateTest, AnEqualWriteIsNoChange) {
  const auto lent = borrowed();
  graph.setRoot(Lending{lent});
  (*lent)->set(&Counter::State::count, 5);
  const WorkCount before = graph.work();
  (*lent)->set(&Counter::State::count, 5);
  EXPECT_EQ(graph.work().bodies, before.bodies);
  (*lent)->set(&Counter::State::count, 6);
  EXPECT_EQ(graph.work().bodies, before.bodies + 1);
  EXPECT_EQ(texts(graph.root()), Texts{"6"}) << "a write outside an event settles at once";
}

TEST_F(StateTest, TextIsComparedByteForByte) {
  graph.setRoot(AccentedNote{});
  graph.deliver(graph.root()->children[0]->id, EditText{"e\u0301"});
  EXPECT_EQ(graph.root()->children[0]->element.text(), "e\u0301") << "typed text is not normalised";
}

TEST_F(StateTest, AfterTheViewIsGoneAWriteDoesNothingAndAReadGivesTheLastValue) {
  const auto lent = borrowed();
  graph.setRoot(Lending{lent});
  const CounterState late = **lent;
  const Binding<int> binding = late.binding(&Counter::State::count);
  late.set(&Counter::State::count, 4);
  graph.setRoot(Text("another"));
  const WorkCount before = graph.work();
  late.set(&Counter::State::count, 9);
  binding.set(9);
  EXPECT_EQ(late->count, 4);
  EXPECT_EQ((*late).count, 4);
  EXPECT_EQ(binding.get(), 4);
  EXPECT_EQ(graph.work().bodies, before.bodies);
  graph.setRoot(Lending{lent});
  EXPECT_EQ(texts(graph.root()), Texts{"0"});
}

TEST_F(StateTest, CanStillBeReadAfterItsGraph) {
  const auto lent = borrowed();
  {
    ViewGraph brief;
    brief.setRoot(list({{"a"}}, [&](const Line&) { return View(Lending{lent}); }));
    testing::RenderedTree tree;
    brief.attach(tree);
    (*lent)->set(&Counter::State::count, 4);
    brief.detach();
  }
  (*lent)->set(&Counter::State::count, 9);
  EXPECT_EQ((**lent)->count, 4);
}

}  // namespace vemra::ui
