#pragma once

#include "tests/VemraQt/monkey/Step.hpp"

#include <optional>
#include <string>

namespace vemra::monkey {

/// Carries out the story on a window and on a screen without one. Returns nil when they agreed
/// after every step, else the disagreement and the shortest story found that still has it, as code.
/// When the process crashes, the seed and the step are written to standard error.
std::optional<std::string> tell(std::uint64_t seed, const Story& story);

}  // namespace vemra::monkey
