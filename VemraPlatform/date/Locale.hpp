#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>
#include <string_view>

namespace vemra::date {

/// Says whether a locale is one whose dates can be written.
///
/// It is known when its base (language, script, region, variant, joined by `_` or `-`) is one that
/// ICU lists, old names such as zh_TW or iw_IL included. The root (`root`, `und`) is what locales
/// fall back to and no locale itself. Behind the base there may be keywords, as
/// `@calendar=buddhist;numbers=thai` or as a BCP 47 extension `-u-nu-arab`; then they have to be
/// well-formed, and a calendar or a numbering system has to exist, by any name that CLDR or BCP 47 has
/// for it (`gregorian`, `gregory`) and in any case. An encoding as in `en_US.UTF-8` is not part of
/// a locale. Empty text is not a locale.
VEMRA_EXPORT bool isKnownLocale(std::string_view locale);

/// The locale for dates of the user who started the process.
///
/// The first of LC_ALL, LC_TIME and LANG that is not empty, as POSIX has it, without the encoding
/// (`.UTF-8`). Of the modifiers, `@latin`, `@cyrillic` and `@devanagari` become the script they
/// stand for and others (`@euro`) are dropped. A name that is not known loses its last part until
/// it is; when nothing is left, it is `root`. `C` and `POSIX`, and no variable at all, are
/// `en_US_POSIX`; an empty LANG is `root`.
///
/// Gives a known locale or `root`. Reads the environment on every call.
VEMRA_EXPORT std::string systemLocale();

}  // namespace vemra::date
