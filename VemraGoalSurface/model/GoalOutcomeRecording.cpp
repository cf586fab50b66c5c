#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/text/Trim.hpp"

#include <utility>

namespace vemra {

bool operator==(const GoalOutcomeRecordingInput& a, const GoalOutcomeRecordingInput& b) {
  return a.subjectKind == b.subjectKind && text::equal(a.subjectRef, b.subjectRef) &&
         a.outcome == b.outcome && text::equal(a.note, b.note) &&
         text::equal(a.correctsOutcomeID, b.correctsOutcomeID);
}

namespace GoalOutcomeRecordingFormLogic {

FormValues initialFormValues(const std::optional<GoalOutcomeDTO>& outcome) {
  if (!outcome.has_value()) return {GoalOutcomeValue::wasUseful, ""};
  return {outcome->value, outcome->note.value_or("")};
}

bool canSave(GoalOutcomeValue selectedValue, std::string_view noteText) {
  return selectedValue != GoalOutcomeValue::somethingElse || !text::isBlank(noteText);
}

GoalOutcomeRecordingInput recordingInput(GoalOutcomeSubjectKind subjectKind,
                                         std::optional<std::string> subjectRef,
                                         GoalOutcomeValue selectedValue, std::string_view noteText,
                                         const std::optional<GoalOutcomeDTO>& correcting) {
  const std::string_view note = text::trimmed(noteText);
  return {
      .subjectKind = subjectKind,
      .subjectRef = std::move(subjectRef),
      .outcome = selectedValue,
      .note = note.empty() ? std::nullopt : std::optional<std::string>(note),
      .correctsOutcomeID = correcting.has_value() ? std::optional(correcting->id) : std::nullopt,
  };
}

std::string_view label(GoalOutcomeValue value) {
  switch (value) {
    case GoalOutcomeValue::reachedOut:
      return "Reached out";
    case GoalOutcomeValue::invited:
      return "Invited";
    case GoalOutcomeValue::introduced:
      return "Introduced";
    case GoalOutcomeValue::helped:
      return "Helped";
    case GoalOutcomeValue::wasUseful:
      return "Was useful";
    case GoalOutcomeValue::notAFit:
      return "Not a fit";
    case GoalOutcomeValue::noActionTaken:
      return "No action taken";
    case GoalOutcomeValue::somethingElse:
      return "Something else";
  }
  return "";
}

}  // namespace GoalOutcomeRecordingFormLogic
}  // namespace vemra
