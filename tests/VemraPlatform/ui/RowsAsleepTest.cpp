// Rows that leave the window and return: their state sleeps and wakes with them.

#include "tests/VemraPlatform/ui/ListInWindow.hpp"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

using Texts = std::vector<std::string>;

/// Has another state than `Counter`, in the same place.
struct Note {
  struct State {
    std::string text = "initial";
    friend bool operator==(const State&, const State&) = default;
  };
  View body(const LocalState<State>& state) const { return Text(verbatim(state->text)); }
};

class RowsAsleepTest : public ListInWindow {};

}  // namespace

TEST_F(RowsAsleepTest, ASleepingRowKeepsItsStateAndReturnsWithIt) {
  show(numbered(100));
  showRows(0, 3);
  pressRow(1);
  const auto state = memoryOf(*forEach().children[1]).state;
  showRows(50, 53);
  EXPECT_TRUE(state->isAttached());
  EXPECT_EQ(shown(), (Texts{"row50=0", "row51=0", "row52=0"}));
  showRows(0, 3);
  EXPECT_EQ(shown(), (Texts{"row0=0", "row1=1", "row2=0"}));
  EXPECT_EQ(memoryOf(*forEach().children[1]).state, state);
  const auto passes = graph.work().idPasses;
  EXPECT_EQ(graph.rowsWithState(forEach().id), std::vector<std::size_t>{1});
  EXPECT_EQ(graph.work().idPasses, passes) << "no row sleeps any more";
  pressRow(1);
  EXPECT_EQ(shown(), (Texts{"row0=0", "row1=2", "row2=0"}));
}

TEST_F(RowsAsleepTest, AWriteToASleepingRowIsThereWhenItReturns) {
  show(numbered(10));
  showRows(0, 1);
  pressRow(0);
  const auto state =
      std::static_pointer_cast<StateCellOf<Counter::State>>(memoryOf(*forEach().children[0]).state);
  showRows(5, 6);
  const auto bodies = graph.work().bodies;
  state->set(&Counter::State::count, 9);
  EXPECT_EQ(graph.work().bodies, bodies);
  showRows(0, 1);
  EXPECT_EQ(shown(), Texts{"row0=9"});
}

TEST_F(RowsAsleepTest, ASleepingRowFollowsItsIdAndLosesItsStateWhenItLeavesTheList) {
  show({{"a"}, {"b"}, {"c"}});
  showRows(0, 3);
  pressRow(0);
  pressRow(1);
  showRows(2, 3);
  show({{"c"}, {"x"}, {"b"}});
  showRows(0, 3);
  EXPECT_EQ(shown(), (Texts{"c=0", "x=0", "b=1"}));
  show({{"a"}, {"b"}});
  showRows(0, 2);
  EXPECT_EQ(shown(), (Texts{"a=0", "b=1"})) << "row a was removed while it slept";
}

TEST_F(RowsAsleepTest, RowsWithStateAreListedShownPeekedOrAsleep) {
  show(numbered(200));
  showRows(0, 3);
  EXPECT_EQ(graph.rowsWithState(forEach().id), std::vector<std::size_t>{});
  EXPECT_EQ(graph.work().idPasses, 0U) << "nothing sleeps";
  pressRow(150);
  pressRow(1);
  pressRow(90);
  showRows(150, 152);  // 1 is asleep, 90 looked at, 150 shown
  const WorkCount before = graph.work();
  EXPECT_EQ(graph.rowsWithState(forEach().id), (std::vector<std::size_t>{1, 90, 150}));
  EXPECT_EQ(graph.work().rows, before.rows) << "no row is described for it";
  EXPECT_EQ(graph.work().idPasses, before.idPasses + 1) << "to find the sleeping one";
  std::vector<Line> lines = numbered(200);
  lines.erase(lines.begin());
  show(lines);
  EXPECT_EQ(graph.rowsWithState(forEach().id), (std::vector<std::size_t>{0, 89, 149}));
  EXPECT_EQ(graph.rowsWithState({}), std::vector<std::size_t>{});
  const NodeID row = forEach().children[0]->id;
  EXPECT_EQ(graph.rowsWithState(row), std::vector<std::size_t>{}) << "which is no list";
}

TEST_F(RowsAsleepTest, ASleepingStateThatIsRemovedIgnoresWrites) {
  show({{"a"}, {"b"}});
  showRows(0, 1);
  pressRow(0);
  const auto state = memoryOf(*forEach().children[0]).state;
  showRows(1, 2);
  show({{"b"}});
  EXPECT_FALSE(state->isAttached());
}

