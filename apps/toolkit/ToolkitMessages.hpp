#pragma once

namespace vemra::toolkit {

/// From now on what the toolkit has to say is passed on as before, but for its remarks about the user's
/// environment, which nothing in a program could heed: about folders, and, in newer versions, about a locale
/// that is not UTF-8, in whose place it takes one that is.
///
/// To be called once, before there is a `QApplication`.
void leaveOutRemarksAboutTheEnvironment();

}  // namespace vemra::toolkit
