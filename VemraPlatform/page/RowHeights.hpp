#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vemra::page {

/// The positions of the rows of a long list of which only a few have been measured.
///
/// Every row has the estimated height until it is measured. A row's top is its index times the
/// estimate plus the deviations of the measured rows before it, which a Fenwick tree sums up
/// (Fenwick, "A new data structure for cumulative frequency tables", 1994). The tree is made when
/// the first row deviates. Finding a row and correcting a height cost O(log n); a list whose rows
/// all have the estimated height needs no memory. `follow` costs O(n), a few instructions for each
/// row.
///
/// Lengths are whole units of the page: pixels, or lines of a terminal. A row's height contains the
/// padding of the row and of its list. `gap` is the space between two rows.
class VEMRA_EXPORT RowHeights {
 public:
  /// The greatest distance that a page reaches down a list: coordinates on a page have 32 bits, and
  /// the elements around the list need room too. This is enough for ten million rows of a hundred
  /// pixels.
  static constexpr std::int64_t farthest = std::int64_t{1} << 30;

  /// Marks every row as unmeasured; keeps the estimate.
  void reset(std::size_t count, int gap);
  /// Sets the height of unmeasured rows, at least 1. Marks every row as unmeasured.
  void setEstimate(int height);
  /// Requests a new estimate, because the width of the rows or the size of their text has changed.
  void forgetEstimate() { calibrated_ = false; }
  /// Sets the measured height of a row of the list.
  void setHeight(std::size_t row, int height);
  /// Applies removals and additions of rows. A row that stays keeps its height.
  ///
  /// \param removed The previous indexes of the removed rows, ascending.
  /// \param inserted The new indexes of the added rows, ascending.
  void follow(const std::vector<std::size_t>& removed, const std::vector<std::size_t>& inserted);

  /// The number of rows.
  std::size_t count() const { return count_; }
  /// The space between two rows.
  int gap() const { return gap_; }
  /// The height that a row without a measurement has.
  int estimate() const { return estimate_; }
  /// Whether the estimate comes from measured rows.
  bool isCalibrated() const { return calibrated_; }

  /// The top of a row, relative to the list's.
  std::int64_t top(std::size_t row) const;
  /// The height of a row: measured, or the estimate.
  int height(std::size_t row) const;
  /// From the first row's top to the last row's bottom.
  std::int64_t total() const;
  /// `top` and `total` as coordinates on a page, `farthest` at most.
  int topOnPage(std::size_t row) const;
  /// The height of all rows and the gaps between them, as far as the page reaches (`farthest`).
  int totalOnPage() const;
  /// The row at a distance from the first row's top; the nearest row for a distance outside the
  /// list. The list must not be empty.
  std::size_t rowAt(std::int64_t distance) const;

 private:
  std::int64_t deviationBefore(std::size_t row) const;

  std::size_t count_ = 0;
  int gap_ = 0;
  int estimate_ = 80;
  bool calibrated_ = false;
  std::vector<std::int32_t> deviations_;  // Fenwick tree, 1-based; empty: no row deviates
};

}  // namespace vemra::page
