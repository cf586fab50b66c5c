#pragma once

namespace vemra::toolkit {

/// Suppresses the toolkit's messages about the user's environment, which a program cannot change:
/// about folders, and, in newer versions, about a locale that is not UTF-8 and that the toolkit
/// replaces. All other messages are forwarded as before.
///
/// Call it once, before making the `QApplication`.
void leaveOutRemarksAboutTheEnvironment();

}  // namespace vemra::toolkit
