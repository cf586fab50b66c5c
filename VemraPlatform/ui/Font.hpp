#pragma once

#include <optional>

namespace vemra::ui {

/// The roles of text on the screen, each with its size and usual weight.
enum class TextStyle { title2, headline, body, subheadline, caption, caption2 };

enum class FontWeight { regular, medium, semibold, bold };

/// A text style, with its usual weight unless another one is set: `Font::body.weight(medium)`.
///
/// A font names a role, not a size: a renderer turns it into a size relative to the system's font.
struct Font {
  TextStyle style = TextStyle::body;
  std::optional<FontWeight> explicitWeight;

  constexpr Font weight(FontWeight weight) const { return {style, weight}; }
  friend constexpr bool operator==(const Font&, const Font&) = default;

  static const Font title2;
  static const Font headline;
  static const Font body;
  static const Font subheadline;
  static const Font caption;
  static const Font caption2;
};

inline constexpr Font Font::title2{TextStyle::title2, std::nullopt};
inline constexpr Font Font::headline{TextStyle::headline, std::nullopt};
inline constexpr Font Font::body{TextStyle::body, std::nullopt};
inline constexpr Font Font::subheadline{TextStyle::subheadline, std::nullopt};
inline constexpr Font Font::caption{TextStyle::caption, std::nullopt};
inline constexpr Font Font::caption2{TextStyle::caption2, std::nullopt};

/// Levels of the current text colour.
enum class ForegroundStyle { primary, secondary, tertiary };

}  // namespace vemra::ui
