#include "tests/VemraQt/pictures/PictureDifference.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include <QPainter>

namespace vemra::pictures {

namespace {

struct Tile {
  double mean = 0;
  int most = 0;
};

std::array<int, 3> apart(QRgb a, QRgb b) {
  return {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
          std::abs(qBlue(a) - qBlue(b))};
}

/// Whether a line of that rectangle has the same bytes in both pictures, which most lines have.
bool hasSameBytes(const QImage& a, const QImage& b, const QRect& place, int y) {
  if (a.format() != b.format() || a.depth() != 32) return false;
  const auto from = static_cast<std::size_t>(place.left()) * 4;
  const auto bytes = static_cast<std::size_t>(place.width()) * 4;
  return std::memcmp(a.constScanLine(y) + from, b.constScanLine(y) + from, bytes) == 0;
}

Tile tileOf(const QImage& actual, const QImage& expected, const QRect& place) {
  Tile tile;
  long sum = 0;
  for (int y = place.top(); y <= place.bottom(); ++y) {
    if (hasSameBytes(actual, expected, place, y)) continue;
    for (int x = place.left(); x <= place.right(); ++x) {
      for (const int channel : apart(actual.pixel(x, y), expected.pixel(x, y))) {
        sum += channel;
        tile.most = std::max(tile.most, channel);
      }
    }
  }
  tile.mean = static_cast<double>(sum) / (3.0 * place.width() * place.height());
  return tile;
}

QImage strengthened(const QImage& actual, const QImage& expected) {
  QImage picture(actual.size(), QImage::Format_RGB32);
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const auto channels = apart(actual.pixel(x, y), expected.pixel(x, y));
      const auto strong = [&](std::size_t i) { return 255 - std::min(255, 8 * channels[i]); };
      picture.setPixel(x, y, qRgb(strong(0), strong(1), strong(2)));
    }
  }
  return picture;
}

}  // namespace

std::optional<Difference> differenceOf(const QImage& actual, const QImage& expected,
                                       const Tolerance& tolerance) {
  if (actual.size() != expected.size()) {
    return Difference{QStringLiteral("it is %1 x %2 pixels, not %3 x %4")
                          .arg(actual.width())
                          .arg(actual.height())
                          .arg(expected.width())
                          .arg(expected.height()),
                      actual};
  }
  std::vector<QRect> different;
  Tile worst;
  QRect where;
  for (int y = 0; y < actual.height(); y += tolerance.tile) {
    for (int x = 0; x < actual.width(); x += tolerance.tile) {
      const QRect place = QRect(x, y, tolerance.tile, tolerance.tile) & actual.rect();
      const Tile tile = tileOf(actual, expected, place);
      if (tile.mean <= tolerance.mean && tile.most <= tolerance.most) continue;
      different.push_back(place);
      if (tile.mean >= worst.mean) worst = tile, where = place;
    }
  }
  if (different.empty()) return std::nullopt;
  Difference difference{QStringLiteral("%1 tiles differ, most the one at %2, %3: by %4 on average, "
                                       "by %5 at most")
                            .arg(different.size())
                            .arg(where.x())
                            .arg(where.y())
                            .arg(worst.mean, 0, 'f', 2)
                            .arg(worst.most),
                        strengthened(actual, expected)};
  QPainter painter(&difference.picture);
  painter.setPen(Qt::red);
  for (const QRect& place : different) painter.drawRect(place.adjusted(0, 0, -1, -1));
  return difference;
}

}  // namespace vemra::pictures
