#include "VemraPlatform/base/SharedArray.hpp"

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace vemra {
namespace {

// An element that counts how often it is compared and is unequal even to itself.
struct Watched {
  int* comparisons = nullptr;
  bool equal = false;
  friend bool operator==(const Watched& a, const Watched&) {
    ++*a.comparisons;
    return a.equal;
  }
};

// An element that is not over-aligned itself, but whose arrays are.
struct Wide {
  static constexpr std::size_t arrayAlignment = 256;
  std::string text;
};

TEST(SharedArray, KeepsTheElementsInOrder) {
  const SharedArray<int> array{3, 1, 2};
  EXPECT_EQ(array.size(), 3U);
  EXPECT_FALSE(array.empty());
  EXPECT_EQ(array[0], 3);
  EXPECT_EQ(array[1], 1);
  EXPECT_EQ(array[2], 2);
  EXPECT_EQ(array.front(), 3);
  EXPECT_EQ(array.back(), 2);
  EXPECT_EQ(std::vector<int>(array.begin(), array.end()), (std::vector{3, 1, 2}));
}

TEST(SharedArray, AnEmptyArrayHasNoElements) {
  for (const SharedArray<int>& array :
       {SharedArray<int>(), SharedArray<int>(std::vector<int>()), SharedArray<int>({})}) {
    EXPECT_TRUE(array.empty());
    EXPECT_EQ(array.size(), 0U);
    EXPECT_EQ(array.data(), nullptr);
    EXPECT_EQ(array.begin(), array.end());
    EXPECT_EQ(std::accumulate(array.begin(), array.end(), 7), 7);
  }
}

TEST(SharedArray, TakesAVectorWithoutCopyingTheElements) {
  std::vector<std::string> elements{"one", "two"};
  const std::string* place = elements.data();
  const SharedArray<std::string> array(std::move(elements));
  EXPECT_EQ(array.data(), place);
}

TEST(SharedArray, BeginsAtTheAlignmentOfItsElementType) {
  std::vector<SharedArray<Wide>> arrays;
  for (std::size_t count = 1; count <= 16; ++count) {
    const SharedArray<Wide> array = std::vector<Wide>(count, Wide{"text"});
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(array.data()) % Wide::arrayAlignment, 0U);
    EXPECT_EQ(array.size(), count);
    EXPECT_EQ(array.back().text, "text");
    arrays.push_back(array);
  }
}

TEST(SharedArray, CopiesShareOneStorage) {
  const SharedArray<std::string> array{"one", "two"};
  const SharedArray<std::string> copy = array;
  EXPECT_TRUE(copy.sharesStorage(array));
  EXPECT_EQ(copy.data(), array.data());
  EXPECT_FALSE(array.sharesStorage(SharedArray<std::string>{"one", "two"}));
  EXPECT_TRUE(SharedArray<std::string>().sharesStorage(SharedArray<std::string>()));
}

TEST(SharedArray, AppendingWithinTheRoomCopiesNoElement) {
  const SharedArray<std::string> before({"one", "two"}, 2);
  const SharedArray<std::string> three = before.appending({"three"});
  const SharedArray<std::string> four = three.appending({"four"});
  EXPECT_EQ(four.data(), before.data());
  EXPECT_EQ(std::vector<std::string>(four.begin(), four.end()),
            (std::vector<std::string>{"one", "two", "three", "four"}));
  EXPECT_EQ(three.size(), 3U);
  EXPECT_EQ(before.size(), 2U);
  EXPECT_EQ(before.back(), "two");
}

TEST(SharedArray, AppendingTwiceToOneArrayGivesTwoDifferentArrays) {
  const SharedArray<std::string> before({"one"}, 8);
  const SharedArray<std::string> left = before.appending({"left"});
  const SharedArray<std::string> right = before.appending({"right", "and more"});
  EXPECT_EQ(left, (SharedArray<std::string>{"one", "left"}));
  EXPECT_EQ(right, (SharedArray<std::string>{"one", "right", "and more"}));
  EXPECT_EQ(before, SharedArray<std::string>{"one"});
  EXPECT_FALSE(left.sharesStorage(right));
}

TEST(SharedArray, AppendingManyTimesSeldomCopiesTheElements) {
  SharedArray<int> array;
  int moves = 0;
  for (int i = 0; i < 10'000; ++i) {
    const SharedArray<int> longer = array.appending({i});
    if (longer.data() != array.data()) ++moves;
    array = longer;
  }
  EXPECT_LT(moves, 20);
  for (int i = 0; i < 10'000; ++i) ASSERT_EQ(array[static_cast<std::size_t>(i)], i);
}

TEST(SharedArray, AnAppendedArrayKeepsTheAlignment) {
  const SharedArray<Wide> before{Wide{"one"}};
  const SharedArray<Wide> after = before.appending({Wide{"two"}});
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(after.data()) % Wide::arrayAlignment, 0U);
  EXPECT_EQ(after[1].text, "two");
}

TEST(SharedArray, AppendingNothingKeepsTheStorage) {
  const SharedArray<int> array{1};
  EXPECT_TRUE(array.appending({}).sharesStorage(array));
  EXPECT_TRUE(SharedArray<int>().appending({}).empty());
}

TEST(SharedArray, ArraysOfDifferentLengthsInOneStorageAreUnequal) {
  const SharedArray<int> before({1}, 1);
  const SharedArray<int> after = before.appending({2});
  EXPECT_EQ(after.data(), before.data());
  EXPECT_FALSE(after.sharesStorage(before));
  EXPECT_FALSE(after == before);
}

TEST(SharedArray, ManyThreadsMayAppendToOneArray) {
  const SharedArray<int> before({0}, 100);
  std::vector<SharedArray<int>> results(8);
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&, i] { results[static_cast<std::size_t>(i)] = before.appending({i}); });
  }
  for (std::thread& thread : threads) thread.join();
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(results[static_cast<std::size_t>(i)], (SharedArray<int>{0, i}));
  }
}

