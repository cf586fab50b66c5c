#pragma once

#include <array>
#include <string_view>

namespace vemra {

/// The keys that the goal result screen looks up in the strings table of its environment: all of
/// them, so that a table can be written down or checked without a screen.
inline constexpr std::array<std::string_view, 12> goalResultScreenKeys{"People worth considering",
                                                                       "Show source",
                                                                       "Supported path",
                                                                       "See in Starfold",
                                                                       "Cancel",
                                                                       "No source evidence yet.",
                                                                       "Record outcome",
                                                                       "\u00B7 corrected",
                                                                       "Correct",
                                                                       "Outcome",
                                                                       "Note (optional)",
                                                                       "Save"};

}  // namespace vemra
