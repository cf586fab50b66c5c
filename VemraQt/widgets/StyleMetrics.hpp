#pragma once

#include "VemraQt/Theme.hpp"
#include "VemraQt/widgets/ShownLeaf.hpp"

#include <string>
#include <utility>
#include <vector>

#include <QFont>
#include <QSize>
#include <QStringList>

class QWidget;

namespace vemra::qt {

struct Choice;

/// The minimum size of a control, in pixels, in both directions (Web Content Accessibility
/// Guidelines 2.2, "target size").
inline constexpr int smallestTarget = 24;

/// Computes the sizes of elements in the widget style of a page.
///
/// A control is never smaller than `smallestTarget`. A title that is wider than the page continues
/// in further lines.
class StyleMetrics final {
 public:
  /// Stores the lines of the texts that it measures in `leaves`.
  StyleMetrics(const QWidget& page, const Theme& theme, ShownLeaves& leaves)
      : page_(page), theme_(theme), leaves_(leaves) {}

  page::Size measure(const page::Node& leaf, int width);
  int narrowestField(const page::Node& leaf);
  /// Call it when the theme or the style has changed: nothing measured before is used again.
  void restyle();

 private:
  /// A framed button as it was measured.
  struct Measured {
    std::string title;
    ui::Font font;
    int width = 0;
    TextShape shape;
    QSize size;
  };

  QSize text(const page::Node& leaf, ShownLeaf& shown, int width);
  QSize button(const page::Node& leaf, ShownLeaf& shown, int width);
  QSize framedButton(const page::Node& leaf, ShownLeaf& shown, int width);
  QSize knownButton(const page::Node& leaf, ShownLeaf& shown, int width);
  QSize picker(const page::Node& leaf, TextShape& shape, int width);
  QSize field(const page::Node& leaf, TextShape& shape, int width);

  const QFont& fontOf(const page::Node& leaf);
  int widestOf(const std::vector<Choice>& choices, const QFont& font);

  const QWidget& page_;
  const Theme& theme_;
  ShownLeaves& leaves_;
  /// The theme's fonts. Qt finds the files of a font once for each `QFont` and its copies.
  std::vector<std::pair<ui::Font, QFont>> fonts_;
  /// The last framed buttons, since most rows have buttons with the same titles.
  std::vector<Measured> buttons_;
  /// The choices of the last picker and their width: most pickers of a page have the same choices.
  QFont choicesFont_;
  QStringList choices_;
  int widestChoice_ = 0;
};

}  // namespace vemra::qt
