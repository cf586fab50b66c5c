#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace vemra::desk {

/// A value that makes the store refuse a result.
struct ResultFault {
  std::string pointer;  ///< its place in the result document, as a JSON pointer (RFC 6901)
  std::string problem;  ///< "expected …; found …"
};

/// Finds the first value that makes it impossible to show the result.
///
/// A screen computes the number of relationships between the user and a person as the hop count
/// minus one. With the smallest 64-bit hop count this overflows, which stops the process. So the
/// store neither accepts nor returns such a result; otherwise one document would end the window at
/// every start.
/// - Returns: none when the result can be shown.
std::optional<ResultFault> faultIn(const GetGoalSnapshotResponse& result);

/// The greatest number of texts in all lists of a result: keywords, constraints, attachments,
/// sources, evidence of people, people of paths and groups. It is a million, plus ten for each
/// person, path and group, so that a long result may have its evidence.
///
/// Each text is a row of its own. Storing a million texts takes a few seconds; 50 MB of empty texts
/// would take half a minute.
std::size_t mostTexts(const GetGoalSnapshotResponse& result);

/// Finds the reason to refuse an import: a fault from `faultIn`, or the list that exceeds
/// `mostTexts`.
std::optional<ResultFault> faultOfImport(const GetGoalSnapshotResponse& result);

}  // namespace vemra::desk
