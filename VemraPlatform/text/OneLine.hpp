#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>
#include <string_view>

/// \file
/// Texts of others inside a message or a line of a report: whatever they hold, it stays one line,
/// read in the order in which it was written.

namespace vemra::text {

/// The text with escapes for what would end the line or turn it around.
///
/// That is the controls (`\n`, `\r`, `\t`, other ASCII ones as `\x1b`, the C1 controls as `\u0085`),
/// the line and paragraph separators (`\u2028`), and what has Unicode's Bidi_Control property
/// (PropList.txt), as `\u202e`. All else is byte for byte as given, ill-formed bytes too.
VEMRA_EXPORT std::string onOneLine(std::string_view text);

/// The same between quotation marks; those inside, and backslashes, with a backslash before them.
/// Two texts are never quoted alike.
VEMRA_EXPORT std::string quotedOnOneLine(std::string_view text);

}  // namespace vemra::text
