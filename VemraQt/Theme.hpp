#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/Font.hpp"

#include <QColor>
#include <QFont>
#include <QPalette>

class QWidget;

namespace vemra::qt {

/// The fonts and colours of the page, computed from the system's font and palette.
///
/// A text style is a ratio of the system's font, so that the page follows the user's font size. The
/// secondary and tertiary levels of the text colour are mixed from the palette and have a contrast
/// of at least 4.5 to 1 with the page, 7 to 1 in high contrast; the colour of links has at least
/// 4.5 to 1. Frames and the focus ring have at least 3 to 1 (Web Content Accessibility Guidelines
/// 2.2, "contrast").
class VEMRA_EXPORT Theme {
 public:
  /// The fonts and colours of the application's font and palette, in the default environment.
  Theme() : Theme(QFont(), QPalette(), {}) {}
  /// Takes the text scale and the colour scheme from `environment`.
  Theme(const QFont& systemFont, const QPalette& systemPalette, const ui::Environment& environment);

  /// The system's font in the size and the weight of a text style, scaled by the text scale.
  QFont font(const ui::Font& font) const;
  /// The colour of a text.
  QColor text(ui::ForegroundStyle style) const;
  /// The colour of a plain button's title.
  QColor link() const { return colours_.link; }
  /// The colour of a disabled control's text.
  QColor disabledText() const { return colours_.disabled; }
  /// The colour of the frames of buttons, pickers and text fields.
  QColor outline() const { return colours_.outline; }
  /// The colour of the frame around the control with the keyboard focus.
  QColor focusRing() const { return colours_.focusRing; }
  /// The colour of the page.
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

/// The colour scheme of a palette: dark when its text is lighter than its page.
VEMRA_EXPORT ui::ColorScheme colorSchemeOf(const QPalette& palette);

/// The palette of a widget that sets no colours itself: that of its parent, or of the application
/// for a window.
VEMRA_EXPORT QPalette inheritedPalette(const QWidget& widget);

}  // namespace vemra::qt
