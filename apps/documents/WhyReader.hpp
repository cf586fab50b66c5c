#pragma once

#include "VemraGoalEngine/GoalWhyDTO.hpp"
#include "apps/documents/JsonReader.hpp"

namespace vemra::documents {

/// Reads a reason: an object with `kind` and exactly the fields of that kind, in any order.
GoalWhyDTO readWhy(JsonReader& reader);

}  // namespace vemra::documents
