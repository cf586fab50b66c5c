#pragma once

#include <optional>

#include <QImage>
#include <QString>

/// \file
/// Whether two pictures look the same.

namespace vemra::pictures {

/// The limits for the difference of a tile of 16 by 16 pixels, in levels of a colour channel (0 to
/// 255).
///
/// The same libraries draw exactly the same picture, optimised or sanitized: the measured
/// difference is 0. Another processor may round a blended edge by a level or two, in any number of
/// pixels. Visible changes are larger: an element that moves by one pixel changes its worst tile by
/// 9 on average or more, and single pixels by 85 or more; a text in another grey changes its
/// strokes by as much as the greys are apart, 20 levels between secondary and tertiary, 5 when
/// tertiary is made to stand out with a contrast of 5.0 in place of 4.55. The limits are between
/// the two.
struct Tolerance {
  int tile = 16;
  double mean = 2;
  int most = 4;
};

struct Difference {
  QString what;    ///< one line: how many tiles differ, where the worst one is and by how much
  QImage picture;  ///< eight times the differences; red frames around tiles above the limits
};

/// Nil when they look the same.
std::optional<Difference> differenceOf(const QImage& actual, const QImage& expected,
                                       const Tolerance& tolerance = {});

}  // namespace vemra::pictures
