#pragma once

#include "apps/desk/commands/Request.hpp"

#include <ostream>

namespace vemra::desk {

/// Shows the window and returns when it is closed.
///
/// - Returns: the exit code. 2, and a line on `diagnostics`, when there is no display, when the
///   store cannot be used or when it does not have the goal that is to be opened; then no window
///   has been shown and nothing is changed.
int showWindow(const Request& request, std::ostream& diagnostics);

}  // namespace vemra::desk
