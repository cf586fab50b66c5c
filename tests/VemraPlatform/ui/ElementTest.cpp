#include "tests/Allocations.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

enum class Pet { cat, dog };
std::string_view caseName(Pet pet) {
  return pet == Pet::cat ? "cat" : "dog";
}

View picker(Pet chosen, Children rows = {}) {
  return Picker("Pet", Binding<Pet>([chosen] { return chosen; }, [](Pet) {}), std::move(rows));
}
TextField field(const std::string& text) {
  return TextField("Note",
                   Binding<std::string>([text] { return text; }, [](const std::string&) {}));
}

View submitting(const TextField& field) {
  return field.onSubmit([] {});
}

struct OtherComposite : Counter {};

/// Translates everything in the same way.
struct Strings final : StringsTable {
  explicit Strings(std::string shown) : translation(std::move(shown)) {}
  std::optional<std::string> lookup(std::string_view) const override { return translation; }
  std::string translation;
};

}  // namespace

TEST(ElementTest, ReportsTheFieldsOfItsKind) {
  const Element stack = elementOf(VStack(HorizontalAlignment::center, 9, {}));
  EXPECT_EQ(stack.kind(), ElementKind::vStack);
  EXPECT_EQ(stack.spacing(), 9);
  EXPECT_EQ(stack.horizontalAlignment(), HorizontalAlignment::center);

  const Element row = elementOf(HStack(VerticalAlignment::top, 8, {}));
  EXPECT_EQ(row.spacing(), 8);
  EXPECT_EQ(row.verticalAlignment(), VerticalAlignment::top);

  EXPECT_EQ(elementOf(ScrollView({})).scrollIndicators(), ScrollIndicators::shown);
  EXPECT_EQ(elementOf(ScrollView({}, Axis::vertical, ScrollIndicators::hidden)).scrollIndicators(),
            ScrollIndicators::hidden);
  EXPECT_EQ(elementOf(picker(Pet::dog)).selection()->name(), "dog");
  EXPECT_EQ(elementOf(field("a\nb")).text(), "a\nb");
  EXPECT_TRUE(elementOf(submitting(field("a"))).submits());
  EXPECT_EQ(elementOf(list(numbered(7))).rowCount(), 7U);
  EXPECT_EQ(elementOf(Counter{}).compositeName(), "Counter");
  EXPECT_EQ(elementOf(Button("Go", nullptr)).shownLabel(), "Go");
}

TEST(ElementTest, ReportsDefaultsForFieldsOfOtherKinds) {
  const Element text = elementOf(Text("x"));
  EXPECT_EQ(text.spacing(), 0);
  EXPECT_EQ(text.horizontalAlignment(), HorizontalAlignment::leading);
  EXPECT_EQ(text.verticalAlignment(), VerticalAlignment::center);
  EXPECT_EQ(text.scrollIndicators(), ScrollIndicators::hidden);
  EXPECT_EQ(text.text(), "");
  EXPECT_FALSE(text.selection());
  EXPECT_EQ(text.rowCount(), 0U);
  EXPECT_EQ(text.compositeName(), "");
  EXPECT_EQ(text.buttonStyle(), ButtonStyle::automatic);
  EXPECT_EQ(text.padding(), Insets{});
  EXPECT_EQ(elementOf(Group({})).label(), nullptr);
  EXPECT_EQ(elementOf(Group({})).shownLabel(), "");
}

TEST(ElementTest, NamesItsKindAsDevelopersWriteIt) {
  const std::vector<std::pair<View, std::string_view>> kinds = {
      {Text("x"), "Text"},
      {Button("x", nullptr), "Button"},
      {picker(Pet::cat), "Picker"},
      {field(""), "TextField"},
      {VStack(HorizontalAlignment::leading, 0, {}), "VStack"},
      {HStack(VerticalAlignment::top, 0, {}), "HStack"},
      {Group({}), "Group"},
      {ScrollView({}), "ScrollView"},
      {list({}), "ForEach"},
      {Counter{}, "Composite"},
  };
  for (const auto& [view, name] : kinds) EXPECT_EQ(kindName(elementOf(view).kind()), name);
}

TEST(ElementTest, IsEqualExactlyWhenAllShownAndSpokenValuesAreEqual) {
  const std::vector<std::function<View()>> kinds = {
      [] { return Text("a"); },
      [] { return Text("b"); },
      [] { return Text(verbatim("a")); },
      [] { return Text("a").padding(1); },
      [] { return Text("a").padding(2); },
      [] { return Text("a").font(Font::caption); },
      [] { return Text("a").accessibilityIdentifier("\u00E9"); },
      [] { return Text("a").accessibilityIdentifier("e\u0301"); },
      [] { return Text("a").tag(Pet::cat); },
      [] { return Text("a").tag(Pet::dog); },
      [] { return Button("a", [] {}); },
      [] { return picker(Pet::cat); },
      [] { return picker(Pet::dog); },
      [] { return field(""); },
      [] { return field("x"); },
      [] { return submitting(field("x")); },
      [] { return VStack(HorizontalAlignment::leading, 1, {}); },
      [] { return VStack(HorizontalAlignment::leading, 2, {}); },
      [] { return VStack(HorizontalAlignment::center, 1, {}); },
      [] { return HStack(VerticalAlignment::center, 1, {}); },
      [] { return HStack(VerticalAlignment::center, 2, {}); },
      [] { return HStack(VerticalAlignment::top, 1, {}); },
      [] { return ScrollView({}); },
      [] { return ScrollView({}, Axis::vertical, ScrollIndicators::hidden); },
      [] { return Group({}); },
      [] { return list(numbered(1)); },
      [] { return list(numbered(2)); },
      [] { return Counter{}; },
      [] { return OtherComposite{}; },
  };
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    for (std::size_t j = 0; j < kinds.size(); ++j) {
      EXPECT_EQ(elementOf(kinds[i]()) == elementOf(kinds[j]()), i == j) << i << " and " << j;
    }
  }
  // A view's children and its action are not part of its element.
  EXPECT_EQ(elementOf(Group({Text("a")})), elementOf(Group({})));
  EXPECT_EQ(elementOf(submitting(field("a"))), elementOf(submitting(field("a"))));
  EXPECT_EQ(elementOf(Counter{"a"}), elementOf(Counter{"b"}));
  EXPECT_FALSE(Element(Text("a"), Style{}, {}) ==
               Element(Text("a"), Style{.font = Font::caption}, {}));
}

TEST(ElementTest, DiffersInAnotherTranslation) {
  Environment one;
  Environment two;
  one.strings = std::make_shared<Strings>("eins");
  two.strings = std::make_shared<Strings>("zwei");
  EXPECT_EQ(elementOf(Text("1"), one), elementOf(Text("1"), one));
  EXPECT_FALSE(elementOf(Text("1"), one) == elementOf(Text("1"), two));
  EXPECT_FALSE(elementOf(Text("1"), one) == elementOf(Text("1")));
}

TEST(ElementTest, AllocatesNothingWithoutABindingOrATranslation) {
  const View view = Text("a");
  const Environment environment;
  const auto before = testing::allocations();
  { const Element element(view, Style{}, environment); }
  EXPECT_EQ(testing::allocations(), before) << "ten thousand rows are mostly such elements";
}

}  // namespace vemra::ui
