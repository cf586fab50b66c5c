#pragma once

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
class Looks {
 public:
  Looks() : Looks(QFont(), QPalette(), {}) {}
  Looks(const QFont& systemFont, const QPalette& systemPalette, const ui::Environment& environment);

  QFont font(const ui::Font& font) const;
  QColor text(ui::ForegroundStyle style) const;
  QColor link() const { return link_; }
  QColor disabledText() const { return disabled_; }
  QColor outline() const { return outline_; }
  QColor focusRing() const { return focusRing_; }
  QColor background() const { return palette_.color(QPalette::Base); }
  /// What the style is to take for the window's colour when it draws a control, so that it frames
  /// it in `outline`.
  QColor windowForFrames() const { return windowForFrames_; }
  /// The system's palette, or one of our own when the environment asks for the other scheme.
  const QPalette& palette() const { return palette_; }

 private:
  QFont systemFont_;
  QPalette palette_;
  double textScale_ = 1;
  QColor secondary_, tertiary_, link_, disabled_, outline_, windowForFrames_, focusRing_;
};

/// Whether a palette writes light text on a dark page.
ui::ColorScheme colorSchemeOf(const QPalette& palette);

}  // namespace vemra::qt
