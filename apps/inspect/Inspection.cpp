#include "apps/inspect/Inspection.hpp"

#include "VemraGoalSurface/GoalResultView.hpp"

#include <variant>

namespace vemra::inspect {

Inspection::Inspection(const Case& inspected)
    : screen_(view(inspected.result), inspected.environment) {}

StepResult Inspection::carryOut(const Step& step) {
  struct Act {
    Inspection& inspection;
    testing::Screen& screen;

    void operator()(const PressIdentifier& press) { screen.press(press.identifier); }
    void operator()(const PressTitle& press) {
      screen.press(testing::button(press.title, press.index));
    }
    void operator()(const Select& select) {
      screen.select(select.identifier, caseName(select.value));
    }
    void operator()(const Type& type) { screen.type(type.identifier, type.text); }
    void operator()(const Submit& submit) { screen.submit(submit.identifier); }
    void operator()(const NewResult& handedIn) { screen.show(inspection.view(*handedIn.result)); }
  };
  try {
    std::visit(Act{*this, screen_}, step);
  } catch (const testing::ElementError& error) {
    return error.reason();
  }
  return std::nullopt;
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
