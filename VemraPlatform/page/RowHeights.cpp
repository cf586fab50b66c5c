#include "VemraPlatform/page/RowHeights.hpp"

#include <algorithm>
#include <bit>
#include <utility>

namespace vemra::page {

namespace {

/// The next entry of the Fenwick tree whose sum includes this entry.
std::size_t above(std::size_t entry) {
  return entry + (entry & (~entry + 1));
}

}  // namespace

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
  for (std::size_t i = row + 1; i <= count_; i = above(i)) deviations_[i] += change;
}

void RowHeights::follow(const std::vector<std::size_t>& removed,
                        const std::vector<std::size_t>& inserted) {
  const std::size_t before = std::exchange(count_, count_ - removed.size() + inserted.size());
  if (deviations_.empty()) return;
  // First each row's own deviation, then new sums.
  for (std::size_t i = before; i > 0; --i) {
    if (above(i) <= before) deviations_[above(i)] -= deviations_[i];
  }
  std::vector<std::int32_t> after(count_ + 1, 0);
  auto nextRemoved = removed.begin();
  auto nextInserted = inserted.begin();
  std::size_t place = 0;
  for (std::size_t row = 0; row < before; ++row) {
    if (nextRemoved != removed.end() && *nextRemoved == row) {
      ++nextRemoved;
      continue;
    }
    for (; nextInserted != inserted.end() && *nextInserted == place; ++nextInserted) ++place;
    after[++place] = deviations_[row + 1];
  }
  deviations_ = std::move(after);
  for (std::size_t i = 1; i <= count_; ++i) {
    if (above(i) <= count_) deviations_[above(i)] += deviations_[i];
  }
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
  // Descends the tree to the greatest number of rows whose heights together do not exceed the
  // distance.
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

}  // namespace vemra::page
