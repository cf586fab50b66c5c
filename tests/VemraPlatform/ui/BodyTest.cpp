// The shapes of a body, and what each of them gets.

#include "tests/VemraPlatform/ui/OnGraph.hpp"

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace vemra::ui {

namespace {

using namespace sample;

struct Count {
  int count = 0;
  friend bool operator==(const Count&, const Count&) = default;
};

View countIn(const LocalState<Count>& state, std::string_view locale) {
  const std::string text = std::string(locale) + ' ' + std::to_string(state->count);
  return Button(verbatim(text), [state] { state.set(&Count::count, state->count + 1); });
}

struct Plain {
  View body() const { return Button("plain", nullptr); }
};
struct OfEnvironment {
  View body(const Environment& environment) const {
    return Button(verbatim(environment.locale), nullptr);
  }
};
struct OfState {
  using State = Count;
  View body(const LocalState<State>& state) const { return countIn(state, "any"); }
};
struct OfBoth {
  using State = Count;
  View body(const LocalState<State>& state, const Environment& environment) const {
    return countIn(state, environment.locale);
  }
};
struct WithAStateOfNoUse {
  using State = Count;
  View body(const Environment& environment) const {
    return Button(verbatim(environment.locale), nullptr);
  }
};
struct WithEveryBody {
  using State = Count;
  View body() const { return Plain{}; }
  View body(const Environment&) const { return Plain{}; }
  View body(const LocalState<State>&) const { return Plain{}; }
  View body(const LocalState<State>& state, const Environment& environment) const {
    return countIn(state, environment.locale);
  }
};
struct Letter {
  std::string body;
};

static_assert(!std::is_convertible_v<Letter, View>, "a member called body makes no view");

Environment french() {
  Environment environment;
  environment.locale = "fr_FR";
  return environment;
}

using BodyTest = OnGraph;

}  // namespace

TEST_F(BodyTest, EveryShapeGetsItsInputs) {
  graph.setEnvironment(french());
  const auto titleOf = [&](View view) {
    graph.setRoot(std::move(view));
    return std::string(firstOf(graph.root(), ElementKind::button)->element.shownLabel());
  };
  EXPECT_EQ(titleOf(Plain{}), "plain");
  EXPECT_EQ(titleOf(OfEnvironment{}), "fr_FR");
  EXPECT_EQ(titleOf(OfState{}), "any 0");
  EXPECT_EQ(titleOf(OfBoth{}), "fr_FR 0");
  EXPECT_EQ(titleOf(WithAStateOfNoUse{}), "fr_FR");
  EXPECT_EQ(titleOf(WithEveryBody{}), "fr_FR 0") << "the body that takes most";
}

TEST_F(BodyTest, OfStateAndEnvironmentFollowsBoth) {
  graph.setRoot(OfBoth{});
  EXPECT_EQ(press(graph, "en_US 0"), Delivery::acted);
  EXPECT_TRUE(buttonTitled(graph.root(), "en_US 1"));
  graph.setEnvironment(french());
  EXPECT_TRUE(buttonTitled(graph.root(), "fr_FR 1")) << "another environment keeps the state";
  EXPECT_EQ(press(graph, "fr_FR 1"), Delivery::acted);
  EXPECT_TRUE(buttonTitled(graph.root(), "fr_FR 2"));
}

}  // namespace vemra::ui
