#pragma once

/// \file
/// How the view layer stops when a program breaks its rules. Internal to the view layer.

namespace vemra::ui {

struct Node;

/// Ends the process with a message that names the error, the view, its identifier and its row,
/// where there are any. Never for user data.
///
/// - Parameter view: the view at fault; nullptr when no view is at fault.
[[noreturn]] void programmerError(const char* what, const Node* view);

}  // namespace vemra::ui
