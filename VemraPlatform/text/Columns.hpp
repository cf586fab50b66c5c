#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>
#include <string_view>
#include <vector>

/// \file
/// Texts on a terminal, where every character takes one column, two, or none.

namespace vemra::text {

/// One character as a reader counts it (a grapheme cluster, Unicode Annex 29).
struct Glyph {
  std::string_view bytes;  ///< the character in UTF-8, part of the text that was read
  /// The number of columns: two where East Asian Width is W or F (Unicode Annex 11) and for an
  /// emoji of several parts, none for marks, else one for each letter in it.
  int columns = 0;
};

/// The characters of a UTF-8 text, which must outlive them.
VEMRA_EXPORT std::vector<Glyph> glyphs(std::string_view text);

/// The number of columns of a text on one line.
VEMRA_EXPORT int columns(std::string_view text);

/// Breaks a text into lines of at most `most` columns: at its own line breaks; where Unicode Annex
/// 14 allows a break; and inside a word that is wider than a line. Omits blanks at the end of a
/// broken line. A character that is wider than `most` gets a line of its own.
///
/// Escapes the characters that a terminal would obey or reorder (control characters, marks of
/// direction) like `onOneLine`; replaces ill-formed bytes by U+FFFD.
///
/// - Parameter most: 1 or more.
/// - Returns: one line at least.
VEMRA_EXPORT std::vector<std::string> linesOf(std::string_view text, int most);

}  // namespace vemra::text
