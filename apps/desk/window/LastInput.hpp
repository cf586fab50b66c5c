#pragma once

namespace vemra::desk {

/// The user's means of input.
enum class Input { key, mouse };

/// The input that the user has used last in a window of this program: a focus ring is for the
/// keyboard. A key before the first call does not count. Main thread only.
Input lastInput();

}  // namespace vemra::desk
