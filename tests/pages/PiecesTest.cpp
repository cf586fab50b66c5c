// The short pieces of code on the pages, each in the place for which it is meant. The build takes
// them from the pages.

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraRecording/Recorder.hpp"
#include "VemraTesting/Screen.hpp"
#include "VemraTesting/Viewport.hpp"
#include "tests/RecordBuilders.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra {
namespace {

/// A goal with people who have evidence, the first of them Ada.
GoalResultSnapshotV1 goalOf(const std::vector<std::string>& names) {
  GetGoalSnapshotResponse goal;
  std::vector<GoalPersonCandidateDTO> people;
  for (const std::string& name : names) {
    people.push_back(build::person("p" + std::to_string(people.size() + 1), name, {"ev1"}));
  }
  goal.people = std::move(people);
  return GoalResultSnapshotV1(goal);
}

class PagePieces : public ::testing::Test {
 protected:
  struct Ignore {
    void operator()(const auto&) const {}
  };
  static constexpr Ignore ignore{};
  std::vector<GoalOutcomeRecordingInput> stored;
  GoalResultView::OnRecordOutcome record = [this](const GoalOutcomeRecordingInput& input) {
    stored.push_back(input);
  };
};

TEST_F(PagePieces, TheScreenOfATest) {
  const GoalResultSnapshotV1 snapshot = goalOf({"Ada", "Bo", "Cleo"}), next = snapshot;
#include "docs/testing_1.inc"
  ASSERT_EQ(stored.size(), 1U);
  EXPECT_EQ(stored[0].note(), "met at the fair");
}

TEST_F(PagePieces, TheViewportOfATest) {
  GetGoalSnapshotResponse goal;
  goal.goal.title = "Find a design lead";
  goal.people = {build::person("p0", "Person 0", {}, GoalWhyDTO::connection(2))};
  const GoalResultSnapshotV1 snapshot(goal);
#include "docs/testing_2.inc"
}

/// The four shapes of a body, declared.
struct Shapes {
  using View = ui::View;
  using Environment = ui::Environment;
  struct State {};
  template <class Values>
  using LocalState = ui::LocalState<Values>;
#include "docs/view-layer_1.inc"
};

/// What a recorder needs of a widget.
struct Widget {
  ui::ViewGraph& graph() { return graph_; }
  void setRoot(ui::View root) { graph_.setRoot(std::move(root)); }
  ui::ViewGraph graph_;
};

struct Host {
  void showNotice(const std::string& text) { notices.push_back(text); }
  std::vector<std::string> notices;
};

/// A new folder, the current one during a test.
struct CurrentFolder {
  CurrentFolder() { std::filesystem::current_path(folder.path()); }
  ~CurrentFolder() { std::filesystem::current_path(former); }
  const std::filesystem::path former = std::filesystem::current_path();
  const TemporaryFolder folder;
};

TEST_F(PagePieces, TheRecorderOfAHost) {
  const CurrentFolder here;
  Host host;
  Widget widget;
  const Ignore openPerson, showSource, showPath;
  const GoalResultView::OnRecordOutcome recordOutcome = record;
#include "docs/recording_1.inc"
  show(goalOf({"Ada"}));
  EXPECT_TRUE(std::filesystem::exists("bug.json"));
  show(goalOf({"Ada", "Bo"}));
  EXPECT_TRUE(host.notices.empty());
}

}  // namespace
}  // namespace vemra
