#pragma once

#include <algorithm>

/// \file
/// Positions and sizes on a page, in whole units of its renderer: pixels, or character cells. They
/// count from the top left corner; y grows downwards.

namespace vemra::page {

/// A position on the page.
struct Point {
  /// The distance from the left edge, and from the top.
  int x = 0, y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

/// The extent of an element; without an area when one of the two is 0 or less.
struct Size {
  /// The extent from left to right, and from top to bottom.
  int width = 0, height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

/// A rectangle. Its right and bottom edges are the first coordinates outside it.
struct Rect {
  /// The top left corner and the extent.
  int x = 0, y = 0, width = 0, height = 0;

  /// The first coordinate to the right of the rectangle.
  int right() const { return x + width; }
  /// The first coordinate below the rectangle.
  int bottom() const { return y + height; }
  /// Whether the rectangle has no area.
  bool isEmpty() const { return width <= 0 || height <= 0; }
  /// The same rectangle at another place; negative distances move it left and up.
  Rect movedBy(int right, int down) const { return {x + right, y + down, width, height}; }

  friend bool operator==(const Rect&, const Rect&) = default;
};

/// The number of points in one unit of the page; views give spacing and padding in points.
struct Grid {
  /// The points in a unit across, and in a unit down. Pixels: 1 and 1.
  int width = 1, height = 1;

  /// Converts points to whole units, rounded to the nearest.
  int across(int points) const { return width == 1 ? points : (points + width / 2) / width; }
  /// The same for a vertical length.
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
