#include "tests/VemraPlatform/ui/Fault.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

using Texts = std::vector<std::string>;

/// Shows its text, or throws when a test sets that.
struct Fragile {
  static constexpr std::string_view name = "Fragile";
  using State = Counter::State;
  std::string shown;
  bool fails = false;

  View body(const LocalState<State>& state) const {
    if (fails) throw Fault("body of " + shown);
    return Text(verbatim(shown + "=" + std::to_string(state->count)));
  }
};

class ExceptionTest : public ::testing::Test {
 protected:
  ExceptionTest() { graph.attach(tree); }

  std::string faultOf(const View& root) {
    try {
      graph.setRoot(root);
    } catch (const Fault& fault) {
      return fault.what();
    }
    return "";
  }
  Texts shown() {
    EXPECT_EQ(difference(graph, tree), "");
    return texts(graph.root());
  }

  testing::RenderedTree tree;
  ViewGraph graph;
};

}  // namespace

TEST_F(ExceptionTest, ABodyThatThrowsKeepsItsContentAndTheOtherViewsUpdate) {
  graph.setRoot(Group({Text("one"), Fragile{"it"}, Text("three")}));
  const NodeID it = graph.root()->children[1]->id;
  EXPECT_EQ(faultOf(Group({Text("uno"), Fragile{"it", true}, Text("tres"), Text("more")})),
            "body of it");
  EXPECT_EQ(shown(), (Texts{"uno", "it=0", "tres", "more"}));
  EXPECT_EQ(faultOf(Group({Text("uno"), Fragile{"again"}, Text("tres")})), "");
  EXPECT_EQ(shown(), (Texts{"uno", "again=0", "tres"}));
  EXPECT_EQ(graph.root()->children[1]->id, it);
}

TEST_F(ExceptionTest, ANewViewWhoseBodyThrowsShowsNothingUntilItsBodySucceeds) {
  EXPECT_EQ(faultOf(Group({Text("one"), Fragile{"it", true}, Counter{"last"}})), "body of it");
  EXPECT_EQ(shown(), (Texts{"one", "last=0"}));
  press(graph, "+");
  EXPECT_EQ(faultOf(Group({Text("one"), Fragile{"it"}, Counter{"last"}})), "");
  EXPECT_EQ(shown(), (Texts{"one", "it=0", "last=1"}));
}

TEST_F(ExceptionTest, OfSeveralExceptionsTheFirstIsRethrown) {
  EXPECT_EQ(faultOf(Group({Fragile{"a", true}, Fragile{"b", true}})), "body of a");
  EXPECT_EQ(faultOf(Group({Text("fine")})), "") << "no error remains";
}

TEST_F(ExceptionTest, ABodyThatThrowsAfterAStateChangeStopsNoOtherBody) {
  struct Flaky {
    using State = Counter::State;
    View body(const LocalState<State>& state) const {
      if (state->count == 1) throw Fault("one");
      return Button(verbatim("at " + std::to_string(state->count)),
                    [state] { state.set(&State::count, state->count + 1); });
    }
  };
  graph.setRoot(Group({Flaky{}, Counter{}, Button("both", [&] {
                         press(graph, "at 0");
                         press(graph, "+");
                       })}));
  EXPECT_THROW(press(graph, "both"), Fault);
  EXPECT_EQ(shown(), Texts{"counter=1"});
  EXPECT_NO_THROW(press(graph, "at 0")) << "the button is still there, with its handler";
  EXPECT_TRUE(buttonTitled(graph.root(), "at 2"));
}

TEST_F(ExceptionTest, ARowThatThrowsKeepsItsContent) {
  bool fails = false;
  const auto screen = [&](std::vector<Line> lines) {
    return list(std::move(lines), [&](const Line& line) -> View {
      if (fails && line.id != "c") throw Fault("row " + line.id);
      return Counter{line.id + line.text};
    });
  };
  graph.setRoot(screen({{"a"}, {"b"}}));
  press(graph, "+");
  fails = true;
  EXPECT_EQ(faultOf(screen({{"new"}, {"b", "!"}, {"c", "!"}, {"a", "!"}})), "row a");
  EXPECT_EQ(shown(), (Texts{"b=0", "c!=0", "a=1"})) << "a new row that throws is empty";
  EXPECT_EQ(graph.root()->children.size(), 4U);
  fails = false;
  EXPECT_EQ(faultOf(screen({{"new"}, {"b", "!"}, {"c", "!"}, {"a", "!"}})), "");
  EXPECT_EQ(shown(), (Texts{"new=0", "b!=0", "c!=0", "a!=1"}));
}

TEST_F(ExceptionTest, StateMayBeWrittenAfterABodyOrARowThrew) {
  bool fails = true;
  const View screen = Group({list({{"a"}},
                                  [&](const Line&) -> View {
                                    if (fails) throw Fault("row");
                                    return View();
                                  }),
                             Fragile{"b", true}, Counter{}});
  EXPECT_EQ(faultOf(screen), "row");
  EXPECT_NO_FATAL_FAILURE(press(graph, "+")) << "nothing is being described any more";
  EXPECT_EQ(shown(), Texts{"counter=1"});
}

