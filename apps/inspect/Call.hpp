#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "apps/documents/JsonWriter.hpp"

#include <string>
#include <variant>

namespace vemra::inspect {

/// \name Calls
/// What the screen asked of its host. @{
struct OpenPerson {
  std::string personRef;
};
struct ShowEvidence {
  std::string evidenceID;
};
struct FocusPathInStarfold {
  GoalPathCandidateDTO path;
};
struct RecordOutcome {
  GoalOutcomeRecordingInput input;
};
/// @}

using Call = std::variant<OpenPerson, ShowEvidence, FocusPathInStarfold, RecordOutcome>;

/// Writes `{"callback": …, "argument": …}`.
void writeCall(documents::JsonWriter& out, const Call& call);

}  // namespace vemra::inspect
