#pragma once

#include "tests/VemraQt/monkey/Step.hpp"

#include <optional>
#include <string>

namespace vemra::monkey {

/// Tells the story to a window and to a screen without one. Nil when they agreed all the way, else
/// what went wrong and the shortest story found in which it still does, as code. When the process
/// dies on the way, the seed and the step are written to standard error.
std::optional<std::string> tell(std::uint64_t seed, const Story& story);

}  // namespace vemra::monkey
