#pragma once

class QWidget;

namespace vemra::desk {

/// Shows the name and the version of the program.
void showAbout(QWidget& parent);
/// Shows the keys of the window.
void showKeyboardHelp(QWidget& parent);

}  // namespace vemra::desk
