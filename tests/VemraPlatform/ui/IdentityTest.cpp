#include "tests/VemraPlatform/ui/Sample.hpp"

#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

enum class Same { yes, no };

/// Two descriptions of one parent's children, and whether the node that shows "it" is the same.
struct Case {
  const char* name;
  Children before;
  Children after;
  Same same;
  friend std::ostream& operator<<(std::ostream& out, const Case& row) { return out << row.name; }
};

View it(const std::string& more = {}) {
  return Text(verbatim("it" + more)).accessibilityIdentifier("it");
}
View other() {
  return Text(verbatim("other"));
}
View inBranch(int taken, const View& view) {
  return If(taken == 1, [&] { return view; })
      .elseIf(taken == 2, [&] { return view; })
      .otherwise([&] { return view; });
}
View itHolding(View view) {
  return VStack(HorizontalAlignment::leading, 0, {std::move(view)}).accessibilityIdentifier("it");
}
View composite(const char* shown) {
  return View(Counter{shown}).accessibilityIdentifier("it");
}
struct AnotherCounter : Counter {};

const std::string composed = "\u00E9";
const std::string decomposed = "e\u0301";

std::vector<Case> cases() {
  const View none;
  return {
      {"SameSlot", {it()}, {it()}, Same::yes},
      {"OtherText", {it("1")}, {it("2")}, Same::yes},
      {"OtherModifiers", {it()}, {it().font(Font::caption).disabled(true)}, Same::yes},
      {"OtherSlot", {it()}, {other(), it()}, Same::no},
      {"BehindAnAbsentOne", {other(), it()}, {none, it()}, Same::yes},
      {"BehindOneThatCame", {none, it()}, {other(), it()}, Same::yes},
      {"BehindAnotherKind", {other(), it()}, {Button("x", nullptr), it()}, Same::yes},
      {"BeforeOthersThatCome", {it()}, {it(), other(), other()}, Same::yes},
      {"OtherKind", {it()}, {Button("x", nullptr).accessibilityIdentifier("it")}, Same::no},
      {"OtherStack",
       {itHolding(none)},
       {HStack(VerticalAlignment::center, 0, {}).accessibilityIdentifier("it")},
       Same::no},
      {"OtherSpacing",
       {itHolding(none)},
       {VStack(HorizontalAlignment::center, 9, {other()}).accessibilityIdentifier("it")},
       Same::yes},
      {"SameComposite", {composite("1")}, {composite("2")}, Same::yes},
      {"OtherComposite",
       {composite("1")},
       {View(AnotherCounter{{"1"}}).accessibilityIdentifier("it")},
       Same::no},
      {"CompositeAndPrimitive", {composite("1")}, {it()}, Same::no},
      {"SameBranch", {inBranch(1, it())}, {inBranch(1, it("2"))}, Same::yes},
      {"SameElseBranch", {inBranch(3, it())}, {inBranch(3, it())}, Same::yes},
      {"ElseIfForIf", {inBranch(1, it())}, {inBranch(2, it())}, Same::no},
      {"OtherwiseForIf", {inBranch(1, it())}, {inBranch(3, it())}, Same::no},
      {"OtherwiseForElseIf", {inBranch(2, it())}, {inBranch(3, it())}, Same::no},
      {"NoConditionForIf", {inBranch(1, it())}, {it()}, Same::no},
      {"InnerBranch", {inBranch(1, inBranch(1, it()))}, {inBranch(1, inBranch(2, it()))}, Same::no},
      {"OuterBranch", {inBranch(1, inBranch(2, it()))}, {inBranch(2, inBranch(1, it()))}, Same::no},
      {"BranchDepth", {inBranch(1, it())}, {inBranch(1, inBranch(1, it()))}, Same::no},
      {"SameNestedBranch",
       {inBranch(2, inBranch(1, it()))},
       {inBranch(2, inBranch(1, it()))},
       Same::yes},
      {"BranchBesideModifier", {inBranch(1, it()).padding(2)}, {inBranch(1, it())}, Same::yes},
      {"SameKey", {it().id("a")}, {it().id("a")}, Same::yes},
      {"OtherKey", {it().id("a")}, {it().id("b")}, Same::no},
      {"KeyForSlot", {it()}, {it().id("a")}, Same::no},
      {"SlotForKey", {it().id("a")}, {it()}, Same::no},
      {"KeyInOtherSlot", {it().id("a")}, {other(), none, it().id("a")}, Same::yes},
      {"KeyThatMoved", {it().id("a"), other().id("b")}, {other().id("b"), it().id("a")}, Same::yes},
      {"EmptyKey", {it().id("")}, {other(), it().id("")}, Same::yes},
      {"KeyInOtherForm", {it().id(composed)}, {other(), it().id(decomposed)}, Same::yes},
      {"KeyInOtherCase", {it().id("a")}, {it().id("A")}, Same::no},
      {"KeyOfOtherKind",
       {it().id("a")},
       {Button("x", nullptr).accessibilityIdentifier("it").id("a")},
       Same::no},
      {"KeyInOtherBranch", {inBranch(1, it().id("a"))}, {inBranch(2, it().id("a"))}, Same::no},
      {"SecondOfEqualKeys",
       {other().id("a"), it().id("a")},
       {other().id("a"), other().id("x"), it().id("a")},
       Same::yes},
      {"SecondBecameFirst", {other().id("a"), it().id("a")}, {it().id("a")}, Same::no},
      {"SecondInOtherForm",
       {other().id(composed), it().id(composed)},
       {other().id(composed), it().id(decomposed)},
       Same::yes},
      {"FirstInOtherForm",
       {other().id(decomposed), it().id(composed)},
       {other().id(composed), it().id(composed)},
       Same::yes},
      {"EqualKeysOfTwoKinds",
       {Button("x", nullptr).id("a"), it().id("a")},
       {it().id("a"), Button("x", nullptr).id("a")},
       Same::yes},
      {"LastKeyCounts", {it().id("x").id("a")}, {it().id("y").id("a")}, Same::yes},
      {"WithinSameParent", {itHolding(it())}, {itHolding(it())}, Same::yes},
  };
}

