#pragma once

#include <algorithm>

/// \file
/// Positions and sizes on a page, in whole units of its renderer: pixels, or character cells. They
/// count from the top left corner; y grows downwards.

namespace vemra::page {

struct Point {
  int x = 0, y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  int width = 0, height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

/// A rectangle. Its right and bottom edges are the first coordinates outside it.
struct Rect {
  int x = 0, y = 0, width = 0, height = 0;

  int right() const { return x + width; }
  int bottom() const { return y + height; }
  bool isEmpty() const { return width <= 0 || height <= 0; }
  Rect movedBy(int right, int down) const { return {x + right, y + down, width, height}; }

  friend bool operator==(const Rect&, const Rect&) = default;
};

/// The number of points in one unit of the page; views give spacing and padding in points.
struct Grid {
  int width = 1, height = 1;

  /// Converts points to whole units, rounded to the nearest.
  int across(int points) const { return width == 1 ? points : (points + width / 2) / width; }
  int down(int points) const { return height == 1 ? points : (points + height / 2) / height; }
};

/// The smallest rectangle that contains both. A rectangle without width and height counts as empty.
inline Rect united(const Rect& a, const Rect& b) {
  if (a.width == 0 && a.height == 0) return b;
  if (b.width == 0 && b.height == 0) return a;
  const int x = std::min(a.x, b.x), y = std::min(a.y, b.y);
  return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

/// The frame mirrored in a scope of that width, for reading from right to left.
inline Rect mirrored(const Rect& frame, int scopeWidth) {
  return {scopeWidth - frame.right(), frame.y, frame.width, frame.height};
}

}  // namespace vemra::page
