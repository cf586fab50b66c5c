#pragma once

/// \file
/// How the view layer stops when its own rules are broken. Internal to the view layer.

namespace vemra::ui {

struct Node;

/// Ends the process with a message that says what is wrong and names the view, its identifier and
/// the row it stands in, as far as there are any. Never for user data.
///
/// - Parameter view: where it happened; nullptr when no view can be blamed.
[[noreturn]] void programmerError(const char* what, const Node* view);

}  // namespace vemra::ui
