#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace vemra::desk {

/// A value of a result with which the store does not take it in.
struct ResultFault {
  std::string pointer;  ///< its place in the result document, as a JSON pointer (RFC 6901)
  std::string problem;  ///< "expected …; found …"
};

/// Finds the first value with which no screen can show the result.
///
/// A screen counts the relationships between the user and a person as one fewer than the hops. With
/// the smallest 64-bit hop count this overflows, which stops the process. So the store neither takes
/// in nor hands out such a result: one document must not end the window at every start.
/// - Returns: none when the result can be shown.
std::optional<ResultFault> faultIn(const GetGoalSnapshotResponse& result);

/// How many texts the lists of a result may have in all: keywords, constraints, attachments, sources,
/// evidence of people, people of paths and groups. A million, and ten more for each person, path and
/// group, so that a long result may have its evidence.
///
/// Each text is a row of its own. A million takes the store a few seconds; 50 MB of empty texts
/// would keep it busy for half a minute.
std::size_t mostTexts(const GetGoalSnapshotResponse& result);

/// Finds what keeps a result from being taken in: the above, or the list that goes beyond
/// `mostTexts`.
std::optional<ResultFault> faultOfImport(const GetGoalSnapshotResponse& result);

}  // namespace vemra::desk
