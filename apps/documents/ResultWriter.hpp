#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/documents/JsonWriter.hpp"

#include <string>

/// \file
/// Engine records in the form of result documents.
///
/// Optional fields that a screen shows are written as null when they are nil; what the engine keeps
/// besides is left out at its default. Reading what was written gives an equal record. Strings keep
/// their bytes, except for ill-formed UTF-8, which no JSON text can contain (see
/// `appendJsonEscaped`).

namespace vemra::documents {

/// The result document of a result, with a line break at its end.
std::string writeResult(const GetGoalSnapshotResponse& result);

/// A JSON array of the outcomes in the given order, with a line break at its end.
std::string writeOutcomes(const SharedArray<GoalOutcomeDTO>& outcomes);

/// The same as the next value of a larger document.
void writeResult(JsonWriter& writer, const GetGoalSnapshotResponse& result);

/// One record as the next value of a larger document.
void writePath(JsonWriter& writer, const GoalPathCandidateDTO& path);
void writeOutcome(JsonWriter& writer, const GoalOutcomeDTO& outcome);

}  // namespace vemra::documents
