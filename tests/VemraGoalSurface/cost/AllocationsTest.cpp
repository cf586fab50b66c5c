#include "VemraPlatform/ui/RowSource.hpp"
#include "VemraPlatform/ui/Rows.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "tests/Allocations.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"

#include <memory>
#include <string>

#include <gtest/gtest.h>

// The allocations of scrolling: their number is the same on every machine, unlike a time. The
// bounds allow for another standard library, but not for a step that copies the host's callbacks or
// a person for every modifier or button.

namespace vemra::screentest {

namespace {

constexpr std::size_t rowCount = 100;

/// Requests windows of rows and draws nothing.
class Nowhere final : public ui::Renderer {
 public:
  ui::RowDemand rowDemand() const override { return ui::RowDemand::onRequest; }
  void apply(const ui::Changes&) override {}
};

/// People with texts, and callbacks with captures, that are too large for storage without an
/// allocation.
GoalResultView longScreen() {
  Result result = ordinaryResult();
  std::vector<GoalPersonCandidateDTO> people;
  for (std::size_t i = 0; i < rowCount; ++i) {
    const std::string number = std::to_string(i);
    people.push_back(person("a-reference-to-a-person-" + number,
                            "Somebody with a long name " + number,
                            {"an-identifier-of-evidence-" + number}));
  }
  result.people = people;
  const auto host = std::make_shared<std::string>("host");
  return GoalResultView(
      GoalResultSnapshotV1(result), [host](const std::string&) {}, [host](const std::string&) {},
      [host](const GoalPathCandidateDTO&) {}, [host](const GoalOutcomeRecordingInput&) {});
}

const ui::Node* listBelow(const ui::Node* node) {
  if (node->element.kind() == ui::ElementKind::forEach) return node;
  for (const ui::Node* child : node->children) {
    if (const ui::Node* list = listBelow(child)) return list;
  }
  return nullptr;
}

class AllocationsTest : public ::testing::Test {
 protected:
  AllocationsTest() {
    graph.attach(nowhere);
    graph.setRoot(screen);
  }
  void SetUp() override {
#ifdef VEMRA_ALLOCATIONS_ARE_NOT_COUNTED
    GTEST_SKIP() << "a sanitizer has replaced operator new";
#endif
  }

  const ui::Node& list() {
    return *listBelow(graph.root());
  }
  /// The number of allocations that `act` makes for each row.
  template <class Act>
  static double perRow(std::size_t rows, const Act& act) {
    const std::uint64_t before = testing::allocations();
    act();
    return static_cast<double>(testing::allocations() - before) / static_cast<double>(rows);
  }

  const GoalResultView screen = longScreen();
  Nowhere nowhere;
  ui::ViewGraph graph;
};

}  // namespace

TEST_F(AllocationsTest, OfDescribingAPerson) {
  const ui::RowSource& rows = *memoryOf(list()).rows->source;
  const double made = perRow(rowCount, [&] {
    for (std::size_t i = 0; i < rowCount; ++i) rows.row(i);
  });
  RecordProperty("perRow", std::to_string(made));
  EXPECT_GT(made, 5) << "they are counted";
  EXPECT_LE(made, 30);
}

TEST_F(AllocationsTest, OfShowingAPerson) {
  const double made = perRow(rowCount, [&] { graph.showRows(list().id, {{0, rowCount}}); });
  RecordProperty("perRow", std::to_string(made));
  EXPECT_LE(made, 65);
}

TEST_F(AllocationsTest, OfANewSnapshotForTheShownRows) {
  graph.showRows(list().id, {{0, rowCount}});
  const double made = perRow(rowCount, [&] { graph.setRoot(screen); });
  RecordProperty("perRow", std::to_string(made));
  EXPECT_LE(made, 40);
}

TEST_F(AllocationsTest, OfScrollingByARow) {
  constexpr std::size_t shown = 20;
  constexpr std::size_t steps = rowCount - shown;
  graph.showRows(list().id, {{0, shown}});
  const double made = perRow(steps, [&] {
    for (std::size_t i = 1; i <= steps; ++i) graph.showRows(list().id, {{i, i + shown}});
  });
  RecordProperty("perRow", std::to_string(made));
  EXPECT_LE(made, 95) << "a kept widget is not made again";
}

}  // namespace vemra::screentest
