#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/text/Trim.hpp"

#include <utility>

namespace vemra {

bool operator==(const GoalOutcomeRecordingInput& a, const GoalOutcomeRecordingInput& b) {
  return a.subjectKind_ == b.subjectKind_ && text::equal(a.subjectRef_, b.subjectRef_) &&
         a.outcome_ == b.outcome_ && text::equal(a.note_, b.note_) &&
         text::equal(a.correctsOutcomeID_, b.correctsOutcomeID_);
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
  return {subjectKind, std::move(subjectRef), selectedValue,
          note.empty() ? std::nullopt : std::optional<std::string>(note),
          correcting.has_value() ? std::optional(correcting->id) : std::nullopt};
}

std::string label(GoalOutcomeValue value) {
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
