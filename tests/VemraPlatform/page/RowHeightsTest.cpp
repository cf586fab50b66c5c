#include "VemraPlatform/page/RowHeights.hpp"

#include <numeric>
#include <random>
#include <vector>

#include <gtest/gtest.h>

using vemra::page::RowHeights;

namespace {

/// The same with a plain sum.
struct Plain {
  std::vector<int> heights;
  int gap;
  std::int64_t top(std::size_t row) const {
    return std::accumulate(heights.begin(), heights.begin() + static_cast<long>(row),
                           static_cast<std::int64_t>(row) * gap);
  }
  std::size_t rowAt(std::int64_t distance) const {
    std::size_t row = 0;
    while (row + 1 < heights.size() && top(row + 1) <= distance) ++row;
    return row;
  }
};

}  // namespace

TEST(RowHeights, ARowWithoutHeightIsFoundAtNoDistance) {
  RowHeights rows;
  rows.reset(5, 0);
  rows.setEstimate(20);
  rows.setHeight(0, 0);
  rows.setHeight(2, 0);
  EXPECT_EQ(rows.rowAt(0), 1u);
  EXPECT_EQ(rows.rowAt(20), 3u);
}

TEST(RowHeights, UnmeasuredRowsHaveTheEstimatedHeight) {
  RowHeights rows;
  rows.reset(100'000, 10);
  rows.setEstimate(70);
  EXPECT_EQ(rows.top(99'999), 99'999LL * 80);
  EXPECT_EQ(rows.total(), 100'000LL * 80 - 10);
  EXPECT_EQ(rows.rowAt(0), 0u);
  EXPECT_EQ(rows.rowAt(79), 0u);
  EXPECT_EQ(rows.rowAt(80), 1u);
  EXPECT_EQ(rows.rowAt(1LL << 40), 99'999u);
  EXPECT_EQ(rows.rowAt(-5), 0u);
}

TEST(RowHeights, AgreesWithAPlainSumForAnyMeasuredRows) {
  std::mt19937 random(7);
  for (std::size_t count : {1u, 2u, 3u, 7u, 8u, 9u, 64u, 1000u}) {
    const int gap = static_cast<int>(random() % 12);
    RowHeights rows;
    rows.reset(count, gap);
    rows.setEstimate(50);
    Plain plain{std::vector<int>(count, 50), gap};
    for (int step = 0; step < 200; ++step) {
      const std::size_t row = random() % count;
      const int height = 1 + static_cast<int>(random() % 300);
      rows.setHeight(row, height);
      plain.heights[row] = height;
      const std::size_t asked = random() % count;
      ASSERT_EQ(rows.height(asked), plain.heights[asked]) << "row " << asked << " of " << count;
      ASSERT_EQ(rows.top(asked), plain.top(asked)) << "row " << asked << " of " << count;
      const std::int64_t distance =
          static_cast<std::int64_t>(random() % static_cast<unsigned>(plain.top(count) + 50));
      ASSERT_EQ(rows.rowAt(distance), plain.rowAt(distance)) << distance << " in " << count;
    }
    ASSERT_EQ(rows.total(), plain.top(count) - gap);
  }
}

TEST(RowHeights, ResettingDiscardsTheHeightsAndKeepsTheEstimate) {
  RowHeights rows;
  rows.reset(10, 0);
  rows.setEstimate(30);
  rows.setHeight(2, 500);
  rows.reset(20, 0);
  EXPECT_EQ(rows.total(), 600);
  EXPECT_TRUE(rows.isCalibrated());
}

TEST(RowHeights, AnEmptyListHasNoHeight) {
  RowHeights rows;
  rows.reset(0, 10);
  EXPECT_EQ(rows.total(), 0);
}

TEST(RowHeights, HeightsMoveWithTheirRows) {
  std::mt19937 random(11);
  for (int round = 0; round < 200; ++round) {
    const std::size_t count = 1 + random() % 40;
    RowHeights rows;
    rows.reset(count, 7);
    rows.setEstimate(50);
    Plain plain{std::vector<int>(count, 50), 7};
    for (std::size_t measured = random() % 30; measured > 0; --measured) {
      const std::size_t row = random() % count;
      plain.heights[row] = 1 + static_cast<int>(random() % 300);
      rows.setHeight(row, plain.heights[row]);
    }
    std::vector<std::size_t> left, came;
    std::vector<int> after;
    for (std::size_t row = 0; row < count; ++row) {
      if (random() % 4 == 0) {
        left.push_back(row);
      } else {
        after.push_back(plain.heights[row]);
      }
    }
    for (std::size_t place = 0; place <= after.size(); ++place) {
      if (random() % 4 != 0) continue;
      after.insert(after.begin() + static_cast<long>(place), 50);
      came.push_back(place);
    }
    plain.heights = after;
    rows.follow(left, came);
    ASSERT_EQ(rows.count(), after.size());
    for (std::size_t row = 0; row < after.size(); ++row) {
      ASSERT_EQ(rows.height(row), after[row]) << "row " << row << " of round " << round;
      ASSERT_EQ(rows.top(row), plain.top(row)) << "row " << row << " of round " << round;
    }
    ASSERT_EQ(rows.total(), after.empty() ? 0 : plain.top(after.size()) - 7);
  }
}
