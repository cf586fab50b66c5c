#pragma once

#include <cstddef>

#include <QString>
#include <QStringList>

namespace vemra::desk {

/// A text of this program in the user's language: the translation of `english` in the built-in
/// table (`translations/`), or `english` itself. `installTranslations` comes first.
///
/// A test finds every call by the name of this function, so the argument is a literal.
QString localized(const char* english);

/// A number as the user's system writes numbers: in its digits, with its separators.
QString localizedNumber(std::size_t number);

/// The end of a list that names only the first of many: "and 2 more".
QString andMore(std::size_t others);

/// The first `most` of these texts, and `andMore` where there are others.
QStringList firstAndMore(const QStringList& texts, qsizetype most);

/// Loads this program's texts and Qt's own texts for the running application, in the first of
/// `languages` ("de-AT", "en") that this program supports. When that is English, or none, all texts
/// stay English, Qt's too: a window speaks one language, and its layout has the direction of that
/// language.
void installTranslations(const QStringList& languages);

}  // namespace vemra::desk
