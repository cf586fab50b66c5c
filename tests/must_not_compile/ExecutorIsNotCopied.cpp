#include "VemraGoalEngine/GoalToolExecutor.hpp"

class Engine : public vemra::GoalToolExecutor {
 public:
  vemra::task::Task<vemra::GetGoalSnapshotResponse> getGoalSnapshot(std::string) override {
    co_return vemra::GetGoalSnapshotResponse{};
  }
};

void tryToCopy(Engine& engine) {
  Engine other;
#ifdef MUST_NOT_COMPILE
  Engine copy = engine;
#endif
}
