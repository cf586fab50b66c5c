#pragma once

#include "apps/desk/window/Ink.hpp"
#include "apps/desk/window/RoleLabel.hpp"

#include <string>
#include <string_view>

#include <QString>

/// \file
/// Shows texts of people and engines in widgets literally, whatever characters they contain.

namespace vemra::desk {

inline QString fromUTF8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The width of the longest line of text that is easy to read, about 75 characters.
int longestLine(const QWidget& widget);

/// A label with wrapped, literal text in a role (`RoleLabel`).
QLabel* makeLabel(const QString& text, TextRole role);

/// The text on one line, for a message: line breaks are blanks, and after 80 characters comes "…".
QString onOneShortLine(const QString& text);

/// A name or a title for a message: on one short line, and isolated, so that its direction changes
/// nothing around it (U+2068, U+2069; Unicode Annex 9). Other characters that set a direction are
/// left out, because one without its end would reach beyond the name.
QString nameInMessage(const QString& name);

/// The text inside another one: isolated when it contains characters of the other direction than
/// the window's texts, so that neither changes the order of the other (U+2068, U+2069). A mark
/// before it (U+200E, U+200F) gives the sentence the direction of the window. Characters that set a
/// direction are left out, as in `nameInMessage`.
QString isolated(const QString& whole);

/// The text as the title of a button, where Qt would interpret "&".
QString asButtonTitle(QString text);

/// The text as a tool tip, which Qt would interpret as rich text if it looked like that. Lines
/// wrap.
QString asToolTip(const QString& text);

}  // namespace vemra::desk
