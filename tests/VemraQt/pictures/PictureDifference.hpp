#pragma once

#include <optional>

#include <QImage>
#include <QString>

/// \file
/// Whether two pictures look the same.

namespace vemra::pictures {

/// What a tile of 16 by 16 pixels may differ by, in levels of a colour channel (0 to 255).
///
/// The same libraries draw the same picture to the bit, optimised or sanitized: measured 0. Others
/// may round the edges of letters in another way, by a few levels. What has to be seen is more: an
/// element that moves by one pixel changes its worst tile by 12 on average or more, and single
/// pixels by 114 or more; secondary text written as tertiary, the smallest step between two colours
/// of the screen, changes the middle of its strokes by 20.
struct Tolerance {
  int tile = 16;
  double mean = 1.5;
  int most = 14;
};

struct Difference {
  QString what;    ///< one line: how many tiles differ, where the worst one is and by how much
  QImage picture;  ///< what differs, eight times as strong, the tiles that count framed in red
};

/// Nil when they look the same.
std::optional<Difference> differenceOf(const QImage& actual, const QImage& expected,
                                       const Tolerance& tolerance = {});

}  // namespace vemra::pictures
