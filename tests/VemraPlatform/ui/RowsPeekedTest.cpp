// Rows that are described for a look, without being shown.

#include "tests/VemraPlatform/ui/ListInWindow.hpp"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

using Texts = std::vector<std::string>;

class RowsPeekedTest : public ListInWindow {};

}  // namespace

TEST_F(RowsPeekedTest, ALookSendsNoPatchAndBecomesTheShownRow) {
  show(numbered(100));
  showRows(0, 2);
  window.take();
  const NodeID looked = graph.peekRow(forEach().id, 40);
  EXPECT_EQ(texts(graph.find(looked)), Texts{"row40=0"});
  EXPECT_FALSE(graph.find(looked)->isShown);
  EXPECT_EQ(graph.peekRow(forEach().id, 40), looked);
  EXPECT_EQ(graph.peekRow(forEach().id, 1), forEach().children[1]->id);
  pressRow(40);
  EXPECT_TRUE(window.take().empty());
  EXPECT_EQ(peeked(40), Texts{"row40=1"}) << "a change inside it is still described";
  showRows(40, 41);
  EXPECT_EQ(forEach().children[0]->id, looked);
  EXPECT_TRUE(forEach().children[0]->isShown);
  EXPECT_EQ(shown(), Texts{"row40=1"});
  pressRow(40);
  EXPECT_EQ(shown(), Texts{"row40=2"});
}

TEST_F(RowsPeekedTest, OfManyPeekedRowsTheOldestLosesItsNodesButNotItsState) {
  show(numbered(200));
  const NodeID first = graph.peekRow(forEach().id, 0);
  pressRow(0);
  for (std::size_t index = 1; index < 64; ++index) graph.peekRow(forEach().id, index);
  EXPECT_TRUE(graph.find(first));
  graph.peekRow(forEach().id, 64);
  EXPECT_FALSE(graph.find(first));
  EXPECT_EQ(peeked(0), Texts{"row0=1"});
  EXPECT_LT(graph.work().nodes, 66U * 4U + 10U);
}

TEST_F(RowsPeekedTest, PeekedRowsEndWithTheDescriptionOfTheirList) {
  show(numbered(10));
  const NodeID looked = graph.peekRow(forEach().id, 3);
  pressRow(3);
  std::vector<Line> lines = numbered(10);
  std::swap(lines[3], lines[7]);
  show(lines);
  EXPECT_FALSE(graph.find(looked));
  EXPECT_EQ(peeked(7), Texts{"row3=1"});
  EXPECT_EQ(peeked(3), Texts{"row7=0"});
}

TEST_F(RowsPeekedTest, ALookFromABodyDescribesNothingAndOtherRequestsWait) {
  NodeID fromRow;
  show({{"a"}, {"b"}}, [&](const Line& line) -> View {
    if (line.id == "b") {
      fromRow = graph.peekRow(forEach().id, 0);
      graph.setRoot(Text("next"));
    }
    return Text(verbatim(line.id));
  });
  graph.peekRow(forEach().id, 1);
  EXPECT_FALSE(fromRow);
  EXPECT_EQ(shown(), Texts{"next"}) << "takes effect after the look";
}

}  // namespace vemra::ui
