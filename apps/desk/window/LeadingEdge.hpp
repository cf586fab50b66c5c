#pragma once

class QLabel;

namespace vemra::desk {

/// Makes the lines of a label begin at its leading edge (left, or right in a layout from right to
/// left), whatever direction their text has. Qt would put a text from left to right at the left
/// edge of both layouts. Follows later changes of the layout.
void alignAtLeadingEdge(QLabel& label);

}  // namespace vemra::desk
