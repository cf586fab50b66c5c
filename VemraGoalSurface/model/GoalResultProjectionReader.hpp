#pragma once

#include "VemraGoalEngine/GoalToolExecutor.hpp"
#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/task/Task.hpp"

#include <memory>
#include <string>

/// Queries the engine for the data of the screen; no other code does.
namespace vemra::GoalResultProjectionReader {

/// Loads the result of a goal: makes one query and returns its answer as a snapshot.
///
/// Nothing is kept between calls; two calls make two queries. The task begins when it is awaited
/// and continues on the thread on which the engine resumes it. It never changes to the main thread:
/// the host does that before it shows the snapshot. There is no cancellation here; an engine may
/// have its own.
/// - Parameter executor: null stops the process with a message. Kept until the query has ended,
///   with a value or an exception, and released before the awaiting caller continues. When the
///   reader is its last owner, its destructor runs on the thread on which the query ends, which may
///   be a thread of the engine: an executor that joins its own thread must be able to end on it. A
///   task that is destroyed before it was awaited releases the executor on the thread that destroys
///   the task.
/// - Parameter goalID: passed to the engine byte for byte, also when it is blank or empty.
/// - Throws: the exception of the query, the same object; no other.
VEMRA_EXPORT task::Task<GoalResultSnapshotV1> makeSnapshot(
    std::shared_ptr<GoalToolExecutor> executor, std::string goalID);

}  // namespace vemra::GoalResultProjectionReader