TEST(SharedArray, AMovedFromArrayIsEmpty) {
  SharedArray<int> array{1};
  const SharedArray<int> taken = std::move(array);
  EXPECT_TRUE(array.empty());
  EXPECT_EQ(array.begin(), array.end());
  EXPECT_EQ(taken.size(), 1U);
}

TEST(SharedArray, ArraysInOneStorageAreEqualWithoutComparingElements) {
  int comparisons = 0;
  const SharedArray<Watched> array{Watched{&comparisons}};
  EXPECT_TRUE(array == SharedArray<Watched>(array));
  EXPECT_EQ(comparisons, 0);
}

TEST(SharedArray, DifferentCountsAreUnequalWithoutComparingElements) {
  int comparisons = 0;
  const Watched element{&comparisons, true};
  EXPECT_FALSE(SharedArray<Watched>({element}) == SharedArray<Watched>({element, element}));
  EXPECT_FALSE(SharedArray<Watched>() == SharedArray<Watched>({element}));
  EXPECT_EQ(comparisons, 0);
}

TEST(SharedArray, ComparingStopsAtTheFirstUnequalPair) {
  int comparisons = 0;
  const Watched same{&comparisons, true};
  const Watched other{&comparisons, false};
  EXPECT_FALSE(SharedArray<Watched>({same, other, same}) ==
               SharedArray<Watched>({same, other, same}));
  EXPECT_EQ(comparisons, 2);
}

TEST(SharedArray, OrderMatters) {
  EXPECT_FALSE(SharedArray<int>({1, 2}) == SharedArray<int>({2, 1}));
  EXPECT_TRUE(SharedArray<int>({1, 2}) == SharedArray<int>({1, 2}));
}

TEST(SharedArray, StringsAreComparedUnderCanonicalEquivalence) {
  using Strings = SharedArray<std::string>;
  EXPECT_TRUE(Strings({"\u00e9", "x"}) == Strings({"e\u0301", "x"}));
  EXPECT_FALSE(Strings({"\u00e9"}) == Strings({"e"}));
}

}  // namespace
}  // namespace vemra
