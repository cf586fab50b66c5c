#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>
#include <string_view>
#include <vector>

/// \file
/// Texts on a terminal, whose characters all take one column, two, or none.

namespace vemra::text {

/// What a reader takes for one character (a grapheme cluster, Unicode Annex 29).
struct Glyph {
  std::string_view bytes;
  /// The columns that it takes: two where East Asian Width is W or F (Unicode Annex 11) and for an
  /// emoji of several parts, none for marks, else one for each letter that it is made of.
  int columns = 0;
};

/// The characters of a UTF-8 text, which must outlive them.
VEMRA_EXPORT std::vector<Glyph> glyphs(std::string_view text);

/// How many columns a text takes on one line.
VEMRA_EXPORT int columns(std::string_view text);

/// Breaks a text into lines of at most that many columns: at each end of a line in it; where a line may
/// be broken (Unicode Annex 14); and inside a word that is wider than a line. Blanks at the end of a
/// broken line are left out. A character that is wider than `most` has a line of its own.
///
/// What a terminal would obey or reorder (control characters, marks of direction) is escaped as by
/// `onOneLine`; ill-formed bytes become U+FFFD.
///
/// - Parameter most: 1 or more.
/// - Returns: one line at least.
VEMRA_EXPORT std::vector<std::string> linesOf(std::string_view text, int most);

}  // namespace vemra::text
