#include "tests/VemraPlatform/ui/Sample.hpp"

#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

enum class Fruit { apple, pear };
std::string_view caseName(Fruit choice) {
  return choice == Fruit::apple ? "apple" : "pear";
}

View plain() {
  return Text("x");
}

/// The style that reaches the text inside.
Style inside(const View& root) {
  ViewGraph graph;
  graph.setRoot(root);
  return firstOf(graph.root(), ElementKind::text)->element.style();
}

View around(View view) {
  return VStack(HorizontalAlignment::leading, 0, {std::move(view)});
}

std::vector<std::size_t> order(const View& view) {
  std::vector<std::size_t> kinds;
  for (const Modifier& modifier : view.description().modifiers) kinds.push_back(modifier.index());
  return kinds;
}

}  // namespace

TEST(ModifierTest, OrderIsKept) {
  const View view = plain()
                        .padding(Edges::vertical, 4)
                        .font(Font::caption)
                        .disabled(true)
                        .font(Font::body)
                        .foregroundStyle(ForegroundStyle::tertiary)
                        .fontWeight(FontWeight::bold)
                        .buttonStyle(ButtonStyle::plain)
                        .pickerStyle(PickerStyle::menu)
                        .textFieldStyle(TextFieldStyle::roundedBorder)
                        .labelsHidden()
                        .accessibilityIdentifier("id")
                        .tag(Fruit::pear);
  EXPECT_EQ(order(view), (std::vector<std::size_t>{3, 0, 8, 0, 2, 1, 4, 5, 6, 7, 9, 10}));
  EXPECT_EQ(std::get<PaddingModifier>(view.description().modifiers[0]),
            (PaddingModifier{Edges::vertical, 4}));
}

TEST(ModifierTest, EachGivesANewViewAndKeepsTheOldView) {
  const View before = plain();
  const View after = before.font(Font::caption);
  EXPECT_TRUE(before.description().modifiers.empty());
  EXPECT_EQ(after.description().modifiers.size(), 1U);
}

TEST(ModifierTest, AnUnsharedViewIsModifiedInPlace) {
  View view = plain();
  const Description* const before = &view.description();
  const View after = std::move(view).padding(1).font(Font::caption);
  EXPECT_EQ(&after.description(), before) << "ten thousand rows are not copied for each modifier";
}

TEST(ModifierTest, FontForegroundAndDisabledAreInherited) {
  const Style style = inside(around(around(plain()))
                                 .font(Font::caption)
                                 .foregroundStyle(ForegroundStyle::secondary)
                                 .disabled(true));
  EXPECT_EQ(style.font, Font::caption);
  EXPECT_EQ(style.foreground, ForegroundStyle::secondary);
  EXPECT_FALSE(style.enabled);
  const Style none = inside(around(plain()));
  EXPECT_EQ(none, Style{});
  EXPECT_EQ(none.font, Font::body);
  EXPECT_EQ(none.foreground, ForegroundStyle::primary);
  EXPECT_TRUE(none.enabled);
}

TEST(ModifierTest, TheOtherModifiersAreNotInherited) {
  ViewGraph graph;
  graph.setRoot(around(plain())
                    .padding(7)
                    .buttonStyle(ButtonStyle::plain)
                    .labelsHidden()
                    .accessibilityIdentifier("outer")
                    .tag(Fruit::apple));
  const Element& element = firstOf(graph.root(), ElementKind::text)->element;
  EXPECT_EQ(element.padding(), Insets{});
  EXPECT_EQ(element.buttonStyle(), ButtonStyle::automatic);
  EXPECT_FALSE(element.labelsHidden());
  EXPECT_EQ(element.accessibilityIdentifier(), "");
  EXPECT_EQ(element.tag(), nullptr);
}

