#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vemra::page {

/// Where the rows of a long list stand while only a few of them have been measured.
///
/// Every row has the estimated height until it is measured. A row's top is its index times the
/// estimate plus the deviations of the measured rows before it, which a Fenwick tree sums up
/// (Fenwick, "A new data structure for cumulative frequency tables", 1994). The tree is made when
/// the first row deviates. Asking for a row and correcting one cost O(log n); a list whose rows are
/// all of the estimated height costs no memory. `follow` costs O(n), a few instructions a row.
///
/// Lengths are whole pixels. `gap` is the space between two rows.
class VEMRA_EXPORT RowHeights {
 public:
  /// As far as a page reaches down a list, in pixels: coordinates on a page are 32 bits wide, and
  /// the elements around the list need room too. Ten million rows of a hundred pixels.
  static constexpr std::int64_t farthest = std::int64_t{1} << 30;

  /// Makes every row unmeasured; keeps the estimate.
  void reset(std::size_t count, int gap);
  /// Sets the height of unmeasured rows, at least 1. Makes every row unmeasured.
  void setEstimate(int height);
  /// Asks for a new estimate, because the width of the rows or the size of their text has changed.
  void forgetEstimate() { calibrated_ = false; }
  /// Sets the measured height of a row of the list.
  void setHeight(std::size_t row, int height);
  /// Takes up that rows left the list and others came. A row that stays keeps its height.
  ///
  /// \param left The places that the rows had which left, ascending.
  /// \param came The places that the new rows have now, ascending.
  void follow(const std::vector<std::size_t>& left, const std::vector<std::size_t>& came);

  std::size_t count() const { return count_; }
  int gap() const { return gap_; }
  int estimate() const { return estimate_; }
  /// Whether the estimate comes from measured rows.
  bool isCalibrated() const { return calibrated_; }

  std::int64_t top(std::size_t row) const;
  int height(std::size_t row) const;
  /// From the first row's top to the last row's bottom.
  std::int64_t total() const;
  /// `top` and `total` as coordinates on a page, `farthest` at most.
  int topOnPage(std::size_t row) const;
  int totalOnPage() const;
  /// The row at a distance from the first row's top; outside the list the nearest row. The list
  /// must not be empty.
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
