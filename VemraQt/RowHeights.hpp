#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vemra::qt {

/// Where the rows of a long list stand, when only a few have been measured.
///
/// Every row has the estimated height until it is measured. A row's top is its index times the
/// estimate plus the sum of what the measured rows before it deviate, kept in a Fenwick tree
/// (Fenwick, "A new data structure for cumulative frequency tables", 1994), which is made when the
/// first row deviates. Asking and correcting cost O(log n); a list whose rows are all alike costs
/// nothing at all. Following rows that come and go costs O(n), in a few instructions a row.
///
/// Lengths are whole pixels. `gap` is the space between two rows.
class RowHeights {
 public:
  /// As far as a page reaches down a list, in pixels: a widget's coordinates are 32 bits wide, and
  /// there must be room for what else is on the page. Ten million rows of a hundred pixels.
  static constexpr std::int64_t farthest = std::int64_t{1} << 30;

  /// Takes every row for unmeasured; the estimate stays.
  void reset(std::size_t count, int gap);
  /// What unmeasured rows are taken for. Takes every row for unmeasured.
  void setEstimate(int height);
  /// The estimate is to be made anew: rows are as wide, or written as large, as never before.
  void forgetEstimate() { calibrated_ = false; }
  void setHeight(std::size_t row, int height);
  /// Rows have left and others have come; the heights of those that stayed go with them.
  ///
  /// \param left Their places so far, ascending.
  /// \param came Their places from now on, ascending.
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
  /// `top` and `total` as coordinates on a page: what lies beyond the farthest place stands there.
  int topOnPage(std::size_t row) const;
  int totalOnPage() const;
  /// The row at a distance from the first row's top; the nearest one outside. Needs a row.
  std::size_t rowAt(std::int64_t distance) const;

 private:
  std::int64_t deviationBefore(std::size_t row) const;

  std::size_t count_ = 0;
  int gap_ = 0;
  int estimate_ = 80;
  bool calibrated_ = false;
  std::vector<std::int32_t> deviations_;  // Fenwick tree, 1-based; empty: no row deviates
};

}  // namespace vemra::qt
