#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/Font.hpp"

#include <QColor>
#include <QFont>
#include <QPalette>

namespace vemra::qt {

/// Fonts and colours of the page: the system's own, in the sizes and levels that the tree asks for.
///
/// A text style is a ratio of the system's font, so that the page follows the user's font size. The
/// two quieter levels of the text colour are mixed from the palette and keep a contrast of at least
/// 4.5 to 1 against the page, 7 to 1 in high contrast; the colour of links keeps 4.5 to 1. Frames and
/// the focus ring keep 3 to 1 (Web Content Accessibility Guidelines 2.2, "contrast").
class VEMRA_EXPORT Looks {
 public:
  Looks() : Looks(QFont(), QPalette(), {}) {}
  Looks(const QFont& systemFont, const QPalette& systemPalette, const ui::Environment& environment);

  QFont font(const ui::Font& font) const;
  QColor text(ui::ForegroundStyle style) const;
  QColor link() const { return colours_.link; }
  QColor disabledText() const { return colours_.disabled; }
  QColor outline() const { return colours_.outline; }
  QColor focusRing() const { return colours_.focusRing; }
  QColor background() const { return palette().color(QPalette::Base); }
  /// A palette whose window colour makes the style draw the frames of controls in `outline`. All
  /// controls share it, because styles cache what they draw under the palette's `cacheKey`.
  const QPalette& paletteForFrames() const { return colours_.framing; }
  /// The system's palette, or one of our own when the environment sets the other colour scheme.
  const QPalette& palette() const { return colours_.palette; }

 private:
  struct VEMRA_EXPORT Colours {
    QPalette palette, framing;
    QColor secondary, tertiary, link, disabled, outline, focusRing;
    explicit Colours(const QPalette& itsPalette);
  };
  /// Caches the colours of the last palette: most windows of a program have the same palette, and
  /// finding readable colours takes as long as describing a window full of rows.
  static const Colours& coloursOf(const QPalette& palette);

  QFont systemFont_;
  Colours colours_;
  double textScale_ = 1;
};

/// Whether a palette writes light text on a dark page.
VEMRA_EXPORT ui::ColorScheme colorSchemeOf(const QPalette& palette);

}  // namespace vemra::qt
