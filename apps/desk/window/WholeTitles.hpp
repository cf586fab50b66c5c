#pragma once

class QMessageBox;

namespace vemra::desk {

/// The width beyond which no `QMessageBox` grows on a screen of that width, in device-independent
/// pixels, as Qt 6 computes it.
int widestBox(int screen);

/// Keeps the titles of the buttons of a box whole: stacks them where the box has no room for a row,
/// and leaves out the icons that some styles add. From right to left Qt moves a title beside
/// an icon onto the edge of its button. Call it when the box has all its buttons.
void keepTitlesWhole(QMessageBox& box);

}  // namespace vemra::desk
