#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraPlatform/Export.hpp"
#include "apps/documents/JsonWriter.hpp"

#include <string>
#include <variant>

namespace vemra::recording {

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
VEMRA_EXPORT void writeCall(documents::JsonWriter& out, const Call& call);

/// The same as a text on one line.
VEMRA_EXPORT std::string callText(const Call& call);

}  // namespace vemra::recording
