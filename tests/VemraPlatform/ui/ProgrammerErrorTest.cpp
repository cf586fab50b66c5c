// The line that the view layer writes before it aborts: it names the view, its identifier and its
// row, and omits those that the view does not have.

#include "tests/VemraPlatform/ui/Lending.hpp"

#include <csignal>
#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace vemra::ui {

using namespace sample;

namespace {

/// Shows the whole tree, then calls `act` for every batch of patches.
class Acting final : public Renderer {
 public:
  RowDemand rowDemand() const override { return RowDemand::everything; }
  void apply(const Changes&) override {
    if (act) act();
  }
  std::function<void()> act;
};

/// A view that writes its own state while it is described.
View writing() {
  return Lending{borrowed(),
                 [](const CounterState& state) { state.set(&Counter::State::count, 1); }};
}

void show(const View& view) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  graph.setRoot(view);
}

const ::testing::KilledBySignal aborted(SIGABRT);

/// A regular expression for all that is written: this one line.
std::string oneLine(const std::string& what) {
  return "^vemra::ui: " + what + "\n$";
}

std::string written(const std::string& where) {
  return oneLine("state was written while a view was being described in " + where);
}

}  // namespace

TEST(ProgrammerErrorDeathTest, NamesAViewWithoutIdentifierByItsNameAlone) {
  EXPECT_EXIT(show(column({writing()})), aborted, written("Lending"));
}

TEST(ProgrammerErrorDeathTest, NamesTheIdentifierOutsideOfRows) {
  EXPECT_EXIT(show(writing().accessibilityIdentifier("the.one")), aborted,
              written("Lending \"the.one\""));
}

TEST(ProgrammerErrorDeathTest, NamesTheRowOfAViewWithoutIdentifier) {
  EXPECT_EXIT(show(list({{"a"}}, [](const Line&) { return writing(); })), aborted,
              written("Lending of row \"a\""));
}

TEST(ProgrammerErrorDeathTest, NamesIdentifierAndRowOfAViewDeepInTheRow) {
  const auto row = [](const Line& line) {
    return column(
        {Text("before"), column({line.id == "b" ? writing().accessibilityIdentifier("the.one")
                                                : View(Text("another"))})});
  };
  EXPECT_EXIT(show(list({{"a"}, {"b"}, {"c"}}, row)), aborted,
              written("Lending \"the.one\" of row \"b\""));
}

TEST(ProgrammerErrorDeathTest, NamesTheInnermostRow) {
  const auto inner = [](const Line&) { return writing(); };
  const auto outer = [&](const Line&) { return list({{"inner"}}, inner); };
  EXPECT_EXIT(show(list({{"outer"}}, outer)), aborted, written("Lending of row \"inner\""));
}

TEST(ProgrammerErrorDeathTest, NamesAControlByItsKind) {
  auto graph = std::make_unique<ViewGraph>();
  graph->setRoot(Button("end", [&] { graph.reset(); }).accessibilityIdentifier("the.end"));
  EXPECT_EXIT(press(*graph, "end"), aborted,
              oneLine("a view graph was destroyed by what it called in Button \"the.end\""));
}

TEST(ProgrammerErrorDeathTest, NamesNoViewWithoutAView) {
  auto graph = std::make_unique<ViewGraph>();
  Acting renderer;
  graph->attach(renderer);
  graph->setRoot(Text("gone"));
  renderer.act = [&] { graph.reset(); };
  EXPECT_EXIT(graph->setRoot({}), aborted, oneLine("a view graph was destroyed by what it called"));
}

TEST(ProgrammerErrorDeathTest, NamesTheViewWhoseStateNeverComesToRest) {
  const auto lent = borrowed();
  ViewGraph graph;
  Acting renderer;
  graph.attach(renderer);
  graph.setRoot(column({View(Lending{lent}).accessibilityIdentifier("the.restless")}));
  renderer.act = [&] { (*lent)->set(&Counter::State::count, (**lent)->count + 1); };
  EXPECT_EXIT((*lent)->set(&Counter::State::count, 1), aborted,
              oneLine("the tree never comes to rest in Lending \"the.restless\""));
}

}  // namespace vemra::ui
