#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>
#include <string_view>

namespace vemra::date {

/// Whether `abbreviatedDate` can write dates in a locale.
///
/// A locale is known when ICU lists its base (language, script, region, variant, joined by `_` or
/// `-`), old names such as zh_TW or iw_IL included. The root (`root`, `und`), to which locales fall
/// back, is no locale itself. Keywords may follow the base, as `@calendar=buddhist;numbers=thai` or
/// as a BCP 47 extension `-u-nu-arab`. They must be well-formed, and a calendar or a numbering
/// system must exist, by any name that CLDR or BCP 47 has for it (`gregorian`, `gregory`), in upper
/// or lower case. An encoding as in `en_US.UTF-8` is not part of a locale. An empty text is not a
/// locale.
VEMRA_EXPORT bool isKnownLocale(std::string_view locale);

/// The locale for dates of the user who started the process.
///
/// The first of LC_ALL, LC_TIME and LANG that is not empty, as in POSIX, without the encoding
/// (`.UTF-8`). The modifiers `@latin`, `@cyrillic` and `@devanagari` become a script; other
/// modifiers (`@euro`) are dropped. An unknown name loses its last part until it is known; when no
/// part is left, the result is `root`. `C`, `POSIX` and an environment without these variables give
/// `en_US_POSIX`; an empty LANG gives `root`.
///
/// Returns a known locale or `root`. Reads the environment on every call.
VEMRA_EXPORT std::string systemLocale();

}  // namespace vemra::date
