#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/Export.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace vemra {

/// What leaves the screen when the user records an outcome.
///
/// The surface stores nothing: the host takes this to the engine and comes back with a new
/// snapshot. The fields are stored as given and cannot be changed afterwards.
struct GoalOutcomeRecordingInput {
  const GoalOutcomeSubjectKind subjectKind;
  const std::optional<std::string> subjectRef;  ///< as the row gave it, byte for byte
  const GoalOutcomeValue outcome;
  const std::optional<std::string> note;               ///< nil when the user wrote none
  const std::optional<std::string> correctsOutcomeID;  ///< nil for a first recording

  /// Compares field by field in their order; strings canonically, nil only with nil.
  friend VEMRA_EXPORT bool operator==(const GoalOutcomeRecordingInput& a,
                                      const GoalOutcomeRecordingInput& b);
};

/// The decisions of the outcome form, free of any view: pure functions for any thread.
namespace GoalOutcomeRecordingFormLogic {

/// What the form shows.
struct FormValues {
  GoalOutcomeValue value;
  std::string note;
};

/// What the form shows when it opens.
///
/// `outcome` is the one to correct; its note is shown as stored, blanks and all. Nil stands for a
/// first recording, which begins at `wasUseful`, on purpose not the first of the choices.
VEMRA_EXPORT FormValues initialFormValues(const std::optional<GoalOutcomeDTO>& outcome);

/// Whether Save may be pressed.
///
/// "Something else" says nothing by itself and so demands a note that is more than blanks; every
/// other value may go without. Blanks are the characters with Unicode's White_Space property.
VEMRA_EXPORT bool canSave(GoalOutcomeValue selectedValue, std::string_view noteText);

/// What is handed to the host when Save is pressed.
///
/// The note loses the blanks at either end and is nil when nothing is left; blanks and line breaks
/// inside it stay. `correcting` is the outcome that this one corrects, or nil. Never refuses, not
/// even what `canSave` would: guarding Save is for the caller.
VEMRA_EXPORT GoalOutcomeRecordingInput
recordingInput(GoalOutcomeSubjectKind subjectKind, std::optional<std::string> subjectRef,
               GoalOutcomeValue selectedValue, std::string_view noteText,
               const std::optional<GoalOutcomeDTO>& correcting);

/// The English words for a value, shown as they are and never looked up; "" for what is no case.
VEMRA_EXPORT std::string_view label(GoalOutcomeValue value);

}  // namespace GoalOutcomeRecordingFormLogic
}  // namespace vemra