TEST_F(RowsAsleepTest, AListWithSleepingRowsCanBeRemoved) {
  show({{"a"}, {"b"}});
  showRows(0, 1);
  pressRow(0);
  const auto state = memoryOf(*forEach().children[0]).state;
  showRows(1, 2);
  graph.setRoot(Text("x"));
  EXPECT_FALSE(state->isAttached());
}

TEST_F(RowsAsleepTest, ARowThatWakesAsAnotherKindOrBranchStartsAfresh) {
  int kind = 0;
  const auto row = [&](const Line& line) -> View {
    if (kind == 0) return Counter{line.id};
    if (kind == 1) return Note{};
    return If(true, [&] { return View(Counter{line.id}); });
  };
  show({{"a"}, {"b"}}, row);
  showRows(0, 2);
  pressRow(0);
  pressRow(1);
  showRows(0, 0);
  kind = 1;
  show({{"a"}, {"b"}}, row);
  showRows(0, 1);
  EXPECT_EQ(shown(), Texts{"initial"});
  kind = 2;
  showRows(0, 2);
  EXPECT_EQ(shown(), (Texts{"initial", "b=0"}))
      << "described in its state at the time of the request";
}

TEST_F(RowsAsleepTest, StateInsideARowSleepsAndWakesWithIt) {
  bool nested = true;
  const auto row = [&](const Line& line) -> View {
    return Group({Text(verbatim(line.id)), View(Counter{"x"}).id("x"), If(nested, [] {
                    return list({{"i"}, {"j"}, {"k"}}, counterRow);
                  })});
  };
  show({{"a"}, {"b"}}, row);
  showRows(0, 1);
  const auto inner = [&] { return firstOf(forEach().children[0], ElementKind::forEach)->id; };
  graph.showRows(inner(), {{0, 2}});
  pressRow(0);  // its first "+": the counter beside the inner list
  graph.deliver(buttonTitled(graph.find(inner())->children[1], "+")->id, Press{});
  graph.deliver(buttonTitled(graph.find(graph.peekRow(inner(), 2)), "+")->id, Press{});
  EXPECT_EQ(shown(), (Texts{"a", "x=1", "i=0", "j=1"}));
  for (int times = 0; times < 2; ++times) {
    showRows(1, 2);
    showRows(0, 1);
    EXPECT_EQ(shown(), (Texts{"a", "x=1"}));
  }
  graph.showRows(inner(), {{0, 3}});
  EXPECT_EQ(shown(), (Texts{"a", "x=1", "i=0", "j=1", "k=1"}));

  showRows(1, 2);
  nested = false;
  show({{"a"}, {"b"}}, row);
  showRows(0, 1);
  EXPECT_EQ(shown(), (Texts{"a", "x=1"}));
  nested = true;
  show({{"a"}, {"b"}}, row);
  graph.showRows(inner(), {{0, 3}});
  EXPECT_EQ(shown(), (Texts{"a", "x=1", "i=0", "j=0", "k=0"})) << "it had no place when it woke";
}

TEST_F(RowsAsleepTest, AWakingRowSkipsAListInItWithoutSleepingRows) {
  const auto row = [](const Line& line) -> View {
    return Group({list({{"i"}, {"j"}}, counterRow), View(Counter{line.id}).id("counter"),
                  list({{"k"}, {"l"}}, counterRow)});
  };
  show({{"a"}, {"b"}}, row);
  showRows(0, 1);
  const auto listAt = [&](std::size_t child) { return forEach().children[0]->children[child]->id; };
  graph.showRows(listAt(2), {{0, 1}});
  graph.deliver(buttonTitled(graph.find(listAt(1)), "+")->id, Press{});
  graph.deliver(buttonTitled(graph.find(listAt(2)), "+")->id, Press{});
  showRows(1, 2);
  showRows(0, 1);
  graph.showRows(listAt(0), {{0, 2}});
  graph.showRows(listAt(2), {{0, 2}});
  EXPECT_EQ(shown(), (Texts{"i=0", "j=0", "a=1", "k=1", "l=0"}));
}

TEST_F(RowsAsleepTest, AListInARowDoesNotCountAsStateOfTheRow) {
  show({{"a"}, {"b"}}, [](const Line&) { return Group({list({{"i"}, {"j"}}, counterRow)}); });
  showRows(0, 1);
  const NodeID inner = firstOf(forEach().children[0], ElementKind::forEach)->id;
  graph.showRows(inner, {{0, 1}});
  graph.peekRow(inner, 1);
  EXPECT_EQ(graph.rowsWithState(forEach().id), std::vector<std::size_t>{});
  const auto passes = graph.work().idPasses;
  showRows(1, 2);
  EXPECT_EQ(graph.work().idPasses, passes) << "no state of it is kept while it sleeps";
}

}  // namespace vemra::ui
