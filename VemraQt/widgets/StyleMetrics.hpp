#pragma once

#include "VemraQt/Looks.hpp"
#include "VemraQt/widgets/ShownLeaf.hpp"

#include <vector>

#include <QFont>
#include <QStringList>

class QWidget;

namespace vemra::qt {

struct Choice;

/// What can be hit is this large at least, in pixels either way (Web Content Accessibility
/// Guidelines 2.2, "target size").
inline constexpr int smallestTarget = 24;

/// How large the elements are in the widget style of a page.
///
/// A control is never smaller than `smallestTarget`. A title that is wider
/// than the page goes on in further lines.
class StyleMetrics final {
 public:
  /// Keeps the lines of what it measures in `leaves`.
  StyleMetrics(const QWidget& page, const Looks& looks, ShownLeaves& leaves)
      : page_(page), looks_(looks), leaves_(leaves) {}

  page::Size measure(const page::Node& leaf, int width);

 private:
  QSize text(const page::Node& leaf, TextShape& shape, int width) const;
  QSize button(const page::Node& leaf, TextShape& shape, int width) const;
  QSize picker(const page::Node& leaf, TextShape& shape, int width);
  QSize field(const page::Node& leaf, TextShape& shape, int width) const;

  int widestOf(const std::vector<Choice>& choices, const QFont& font);

  const QWidget& page_;
  const Looks& looks_;
  ShownLeaves& leaves_;
  /// The pickers of a page mostly have the same choices: those of the last one, and their width.
  QFont choicesFont_;
  QStringList choices_;
  int widestChoice_ = 0;
};

}  // namespace vemra::qt
