// The properties of composites.

#include "tests/VemraPlatform/ui/Lending.hpp"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

struct Silent {
  View body() const { return Text("x"); }
};

struct Person {
  std::string name;
  View body() const { return Text(verbatim(name)); }
};

struct Telling {
  static constexpr std::string_view name = "Telling";
  View body(const Environment&) const { return Text("x"); }
  Properties properties() const { return {{"alone", true}}; }
};

}  // namespace

TEST(PropertiesTest, PropertiesContainThePresentState) {
  ViewGraph graph;
  graph.setRoot(Counter{"it"});
  const NodeID id = graph.root()->id;
  press(graph, "+");
  const Properties properties = graph.properties(id);
  ASSERT_EQ(properties.size(), 1U);
  EXPECT_EQ(std::get<std::string>(properties[0].value), "1");
  EXPECT_TRUE(graph.properties(graph.root()->children[0]->id).empty());
  EXPECT_TRUE(graph.properties(NodeID{999}).empty());
}

TEST(PropertiesTest, AViewThatIsBeingMadeHasNoPropertiesYet) {
  ViewGraph graph;
  std::size_t told = 99;
  graph.setRoot(column({Body{[&] {
                          const Node* sibling = graph.root()->children[1];
                          told = graph.properties(sibling->id).size();
                          return View();
                        }},
                        Counter{}}));
  EXPECT_EQ(told, 0U);
  EXPECT_EQ(graph.properties(graph.root()->children[1]->id).size(), 1U);
}

TEST(PropertiesTest, ACompositeMayReportNoPropertiesOrSomeWithoutState) {
  ViewGraph graph;
  graph.setRoot(Silent{});
  EXPECT_EQ(graph.root()->element.compositeName(), "View");
  EXPECT_TRUE(graph.properties(graph.root()->id).empty());
  graph.setRoot(Person{"Ada"});
  EXPECT_EQ(graph.root()->element.compositeName(), "View") << "that is the person's name";
  graph.setRoot(Telling{});
  EXPECT_EQ(graph.root()->element.compositeName(), "Telling");
  EXPECT_EQ(graph.properties(graph.root()->id).size(), 1U);
}

}  // namespace vemra::ui
