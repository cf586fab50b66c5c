// Pickers over values of any type: their choices, names and selections.

#include "tests/VemraPlatform/ui/OnGraph.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::ui {

namespace {

using namespace sample;

/// A value with `==` and nothing else.
struct Team {
  std::string name;
  int size = 0;
  friend bool operator==(const Team&, const Team&) = default;
};

enum class Speed { slow, fast };

Verbatim teamLabel(const Team& team) {
  return verbatim(team.name);
}

const std::vector<Team> teams = {{"Red", 3}, {"Blue", 4}, {"Blue", 5}};

struct Booking {
  struct State {
    Team team = teams[1];
    Speed speed = Speed::slow;
    std::string city = "Rome";
    std::optional<int> floor;
    friend bool operator==(const State&, const State&) = default;
  };
  View body(const LocalState<State>& state) const {
    return Group({
        Picker("Team", state.binding(&State::team), teams, teamLabel),
        Picker("Speed", state.binding(&State::speed), {Speed::slow, Speed::fast},
               [](Speed speed) {
                 return speed == Speed::slow ? LocalizedKey("Slow") : LocalizedKey("Fast");
               }),
        Picker("City", state.binding(&State::city),
               {Text("Rome").tag(std::string("Rome")), Text("Oslo").tag(std::string("Oslo"))}),
        Picker("Floor", state.binding(&State::floor), {std::optional<int>(), std::optional(2)},
               [](std::optional<int> floor) {
                 return verbatim(floor ? std::to_string(*floor) : std::string("any"));
               }),
    });
  }
};

class PickerTest : public OnGraph {
 protected:
  PickerTest() { graph.setRoot(Booking{}); }
  const Node& picker(std::size_t index) { return *graph.root()->children[0]->children[index]; }
  void choose(std::size_t index, std::size_t choice) {
    const Tag tag = *picker(index).children[choice]->element.tag();
    EXPECT_EQ(graph.deliver(picker(index).id, Select{tag}), Delivery::acted);
  }
};

}  // namespace

TEST_F(PickerTest, OfValuesWithEqualityOnlyChoosesAValue) {
  EXPECT_EQ(texts(&picker(0)), (std::vector<std::string>{"Red", "Blue", "Blue"}));
  EXPECT_EQ(picker(0).element.selection(), *picker(0).children[1]->element.tag());
  EXPECT_EQ(picker(0).element.selection()->name(), "Blue");
  choose(0, 2);
  EXPECT_EQ(*picker(0).element.selection()->as<Team>(), teams[2])
      << "another value with the same label";
  EXPECT_FALSE(picker(0).element.selection() == *picker(0).children[1]->element.tag());
}

TEST_F(PickerTest, OfAnEnumerationNeedsNoNamesOfCases) {
  EXPECT_EQ(texts(&picker(1)), (std::vector<std::string>{"Slow", "Fast"}));
  EXPECT_TRUE(picker(1).children[0]->element.label()->isKey()) << "labels are translated";
  choose(1, 1);
  EXPECT_EQ(*picker(1).element.selection()->as<Speed>(), Speed::fast);
  EXPECT_EQ(picker(1).element.selection()->name(), "Fast") << "not the number";
}

TEST_F(PickerTest, OfTextsAndOptionalValues) {
  choose(2, 1);
  EXPECT_EQ(picker(2).element.selection()->name(), "Oslo");
  EXPECT_EQ(picker(3).element.selection()->name(), "any");
  choose(3, 1);
  EXPECT_EQ(picker(3).element.selection()->name(), "2");
}

TEST(Tag, IsEqualToATagOfAnEqualValueOfItsType) {
  EXPECT_EQ(Tag(Team{"a", 1}, "x"), Tag(Team{"a", 1}, "y"));
  EXPECT_FALSE(Tag(Team{"a", 1}, "x") == Tag(Team{"a", 2}, "x"));
  EXPECT_FALSE(Tag(1) == Tag(1L)) << "another type";
  EXPECT_EQ(Tag(1).name(), "1");
}

}  // namespace vemra::ui
