#pragma once

#include "VemraGoalEngine/GoalToolExecutor.hpp"
#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/task/Task.hpp"

#include <memory>
#include <string>

/// The one place where the surface asks the engine for data.
namespace vemra::GoalResultProjectionReader {

/// Loads the result of a goal: one query, its answer as a snapshot.
///
/// Nothing is kept between calls; two calls make two queries. The task begins when it is awaited
/// and goes on wherever the engine resumes it; it never moves to the main thread, which is the
/// host's step before it shows the snapshot. Cancelling is the engine's affair.
/// - Parameter executor: not null; kept until the query has ended, with a value or an exception,
///   and released before the awaiting caller continues. When the reader is its last owner, its
///   destructor runs on the thread on which the query ends, which may be a thread of the engine: an
///   executor that joins its own thread must be able to end on it. A task that is destroyed before
///   it was awaited releases the executor on the thread that destroys the task.
/// - Parameter goalID: goes to the engine byte for byte, blank or empty as it may be.
/// - Throws: what the query throws, as the very same exception object; nothing else is ever thrown.
VEMRA_EXPORT task::Task<GoalResultSnapshotV1> makeSnapshot(
    std::shared_ptr<GoalToolExecutor> executor, std::string goalID);

}  // namespace vemra::GoalResultProjectionReader
