#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>
#include <string_view>

/// \file
/// Foreign texts inside a message or a line of a report: whatever a text contains, the message
/// stays one line, and a terminal shows it in its order.

namespace vemra::text {

/// The text with escapes for the characters that would end the line or change its order.
///
/// These are the controls (`\n`, `\r`, `\t`, other ASCII ones as `\x1b`, the C1 controls as
/// `\u0085`), the line and paragraph separators (`\u2028`), and the characters with Unicode's
/// Bidi_Control property (PropList.txt), as `\u202e`. All other bytes stay as they are, ill-formed
/// ones too.
VEMRA_EXPORT std::string onOneLine(std::string_view text);

/// The same between quotation marks, with a backslash before each quotation mark and backslash in
/// the text. Two different texts never give the same result.
VEMRA_EXPORT std::string quotedOnOneLine(std::string_view text);

}  // namespace vemra::text
