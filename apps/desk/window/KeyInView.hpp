#pragma once

class QAbstractButton;
class QWidget;

namespace vemra::desk {

/// Scrolls a widget into view in the scroll areas around it.
void scrollIn(QWidget& widget);

/// Makes a key that presses the button scroll the button into view first, in its scroll area: a key
/// must not act on a button that the user does not see. Other keys do not scroll.
void scrollInBeforeKeys(QAbstractButton& button);

}  // namespace vemra::desk
