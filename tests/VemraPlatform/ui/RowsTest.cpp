// Which rows of a list are described, and how each is matched in the next list.

#include "tests/VemraPlatform/ui/ListInWindow.hpp"

#include <string>
#include <string_view>
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

class RowsTest : public ListInWindow {};

}  // namespace

TEST_F(RowsTest, AreDescribedOnlyOnRequestForAnyLengthOfTheList) {
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

TEST_F(RowsTest, AMovedWindowKeepsItsRowsAndPatchesOnlyTheOthers) {
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

TEST_F(RowsTest, ARequestForANodeThatIsNoListDoesNothing) {
  graph.setRoot(Group({Text("x"), list(numbered(3))}));
  const NodeID gone = forEach().id;
  graph.showRows(graph.root()->children[0]->id, {{0, 1}});
  graph.showRows(NodeID{12345}, {{0, 1}});
  EXPECT_FALSE(graph.peekRow(graph.root()->id, 0));
  EXPECT_FALSE(graph.peekRow(gone, 3)) << "there is no such row";
  graph.setRoot(Text("y"));
  graph.showRows(gone, {{0, 1}});
  EXPECT_FALSE(graph.peekRow(gone, 0));
  EXPECT_EQ(graph.work().rows, 0U);
}

TEST_F(RowsTest, ARendererOfEveryRowGetsNoWindows) {
  testing::RenderedTree all;
  graph.attach(all);
  graph.setRoot(list(numbered(5)));
  graph.showRows(forEach().id, {{0, 1}});
  EXPECT_EQ(shown().size(), 5U);
  EXPECT_EQ(difference(graph, all), "");
}

TEST_F(RowsTest, APickersRowsComeWithThePicker) {
  graph.setRoot(Picker("choice", Binding<Tag>([] { return Tag(Only::one); }, [](const Tag&) {}),
                       {Group({list(numbered(4))})}));
  EXPECT_EQ(shown().size(), 4U);
}

TEST_F(RowsTest, ARendererGetsTheIdsOfEveryNewListOnce) {
  show(numbered(5));
  ASSERT_EQ(window.lists.size(), 1U);
  EXPECT_EQ(window.lists[0].list, forEach().id);
  EXPECT_EQ(window.lists[0].ids->count(), 5U);
  EXPECT_EQ(window.lists[0].ids->key(4), "row4");
  EXPECT_TRUE(window.takeLists()[0].shown.empty());
  const View screen = Group({list(numbered(5)), list(numbered(2))});
  graph.setRoot(screen);
  EXPECT_EQ(window.takeLists().size(), 2U) << "these are other lists";
  graph.setRoot(screen);
  EXPECT_EQ(window.lists.size(), 0U) << "these are the same rows";
  window.take();
  graph.setRoot(Group({list(numbered(5)), list(numbered(2))}));
  EXPECT_EQ(window.lists.size(), 2U) << "rows that were not described may differ";
  EXPECT_TRUE(window.take().empty()) << "no shown value has changed";
}

TEST_F(RowsTest, ARendererGetsTheIndexesOfTheShownRowsWhenARowIsNewOrHasMoved) {
  using Ranges = std::vector<RowRange>;
  show(numbered(9));
  const auto ids = window.takeLists()[0].ids;
  graph.showRows(forEach().id, {{6, 8}, {1, 3}, {3, 4}});
  EXPECT_EQ(window.lists.size(), 1U);
  EXPECT_EQ(window.lists[0].ids, ids) << "the rows are the same";
  EXPECT_EQ(window.takeLists()[0].shown, (Ranges{{1, 4}, {6, 8}}));
  showRows(1, 3);
  EXPECT_TRUE(window.lists.empty()) << "the places of removed rows are removed too";
  std::vector<Line> lines = numbered(9);
  lines.insert(lines.begin(), {"new"});
  show(lines);
  ASSERT_EQ(window.lists.size(), 1U);
  EXPECT_EQ(window.takeLists()[0].shown, (Ranges{{2, 4}}));
  std::swap(lines[2], lines[3]);
  show(lines);
  EXPECT_EQ(window.takeLists().size(), 1U) << "in the same places, but in another order";
  EXPECT_EQ(difference(graph, window.tree), "");
}

TEST_F(RowsTest, ARendererGetsTheRowsOfAListOnlyInTheirStateAfterThePatches) {
  window.onApply = [&](const std::vector<Patch>& patches) {
    for (const Patch& patch : patches) {
      if (patch.kind != Kind::insert || patch.element->kind() != ElementKind::forEach) continue;
      graph.showRows(patch.node, {{0, 2}});
      graph.showRows(patch.node, {{3, 5}});
      graph.setRoot(Group({list(numbered(7))}));
    }
  };
  graph.setRoot(Group({list(numbered(5))}));
  ASSERT_EQ(window.lists.size(), 2U) << "one of each pass";
  EXPECT_EQ(window.lists[1].ids->count(), 7U);
  EXPECT_EQ(window.lists[1].shown, (std::vector<RowRange>{{3, 5}}));
}

TEST_F(RowsTest, PeekedRowsAreNotHandedToTheRenderer) {
  const auto row = [](const Line&) { return list(numbered(2)); };
  show(numbered(5), row);
  window.takeLists();
  graph.peekRow(forEach().id, 3);
  EXPECT_TRUE(window.lists.empty());
  EXPECT_EQ(graph.rowIDs(forEach().id)->count(), 5U);
  EXPECT_EQ(graph.rowIDs(graph.root()->id)->count(), 5U);
  EXPECT_EQ(graph.rowIDs(NodeID{}), nullptr);
  showRows(3, 4);
  ASSERT_EQ(window.lists.size(), 2U) << "now the list and the one in its row";
  EXPECT_EQ(window.lists[1].list, forEach().children[0]->id);
}

TEST_F(RowsTest, RequestsFromInsideApplyAreHandledAfterIt) {
  window.onApply = [&](const std::vector<Patch>& patches) {
    for (const Patch& patch : patches) {
      if (patch.kind != Kind::insert || patch.element->kind() != ElementKind::forEach) continue;
      graph.showRows(patch.node, {{0, 2}});
      EXPECT_FALSE(graph.peekRow(patch.node, 1)) << "it is not there yet";
    }
  };
  show(numbered(5));
  EXPECT_EQ(shown().size(), 2U);
}

TEST_F(RowsTest, WaitingRequestsAreHandledInTheirOrder) {
  window.onApply = [&](const std::vector<Patch>& patches) {
    for (const Patch& patch : patches) {
      if (patch.kind != Kind::insert || patch.element->kind() != ElementKind::forEach) continue;
      graph.showRows(patch.node, {{0, 2}});
      graph.showRows(patch.node, {{3, 4}});
      graph.showRows(patch.node, {{2, 4}});
    }
  };
  show(numbered(5));
  EXPECT_EQ(shown(), (Texts{"row2=0", "row3=0"})) << "the last request decides";
  EXPECT_EQ(graph.work().rows, 4U) << "row 3 stays from the second request to the third";
}

TEST_F(RowsTest, EqualIdsAreDistinguishedByOrderInEveryForm) {
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
  EXPECT_EQ(shown(), (Texts{"1=0", "2=0"})) << "the second one had been removed";
}

TEST_F(RowsTest, AChangeAboveTheWindowChangesTheIndexesOfTheShownRows) {
  show(numbered(20));
  showRows(10, 12);
  const NodeID ten = forEach().children[0]->id;
  window.take();
  std::vector<Line> lines = numbered(20);
  std::swap(lines[0], lines[1]);
  show(lines);
  EXPECT_TRUE(window.take().empty()) << "no shown element has moved";
  lines.erase(lines.begin());
  lines.push_back({"new"});
  show(lines);
  EXPECT_EQ(graph.find(ten)->rowIndex, 9U);
  EXPECT_EQ(forEach().children[1]->rowIndex, 10U);
  EXPECT_TRUE(window.take().empty()) << "the list looks the same";
  EXPECT_EQ(window.lists.back().shown, (std::vector<RowRange>{{9, 11}}));
}

TEST_F(RowsTest, AShownRowThatAloneChangesItsIndexIsReported) {
  show({{"a"}, {"b"}, {"c"}});
  graph.showRows(forEach().id, {{0, 1}, {2, 3}});
  window.take();
  show({{"b"}, {"a"}, {"c"}});
  EXPECT_TRUE(window.take().empty()) << "the list looks the same";
  EXPECT_EQ(window.lists.back().shown, (std::vector<RowRange>{{1, 3}}));
}

TEST_F(RowsTest, AChangeInsideTheWindowReordersTheExistingRows) {
  show({{"a"}, {"b"}, {"c"}, {"d"}});
  showRows(0, 3);
  show({{"c"}, {"d"}, {"x"}, {"a"}});
  EXPECT_EQ(shown(), (Texts{"c=0", "a=0"})) << "the shown rows that still exist";
  EXPECT_EQ(forEach().children[1]->rowIndex, 3U);
}

TEST_F(RowsTest, ANewRootTakesNoPassOverIdsWithoutStateAndOneWithState) {
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
  const auto rows = graph.work().rows;
  show({{"a"}}, row);
  EXPECT_EQ(shown(), Texts{"a=0"});
  EXPECT_EQ(graph.work().rows, rows + 1) << "described once";
}

TEST_F(RowsTest, AnAbsentRowIsAnEmptyRow) {
  show(numbered(3), [](const Line& line) -> View {
    return If(line.id != "row1", [&] { return Text(verbatim(line.id)); });
  });
  showRows(0, 3);
  EXPECT_EQ(forEach().children.size(), 3U);
  EXPECT_EQ(shown(), (Texts{"row0", "row2"}));
}

}  // namespace vemra::ui
