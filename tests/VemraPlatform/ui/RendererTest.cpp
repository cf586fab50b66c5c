#include "tests/VemraPlatform/ui/OnGraph.hpp"

#include <stdexcept>
#include <vector>

namespace vemra::ui {

namespace {

using namespace sample;

using Kind = Patch::Kind;

View screen() {
  return Group({Counter{"it"}, list(numbered(5)), Text("end")});
}

using RendererTest = OnGraph;

}  // namespace

TEST_F(RendererTest, GetsTheWholeTreeParentsFirst) {
  Window window;
  graph.setRoot(screen());
  graph.attach(window);
  ASSERT_FALSE(window.log.empty());
  for (const Patch& patch : window.log) EXPECT_EQ(patch.kind, Kind::insert);
  EXPECT_FALSE(window.log.front().parent);
  EXPECT_EQ(difference(graph, window.tree), "");
}

TEST_F(RendererTest, ALateRendererGetsThePresentTreeWithItsState) {
  graph.setRoot(screen());
  press(graph, "+");
  testing::RenderedTree late;
  graph.attach(late);
  EXPECT_EQ(difference(graph, late), "");
  EXPECT_EQ(texts(graph.root()).size(), 7U) << "this renderer demands every row";
  EXPECT_EQ(texts(graph.root()).front(), "it=1");
}

TEST_F(RendererTest, WithoutARendererNoRowIsDescribedAndNoStateIsLost) {
  graph.setRoot(screen());
  EXPECT_EQ(graph.work().rows, 0U);
  EXPECT_EQ(graph.work().patches, 0U);
  press(graph, "+");
  graph.setRoot(Text("other kind of root"));
  EXPECT_EQ(graph.work().patches, 0U);
}

TEST_F(RendererTest, ADetachedRendererGetsNoFurtherPatches) {
  {
    testing::RenderedTree first;
    graph.attach(first);
    graph.setRoot(screen());
    graph.detach();
  }
  press(graph, "+");
  graph.setRoot(screen());
  testing::RenderedTree second;
  graph.attach(second);
  EXPECT_EQ(difference(graph, second), "");
  EXPECT_EQ(texts(graph.root()).front(), "it=1");
}

TEST_F(RendererTest, ThePreviousRendererGetsOneRemovalAndMayBeAttachedAgain) {
  testing::RenderedTree first;
  Window second;
  graph.attach(first);
  graph.setRoot(screen());
  graph.attach(second);
  EXPECT_FALSE(first.root());
  EXPECT_TRUE(first.nodes().empty());
  const std::size_t heard = first.patchCount();
  press(graph, "+");
  EXPECT_EQ(first.patchCount(), heard);
  graph.attach(first);
  EXPECT_EQ(difference(graph, first), "");
  EXPECT_EQ(texts(graph.root()).front(), "it=1");
  EXPECT_FALSE(second.tree.root());
}

TEST_F(RendererTest, AttachingThePresentRendererAgainSendsNoPatches) {
  testing::RenderedTree tree;
  Window other;
  graph.attach(tree);
  graph.setRoot(Group({Counter{}, Button("there and back", [&] {
                         graph.attach(other);
                         graph.attach(tree);
                       })}));
  const std::size_t heard = tree.patchCount();
  graph.attach(tree);
  press(graph, "there and back");
  EXPECT_EQ(tree.patchCount(), heard);
  EXPECT_TRUE(other.log.empty());
  press(graph, "+");
  EXPECT_EQ(difference(graph, tree), "");
}

TEST_F(RendererTest, DetachingThePreviousRendererKeepsThePresentOne) {
  testing::RenderedTree second;
  {
    Window first;
    first.onApply = [&](const std::vector<Patch>& patches) {
      if (!patches.empty() && patches.front().kind == Kind::remove) graph.detach(first);
    };
    graph.attach(first);
    graph.setRoot(screen());
    graph.attach(second);
    graph.detach(first);
  }
  press(graph, "+");
  EXPECT_EQ(difference(graph, second), "");
  EXPECT_TRUE(second.root());
}

TEST_F(RendererTest, DetachingAQueuedRendererKeepsThePresentOne) {
  testing::RenderedTree first;
  graph.attach(first);
  graph.setRoot(Group({Counter{}, Button("try", [&] {
                         Window brief;
                         graph.attach(brief);
                         graph.detach(brief);
                       })}));
  press(graph, "try");
  press(graph, "+");
  EXPECT_EQ(difference(graph, first), "");
  EXPECT_TRUE(first.root());
}

TEST_F(RendererTest, APreviousRendererThatThrowsDoesNotStopTheNext) {
  Window first;
  testing::RenderedTree second;
  graph.attach(first);
  graph.setRoot(screen());
  first.onApply = [](const std::vector<Patch>&) { throw std::runtime_error("closing"); };
  EXPECT_THROW(graph.attach(second), std::runtime_error);
  EXPECT_EQ(difference(graph, second), "");
  EXPECT_TRUE(second.root());
}

TEST_F(RendererTest, ARendererAttachedFromInsideACallbackGetsTheNewRootToo) {
  testing::RenderedTree first;
  Window second;
  graph.attach(first);
  graph.setRoot(Group({Counter{}, Button("go", [&] {
                         press(graph, "+");
                         graph.setRoot(Group({Counter{"new"}}));
                         graph.attach(second);
                       })}));
  press(graph, "go");
  EXPECT_EQ(difference(graph, second.tree), "");
  EXPECT_EQ(texts(graph.root()).front().substr(0, 3), "new");
}

TEST_F(RendererTest, ARendererDetachedInsideApplyGetsNoFurtherCalls) {
  Window window;
  graph.attach(window);
  window.onApply = [&](const std::vector<Patch>&) { graph.detach(); };
  graph.setRoot(screen());
  const std::size_t heard = window.log.size();
  graph.setRoot(Text("x"));
  EXPECT_EQ(window.log.size(), heard);
}

TEST_F(RendererTest, DetachingInsideApplyKeepsTheNextRenderer) {
  Window first;
  Window next;
  first.onApply = [&](const std::vector<Patch>&) {
    graph.attach(next);
    graph.detach(first);
  };
  graph.attach(first);
  graph.setRoot(screen());
  EXPECT_EQ(difference(graph, next.tree), "");
  EXPECT_TRUE(next.tree.root());
  graph.detach();
}

TEST_F(RendererTest, ALateRendererGetsTheRowsOfThePresentLists) {
  Window first, next;
  graph.attach(first);
  graph.setRoot(Group({list(numbered(9))}));
  const NodeID rows = graph.root()->children.front()->id;
  graph.showRows(rows, {{1, 3}, {5, 6}});
  const auto ids = first.lists.back().ids;
  graph.attach(next);
  ASSERT_EQ(next.lists.size(), 1U);
  EXPECT_EQ(next.lists[0].list, rows);
  EXPECT_EQ(next.lists[0].ids, ids);
  EXPECT_EQ(next.lists[0].shown, (std::vector<RowRange>{{1, 3}, {5, 6}}));
}

TEST_F(RendererTest, EachRendererGetsTheEnvironmentWithItsFirstChanges) {
  Environment dark;
  dark.colorScheme = ColorScheme::dark;
  ViewGraph darkGraph(dark);
  Window first, next;
  darkGraph.attach(first);
  darkGraph.setRoot(Text("x"));
  EXPECT_EQ(first.environments, std::vector{dark});
  darkGraph.attach(next);
  darkGraph.attach(next);
  EXPECT_EQ(next.environments, std::vector{dark});
  EXPECT_EQ(first.environments, std::vector{dark}) << "it gets only the removal of its root";
}

TEST_F(RendererTest, AnotherEnvironmentReachesTheRendererOnceAndTogetherWithTheTextsThatItChanges) {
  Window window;
  graph.attach(window);
  Environment german;
  german.locale = "de_DE";
  const auto showLocale = [&] {
    graph.setEnvironment(german);
    graph.setRoot(Text(verbatim("x")));
  };
  graph.setRoot(Button("go", showLocale));
  window.environments.clear();
  std::vector<std::size_t> patches;
  window.onApply = [&](const std::vector<Patch>& each) { patches.push_back(each.size()); };
  press(graph, "go");  // from inside an action too
  EXPECT_EQ(window.environments, std::vector{german});
  EXPECT_EQ(patches, std::vector<std::size_t>{2});
  graph.setEnvironment(german);
  EXPECT_EQ(window.environments.size(), 1U) << "an equal environment is no change";
}

TEST_F(RendererTest, AnEnvironmentThatIsSetWithoutARendererReachesTheNextOne) {
  graph.setRoot(Text("x"));
  Environment right;
  right.layoutDirection = LayoutDirection::rightToLeft;
  graph.setEnvironment(right);
  Window window;
  graph.attach(window);
  EXPECT_EQ(window.environments, std::vector{right});
}

TEST_F(RendererTest, AnEmptyScreenSendsNoPatch) {
  testing::RenderedTree tree;
  graph.attach(tree);
  graph.setRoot(View());
  graph.setEnvironment({});
  EXPECT_EQ(tree.patchCount(), 0U);
  graph.setRoot(Text("x"));
  graph.setRoot(View());
  EXPECT_FALSE(tree.root());
}

TEST_F(RendererTest, APatchHasOnlyTheFieldsOfItsKind) {
  Window window;
  graph.attach(window);
  const auto show = [&](std::vector<View> children) {
    graph.setRoot(Group(std::move(children)));
    return window.take();
  };
  show({Text("a").id("a"), Text("b").id("b")});
  const auto node = [&](std::size_t i) { return graph.root()->children[i]->id; };

  auto patches = show({Text("b").id("b"), Text("a").id("a")});
  ASSERT_EQ(patches.size(), 1U);
  EXPECT_EQ(patches[0].kind, Kind::move);
  EXPECT_EQ(patches[0].node, node(0));
  EXPECT_EQ(patches[0].parent, graph.root()->id);
  EXPECT_FALSE(patches[0].after);
  EXPECT_FALSE(patches[0].element);

  patches = show({Text("b!").id("b"), Text("a").id("a")});
  ASSERT_EQ(patches.size(), 1U);
  EXPECT_EQ(patches[0].kind, Kind::update);
  EXPECT_FALSE(patches[0].parent);
  EXPECT_EQ(patches[0].element->shownLabel(), "b!");

  patches = show({Text("b!").id("b"), Text("a").id("a"), Text("c").id("c")});
  ASSERT_EQ(patches.size(), 1U);
  EXPECT_EQ(patches[0].kind, Kind::insert);
  EXPECT_EQ(patches[0].after, node(1));

  const NodeID gone = node(1);
  patches = show({Text("b!").id("b"), Text("c").id("c")});
  ASSERT_EQ(patches.size(), 1U);
  EXPECT_EQ(patches[0].kind, Kind::remove);
  EXPECT_EQ(patches[0].node, gone);
  EXPECT_FALSE(patches[0].element);
}

TEST_F(RendererTest, ARemovedSubtreeIsOnePatch) {
  Window window;
  graph.attach(window);
  const auto show = [&](bool all) {
    graph.setRoot(Group({If(all, [] {
      return VStack(HorizontalAlignment::leading, 0, {Text("1"), Group({Text("2"), Counter{}})});
    })}));
    return window.take().size();
  };
  show(true);
  EXPECT_EQ(show(false), 1U);
}

}  // namespace vemra::ui
