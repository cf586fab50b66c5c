#include "VemraPlatform/base/SharedArray.hpp"

#include <cstddef>
#include <cstdint>
#include <numeric>

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

// An element that is not over-aligned itself and wants its arrays to be.
struct Wide {
  static constexpr std::size_t arrayAlignment = 256;
  std::string text;
};

TEST(SharedArray, keepsTheElementsInOrder) {
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

TEST(SharedArray, anEmptyOneHasNothingToWalk) {
  for (const SharedArray<int>& array :
       {SharedArray<int>(), SharedArray<int>(std::vector<int>()), SharedArray<int>({})}) {
    EXPECT_TRUE(array.empty());
    EXPECT_EQ(array.size(), 0U);
    EXPECT_EQ(array.data(), nullptr);
    EXPECT_EQ(array.begin(), array.end());
    EXPECT_EQ(std::accumulate(array.begin(), array.end(), 7), 7);
  }
}

TEST(SharedArray, takesAVectorWithoutCopyingTheElements) {
  std::vector<std::string> elements{"one", "two"};
  const std::string* place = elements.data();
  const SharedArray<std::string> array(std::move(elements));
  EXPECT_EQ(array.data(), place);
}

TEST(SharedArray, beginsAtTheAlignmentThatItsElementTypeAsksFor) {
  std::vector<SharedArray<Wide>> arrays;
  for (std::size_t count = 1; count <= 16; ++count) {
    const SharedArray<Wide> array = std::vector<Wide>(count, Wide{"text"});
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(array.data()) % Wide::arrayAlignment, 0U);
    EXPECT_EQ(array.size(), count);
    EXPECT_EQ(array.back().text, "text");
    arrays.push_back(array);
  }
}

TEST(SharedArray, copiesShareOneStorage) {
  const SharedArray<std::string> array{"one", "two"};
  const SharedArray<std::string> copy = array;
  EXPECT_TRUE(copy.sharesStorage(array));
  EXPECT_EQ(copy.data(), array.data());
  EXPECT_FALSE(array.sharesStorage(SharedArray<std::string>{"one", "two"}));
  EXPECT_TRUE(SharedArray<std::string>().sharesStorage(SharedArray<std::string>()));
}

TEST(SharedArray, whatIsMovedFromIsEmpty) {
  SharedArray<int> array{1};
  const SharedArray<int> taken = std::move(array);
  EXPECT_TRUE(array.empty());
  EXPECT_EQ(array.begin(), array.end());
  EXPECT_EQ(taken.size(), 1U);
}

TEST(SharedArray, oneStorageIsEqualWithoutALookAtTheElements) {
  int comparisons = 0;
  const SharedArray<Watched> array{Watched{&comparisons}};
  EXPECT_TRUE(array == SharedArray<Watched>(array));
  EXPECT_EQ(comparisons, 0);
}

TEST(SharedArray, differentCountsAreUnequalWithoutALookAtTheElements) {
  int comparisons = 0;
  const Watched element{&comparisons, true};
  EXPECT_FALSE(SharedArray<Watched>({element}) == SharedArray<Watched>({element, element}));
  EXPECT_FALSE(SharedArray<Watched>() == SharedArray<Watched>({element}));
  EXPECT_EQ(comparisons, 0);
}

TEST(SharedArray, comparingStopsAtTheFirstUnequalPair) {
  int comparisons = 0;
  const Watched same{&comparisons, true};
  const Watched other{&comparisons, false};
  EXPECT_FALSE(SharedArray<Watched>({same, other, same}) ==
               SharedArray<Watched>({same, other, same}));
  EXPECT_EQ(comparisons, 2);
}

TEST(SharedArray, orderMatters) {
  EXPECT_FALSE(SharedArray<int>({1, 2}) == SharedArray<int>({2, 1}));
  EXPECT_TRUE(SharedArray<int>({1, 2}) == SharedArray<int>({1, 2}));
}

TEST(SharedArray, stringsAreComparedUnderCanonicalEquivalence) {
  using Strings = SharedArray<std::string>;
  EXPECT_TRUE(Strings({"\u00e9", "x"}) == Strings({"e\u0301", "x"}));
  EXPECT_FALSE(Strings({"\u00e9"}) == Strings({"e"}));
}

}  // namespace
}  // namespace vemra
