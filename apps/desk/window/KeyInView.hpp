#pragma once

class QAbstractButton;

namespace vemra::desk {

/// Lets a key that presses the button scroll it into view first, in the scroll area that it stands
/// in: a key must not act where its reader does not see it. Other keys scroll nothing in.
void scrollInBeforeKeys(QAbstractButton& button);

}  // namespace vemra::desk
