#pragma once

#include <string>
#include <vector>

namespace vemra {

/// The 25 characters with Unicode's property White_Space (PropList.txt), each in UTF-8.
inline const std::vector<std::string> blanks = {
    "\t",     "\n",     "\v",     "\f",     "\r",     " ",      "\u0085", "\u00A0", "\u1680",
    "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
    "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"};

}  // namespace vemra
