#pragma once

#include "VemraPlatform/ui/Font.hpp"

#include <string>
#include <string_view>

#include <QColor>
#include <QLabel>
#include <QPalette>
#include <QString>

/// \file
/// Texts of people and engines in widgets: shown literally, whatever characters they hold.

namespace vemra::desk {

inline QString fromUTF8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The roles of text in the panes.
enum class TextRole { title, heading, strong, body, quiet };

/// The colour of a level of text, as the screen has it under the same palette: both read as one
/// window.
QColor inkOf(ui::ForegroundStyle style, const QPalette& palette);

/// A label with wrapped, literal text.
QLabel* makeLabel(const QString& text, TextRole role);

/// The same for the title of a button, in which Qt would read "&" as a mark.
QString asButtonTitle(QString text);

/// The same for a tool tip, which Qt would take for rich text if it looked like it. Lines wrap.
QString asToolTip(const QString& text);

}  // namespace vemra::desk
