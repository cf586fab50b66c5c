#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/documents/JsonReader.hpp"

#include <string>
#include <string_view>

/// \file
/// Result documents: one goal's evaluated result as JSON.
///
/// Required are all keys but those of optional fields, where absent and null both mean nil, and
/// `evidenceIDs`, which absent is empty. What the engine keeps besides what a screen shows may be
/// given under the names of its records; absent, it has the records' own default: of a goal
/// `status`, `createdAt`, `updatedAt`, `priority`, `keywords`, `keywordsRevision`, `constraints`,
/// `constraintsRevision` and `attachmentRefs`, of a path `strength`, of a group `personRefs`, of an
/// outcome `goalID`, `recordedAt` and `recordedBy`.

namespace vemra::documents {

/// Reads a result inside another document.
GetGoalSnapshotResponse readResult(JsonReader& reader);

/// Reads a text that is a result document and nothing else. `file` is its name in errors.
GetGoalSnapshotResponse readResultText(std::string_view text, const std::string& file);

/// Reads the result document in a file, or from standard input when `path` is "-".
///
/// These throw a `DocumentError` for any text that is not a result document.
GetGoalSnapshotResponse readResultFile(const std::string& path);

}  // namespace vemra::documents
