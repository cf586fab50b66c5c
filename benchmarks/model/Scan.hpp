#pragma once

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

#include <string>

namespace vemra::bench {

enum class Alphabet { ascii, accented };

/// The reference of the outcome at that index: all of one length, as engines make them.
std::string referenceAt(std::size_t index, Alphabet alphabet);

/// A snapshot with so many outcomes, each about another person, and nothing else.
GoalResultSnapshotV1 snapshotWithOutcomes(std::size_t count, Alphabet alphabet);

/// The scan of `effectiveOutcome` with `std::string`'s own equality, for comparison.
const GoalOutcomeDTO* lastOutcomeByBytes(const GoalResultSnapshotV1& snapshot,
                                         const std::string& subjectRef);

}  // namespace vemra::bench
