#include "VemraGoalEngine/GoalToolExecutor.hpp"
#include "VemraPlatform/task/Start.hpp"
#include "tests/VemraGoalEngine/SampleRecords.hpp"

#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

namespace vemra {
namespace {

class SampleEngine : public GoalToolExecutor {
 public:
  explicit SampleEngine(bool* isGone = nullptr) : isGone_(isGone) {}
  ~SampleEngine() override {
    if (isGone_ != nullptr) *isGone_ = true;
  }
  task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string goalID) override {
    GetGoalSnapshotResponse response = sample::response();
    response.goal.id = std::move(goalID);
    co_return response;
  }

 private:
  bool* isGone_;
};

class RenamingEngine : public SampleEngine {
 public:
  task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string goalID) override {
    return SampleEngine::getGoalSnapshot("renamed " + goalID);
  }
};

TEST(GoalToolExecutor, TheOverriddenQueryAnswers) {
  const std::shared_ptr<GoalToolExecutor> engine = std::make_shared<SampleEngine>();
  EXPECT_EQ(task::wait(engine->getGoalSnapshot("g")).goal.id, "g");
  const std::shared_ptr<GoalToolExecutor> other = std::make_shared<RenamingEngine>();
  EXPECT_EQ(task::wait(other->getGoalSnapshot("g")).goal.id, "renamed g");
}

TEST(GoalToolExecutor, IsSharedAndIsDestroyedWithItsLastOwner) {
  static_assert(!std::is_copy_constructible_v<SampleEngine>);
  static_assert(!std::is_copy_assignable_v<SampleEngine>);
  bool isGone = false;
  std::shared_ptr<GoalToolExecutor> engine = std::make_shared<SampleEngine>(&isGone);
  std::shared_ptr<GoalToolExecutor> second = engine;
  engine.reset();
  EXPECT_FALSE(isGone);
  second.reset();
  EXPECT_TRUE(isGone);
}

}  // namespace
}  // namespace vemra
