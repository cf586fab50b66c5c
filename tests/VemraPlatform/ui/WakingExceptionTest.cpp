// What remains of a row's sleeping state after an exception while the row wakes.

#include "tests/VemraPlatform/ui/Fault.hpp"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

using Texts = std::vector<std::string>;

class WakingExceptionTest : public ::testing::Test {
 protected:
  WakingExceptionTest() { graph.attach(window); }
  ~WakingExceptionTest() override { graph.detach(); }

  Window window;
  ViewGraph graph;
};

/// Presses every "+" below a node once.
void countUp(ViewGraph& graph, const Node* node) {
  if (node->element.shownLabel() == "+") graph.deliver(node->id, Press{});
  for (const Node* child : std::vector<const Node*>(node->children.begin(), node->children.end()))
    countUp(graph, child);
}

/// Contains a counter, or throws when a test sets that.
struct FragileHolder {
  const bool* fails;
  std::string title;
  View body() const {
    if (*fails) throw Fault("holder " + title);
    return Group({Counter{title}});
  }
};

/// The same with a list instead of a counter.
struct FragileList {
  const bool* fails;
  View body() const {
    if (*fails) throw Fault("list");
    return Group({list({{"i"}, {"j"}}, [](const Line& line) { return View(Counter{line.id}); })});
  }
};

}  // namespace

TEST_F(WakingExceptionTest, ARowThatThrowsWhileItWakesKeepsItsStateForTheNextTry) {
  bool fails = false;
  // One row has the kind of the replacement for a row that cannot be described, one has another
  // kind.
  const View screen = list({{"a"}, {"b"}, {"c"}}, [&](const Line& line) -> View {
    if (fails) throw Fault("row " + line.id);
    return line.id == "a" ? Group({Counter{"a"}}) : View(Counter{line.id});
  });
  graph.setRoot(screen);
  const NodeID forEach = graph.root()->id;
  graph.showRows(forEach, {{0, 2}});
  for (const Node* row : graph.find(forEach)->children) {
    graph.deliver(buttonTitled(row, "+")->id, Press{});
  }
  const auto tryInVain = [&] {
    graph.showRows(forEach, {});
    fails = true;
    EXPECT_THROW(graph.showRows(forEach, {{0, 2}}), Fault);
    EXPECT_EQ(texts(graph.root()), Texts{});
    EXPECT_THROW(graph.setRoot(screen), Fault) << "and once more without a result";
    fails = false;
  };
  const Texts both = {"a=1", "b=1"};
  tryInVain();
  graph.setRoot(screen);
  EXPECT_EQ(texts(graph.root()), both) << "with the next description";
  tryInVain();
  graph.showRows(forEach, {{2, 3}});
  graph.showRows(forEach, {{0, 2}});
  EXPECT_EQ(texts(graph.root()), both) << "with the next request";
  graph.showRows(forEach, {});
  fails = true;
  EXPECT_THROW(graph.peekRow(forEach, 0), Fault);
  fails = false;
  graph.setRoot(screen);
  EXPECT_EQ(texts(graph.find(graph.peekRow(forEach, 0))), Texts{"a=1"}) << "with the next look";
  EXPECT_EQ(difference(graph, window.tree), "");
}

TEST_F(WakingExceptionTest, ABodyThatThrowsWhileItsRowWakesKeepsTheSavedStateBelowIt) {
  bool fails = false;
  // One row is the composite itself; in the other the composite is between other views.
  const View screen = list({{"a"}, {"b"}, {"c"}}, [&](const Line& line) -> View {
    if (line.id == "a") return FragileHolder{&fails, "a"};
    return Group({Counter{"x"}, FragileHolder{&fails, line.id}, Counter{"y"}});
  });
  graph.setRoot(screen);
  const NodeID forEach = graph.root()->id;
  graph.showRows(forEach, {{0, 2}});
  countUp(graph, graph.root());
  const Texts all = {"a=1", "x=1", "b=1", "y=1"};
  ASSERT_EQ(texts(graph.root()), all);
  const auto wakeInVain = [&] {
    graph.showRows(forEach, {});
    fails = true;
    EXPECT_THROW(graph.showRows(forEach, {{0, 2}}), Fault);
    EXPECT_EQ(texts(graph.root()), (Texts{"x=1", "y=1"})) << "the rest of the row is present";
    EXPECT_THROW(graph.setRoot(screen), Fault) << "and once more without a result";
    fails = false;
  };
  wakeInVain();
  graph.setRoot(screen);
  EXPECT_EQ(texts(graph.root()), all) << "with the next description";
  wakeInVain();
  graph.showRows(forEach, {{2, 3}});
  graph.showRows(forEach, {{0, 2}});
  EXPECT_EQ(texts(graph.root()), all) << "having slept once more";
  EXPECT_EQ(difference(graph, window.tree), "");
}

TEST_F(WakingExceptionTest, ABodyThatThrowsWithNoSavedStateBelowItLeavesNoState) {
  bool fails = false;
  graph.setRoot(list({{"a"}, {"b"}}, [&](const Line&) -> View {
    return Group({FragileHolder{&fails, "h"}, Counter{"x"}});
  }));
  const NodeID forEach = graph.root()->id;
  const auto counter = [&] { return graph.find(forEach)->children[0]->children[1]; };
  graph.showRows(forEach, {{0, 1}});
  countUp(graph, counter());
  graph.showRows(forEach, {});
  fails = true;
  EXPECT_THROW(graph.showRows(forEach, {{0, 1}}), Fault);
  EXPECT_EQ(texts(graph.root()), Texts{"x=1"});
  std::static_pointer_cast<StateCellOf<Counter::State>>(memoryOf(*counter()).state)
      ->set(&Counter::State::count, 0);
  EXPECT_EQ(graph.rowsWithState(forEach), std::vector<std::size_t>{});
}

TEST_F(WakingExceptionTest, ABodyThatThrowsWhileItsRowWakesKeepsTheSavedStateOfAListBelowIt) {
  bool fails = false;
  graph.setRoot(list({{"a"}, {"b"}}, [&](const Line&) { return View(FragileList{&fails}); }));
  const NodeID forEach = graph.root()->id;
  const auto showInner = [&] {
    graph.showRows(forEach, {{0, 1}});
    const Node* row = graph.find(forEach)->children[0];
    graph.showRows(firstOf(row, ElementKind::forEach)->id, {{0, 2}});
  };
  showInner();
  press(graph, "+");
  for (int times = 0; times < 2; ++times) {
    graph.showRows(forEach, {});
    fails = true;
    EXPECT_THROW(graph.showRows(forEach, {{0, 1}}), Fault);
    fails = false;
  }
  graph.showRows(forEach, {});
  showInner();
  EXPECT_EQ(texts(graph.root()), (Texts{"i=1", "j=0"}));
}

TEST_F(WakingExceptionTest, AWakingRowThatCannotBeReadLosesItsState) {
  bool fails = false;
  graph.setRoot(list({{"a"}, {"b"}}, [&](const Line& line) -> View {
    return Group({fails ? broken() : Text("fine"), Counter{line.id}});
  }));
  const NodeID forEach = graph.root()->id;
  graph.showRows(forEach, {{0, 1}});
  const auto state = memoryOf(*graph.find(forEach)->children[0]->children[1]).state;
  press(graph, "+");
  graph.showRows(forEach, {});
  fails = true;
  EXPECT_THROW(graph.showRows(forEach, {{0, 2}}), Fault);
  EXPECT_FALSE(state->isAttached());
}

}  // namespace vemra::ui
