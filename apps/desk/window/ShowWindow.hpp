#pragma once

#include "apps/desk/commands/Request.hpp"

#include <ostream>

namespace vemra::desk {

/// Shows the window and returns when it is closed.
///
/// - Returns: the exit code. 2, with a line on `diagnostics`, when there is no display, when the
///   store cannot be used, or when the store does not have the requested goal; then no window was
///   shown and nothing was changed.
int showWindow(const Request& request, std::ostream& diagnostics);

}  // namespace vemra::desk
