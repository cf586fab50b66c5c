#pragma once

namespace vemra::toolkit {

/// From now on what the toolkit has to say is passed on as before, but for its remarks about the
/// folders of the user's environment, which nothing in a program could heed.
///
/// To be called once, before there is a `QApplication`.
void leaveOutRemarksAboutFolders();

}  // namespace vemra::toolkit
