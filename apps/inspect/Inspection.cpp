#include "apps/inspect/Inspection.hpp"

#include "VemraGoalSurface/GoalResultView.hpp"

#include <variant>

namespace vemra::inspect {

Inspection::Inspection(const Case& inspected)
    : screen_(view(inspected.result), inspected.environment) {}

StepResult Inspection::carryOut(const Step& step) {
  using testing::byIdentifier;
  struct Doer {
    Inspection& inspection;
    testing::Screen& screen;

    StepResult operator()(const PressIdentifier& press) {
      return screen.attempt(byIdentifier(press.identifier), ui::Press{});
    }
    StepResult operator()(const PressTitle& press) {
      return screen.attempt(testing::button(press.title, press.index), ui::Press{});
    }
    StepResult operator()(const Select& select) {
      return screen.attempt(byIdentifier(select.identifier),
                            testing::Choose{std::string(caseName(select.value))});
    }
    StepResult operator()(const Type& type) {
      return screen.attempt(byIdentifier(type.identifier), ui::EditText{type.text});
    }
    StepResult operator()(const Submit& submit) {
      return screen.attempt(byIdentifier(submit.identifier), ui::Submit{});
    }
    StepResult operator()(const NewResult& handedIn) {
      screen.show(inspection.view(*handedIn.result));
      return std::nullopt;
    }
  };
  return std::visit(Doer{*this, screen_}, step);
}

ui::View Inspection::view(const GetGoalSnapshotResponse& result) {
  return GoalResultView(
      GoalResultSnapshotV1(result),
      [this](const std::string& personRef) { calls_.emplace_back(OpenPerson{personRef}); },
      [this](const std::string& evidenceID) { calls_.emplace_back(ShowEvidence{evidenceID}); },
      [this](const GoalPathCandidateDTO& path) { calls_.emplace_back(FocusPathInStarfold{path}); },
      [this](const GoalOutcomeRecordingInput& input) {
        calls_.emplace_back(RecordOutcome{input});
      });
}

}  // namespace vemra::inspect
