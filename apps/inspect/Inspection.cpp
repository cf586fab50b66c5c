#include "apps/inspect/Inspection.hpp"

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraTesting/Outline.hpp"

#include <algorithm>
#include <utility>
#include <variant>

namespace vemra::inspect {

using recording::FocusPathInStarfold;
using recording::OpenPerson;
using recording::RecordOutcome;
using recording::ShowEvidence;

Inspection::Inspection(const Case& inspected)
    : environment_(inspected.environment),
      namesCalls_(inspected.recorded.has_value() ||
                  std::ranges::any_of(
                      inspected.steps,
                      [](const Step& step) { return std::holds_alternative<ExpectCall>(step); })),
      first_(view(inspected.result)) {}

Inspection::Screens& Inspection::mounted() const {
  if (screens_.empty()) screens_.push_back(std::make_unique<testing::Screen>(first_, environment_));
  return screens_;
}

void Inspection::readGraph(const std::function<void(ui::ViewGraph&)>& read) const {
  if (!screens_.empty()) {
    read(mounted()[shown_]->graph());
    return;
  }
  ui::ViewGraph graph(environment_);
  graph.setRoot(first_);
  read(graph);
}

std::string Inspection::outline() const {
  std::string outline;
  readGraph([&](ui::ViewGraph& graph) { outline = testing::outline(graph); });
  return outline;
}

StepResult Inspection::carryOut(const Step& step) {
  using testing::byIdentifier;
  struct Doer {
    Inspection& inspection;
    testing::Screen& screen;

    StepResult operator()(const PressIdentifier& press) {
      return screen.attempt(byIdentifier(press.identifier, press.index), ui::Press{});
    }
    StepResult operator()(const PressTitle& press) {
      return screen.attempt(testing::button(press.title, press.index), ui::Press{});
    }
    StepResult operator()(const Select& select) {
      return screen.attempt(byIdentifier(select.identifier, select.index),
                            testing::Choose{std::string(caseName(select.value))});
    }
    StepResult operator()(const Type& type) {
      return screen.attempt(byIdentifier(type.identifier, type.index), ui::EditText{type.text});
    }
    StepResult operator()(const Submit& submit) {
      return screen.attempt(byIdentifier(submit.identifier, submit.index), ui::Submit{});
    }
    StepResult operator()(const NewResult& handedIn) {
      auto& screens = inspection.screens_;
      inspection.shown_ = handedIn.screen.value_or(inspection.shown_);
      ui::View view = inspection.view(*handedIn.result);
      if (inspection.shown_ == screens.size()) {
        screens.push_back(
            std::make_unique<testing::Screen>(std::move(view), inspection.environment_));
      } else {
        inspection.screen().show(std::move(view));
      }
      return std::nullopt;
    }
    StepResult operator()(const ShowScreen& show) {
      inspection.shown_ = show.screen;
      return std::nullopt;
    }
    StepResult operator()(const ExpectCall& expected) {
      return inspection.nextCallIs(expected.call);
    }
  };
  return std::visit(Doer{*this, screen()}, step);
}

StepResult Inspection::nextCallIs(const std::string& call) {
  if (callsExpected_ == calls_.size()) return "expected the call " + call + "; found none";
  const std::string made = recording::callText(calls_[callsExpected_++]);
  if (made == call) return std::nullopt;
  return "expected the call " + call + "; found " + made;
}

StepResult Inspection::finish() const {
  if (!namesCalls_ || callsExpected_ == calls_.size()) return std::nullopt;
  const std::size_t more = calls_.size() - callsExpected_ - 1;
  return "expected no further call; found " + recording::callText(calls_[callsExpected_]) +
         (more > 0 ? " and " + std::to_string(more) + " more" : "");
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
