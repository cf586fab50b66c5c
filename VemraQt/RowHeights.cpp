#include "VemraQt/RowHeights.hpp"

#include <algorithm>
#include <bit>

namespace vemra::qt {

void RowHeights::reset(std::size_t count, int gap) {
  count_ = count;
  gap_ = gap;
  deviations_.clear();
}

void RowHeights::setEstimate(int height) {
  deviations_.clear();
  estimate_ = std::max(1, height);
  calibrated_ = true;
}

void RowHeights::setHeight(std::size_t row, int height) {
  const int change = height - this->height(row);
  if (change == 0) return;
  if (deviations_.empty()) deviations_.assign(count_ + 1, 0);
  for (std::size_t i = row + 1; i <= count_; i += i & (~i + 1)) deviations_[i] += change;
}

std::int64_t RowHeights::top(std::size_t row) const {
  return static_cast<std::int64_t>(row) * (estimate_ + gap_) + deviationBefore(row);
}

int RowHeights::height(std::size_t row) const {
  if (deviations_.empty()) return estimate_;
  return estimate_ + static_cast<int>(deviationBefore(row + 1) - deviationBefore(row));
}

std::int64_t RowHeights::total() const {
  return count_ == 0 ? 0 : top(count_) - gap_;
}

int RowHeights::topOnPage(std::size_t row) const {
  return static_cast<int>(std::min(top(row), farthest));
}

int RowHeights::totalOnPage() const {
  return static_cast<int>(std::min(total(), farthest));
}

std::size_t RowHeights::rowAt(std::int64_t distance) const {
  if (distance < 0) return 0;
  const std::int64_t extent = estimate_ + gap_;
  if (deviations_.empty()) {
    return std::min(count_ - 1,
                    static_cast<std::size_t>(distance / std::max<std::int64_t>(extent, 1)));
  }
  // Down the tree: the most rows whose heights together do not exceed the distance.
  std::size_t row = 0;
  for (std::size_t step = std::bit_floor(count_); step > 0; step /= 2) {
    const std::size_t next = row + step;
    if (next > count_) continue;
    const std::int64_t length = static_cast<std::int64_t>(step) * extent + deviations_[next];
    if (length > distance) continue;
    row = next;
    distance -= length;
  }
  return std::min(row, count_ - 1);
}

std::int64_t RowHeights::deviationBefore(std::size_t row) const {
  std::int64_t sum = 0;
  if (deviations_.empty()) return sum;
  for (std::size_t i = row; i > 0; i -= i & (~i + 1)) sum += deviations_[i];
  return sum;
}

}  // namespace vemra::qt
