#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>
#include <string_view>

/// \file
/// Quotes texts from outside in a message or a report, so that the message stays on one line and a
/// terminal does not reorder it, whatever the text contains.

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
