#include "tests/VemraPlatform/ui/Sample.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

using Texts = std::vector<std::string>;
using Kind = Patch::Kind;

enum class Only { one };
std::string_view caseName(Only) {
  return "one";
}

View counterRow(const Line& line) {
  return Counter{line.id};
}

/// A list in a window that shows some of its rows.
class RowsTest : public ::testing::Test {
 protected:
  RowsTest() { graph.attach(window); }
  ~RowsTest() override { graph.detach(); }

  void show(std::vector<Line> lines, std::function<View(const Line&)> row = counterRow) {
    graph.setRoot(list(std::move(lines), std::move(row)));
    EXPECT_EQ(difference(graph, window.tree), "");
  }
  void showRows(std::size_t first, std::size_t last) {
    graph.showRows(forEach().id, {{first, last}});
    EXPECT_EQ(difference(graph, window.tree), "");
  }
  const Node& forEach() { return *firstOf(graph.root(), ElementKind::forEach); }
  Texts shown() { return texts(graph.root()); }
  /// Presses "+" in a row, which is looked at when it is not shown.
  void pressRow(std::size_t index) {
    const Node* row = graph.find(graph.lookAtRow(forEach().id, index));
    ASSERT_TRUE(row);
    graph.deliver(buttonTitled(row, "+")->id, Press{});
    EXPECT_EQ(difference(graph, window.tree), "");
  }
  Texts lookedAt(std::size_t index) {
    return texts(graph.find(graph.lookAtRow(forEach().id, index)));
  }

  Window window;
  ViewGraph graph;
};

}  // namespace

