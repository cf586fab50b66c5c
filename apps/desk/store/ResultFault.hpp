#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <optional>
#include <string>

namespace vemra::desk {

/// A value of a result that keeps the result out of the store.
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

}  // namespace vemra::desk
