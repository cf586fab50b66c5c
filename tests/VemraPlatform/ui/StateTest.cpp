#include "tests/VemraPlatform/ui/Sample.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

using Texts = std::vector<std::string>;
using CounterState = LocalState<Counter::State>;

/// A view that lets the test have its state.
struct Lending {
  static constexpr std::string_view name = "Lending";
  using State = Counter::State;
  std::shared_ptr<std::optional<CounterState>> lent;
  std::function<void(const CounterState&)> whileDescribing = {};

  View body(const CounterState& state) const {
    lent->emplace(state);
    if (whileDescribing) whileDescribing(state);
    return Text(verbatim(std::to_string(state->count)));
  }
};

std::shared_ptr<std::optional<CounterState>> borrowed() {
  return std::make_shared<std::optional<CounterState>>();
}

struct Note {
  struct State {
    std::string text = "\u00E9";
    friend bool operator==(const State&, const State&) = default;
  };
  View body(const LocalState<State>& state) const {
    return TextField("note", state.binding(&State::text));
  }
};

struct Silent {
  View body() const { return Text("x"); }
};

struct Telling {
  static constexpr std::string_view name = "Telling";
  View body(const Environment&) const { return Text("x"); }
  Properties properties() const { return {{"alone", true}}; }
};

View column(Children children) {
  return VStack(HorizontalAlignment::leading, 0, std::move(children));
}

}  // namespace

TEST(StateTest, IsInitialAtFirstMountOnly) {
  ViewGraph graph;
  graph.setRoot(Counter{"a"});
  EXPECT_EQ(texts(graph.root()), Texts{"a=0"});
  press(graph, "+");
  graph.setRoot(Counter{"b"});
  EXPECT_EQ(texts(graph.root()), Texts{"b=1"});
}

TEST(StateTest, IsKeptWhenSiblingsComeAndGo) {
  ViewGraph graph;
  const auto screen = [](bool above, bool below) {
    return column({If(above, [] { return Text("above"); }), Counter{"it"},
                   If(below, [] { return Text("below"); })});
  };
  graph.setRoot(screen(false, false));
  press(graph, "+");
  graph.setRoot(screen(true, true));
  EXPECT_EQ(texts(graph.root()), (Texts{"above", "it=1", "below"}));
  graph.setRoot(screen(false, true));
  EXPECT_EQ(texts(graph.root()), (Texts{"it=1", "below"}));
}

TEST(StateTest, IsKeptOverInsertMoveAndReorder) {
  ViewGraph graph;
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
  EXPECT_EQ(show({{"c"}, {"b"}}), (Texts{"c=0", "b=0"})) << "who left and returns starts afresh";
}

