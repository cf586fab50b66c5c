#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/Database.hpp"

#include <cstdint>

/// \file
/// A goal's result as rows: everything but its outcomes. To be called inside a transaction.

namespace vemra::desk {

/// Adds a goal with its result and gives its number, by which the tables know it.
std::int64_t addResult(Database& database, const GetGoalSnapshotResponse& result);

/// Puts another result in the place of a goal's. Its outcomes stay.
void replaceResult(Database& database, std::int64_t number, const GetGoalSnapshotResponse& result);

/// Reads a goal's result; its outcomes are left empty.
GetGoalSnapshotResponse readResultRows(Database& database, std::int64_t number);

}  // namespace vemra::desk
