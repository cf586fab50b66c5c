// Ids of rows of any type with a canonical text, and how a list takes over its range.

#include "VemraPlatform/base/SharedArray.hpp"
#include "tests/VemraPlatform/ui/OnGraph.hpp"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::ui {

namespace {

using namespace sample;

enum class Planet : unsigned char { venus = 2, earth };
enum class Season { spring, autumn };
std::string_view caseName(Season season) {
  return season == Season::spring ? "spring" : "autumn";
}
struct UUID {
  std::uint32_t high = 0, low = 0;
};
std::string idText(const UUID& uuid) {
  return std::to_string(uuid.high) + '-' + std::to_string(uuid.low);
}

struct Item {
  std::int64_t number = 0;
  UUID uuid = {};
  std::string name = {};
};

using ItemList = std::vector<Item>;

View titled(const Item& item) {
  return Counter{item.name};
}

/// The ids of the rows of a list, as a renderer sees them.
template <class Range, class ID>
std::vector<std::string> idsIn(Range range, ID id) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  graph.setRoot(ForEach(std::move(range), id, [](const auto&) { return Text("row"); }));
  std::vector<std::string> ids;
  for (const Node* row : graph.root()->children) ids.push_back(row->rowID);
  return ids;
}

using Texts = std::vector<std::string>;
using RowIDTest = OnGraph;

static_assert(!HasCanonicalText<double> && !HasCanonicalText<bool> && !HasCanonicalText<char>);
static_assert(!HasCanonicalText<Item>);

}  // namespace

TEST_F(RowIDTest, AreNumbersEnumeratorsAndValuesWithAText) {
  EXPECT_EQ(idsIn(ItemList{{-7}, {INT64_MAX}}, &Item::number),
            (Texts{"-7", "9223372036854775807"}));
  EXPECT_EQ(idsIn(ItemList{{1, {7, 8}}, {2, {7, 9}}}, &Item::uuid), (Texts{"7-8", "7-9"}));
  EXPECT_EQ(idsIn(std::array{Planet::earth, Planet::venus}, std::identity()), (Texts{"3", "2"}));
  EXPECT_EQ(idsIn(std::vector{Season::autumn, Season::spring}, std::identity()),
            (Texts{"autumn", "spring"}));
}

TEST_F(RowIDTest, MayBeMadeOnTheSpot) {
  const ItemList items = {{1}, {2}};
  const auto text = [](const Item& item) {
    return "a long id that is made on the spot " + std::to_string(item.number);
  };
  EXPECT_EQ(idsIn(std::span(items), text), (Texts{"a long id that is made on the spot 1",
                                                  "a long id that is made on the spot 2"}));
  EXPECT_EQ(idsIn(std::span(items), [](const Item& item) { return item.number * 10; }),
            (Texts{"10", "20"}));
  EXPECT_EQ(idsIn(std::span(items), [](const Item& item) { return item.number == 1 ? "a" : "b"; }),
            (Texts{"a", "b"}));
}

TEST_F(RowIDTest, MadeOnTheSpotIsMadeOnceAndOnlyWhenItIsNeeded) {
  std::map<std::int64_t, int> made;
  auto items = std::make_shared<ItemList>();
  for (int number = 0; number < 1000; ++number) items->push_back({number});
  const auto number = [&made](const Item& item) {
    ++made[item.number];
    return item.number;
  };
  Window window;
  graph.attach(window);
  const auto show = [&] { graph.setRoot(ForEach(std::span<const Item>(*items), number, titled)); };
  show();
  graph.showRows(graph.root()->id, {{500, 503}});
  EXPECT_EQ(made, (std::map<std::int64_t, int>{{500, 1}, {501, 1}, {502, 1}}));
  made.clear();
  show();
  EXPECT_EQ(made, (std::map<std::int64_t, int>{{500, 1}, {501, 1}, {502, 1}}))
      << "a list in which no row has state needs only the ids of the shown rows";
}

TEST_F(RowIDTest, MadeOnTheSpotKeepTheStateOfTheirRows) {
  testing::RenderedTree tree;
  graph.attach(tree);
  const auto show = [&](ItemList items) {
    graph.setRoot(ForEach(
        std::move(items), [](const Item& item) { return item.number; }, titled));
    return texts(graph.root());
  };
  show({{1, {}, "one"}, {2, {}, "two"}});
  graph.deliver(buttonTitled(graph.root()->children[1], "+")->id, Press{});
  EXPECT_EQ(show({{3, {}, "three"}, {2, {}, "two"}, {1, {}, "one"}}),
            (Texts{"three=0", "two=1", "one=0"}));
}

TEST_F(RowIDTest, AnExplicitIdentityMayBeAnyValueWithAText) {
  const auto keyOf = [](const View& view) { return *view.description().key; };
  EXPECT_EQ(keyOf(Text("a").id(7)), "7");
  EXPECT_EQ(keyOf(Text("a").id(Season::autumn)), "autumn");
  EXPECT_EQ(keyOf(Text("a").id(UUID{1, 2})), "1-2");
  EXPECT_EQ(keyOf(Text("a").id("text")), "text");
  EXPECT_EQ(keyOf(Text("a").id(std::string_view("text"))), "text");
}

namespace {

/// Counts the copies of the elements of a list.
struct Counted {
  std::string id;
  std::shared_ptr<int> copies = std::make_shared<int>(0);

  explicit Counted(std::string text) : id(std::move(text)) {}
  Counted(const Counted& other) : id(other.id), copies(other.copies) { ++*copies; }
  Counted(Counted&&) noexcept = default;
  Counted& operator=(const Counted&) = delete;
  ~Counted() = default;
};

}  // namespace

TEST_F(RowIDTest, AListCopiesNoElementOfARangeThatItSharesRefersToOrGets) {
  const auto copiesWith = [&](auto makeList) {
    std::vector<Counted> elements;
    elements.emplace_back("a");
    const std::shared_ptr<int> copies = elements.front().copies;
    graph.setRoot(makeList(elements));
    return *copies;
  };
  const auto row = [](const Counted& each) { return Text(verbatim(each.id)); };
  EXPECT_EQ(copiesWith([&](std::vector<Counted>& elements) {
              return ForEach(std::move(elements), &Counted::id, row);
            }),
            0);
  EXPECT_EQ(copiesWith([&](std::vector<Counted>& elements) {
              return ForEach(std::vector(elements), &Counted::id, row);
            }),
            1);
  std::vector<Counted> outside;
  outside.emplace_back("a");
  graph.setRoot(ForEach(std::span(outside), &Counted::id, row));
  EXPECT_EQ(*outside.front().copies, 0);
}

}  // namespace vemra::ui
