#include "tests/VemraPlatform/ui/Sample.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

// Long lists: every kind of change is right at thousands of rows, and the passes over all ids are
// counted. How long they take is measured in benchmarks/model.

namespace vemra::ui {

namespace {

using namespace sample;

constexpr std::size_t manyRows = 8'000;

using Change = std::vector<Line> (*)(std::vector<Line>);
enum class Written { asList, asChildren, asKeyedChildren };

View screen(const std::vector<Line>& lines, Written written) {
  if (written == Written::asList) return list(lines);
  Children children;
  for (const Line& line : lines) {
    children.push_back(Text(verbatim(line.id)));
    if (written == Written::asKeyedChildren) children.back() = children.back().id(line.id);
  }
  return Group(std::move(children));
}

void expectRight(const char* name, Change change, Written written) {
  SCOPED_TRACE(name);
  const std::vector<Line> lines = numbered(manyRows);
  testing::RenderedTree tree;
  ViewGraph graph;
  graph.attach(tree);
  graph.setRoot(screen(lines, written));
  const std::vector<Line> changed = change(lines);
  graph.setRoot(screen(changed, written));
  EXPECT_EQ(difference(graph, tree), "");
  std::vector<std::string> expected;
  for (const Line& line : changed) expected.push_back(line.id);
  EXPECT_EQ(texts(graph.root()), expected);
}

std::vector<Line> insertedAtFront(std::vector<Line> lines) {
  lines.insert(lines.begin(), {"new"});
  return lines;
}
std::vector<Line> removedAtFront(std::vector<Line> lines) {
  lines.erase(lines.begin());
  return lines;
}
std::vector<Line> emptied(std::vector<Line>) {
  return {};
}
std::vector<Line> reversed(std::vector<Line> lines) {
  std::ranges::reverse(lines);
  return lines;
}
std::vector<Line> replaced(std::vector<Line> lines) {
  for (Line& line : lines) line.id += "!";
  return lines;
}
std::vector<Line> halved(std::vector<Line> lines) {
  lines.resize(lines.size() / 2);
  return lines;
}
std::vector<Line> allTheSame(std::vector<Line> lines) {
  for (Line& line : lines) line.id = "same";
  return lines;
}

void expectAllRight(Written written) {
  expectRight("insert at front", insertedAtFront, written);
  expectRight("remove at front", removedAtFront, written);
  expectRight("remove all", emptied, written);
  expectRight("reverse", reversed, written);
  expectRight("replace all", replaced, written);
  expectRight("remove half", halved, written);
  expectRight("make all ids equal", allTheSame, written);
}

View nested(int depth) {
  View view = Counter{};
  for (int level = 0; level < depth; ++level) view = Group({std::move(view)});
  return view;
}

}  // namespace

TEST(ScaleTest, EveryChangeOfALongListIsRight) {
  expectAllRight(Written::asList);
}

TEST(ScaleTest, EveryChangeOfManyChildrenInSlotsOrWithKeysIsRight) {
  expectAllRight(Written::asChildren);
  expectAllRight(Written::asKeyedChildren);
}

namespace {

void writeInto(const Node& counter, int count) {
  static_cast<StateCellOf<Counter::State>&>(*memoryOf(counter).state)
      .set(&Counter::State::count, count);
}

/// Expects that all rows of a list go to sleep, and wake with their state, in one pass over its ids
/// each, and that a new list takes one over the old ids and the new.
void expectOnePassEach(std::vector<Line> lines) {
  const std::size_t count = lines.size();
  const View screen =
      list(std::move(lines), [](const Line& line) { return View(Counter{line.id}); });
  Window window;
  ViewGraph graph;
  graph.attach(window);
  graph.setRoot(screen);
  const NodeID forEach = graph.root()->id;
  graph.showRows(forEach, {{0, count}});
  for (std::size_t i = 0; i < count; ++i) {
    writeInto(*graph.root()->children[i], static_cast<int>(i) + 1);
  }
  std::uint64_t passes = graph.work().idPasses;
  const auto passesSince = [&] {
    return graph.work().idPasses - std::exchange(passes, graph.work().idPasses);
  };
  graph.showRows(forEach, {});
  EXPECT_EQ(passesSince(), 1U) << "all leave";
  graph.setRoot(screen);
  EXPECT_EQ(passesSince(), 1U) << "asleep, all follow their ids";
  graph.showRows(forEach, {{0, count}});
  EXPECT_EQ(passesSince(), 1U) << "all return";
  for (std::size_t i = 0; i < count; ++i) {
    const Node& row = *graph.root()->children[i];
    ASSERT_EQ(texts(&row).front(), row.rowID + "=" + std::to_string(i + 1));
  }
  graph.showRows(forEach, {{0, count / 2}});
  EXPECT_EQ(passesSince(), 1U) << "half of them go to sleep";
  graph.showRows(forEach, {{count / 2, count}});
  EXPECT_EQ(passesSince(), 2U) << "some are removed, others return";
}

}  // namespace

TEST(ScaleTest, ManyRowsWithStateLeaveAndReturnInOnePassOverTheIds) {
  expectOnePassEach(numbered(2'000));
  expectOnePassEach(allTheSame(numbered(2'000)));
}

TEST(ScaleTest, ManyPeekedRowsWithStateEndInOnePass) {
  const View screen = list(numbered(100), [](const Line& line) { return View(Counter{line.id}); });
  ViewGraph graph;
  graph.setRoot(screen);
  for (std::size_t index = 0; index < 50; ++index) {
    const NodeID row = graph.peekRow(graph.root()->id, index);
    writeInto(*graph.find(row), 1);
  }
  const auto before = graph.work();
  graph.setRoot(screen);
  EXPECT_EQ(graph.work().idPasses, before.idPasses + 2) << "one to sleep, one to follow the ids";
  EXPECT_EQ(texts(graph.find(graph.peekRow(graph.root()->id, 49))).front(), "row49=1");
}

TEST(ScaleTest, AListInsideARowSleepsInOnePassOfItsOwn) {
  const View screen = list({{"a"}, {"b"}}, [](const Line&) {
    return list(numbered(500), [](const Line& line) { return View(Counter{line.id}); });
  });
  Window window;
  ViewGraph graph;
  graph.attach(window);
  graph.setRoot(screen);
  const NodeID outer = graph.root()->id;
  graph.showRows(outer, {{0, 1}});
  const NodeID inner = graph.root()->children[0]->id;
  graph.showRows(inner, {{0, 400}});
  for (const Node* row : graph.find(inner)->children) writeInto(*row, 1);
  writeInto(*graph.find(graph.peekRow(inner, 450)), 1);
  auto passes = graph.work().idPasses;
  graph.showRows(outer, {{1, 2}});
  EXPECT_EQ(graph.work().idPasses, passes + 2) << "one over the outer list, one over the inner one";
  graph.showRows(outer, {{0, 1}});
  passes = graph.work().idPasses;
  graph.showRows(graph.root()->children[0]->id, {{0, 500}});
  EXPECT_EQ(graph.work().idPasses, passes + 1);
  const auto shown = texts(graph.root());
  EXPECT_EQ(std::ranges::count_if(shown, [](const auto& text) { return text.ends_with("=1"); }),
            401);
}

TEST(ScaleTest, AThousandLevelsWork) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  graph.setRoot(nested(1'000));
  EXPECT_EQ(difference(graph, tree), "");
  EXPECT_EQ(press(graph, "+"), Delivery::acted);
  EXPECT_EQ(texts(graph.root()), std::vector<std::string>{"counter=1"});
  graph.setRoot(nested(1'001));
  EXPECT_EQ(difference(graph, tree), "");
  graph.setRoot(View());
  EXPECT_FALSE(tree.root());
}

}  // namespace vemra::ui
