#include "VemraQt/Theme.hpp"

#include "VemraQt/Contrast.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

namespace vemra::qt {

using ui::ColorScheme;
using ui::FontWeight;
using ui::ForegroundStyle;
using ui::TextStyle;

namespace {

constexpr double bodySize = 13;

double sizeOf(TextStyle style) {
  switch (style) {
    case TextStyle::title2:
      return 17;
    case TextStyle::headline:
    case TextStyle::body:
      return bodySize;
    case TextStyle::subheadline:
      return 11;
    case TextStyle::caption:
    case TextStyle::caption2:
      return 10;
  }
  return bodySize;
}

FontWeight usualWeight(TextStyle style) {
  switch (style) {
    case TextStyle::headline:
      return FontWeight::bold;
    case TextStyle::caption2:
      return FontWeight::medium;
    default:
      return FontWeight::regular;
  }
}

QFont::Weight weightOf(FontWeight weight) {
  switch (weight) {
    case FontWeight::regular:
      return QFont::Normal;
    case FontWeight::medium:
      return QFont::Medium;
    case FontWeight::semibold:
      return QFont::DemiBold;
    case FontWeight::bold:
      return QFont::Bold;
  }
  return QFont::Normal;
}

/// Computes the window colour to set in a palette so that a style draws its frames in `outline`:
/// styles derive a frame's colour from the window colour by darkening it by two fifths.
QColor outlinedBy(const QColor& outline) {
  const QColor hsv = outline.toHsv();
  return QColor::fromHsv(hsv.hsvHue(), hsv.hsvSaturation(), std::min(255, hsv.value() * 7 / 5 + 1));
}

/// The palette for a page whose colour scheme differs from the system's.
QPalette ownPalette(ColorScheme scheme) {
  const bool dark = scheme == ColorScheme::dark;
  const QColor page = dark ? QColor(0x1e, 0x1f, 0x22) : QColor(0xff, 0xff, 0xff);
  const QColor window = dark ? QColor(0x2b, 0x2d, 0x30) : QColor(0xf3, 0xf3, 0xf4);
  const QColor button = dark ? QColor(0x3a, 0x3d, 0x41) : QColor(0xf3, 0xf3, 0xf4);
  const QColor ink = dark ? QColor(0xec, 0xed, 0xee) : QColor(0x1b, 0x1c, 0x1e);
  const QColor accent = dark ? QColor(0x4c, 0x9a, 0xf0) : QColor(0x1a, 0x66, 0xc8);
  QPalette palette(ink, button, button.lighter(130), button.darker(150), button.darker(120), ink,
                   dark ? QColor(Qt::white) : QColor(Qt::black), page, window);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::Highlight, accent);
  palette.setColor(QPalette::HighlightedText, dark ? QColor(Qt::black) : QColor(Qt::white));
  palette.setColor(QPalette::Link, accent);
  const QColor faint = dark ? QColor(0x8b, 0x8e, 0x93) : QColor(0x8a, 0x8c, 0x90);
  for (auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::PlaceholderText, faint);
  return palette;
}

}  // namespace

Theme::Theme(const QFont& systemFont, const QPalette& systemPalette,
             const ui::Environment& environment)
    : systemFont_(systemFont),
      colours_(coloursOf(colorSchemeOf(systemPalette) == environment.colorScheme
                             ? systemPalette
                             : ownPalette(environment.colorScheme))),
      textScale_(environment.textScale) {}

const Theme::Colours& Theme::coloursOf(const QPalette& palette) {
  static std::optional<Colours> last;
  if (!last || last->palette != palette) last.emplace(palette);
  return *last;
}

Theme::Colours::Colours(const QPalette& itsPalette) : palette(itsPalette), framing(itsPalette) {
  const QColor page = palette.color(QPalette::Base);
  const QColor ink = palette.color(QPalette::Text);
  const QColor face = palette.color(QPalette::Button);
  // In high contrast a button's face has the colour of the page, and the colours need more
  // contrast.
  const double strongest = contrast(ink, page);
  const bool isHighContrast = strongest >= 10 && contrast(face, page) < 1.05;
  secondary = readable(page, ink, page, isHighContrast ? (7.05 + strongest) / 2 : 6.2);
  tertiary = readable(page, ink, page, isHighContrast ? 7.05 : 4.55);
  // Without a theme, Qt's link colour is pure blue: harsh on light pages and unreadable on dark
  // ones.
  const bool isThemed = palette.color(QPalette::Link) != QColor(Qt::blue);
  link = readable(isThemed ? palette.color(QPalette::Link)
                           : ownPalette(colorSchemeOf(palette)).color(QPalette::Link),
                  ink, page, 4.55);
  disabled = palette.color(QPalette::Disabled, QPalette::Text);
  outline = readable(page, ink, page, isHighContrast ? 7.05 : 3.05);
  framing.setColor(QPalette::Window, outlinedBy(outline));
  focusRing = palette.color(QPalette::Highlight);
  // Styles shade a button's face, and dark styles draw a light edge around it.
  for (const QColor& behind : {page, face.lighter(180), face.darker(110)}) {
    focusRing = readable(focusRing, ink, behind, 3.1);
  }
}

QFont Theme::font(const ui::Font& font) const {
  QFont result = systemFont_;
  const double ratio = sizeOf(font.style) / bodySize * textScale_;
  if (systemFont_.pixelSize() > 0) {
    result.setPixelSize(
        std::max(1, static_cast<int>(std::lround(systemFont_.pixelSize() * ratio))));
  } else {
    result.setPointSizeF(std::max(1.0, systemFont_.pointSizeF() * ratio));
  }
  result.setWeight(weightOf(font.explicitWeight.value_or(usualWeight(font.style))));
  return result;
}

QColor Theme::text(ForegroundStyle style) const {
  switch (style) {
    case ForegroundStyle::secondary:
      return colours_.secondary;
    case ForegroundStyle::tertiary:
      return colours_.tertiary;
    case ForegroundStyle::primary:
      break;
  }
  return palette().color(QPalette::Text);
}

ColorScheme colorSchemeOf(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness()
             ? ColorScheme::dark
             : ColorScheme::light;
}

QPalette inheritedPalette(const QWidget& widget) {
  const bool inherits = !widget.isWindow() || widget.testAttribute(Qt::WA_WindowPropagation);
  const QWidget* const parent = inherits ? widget.parentWidget() : nullptr;
  return parent ? parent->palette() : QApplication::palette();
}

}  // namespace vemra::qt
