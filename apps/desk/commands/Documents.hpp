#pragma once

#include "apps/desk/store/GoalStore.hpp"

#include <string>

/// \file
/// Result documents on their way into a store and out of it.

namespace vemra::desk {

/// Reads a result document that a store can take in; "-" is standard input. Throws a
/// `documents::DocumentError`, which names the file and the place.
GetGoalSnapshotResponse readDocument(const std::string& file);

/// The text of a result document.
std::string documentText(const GetGoalSnapshotResponse& result);

/// The line, without a line feed, that reports an outcome of a document which was not recorded.
///
/// - Parameter file: the name of the document.
std::string lineOf(const LeftOutOutcome& leftOut, const std::string& file,
                   const GetGoalSnapshotResponse& result);

/// The version of this program.
std::string programVersion();

}  // namespace vemra::desk