TEST(ModifierTest, TheInnermostFontAndForegroundWin) {
  EXPECT_EQ(inside(around(plain().font(Font::title2)).font(Font::caption)).font, Font::title2);
  EXPECT_EQ(inside(plain().font(Font::title2).font(Font::caption)).font, Font::title2)
      << "the one applied first is the inner one";
  EXPECT_EQ(inside(around(plain().foregroundStyle(ForegroundStyle::primary))
                       .foregroundStyle(ForegroundStyle::tertiary))
                .foreground,
            ForegroundStyle::primary);
}

TEST(ModifierTest, InsideADisabledViewNothingIsEnabledAgain) {
  EXPECT_FALSE(inside(around(plain().disabled(false)).disabled(true)).enabled);
  EXPECT_FALSE(inside(around(plain().disabled(true)).disabled(false)).enabled);
  EXPECT_FALSE(inside(plain().disabled(false).disabled(true)).enabled);
  EXPECT_FALSE(inside(plain().disabled(true).disabled(false)).enabled);
  EXPECT_TRUE(inside(around(plain().disabled(false)).disabled(false)).enabled);
}

TEST(ModifierTest, AWeightIsSeparateFromTheFont) {
  const auto bold = FontWeight::bold;
  EXPECT_EQ(inside(plain().font(Font::title2).fontWeight(bold)).font, Font::title2.weight(bold));
  EXPECT_EQ(inside(plain().fontWeight(bold).font(Font::title2)).font, Font::title2.weight(bold));
  EXPECT_EQ(inside(around(plain()).fontWeight(bold)).font, Font::body.weight(bold));
  EXPECT_EQ(inside(around(plain().font(Font::caption)).fontWeight(bold)).font,
            Font::caption.weight(bold))
      << "an inner font without a weight keeps it";
  EXPECT_EQ(inside(around(around(plain().font(Font::caption))).fontWeight(bold)).font,
            Font::caption.weight(bold));
}

TEST(ModifierTest, OfSeveralWeightsTheInnermostWins) {
  const auto medium = FontWeight::medium;
  const auto bold = FontWeight::bold;
  EXPECT_EQ(inside(plain().font(Font::body.weight(medium)).fontWeight(bold)).font,
            Font::body.weight(medium));
  EXPECT_EQ(inside(plain().fontWeight(bold).font(Font::body.weight(medium))).font,
            Font::body.weight(bold));
  EXPECT_EQ(inside(plain().fontWeight(medium).fontWeight(bold)).font, Font::body.weight(medium));
  EXPECT_EQ(inside(around(plain().fontWeight(medium)).fontWeight(bold)).font,
            Font::body.weight(medium));
  EXPECT_EQ(inside(around(plain().font(Font::caption)).font(Font::body.weight(medium))).font,
            Font::caption)
      << "a font's own weight belongs to the font";
  EXPECT_EQ(inside(around(around(plain()).font(Font::body.weight(medium))).fontWeight(bold)).font,
            Font::body.weight(medium));
}

TEST(ModifierTest, PaddingAddsUpByEdge) {
  EXPECT_EQ(elementOf(plain().padding(24)).padding(), (Insets{24, 24, 24, 24}));
  EXPECT_EQ(elementOf(plain().padding(Edges::vertical, 4)).padding(), (Insets{4, 0, 4, 0}));
  EXPECT_EQ(elementOf(plain().font(Font::body).padding(5).labelsHidden().padding(1)).padding(),
            (Insets{6, 6, 6, 6}))
      << "with any text in between";
  EXPECT_EQ(elementOf(plain().padding(Edges::vertical, 4).padding(Edges::horizontal, 3).padding(1))
                .padding(),
            (Insets{5, 4, 5, 4}));
}

