#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace vemra::bench {

/// The lengths of the lists of a result.
struct SampleSize {
  std::size_t people = 100;
  /// Recorded outcomes about people who are not in the list, besides those of the sample's first
  /// people.
  std::size_t strayOutcomes = 0;
};

/// The result that every candidate is measured with: ten people in turn have all variants of a row,
/// and every tenth of the first hundred people has an outcome.
GetGoalSnapshotResponse sampleResult(SampleSize size);

/// The same result, with one outcome more at the end, for the person at that index. Its note makes
/// the row higher by a line.
GetGoalSnapshotResponse withOneOutcomeMore(const GetGoalSnapshotResponse& result,
                                           std::size_t person,
                                           std::optional<std::string> note = std::nullopt);

/// "vemra.goal.person.p7" for 7: the prefix of the identifiers of that person's controls.
std::string identifierPrefixOf(std::size_t person);
/// "vemra.goal.person.p7.outcome.start" for 7 and "outcome.start".
std::string identifierOf(std::size_t person, const std::string& control);

}  // namespace vemra::bench
