// Requests for rows that wait until an event is over, and rows that wake among lists.

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <vector>

#include <gmock/gmock.h>

namespace vemra::ui {

namespace {

using namespace sample;
using ::testing::ElementsAre;

TEST(RowRequests, OfSeveralWaitingRequestsTheLastCounts) {
  ViewGraph graph;
  Window window;
  const auto ask = [&](std::vector<RowRange> ranges) {
    graph.showRows(firstOf(graph.root(), ElementKind::forEach)->id, std::move(ranges));
  };
  graph.attach(window);
  graph.setRoot(Group({list(numbered(9)), Button("ask", [&] {
                         ask({{0, 2}});
                         ask({{4, 6}});
                         ask({{7, 8}});
                       })}));
  press(graph, "ask");
  EXPECT_THAT(texts(graph.root()), ElementsAre("row7"));
  graph.detach();
}

TEST(RowRequests, EachListGetsItsOwnRequest) {
  ViewGraph graph;
  Window window;
  graph.attach(window);
  graph.setRoot(Group({list({{"a"}, {"b"}}), list({{"c"}, {"d"}}), Button("ask", [&] {
                         const Node* root = graph.root();
                         const NodeID first = root->children[0]->id, last = root->children[1]->id;
                         graph.showRows(first, {{1, 2}});
                         graph.showRows(last, {{0, 1}});
                       })}));
  press(graph, "ask");
  EXPECT_THAT(texts(graph.root()), ElementsAre("b", "c"));
  graph.detach();
}

// The row's state is behind a list without sleeping rows.
TEST(RowRequests, ARowWakesBehindAListWithoutSleepingRows) {
  ViewGraph graph;
  Window window;
  graph.attach(window);
  graph.setRoot(list({{"a"}, {"b"}}, [](const Line& line) -> View {
    return VStack(HorizontalAlignment::leading, 0,
                  {list({{line.id + "1"}, {line.id + "2"}}), Counter{line.id}});
  }));
  const NodeID outer = graph.root()->id;
  graph.showRows(outer, {{0, 1}});
  press(graph, "+");
  graph.showRows(outer, {{1, 2}});
  graph.showRows(outer, {{0, 1}});
  const Node* inner = graph.root()->children[0]->children[0];
  graph.showRows(inner->id, {{0, 2}});
  EXPECT_THAT(texts(graph.root()), ElementsAre("a1", "a2", "a=1"));
  graph.detach();
}

}  // namespace

}  // namespace vemra::ui
