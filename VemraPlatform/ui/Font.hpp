#pragma once

#include <optional>

namespace vemra::ui {

/// The roles of text on the screen. The sizes are ratios of the system's font, which is the body
/// text, times `Environment::textScale`.
enum class TextStyle {
  title2,       ///< 17/13 of the body text, regular
  headline,     ///< the size of the body text, bold
  body,         ///< the system's font, regular
  subheadline,  ///< 11/13, regular
  caption,      ///< 10/13, regular
  caption2,     ///< 10/13, medium
};

/// The weight of the letters; a renderer takes the nearest weight of the system's font.
enum class FontWeight { regular, medium, semibold, bold };

/// A text style, with its usual weight unless another one is set: `Font::body.weight(medium)`.
///
/// A font names a role, not a size: a renderer turns it into a size relative to the system's font.
struct Font {
  TextStyle style = TextStyle::body;         ///< the role of the text
  std::optional<FontWeight> explicitWeight;  ///< nil: the style's usual weight

  /// The same style with another weight.
  constexpr Font weight(FontWeight weight) const { return {style, weight}; }
  friend constexpr bool operator==(const Font&, const Font&) = default;

  static const Font title2;       ///< a title
  static const Font headline;     ///< the name of a row, in bold
  static const Font body;         ///< usual text
  static const Font subheadline;  ///< text that is a little smaller
  static const Font caption;      ///< small text
  static const Font caption2;     ///< small text with more weight
};

inline constexpr Font Font::title2{TextStyle::title2, std::nullopt};
inline constexpr Font Font::headline{TextStyle::headline, std::nullopt};
inline constexpr Font Font::body{TextStyle::body, std::nullopt};
inline constexpr Font Font::subheadline{TextStyle::subheadline, std::nullopt};
inline constexpr Font Font::caption{TextStyle::caption, std::nullopt};
inline constexpr Font Font::caption2{TextStyle::caption2, std::nullopt};

/// Levels of the current text colour: `primary` is the colour of the system's text, the others come
/// nearer to the background. A renderer keeps all three readable (a contrast of 4.5 to 1 or more)
/// and different from each other.
enum class ForegroundStyle { primary, secondary, tertiary };

}  // namespace vemra::ui
