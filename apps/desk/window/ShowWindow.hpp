#pragma once

#include "apps/desk/commands/Request.hpp"

#include <ostream>

namespace vemra::desk {

/// Shows the window and returns when it is closed. When the store cannot be opened, `diagnostics`
/// gets a line with the reason, and the window offers the possible actions.
///
/// - Returns: the exit code. 2, with a line on `diagnostics`, when there is no display, when the
///   store does not have the requested goal, and when no store was open at the end, or none could
///   be opened and no person sees the window (the platforms "offscreen" and "minimal").
int showWindow(const Request& request, std::ostream& diagnostics);

}  // namespace vemra::desk