TEST(StateTest, IsLostOnRemovalAndReturn) {
  ViewGraph graph;
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

TEST(StateTest, IsLostOnAChangeOfBranchAndBack) {
  ViewGraph graph;
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

TEST(StateTest, AWriteIsSeenByTheNextReadAndTheBodyRunsOnce) {
  ViewGraph graph;
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

TEST(StateTest, AnEqualWriteIsNoChange) {
  ViewGraph graph;
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

TEST(StateTest, TextIsComparedByteForByte) {
  ViewGraph graph;
  graph.setRoot(Note{});
  graph.deliver(graph.root()->children[0]->id, EditText{"e\u0301"});
  EXPECT_EQ(graph.root()->children[0]->element.text(), "e\u0301") << "typed text is not normalised";
}

TEST(StateTest, AfterTheViewIsGoneAWriteDoesNothingAndAReadGivesTheLastValue) {
  const auto lent = borrowed();
  ViewGraph graph;
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

TEST(StateTest, OutlivesItsGraphForReadersOnly) {
  const auto lent = borrowed();
  {
    ViewGraph graph;
    graph.setRoot(list({{"a"}}, [&](const Line&) { return View(Lending{lent}); }));
    testing::RenderedTree tree;
    graph.attach(tree);
    (*lent)->set(&Counter::State::count, 4);
    graph.detach();
  }
  (*lent)->set(&Counter::State::count, 9);
  EXPECT_EQ((**lent)->count, 4);
}

TEST(StateTest, WritesOfSeveralViewsDescribeEachOnceOuterOnesFirst) {
  struct Outer {
    using State = Counter::State;
    std::shared_ptr<std::optional<CounterState>> lent;
    std::shared_ptr<std::optional<CounterState>> inner;
    std::string* order;
    View body(const CounterState& state) const {
      lent->emplace(state);
      *order += 'o';
      return Lending{inner, [order = order](const CounterState&) { *order += 'i'; }};
    }
  };
  std::string order;
  const auto outer = borrowed();
  const auto inner = borrowed();
  ViewGraph graph;
  graph.setRoot(column({Outer{outer, inner, &order}, Button("both", [&] {
                          (*inner)->set(&Counter::State::count, 1);
                          (*outer)->set(&Counter::State::count, 1);
                          (*inner)->set(&Counter::State::count, 2);
                        })}));
  EXPECT_EQ(order, "oi");
  press(graph, "both");
  EXPECT_EQ(order, "oioi") << "the inner one is described with the outer one, not again";
}

TEST(StateTest, AWriteAfterTheDescriptionInTheSamePassIsSeen) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  const auto lent = borrowed();
  bool writes = true;
  // A control is read once the views before it have been described, and reading may write.
  const Binding<std::string> field(
      [&] {
        if (std::exchange(writes, false)) (*lent)->set(&Counter::State::count, 7);
        return std::string();
      },
      [](const std::string&) {});
  const View screen = column({Lending{lent}, Group({TextField("field", field)})});
  graph.setRoot(screen);
  EXPECT_EQ(texts(graph.root()), Texts{"7"});
  writes = true;
  (*lent)->set(&Counter::State::count, 0);
  graph.setRoot(screen);
  EXPECT_EQ(texts(graph.root()), Texts{"7"});
  EXPECT_EQ(difference(graph, tree), "");
}

TEST(StateTest, AnInnerViewThatTheOuterOneTakesAwayIsNotDescribed) {
  struct Outer {
    using State = Counter::State;
    std::shared_ptr<std::optional<CounterState>> lent;
    std::shared_ptr<std::optional<CounterState>> inner;
    View body(const CounterState& state) const {
      lent->emplace(state);
      return If(state->count == 0, [&] { return View(Lending{inner}); });
    }
  };
  const auto outer = borrowed();
  const auto inner = borrowed();
  ViewGraph graph;
  graph.setRoot(column({Outer{outer, inner}, Button("both", [&] {
                          (*inner)->set(&Counter::State::count, 1);
                          (*outer)->set(&Counter::State::count, 1);
                        })}));
  const auto bodies = graph.work().bodies;
  press(graph, "both");
  EXPECT_EQ(graph.work().bodies, bodies + 1);
  EXPECT_TRUE(texts(graph.root()).empty());
}

TEST(StateTest, ALocalChangeDescribesOneCompositeAndTouchesNothingElse) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  graph.setRoot(list(numbered(200), [](const Line& line) { return View(Counter{line.id}); }));
  const WorkCount before = graph.work();
  graph.deliver(buttonTitled(graph.root()->children[77], "+")->id, Press{});
  EXPECT_EQ(graph.work().bodies, before.bodies + 1);
  EXPECT_EQ(graph.work().rows, before.rows);
  EXPECT_EQ(graph.work().nodes, before.nodes);
  EXPECT_EQ(graph.work().patches, before.patches + 1);
  EXPECT_EQ(graph.work().idPasses, before.idPasses);
  EXPECT_EQ(difference(graph, tree), "");
}

TEST(StateTest, PropertiesTellOfTheStateAsItIsNow) {
  ViewGraph graph;
  graph.setRoot(Counter{"it"});
  const NodeID id = graph.root()->id;
  press(graph, "+");
  const Properties properties = graph.properties(id);
  ASSERT_EQ(properties.size(), 1U);
  EXPECT_EQ(std::get<std::string>(properties[0].value), "1");
  EXPECT_TRUE(graph.properties(graph.root()->children[0]->id).empty());
  EXPECT_TRUE(graph.properties(NodeID{999}).empty());
}

TEST(StateTest, AViewThatIsBeingMadeHasNoPropertiesYet) {
  ViewGraph graph;
  std::size_t told = 99;
  graph.setRoot(column({Body{[&] {
                          const Node* sibling = graph.root()->children[1];
                          told = graph.properties(sibling->id).size();
                          return View();
                        }},
                        Counter{}}));
  EXPECT_EQ(told, 0U);
  EXPECT_EQ(graph.properties(graph.root()->children[1]->id).size(), 1U);
}

TEST(StateTest, ACompositeMaySayNothingOfItselfOrTellWithoutState) {
  ViewGraph graph;
  graph.setRoot(Silent{});
  EXPECT_EQ(graph.root()->element.compositeName(), "View");
  EXPECT_TRUE(graph.properties(graph.root()->id).empty());
  graph.setRoot(Telling{});
  EXPECT_EQ(graph.root()->element.compositeName(), "Telling");
  EXPECT_EQ(graph.properties(graph.root()->id).size(), 1U);
}

using StateDeathTest = ::testing::Test;

TEST(StateDeathTest, WritingWhileDescribingStopsAndNamesTheView) {
  const auto write = [](const CounterState& state) {
    state.set(&Counter::State::count, state->count + 1);
  };
  EXPECT_DEATH(
      {
        ViewGraph graph;
        graph.setRoot(View(Lending{borrowed(), write}).accessibilityIdentifier("the.one"));
      },
      "vemra::ui: state was written while a view was being described in Lending \"the.one\"");
}

TEST(StateDeathTest, TheMessageNamesTheRow) {
  const auto lent = borrowed();
  const auto row = [&](const Line& line) {
    return line.id == "b" ? View(Body{[&] {
      (*lent)->set(&Counter::State::count, 1);
      return View();
    }})
                          : View(Lending{lent});
  };
  EXPECT_DEATH(
      {
        ViewGraph graph;
        testing::RenderedTree tree;
        graph.attach(tree);
        graph.setRoot(list({{"a"}, {"b"}}, row));
      },
      "in Lending of row \"a\"");
}

TEST(StateDeathTest, WritingFromARowsClosureStopsToo) {
  const auto lent = borrowed();
  EXPECT_DEATH(
      {
        ViewGraph graph;
        testing::RenderedTree tree;
        graph.attach(tree);
        graph.setRoot(column({Lending{lent}, list({{"a"}}, [&](const Line&) {
                                (*lent)->set(&Counter::State::count, 1);
                                return View();
                              })}));
      },
      "while a view was being described in Lending");
}

TEST(StateDeathTest, AnEqualWriteWhileDescribingIsNoWrite) {
  ViewGraph graph;
  graph.setRoot(
      Lending{borrowed(), [](const CounterState& state) { state.set(&Counter::State::count, 0); }});
  EXPECT_EQ(texts(graph.root()), Texts{"0"});
}

}  // namespace vemra::ui