TEST_F(ExceptionTest, DescribingARowThatThrowsRethrowsAndLeavesAnEmptyRow) {
  Window window;
  graph.attach(window);
  graph.setRoot(list({{"a"}, {"b"}}, [](const Line& line) -> View {
    if (line.id == "b") throw Fault("row b");
    return Text("fine");
  }));
  const NodeID forEach = graph.root()->id;
  EXPECT_THROW(graph.peekRow(forEach, 1), Fault);
  const Node* row = graph.find(graph.peekRow(forEach, 1));
  ASSERT_TRUE(row);
  EXPECT_EQ(row->element.kind(), ElementKind::group);
  EXPECT_TRUE(graph.find(graph.peekRow(forEach, 0)));
  EXPECT_TRUE(window.tree.nodes().size() == 1) << "described rows get no patches";
  graph.detach();
}

// Other code that a description calls may fail halfway through a list of children. Then the graph
// removes the tree.

TEST_F(ExceptionTest, ABindingThatCannotBeReadRemovesTheWholeTree) {
  graph.setRoot(Group({Counter{"a"}, Text("b")}));
  const NodeID counter = graph.root()->children[0]->id;
  const auto state = memoryOf(*graph.root()->children[0]).state;
  press(graph, "+");
  EXPECT_EQ(faultOf(Group({Text("x"), Counter{"a"}, broken(), Text("b")})), "get");
  EXPECT_EQ(graph.root(), nullptr);
  EXPECT_FALSE(tree.root()) << "the renderer got a patch";
  EXPECT_EQ(tree.nodes().size(), 0U);
  EXPECT_EQ(graph.find(counter), nullptr);
  EXPECT_FALSE(state->isAttached());
  EXPECT_EQ(graph.deliver(counter, Press{}), Delivery::gone);
  EXPECT_EQ(faultOf(Group({Counter{"a"}})), "");
  EXPECT_EQ(shown(), Texts{"a=0"});
}

TEST_F(ExceptionTest, AnotherEnvironmentDoesNotRestoreTheRemovedTree) {
  bool fails = false;
  const Binding<std::string> field([&]() -> std::string { return fails ? throw Fault("get") : ""; },
                                   [](const std::string&) {});
  const View screen = Group({Text("x"), TextField("field", field)});
  graph.setRoot(screen);
  fails = true;
  EXPECT_EQ(faultOf(screen), "get");
  fails = false;
  graph.setEnvironment(Environment{});
  EXPECT_EQ(graph.root(), nullptr);
}

TEST_F(ExceptionTest, ABindingThatCannotBeReadAtFirstShowsNothing) {
  EXPECT_EQ(faultOf(Group({Text("x"), broken()})), "get");
  EXPECT_EQ(graph.root(), nullptr);
  EXPECT_EQ(tree.patchCount(), 0U) << "a node that the renderer never got is not removed";
  EXPECT_EQ(faultOf(Text("fine")), "");
  EXPECT_EQ(shown(), Texts{"fine"});
}

TEST_F(ExceptionTest, ABindingThatCannotBeReadInANewRootRemovesTheWholeTree) {
  graph.setRoot(Text("old"));
  EXPECT_EQ(faultOf(Group({broken()})), "get");
  EXPECT_FALSE(tree.root());
  EXPECT_EQ(faultOf(Text("fine")), "");
  EXPECT_EQ(shown(), Texts{"fine"});
}

TEST_F(ExceptionTest, ABindingThatCannotBeReadInALookRemovesTheTreeAndItsSleepingState) {
  Window window;
  graph.attach(window);
  bool fails = false;
  graph.setRoot(list({{"a"}, {"b"}, {"c"}}, [&](const Line& line) -> View {
    return fails ? broken() : View(Counter{line.id});
  }));
  const NodeID forEach = graph.root()->id;
  graph.showRows(forEach, {{0, 1}});
  const auto state = memoryOf(*graph.find(forEach)->children[0]).state;
  press(graph, "+");
  graph.showRows(forEach, {{1, 2}});
  EXPECT_TRUE(state->isAttached()) << "it sleeps";
  fails = true;
  EXPECT_THROW(graph.peekRow(forEach, 2), Fault);
  EXPECT_EQ(graph.root(), nullptr);
  EXPECT_FALSE(window.tree.root());
  EXPECT_FALSE(state->isAttached());
  graph.detach();
}

TEST_F(ExceptionTest, AfterARendererThrowsTheGraphContinues) {
  Window window;
  graph.attach(window);
  bool fails = true;
  window.onApply = [&](const std::vector<Patch>&) {
    if (std::exchange(fails, false)) throw Fault("apply");
  };
  EXPECT_EQ(faultOf(Counter{}), "apply");
  EXPECT_EQ(press(graph, "+"), Delivery::acted);
  EXPECT_EQ(difference(graph, window.tree), "");
  graph.detach();
}

}  // namespace vemra::ui
