#pragma once

class QAbstractButton;

namespace vemra::desk {

/// Makes a key that presses the button scroll the button into view first, in its scroll area: a key
/// must not act on a button that the user does not see. Other keys do not scroll.
void scrollInBeforeKeys(QAbstractButton& button);

}  // namespace vemra::desk