const Node* findIt(const Node* node) {
  if (!node || node->element.accessibilityIdentifier() == "it") return node;
  for (const Node* child : node->children) {
    if (const Node* found = findIt(child)) return found;
  }
  return nullptr;
}

class IdentityTest : public ::testing::TestWithParam<Case> {};

}  // namespace

TEST_P(IdentityTest, DecidesWhetherTheNodeIsTheSame) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  graph.setRoot(Group(GetParam().before));
  const Node* found = findIt(graph.root());
  ASSERT_TRUE(found);
  const NodeID before = found->id;
  graph.setRoot(Group(GetParam().after));
  found = findIt(graph.root());
  ASSERT_TRUE(found);
  EXPECT_EQ(found->id == before, GetParam().same == Same::yes);
  EXPECT_EQ(difference(graph, tree), "");
}

INSTANTIATE_TEST_SUITE_P(Table, IdentityTest, ::testing::ValuesIn(cases()),
                         [](const auto& test) { return test.param.name; });

TEST(IdentityLawsTest, TheRootFollowsTheSameTable) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  graph.setRoot(it());
  const NodeID first = graph.root()->id;
  graph.setRoot(it("2"));
  EXPECT_EQ(graph.root()->id, first);
  graph.setRoot(Group({it()}));
  EXPECT_NE(graph.root()->id, first);
  EXPECT_EQ(difference(graph, tree), "");
  graph.setRoot(View());
  EXPECT_EQ(graph.root(), nullptr);
  EXPECT_FALSE(tree.root());
  graph.setRoot(it());
  EXPECT_NE(graph.root()->id, first) << "an id is never used twice";
  EXPECT_EQ(difference(graph, tree), "");
}

TEST(IdentityLawsTest, EveryPathThroughBranchesIsABranchOfItsOwn) {
  std::set<std::uint64_t> branches;
  std::size_t paths = 0;
  const std::function<void(const View&, int)> nest = [&](const View& view, int depth) {
    ++paths;
    branches.insert(view.description().branch);
    if (depth == 0) return;
    for (int taken = 1; taken <= 8; ++taken) {
      View inside;
      If chain(taken == 1, [&] { return view; });
      for (int other = 2; other <= 8; ++other) {
        chain = chain.elseIf(taken == other, [&] { return view; });
      }
      nest(chain, depth - 1);
    }
  };
  nest(it(), 5);
  EXPECT_EQ(branches.size(), paths);
}

TEST(IdentityLawsTest, OnlyTheTakenBranchIsMade) {
  std::string made;
  const auto make = [&](char letter) {
    return [&made, letter]() -> View {
      made += letter;
      return letter == 'n' ? View() : it();
    };
  };
  const View chosen =
      If(false, make('a')).elseIf(true, make('b')).elseIf(true, make('c')).otherwise(make('d'));
  EXPECT_EQ(made, "b");
  EXPECT_FALSE(chosen.isAbsent());
  EXPECT_TRUE(If(false, make('a')).isAbsent());
  EXPECT_TRUE(If(true, make('n')).otherwise(make('d')).isAbsent())
      << "a branch without content still counts as taken";
  EXPECT_TRUE(IfPresent(std::optional<int>(), [](int) { return it(); }).isAbsent());
  EXPECT_EQ(IfPresent(std::optional<int>(7), [](int value) { return it(std::to_string(value)); })
                .description()
                .branch,
            If(true, [] { return it(); }).description().branch);
}

TEST(IdentityLawsTest, AnAbsentViewTakesModifiersAndKeysAndStaysAbsent) {
  EXPECT_TRUE(View().font(Font::body).padding(3).id("a").disabled(true).isAbsent());
  ViewGraph graph;
  graph.setRoot(Group({View().id("a"), it()}));
  EXPECT_EQ(graph.root()->children.size(), 1U);
}

TEST(IdentityLawsTest, EqualIdentitiesHashEqually) {
  const Identity one = identityOf(it().id(composed), 3);
  const Identity two = identityOf(other().id(decomposed), 9);
  EXPECT_EQ(one, two);
  EXPECT_EQ(IdentityHash()(one), IdentityHash()(two));
  EXPECT_EQ(one.occurrence, 0U);
  Identity second = two;
  second.occurrence = 1;
  EXPECT_FALSE(one == second);
  EXPECT_NE(IdentityHash()(one), IdentityHash()(second));
}

TEST(IdentityLawsTest, KindBranchSlotAndKeyEachChangeTheHash) {
  const auto hash = [](const View& view, std::size_t slot = 1) {
    return IdentityHash()(identityOf(view, slot));
  };
  EXPECT_NE(hash(it()), hash(Group({})));
  EXPECT_NE(hash(inBranch(1, it())), hash(inBranch(2, it())));
  EXPECT_NE(hash(it(), 1), hash(it(), 2));
  EXPECT_NE(hash(it().id("a")), hash(it().id("b")));
}

}  // namespace vemra::ui