TEST_F(RowsTest, AreDescribedOnlyWhenAskedForWhateverTheLengthOfTheList) {
  for (const std::size_t length : {100U, 100'000U}) {
    const WorkCount before = graph.work();
    show(numbered(length));
    EXPECT_EQ(forEach().element.rowCount(), length);
    showRows(10, 15);
    showRows(12, 18);
    EXPECT_EQ(graph.work().rows, before.rows + 8) << length << ": five, then three more";
    EXPECT_EQ(graph.work().idPasses, before.idPasses) << length;
    EXPECT_EQ(shown(), (Texts{"row12=0", "row13=0", "row14=0", "row15=0", "row16=0", "row17=0"}));
    graph.setRoot(Text("x"));
  }
}

TEST_F(RowsTest, AMovedWindowKeepsTheRowsItHadAndTellsOnlyOfTheOthers) {
  show(numbered(100), [](const Line& line) -> View { return Text(verbatim(line.id)); });
  showRows(10, 14);
  const NodeID eleven = forEach().children[1]->id;
  window.take();
  showRows(11, 15);
  EXPECT_EQ(forEach().children[0]->id, eleven);
  const auto patches = window.take();
  ASSERT_EQ(patches.size(), 2U);
  EXPECT_EQ(patches[0].kind, Kind::remove);
  EXPECT_EQ(patches[1].kind, Kind::insert);
  EXPECT_EQ(patches[1].after, forEach().children[2]->id);
}

TEST_F(RowsTest, RangesMayTouchOverlapAndReachPastTheEnd) {
  show(numbered(10), [](const Line& line) -> View { return Text(verbatim(line.id)); });
  graph.showRows(forEach().id, {{7, 99}, {0, 2}, {1, 3}, {3, 4}, {5, 5}, {50, 60}, {6, 2}});
  EXPECT_EQ(shown(), (Texts{"row0", "row1", "row2", "row3", "row7", "row8", "row9"}));
  EXPECT_EQ(difference(graph, window.tree), "");
  graph.showRows(forEach().id, {});
  EXPECT_TRUE(shown().empty());
}

TEST_F(RowsTest, ARequestForWhatIsNoListDoesNothing) {
  graph.setRoot(Group({Text("x"), list(numbered(3))}));
  const NodeID gone = forEach().id;
  graph.showRows(graph.root()->children[0]->id, {{0, 1}});
  graph.showRows(NodeID{12345}, {{0, 1}});
  EXPECT_FALSE(graph.lookAtRow(graph.root()->id, 0));
  EXPECT_FALSE(graph.lookAtRow(gone, 3)) << "there is no such row";
  graph.setRoot(Text("y"));
  graph.showRows(gone, {{0, 1}});
  EXPECT_FALSE(graph.lookAtRow(gone, 0));
  EXPECT_EQ(graph.work().rows, 0U);
}

TEST_F(RowsTest, ARendererOfEveryRowIsNotServedWindows) {
  testing::RenderedTree all;
  graph.attach(all);
  graph.setRoot(list(numbered(5)));
  graph.showRows(forEach().id, {{0, 1}});
  EXPECT_EQ(shown().size(), 5U);
  EXPECT_EQ(difference(graph, all), "");
}

TEST_F(RowsTest, APickersRowsAreThereWithThePicker) {
  graph.setRoot(Picker("choice", Binding<Tag>([] { return Tag(Only::one); }, [](const Tag&) {}),
                       {Group({list(numbered(4))})}));
  EXPECT_EQ(shown().size(), 4U);
}

TEST_F(RowsTest, RequestsFromInsideApplyAreServedAfterIt) {
  window.onApply = [&](const std::vector<Patch>& patches) {
    for (const Patch& patch : patches) {
      if (patch.kind != Kind::insert || patch.element->kind() != ElementKind::forEach) continue;
      graph.showRows(patch.node, {{0, 2}});
      EXPECT_FALSE(graph.lookAtRow(patch.node, 1)) << "it is not there yet";
    }
  };
  show(numbered(5));
  EXPECT_EQ(shown().size(), 2U);
}

TEST_F(RowsTest, ASleepingRowKeepsItsStateAndReturnsWithIt) {
  show(numbered(100));
  showRows(0, 3);
  pressRow(1);
  const auto state = forEach().children[1]->state;
  showRows(50, 53);
  EXPECT_TRUE(state->isAttached());
  EXPECT_EQ(shown(), (Texts{"row50=0", "row51=0", "row52=0"}));
  showRows(0, 3);
  EXPECT_EQ(shown(), (Texts{"row0=0", "row1=1", "row2=0"}));
  EXPECT_EQ(forEach().children[1]->state, state);
  pressRow(1);
  EXPECT_EQ(shown(), (Texts{"row0=0", "row1=2", "row2=0"}));
}

TEST_F(RowsTest, AWriteToASleepingRowWaitsThereForItsReturn) {
  show(numbered(10));
  showRows(0, 1);
  pressRow(0);
  const auto state =
      std::static_pointer_cast<StateCellOf<Counter::State>>(forEach().children[0]->state);
  showRows(5, 6);
  const auto bodies = graph.work().bodies;
  state->set(&Counter::State::count, 9);
  EXPECT_EQ(graph.work().bodies, bodies);
  showRows(0, 1);
  EXPECT_EQ(shown(), Texts{"row0=9"});
}

TEST_F(RowsTest, ASleepingRowFollowsItsIdAndIsForgottenWhenItLeavesTheList) {
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
  EXPECT_EQ(shown(), (Texts{"a=0", "b=1"})) << "a left while it slept";
}

TEST_F(RowsTest, AStateThatLeavesWhileAsleepTakesNoMoreWrites) {
  show({{"a"}, {"b"}});
  showRows(0, 1);
  pressRow(0);
  const auto state = forEach().children[0]->state;
  showRows(1, 2);
  show({{"b"}});
  EXPECT_FALSE(state->isAttached());
}

TEST_F(RowsTest, TheWholeListMayLeaveWithSleepersInIt) {
  show({{"a"}, {"b"}});
  showRows(0, 1);
  pressRow(0);
  const auto state = forEach().children[0]->state;
  showRows(1, 2);
  graph.setRoot(Text("x"));
  EXPECT_FALSE(state->isAttached());
}

TEST_F(RowsTest, EqualIdsAreToldApartByOrderInEveryForm) {
  const std::string composed = "\u00E9";
  const std::string decomposed = "e\u0301";
  const auto row = [](const Line& line) { return View(Counter{line.text}); };
  show({{composed, "1"}, {"x", "x"}, {decomposed, "2"}, {composed, "3"}}, row);
  showRows(0, 4);
  pressRow(2);
  EXPECT_EQ(forEach().children[2]->rowID, decomposed) << "byte for byte as given";
  show({{decomposed, "1"}, {composed, "2"}, {decomposed, "3"}}, row);
  EXPECT_EQ(shown(), (Texts{"1=0", "2=1", "3=0"})) << "the second of the three has the state";
  EXPECT_EQ(forEach().children[1]->rowID, composed);
  show({{composed, "1"}}, row);
  show({{composed, "1"}, {composed, "2"}}, row);
  showRows(0, 2);
  EXPECT_EQ(shown(), (Texts{"1=0", "2=0"})) << "the second one had left";
}

TEST_F(RowsTest, AChangeAboveTheWindowMovesTheIndexesAndIsTold) {
  show(numbered(20));
  showRows(10, 12);
  const NodeID ten = forEach().children[0]->id;
  window.take();
  std::vector<Line> lines = numbered(20);
  std::swap(lines[0], lines[1]);
  show(lines);
  EXPECT_TRUE(window.take().empty()) << "nothing that is shown has moved";
  lines.erase(lines.begin());
  lines.push_back({"new"});
  show(lines);
  EXPECT_EQ(graph.find(ten)->rowIndex, 9U);
  EXPECT_EQ(forEach().children[1]->rowIndex, 10U);
  const auto patches = window.take();
  ASSERT_EQ(patches.size(), 1U);
  EXPECT_EQ(patches[0].kind, Kind::update);
  EXPECT_EQ(patches[0].node, forEach().id);
}

TEST_F(RowsTest, AChangeInsideTheWindowReordersTheRowsThatAreThere) {
  show({{"a"}, {"b"}, {"c"}, {"d"}});
  showRows(0, 3);
  show({{"c"}, {"d"}, {"x"}, {"a"}});
  EXPECT_EQ(shown(), (Texts{"c=0", "a=0"})) << "who was shown and is still there";
  EXPECT_EQ(forEach().children[1]->rowIndex, 3U);
}

TEST_F(RowsTest, ALookMakesNoPatchAndIsTheShownRowOnceItIsShown) {
  show(numbered(100));
  showRows(0, 2);
  window.take();
  const NodeID looked = graph.lookAtRow(forEach().id, 40);
  EXPECT_EQ(texts(graph.find(looked)), Texts{"row40=0"});
  EXPECT_FALSE(graph.find(looked)->isShown);
  EXPECT_EQ(graph.lookAtRow(forEach().id, 40), looked);
  EXPECT_EQ(graph.lookAtRow(forEach().id, 1), forEach().children[1]->id);
  pressRow(40);
  EXPECT_TRUE(window.take().empty());
  EXPECT_EQ(lookedAt(40), Texts{"row40=1"}) << "a change inside it is described all the same";
  showRows(40, 41);
  EXPECT_EQ(forEach().children[0]->id, looked);
  EXPECT_TRUE(forEach().children[0]->isShown);
  EXPECT_EQ(shown(), Texts{"row40=1"});
  pressRow(40);
  EXPECT_EQ(shown(), Texts{"row40=2"});
}

TEST_F(RowsTest, OfManyLooksTheOldestIsForgottenAndItsStateIsNot) {
  show(numbered(200));
  const NodeID first = graph.lookAtRow(forEach().id, 0);
  pressRow(0);
  for (std::size_t index = 1; index < 64; ++index) graph.lookAtRow(forEach().id, index);
  EXPECT_TRUE(graph.find(first));
  graph.lookAtRow(forEach().id, 64);
  EXPECT_FALSE(graph.find(first));
  EXPECT_EQ(lookedAt(0), Texts{"row0=1"});
  EXPECT_LT(graph.work().nodes, 66U * 4U + 10U);
}

TEST_F(RowsTest, LooksEndWithTheDescriptionOfTheirList) {
  show(numbered(10));
  const NodeID looked = graph.lookAtRow(forEach().id, 3);
  pressRow(3);
  std::vector<Line> lines = numbered(10);
  std::swap(lines[3], lines[7]);
  show(lines);
  EXPECT_FALSE(graph.find(looked));
  EXPECT_EQ(lookedAt(7), Texts{"row3=1"});
  EXPECT_EQ(lookedAt(3), Texts{"row7=0"});
}

TEST_F(RowsTest, ALookFromABodyFindsNothingNewAndItsOtherWishesWaitTheirTurn) {
  NodeID fromRow;
  show({{"a"}, {"b"}}, [&](const Line& line) -> View {
    if (line.id == "b") {
      fromRow = graph.lookAtRow(forEach().id, 0);
      graph.setRoot(Text("next"));
    }
    return Text(verbatim(line.id));
  });
  graph.lookAtRow(forEach().id, 1);
  EXPECT_FALSE(fromRow);
  EXPECT_EQ(shown(), Texts{"next"}) << "taken up after the look";
}

TEST_F(RowsTest, ANewRootCostsNoPassOverIdsWithoutStateAndOneWithIt) {
  const std::vector<Line> lines = numbered(100'000);
  show(lines);
  showRows(500, 520);
  auto passes = graph.work().idPasses;
  show(lines);
  EXPECT_EQ(graph.work().idPasses, passes);
  EXPECT_EQ(graph.work().rows, 40U);

  pressRow(510);
  passes = graph.work().idPasses;
  show(lines);
  EXPECT_EQ(graph.work().idPasses, passes + 1);
  showRows(0, 1);
  passes = graph.work().idPasses;
  show(lines);
  EXPECT_EQ(graph.work().idPasses, passes + 1) << "asleep or not";
}

TEST_F(RowsTest, ARowOfAnotherKindOrBranchStartsAfresh) {
  bool other = false;
  const auto row = [&](const Line& line) -> View {
    return If(other, [&] { return View(Counter{line.id}); }).otherwise([&] {
      return View(Counter{line.id});
    });
  };
  show({{"a"}}, row);
  showRows(0, 1);
  pressRow(0);
  other = true;
  show({{"a"}}, row);
  EXPECT_EQ(shown(), Texts{"a=0"});
}

namespace {

/// Has another state than `Counter`, in the same place.
struct Note {
  struct State {
    std::string text = "initial";
    friend bool operator==(const State&, const State&) = default;
  };
  View body(const LocalState<State>& state) const { return Text(verbatim(state->text)); }
};

}  // namespace

TEST_F(RowsTest, ARowThatWakesAsAnotherKindOrBranchStartsAfresh) {
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
  EXPECT_EQ(shown(), (Texts{"initial", "b=0"})) << "described as it is when it is asked for";
}

TEST_F(RowsTest, WhatARowHoldsSleepsAndWakesWithIt) {
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
  graph.deliver(buttonTitled(graph.find(graph.lookAtRow(inner(), 2)), "+")->id, Press{});
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

TEST_F(RowsTest, AnAbsentRowIsAnEmptyOne) {
  show(numbered(3), [](const Line& line) -> View {
    return If(line.id != "row1", [&] { return Text(verbatim(line.id)); });
  });
  showRows(0, 3);
  EXPECT_EQ(forEach().children.size(), 3U);
  EXPECT_EQ(shown(), (Texts{"row0", "row2"}));
}

}  // namespace vemra::ui
