#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/Export.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vemra {

/// An outcome that the user has saved, for the host to store.
///
///     outcomes.insert({.subjectRef = input.subjectRef(), .note = input.note(), …});
///
/// The screen stores nothing: the host passes this to the engine and shows a new snapshot. A value:
/// it can be copied, assigned, swapped and erased from a vector, but none of its fields can be
/// changed. For any thread.
class GoalOutcomeRecordingInput {
 public:
  /// Stores the values unchanged: nothing is trimmed here (`recordingInput` does that). Without the
  /// last two: a first recording without a note.
  GoalOutcomeRecordingInput(GoalOutcomeSubjectKind subjectKind,
                            std::optional<std::string> subjectRef, GoalOutcomeValue outcome,
                            std::optional<std::string> note = std::nullopt,
                            std::optional<std::string> correctsOutcomeID = std::nullopt)
      : subjectKind_(subjectKind),
        subjectRef_(std::move(subjectRef)),
        outcome_(outcome),
        note_(std::move(note)),
        correctsOutcomeID_(std::move(correctsOutcomeID)) {}

  /// Whether the outcome is about a person or about a path.
  GoalOutcomeSubjectKind subjectKind() const { return subjectKind_; }
  /// The reference in the snapshot, byte for byte.
  const std::optional<std::string>& subjectRef() const { return subjectRef_; }
  /// The value that the user chose.
  GoalOutcomeValue outcome() const { return outcome_; }
  /// Nil when the user wrote no note.
  const std::optional<std::string>& note() const { return note_; }
  /// The id of the outcome that this one corrects; nil for a first recording.
  const std::optional<std::string>& correctsOutcomeID() const { return correctsOutcomeID_; }

  /// Compares field by field in their order; strings canonically, nil only with nil.
  friend VEMRA_EXPORT bool operator==(const GoalOutcomeRecordingInput& a,
                                      const GoalOutcomeRecordingInput& b);

 private:
  GoalOutcomeSubjectKind subjectKind_;
  std::optional<std::string> subjectRef_;
  GoalOutcomeValue outcome_;
  std::optional<std::string> note_;
  std::optional<std::string> correctsOutcomeID_;
};

/// The decisions of the outcome form, without a view: pure functions for any thread.
namespace GoalOutcomeRecordingFormLogic {

/// The values of the form.
struct FormValues {
  GoalOutcomeValue value;  ///< the selected outcome
  std::string note;        ///< the text of the note field, as typed
};

/// The values of the form when it opens.
///
/// `outcome` is the outcome to correct; its note is shown as stored, including blanks at either
/// end. Nil means a first recording, which begins with `wasUseful`, deliberately not the first of
/// the choices.
VEMRA_EXPORT FormValues initialFormValues(const std::optional<GoalOutcomeDTO>& outcome);

/// Whether Save may be pressed.
///
/// "Something else" means nothing by itself, so it needs a note with more than blanks; every other
/// value can be saved without a note. Blanks are the characters with Unicode's White_Space
/// property.
VEMRA_EXPORT bool canSave(GoalOutcomeValue selectedValue, std::string_view noteText);

/// The outcome that the host gets when the user presses Save.
///
/// The note loses the blanks at either end and is nil when nothing is left; blanks and line breaks
/// inside it stay. `correcting` is the outcome that this one corrects, or nil. Does not check
/// `canSave`: the caller does.
VEMRA_EXPORT GoalOutcomeRecordingInput
recordingInput(GoalOutcomeSubjectKind subjectKind, std::optional<std::string> subjectRef,
               GoalOutcomeValue selectedValue, std::string_view noteText,
               const std::optional<GoalOutcomeDTO>& correcting);

/// The English words for a value, shown unchanged and never looked up; "" for a value that is not a
/// case.
VEMRA_EXPORT std::string label(GoalOutcomeValue value);

}  // namespace GoalOutcomeRecordingFormLogic
}  // namespace vemra
