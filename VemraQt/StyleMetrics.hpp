#pragma once

#include "VemraQt/Layout.hpp"
#include "VemraQt/Looks.hpp"

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
class StyleMetrics final : public LeafMetrics {
 public:
  StyleMetrics(const QWidget& page, const Looks& looks) : page_(page), looks_(looks) {}

  QSize measure(RenderNode& leaf, int width) const override;

 private:
  QSize button(RenderNode& leaf, int width) const;
  QSize picker(RenderNode& leaf, int width) const;
  QSize field(RenderNode& leaf, int width) const;

  int widestOf(const std::vector<Choice>& choices, const QFont& font) const;

  const QWidget& page_;
  const Looks& looks_;
  /// The pickers of a page mostly have the same choices: those of the last one, and their width.
  mutable QFont choicesFont_;
  mutable QStringList choices_;
  mutable int widestChoice_ = 0;
};

}  // namespace vemra::qt