TEST(ModifierTest, OfSeveralIdentifiersTheLastCountsOfTagsTheFirst) {
  EXPECT_EQ(elementOf(plain().accessibilityIdentifier("a").accessibilityIdentifier("b"))
                .accessibilityIdentifier(),
            "b");
  EXPECT_EQ(elementOf(plain().tag(Fruit::pear).tag(Fruit::apple)).tag()->name(), "pear");
  EXPECT_EQ(elementOf(plain().buttonStyle(ButtonStyle::plain)).buttonStyle(), ButtonStyle::plain);
  EXPECT_TRUE(elementOf(plain().labelsHidden()).labelsHidden());
}

TEST(ModifierTest, AGroupAddsNoLayoutAndPassesItsModifiersToItsChildren) {
  ViewGraph graph;
  graph.setRoot(Group({plain(), plain()}).font(Font::caption));
  const Element& group = graph.root()->element;
  EXPECT_EQ(group.kind(), ElementKind::group);
  EXPECT_EQ(group.spacing(), 0);
  EXPECT_EQ(group.padding(), Insets{});
  for (const Node* child : graph.root()->children) {
    EXPECT_EQ(child->element.style().font, Font::caption);
  }
}

TEST(ModifierTest, AChangeOfAnOuterModifierUpdatesEveryAffectedView) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  const auto screen = [](bool disabled) {
    return Group({around(plain()), Counter{}}).disabled(disabled);
  };
  graph.setRoot(screen(false));
  graph.setRoot(screen(true));
  EXPECT_EQ(difference(graph, tree), "");
  EXPECT_EQ(press(graph, "+"), Delivery::disabled);
  graph.setRoot(screen(false));
  EXPECT_EQ(press(graph, "+"), Delivery::acted);
}

// A host may keep a view and show it in several ways.
TEST(ModifierTest, AModifiedLvalueStaysUnchanged) {
  const std::pair<View (*)(const View&), View (*)(View)> modified[] = {
      {[](const View& v) { return v.font(Font::caption); },
       [](View v) { return std::move(v).font(Font::caption); }},
      {[](const View& v) { return v.fontWeight(FontWeight::semibold); },
       [](View v) { return std::move(v).fontWeight(FontWeight::semibold); }},
      {[](const View& v) { return v.foregroundStyle(ForegroundStyle::secondary); },
       [](View v) { return std::move(v).foregroundStyle(ForegroundStyle::secondary); }},
      {[](const View& v) { return v.padding(24); },
       [](View v) { return std::move(v).padding(24); }},
      {[](const View& v) { return v.padding(Edges::vertical, 4); },
       [](View v) { return std::move(v).padding(Edges::vertical, 4); }},
      {[](const View& v) { return v.buttonStyle(ButtonStyle::plain); },
       [](View v) { return std::move(v).buttonStyle(ButtonStyle::plain); }},
      {[](const View& v) { return v.pickerStyle(PickerStyle::menu); },
       [](View v) { return std::move(v).pickerStyle(PickerStyle::menu); }},
      {[](const View& v) { return v.textFieldStyle(TextFieldStyle::roundedBorder); },
       [](View v) { return std::move(v).textFieldStyle(TextFieldStyle::roundedBorder); }},
      {[](const View& v) { return v.labelsHidden(); },
       [](View v) { return std::move(v).labelsHidden(); }},
      {[](const View& v) { return v.disabled(true); },
       [](View v) { return std::move(v).disabled(true); }},
      {[](const View& v) { return v.accessibilityIdentifier("x"); },
       [](View v) { return std::move(v).accessibilityIdentifier("x"); }},
  };
  const View named = plain().disabled(false);
  for (const auto& [copied, moved] : modified) {
    const View result = copied(named);
    const std::size_t kind = result.description().modifiers.back().index();
    EXPECT_EQ(named.description().modifiers.size(), 1U) << "modifier " << kind;
    EXPECT_EQ(result.description().modifiers.size(), 2U) << "modifier " << kind;
    EXPECT_TRUE(result.description().modifiers == moved(named).description().modifiers)
        << "modifier " << kind;
  }
}

}  // namespace vemra::ui
