#pragma once

#include "VemraGoalEngine/GoalWhyDTO.hpp"
#include "VemraPlatform/Export.hpp"

#include <string>

/// The line with the reason for suggesting a person or a path.
namespace vemra::GoalWhyPresentation {

/// The English line for a reason, shown unchanged and never looked up; without a full stop.
///
/// It contains the engine's texts byte for byte; counts are plain base-10 integers. For any thread.
///
/// | reason | line |
/// |---|---|
/// | evidence | `label: detail`, also when they are empty |
/// | connection, 1 hop | Direct relationship evidence |
/// | connection, n + 1 hops | Connected through n shared relationship(s); n may be negative |
/// | shared activity | 3 shared threads, 1 shared meeting; counts below 1 are left out |
/// | shared activity, no count above 0 | Relationship evidence |
/// | name match | Matches on name |
/// | any other plain reason | Candidate person |
///
/// A hop count of the smallest 64-bit integer has no predecessor and stops the process.
VEMRA_EXPORT std::string text(const GoalWhyDTO& why);

}  // namespace vemra::GoalWhyPresentation
