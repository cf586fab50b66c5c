#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/Database.hpp"

#include <cstdint>

/// \file
/// A goal's result as rows, except its outcomes. Call these functions inside a transaction.

namespace vemra::desk {

/// Adds a goal with its result and returns its number, which identifies it in the tables.
std::int64_t addResult(Database& database, const GetGoalSnapshotResponse& result);

/// Replaces a goal's result. Its outcomes stay.
void replaceResult(Database& database, std::int64_t number, const GetGoalSnapshotResponse& result);

/// Reads a goal's result, without its outcomes.
GetGoalSnapshotResponse readResultRows(Database& database, std::int64_t number);

}  // namespace vemra::desk
