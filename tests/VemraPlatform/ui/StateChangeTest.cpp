// Which views the graph describes again after a write, and when no write is allowed.

#include "tests/VemraPlatform/ui/Lending.hpp"
#include "tests/VemraPlatform/ui/OnGraph.hpp"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vemra::ui {

namespace {

using namespace sample;

using Texts = std::vector<std::string>;

using StateChangeTest = OnGraph;

}  // namespace

TEST_F(StateChangeTest, WritesOfSeveralViewsDescribeEachOnceOuterOnesFirst) {
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
  graph.setRoot(column({Outer{outer, inner, &order}, Button("both", [&] {
                          (*inner)->set(&Counter::State::count, 1);
                          (*outer)->set(&Counter::State::count, 1);
                          (*inner)->set(&Counter::State::count, 2);
                        })}));
  EXPECT_EQ(order, "oi");
  press(graph, "both");
  EXPECT_EQ(order, "oioi") << "the inner one is described with the outer one, not again";
}

TEST_F(StateChangeTest, AWriteAfterTheDescriptionInTheSamePassIsShown) {
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

TEST_F(StateChangeTest, AnInnerViewThatTheOuterViewRemovesIsNotDescribed) {
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
  graph.setRoot(column({Outer{outer, inner}, Button("both", [&] {
                          (*inner)->set(&Counter::State::count, 1);
                          (*outer)->set(&Counter::State::count, 1);
                        })}));
  const auto bodies = graph.work().bodies;
  press(graph, "both");
  EXPECT_EQ(graph.work().bodies, bodies + 1);
  EXPECT_TRUE(texts(graph.root()).empty());
}

TEST_F(StateChangeTest, ALocalChangeDescribesOneCompositeOnly) {
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

using StateChangeDeathTest = OnGraph;

TEST_F(StateChangeDeathTest, WritingWhileDescribingStopsTheProcessAndNamesTheView) {
  const auto write = [](const CounterState& state) {
    state.set(&Counter::State::count, state->count + 1);
  };
  EXPECT_DEATH(
      graph.setRoot(View(Lending{borrowed(), write}).accessibilityIdentifier("the.one")),
      "vemra::ui: state was written while a view was being described in Lending \"the.one\"");
}

TEST_F(StateChangeDeathTest, TheMessageNamesTheRow) {
  const auto lent = borrowed();
  const auto row = [&](const Line& line) {
    return line.id == "b" ? View(Body{[&] {
      (*lent)->set(&Counter::State::count, 1);
      return View();
    }})
                          : View(Lending{lent});
  };
  testing::RenderedTree tree;
  graph.attach(tree);
  EXPECT_DEATH(graph.setRoot(list({{"a"}, {"b"}}, row)), "in Lending of row \"a\"");
}

TEST_F(StateChangeDeathTest, WritingFromARowsClosureStopsTheProcessToo) {
  const auto lent = borrowed();
  testing::RenderedTree tree;
  graph.attach(tree);
  const auto row = [&](const Line&) {
    (*lent)->set(&Counter::State::count, 1);
    return View();
  };
  EXPECT_DEATH(graph.setRoot(column({Lending{lent}, list({{"a"}}, row)})),
               "while a view was being described in Lending");
}

TEST_F(StateChangeDeathTest, AnEqualWriteWhileDescribingIsAllowed) {
  graph.setRoot(
      Lending{borrowed(), [](const CounterState& state) { state.set(&Counter::State::count, 0); }});
  EXPECT_EQ(texts(graph.root()), Texts{"0"});
}

}  // namespace vemra::ui
