// The rows that were added and removed between two lists.

#include "VemraPlatform/page/RowChanges.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <random>
#include <ranges>
#include <string>
#include <vector>

#include <gmock/gmock.h>

using namespace vemra;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using IDs = std::vector<std::string>;

class Rows final : public ui::RowSource {
 public:
  explicit Rows(IDs ids) : ids_(std::move(ids)) {}
  std::size_t count() const override { return ids_.size(); }
  std::string_view key(std::size_t index) const override { return ids_[index]; }
  ui::View row(std::size_t) const override { return ui::Group({}); }

 private:
  IDs ids_;
};

page::RowChanges changes(const IDs& before, const IDs& after, std::size_t most = 4) {
  return page::rowChanges(Rows(before), Rows(after), most);
}

/// The list after removing the removed rows, from the end, and inserting the added ones, from the
/// front.
IDs followed(IDs rows, const IDs& after, const page::RowChanges& changes) {
  for (const std::size_t index : changes.removed | std::views::reverse) {
    rows.erase(rows.begin() + static_cast<long>(index));
  }
  for (const std::size_t index : changes.inserted) {
    rows.insert(rows.begin() + static_cast<long>(index), after[index]);
  }
  return rows;
}

}  // namespace

TEST(RowChanges, NameTheRemovedAndTheAddedRows) {
  const page::RowChanges both = changes({"a", "b", "c", "d"}, {"x", "b", "d", "y"});
  EXPECT_TRUE(both.areComplete);
  EXPECT_THAT(both.removed, ElementsAre(0, 2));
  EXPECT_THAT(both.inserted, ElementsAre(0, 3));
  const page::RowChanges none = changes({"a", "b"}, {"a", "b"});
  EXPECT_TRUE(none.areComplete);
  EXPECT_THAT(none.removed, IsEmpty());
  EXPECT_THAT(none.inserted, IsEmpty());
  EXPECT_THAT(changes({"a", "b"}, {}).removed, ElementsAre(0, 1));
  EXPECT_THAT(changes({}, {"a", "b"}).inserted, ElementsAre(0, 1));
}

TEST(RowChanges, AreIncompleteForTooManyRowsOrAnotherOrder) {
  EXPECT_TRUE(changes({"a", "b", "c", "d"}, {}).areComplete);
  EXPECT_FALSE(changes({"a", "b", "c", "d", "e"}, {}).areComplete);
  EXPECT_FALSE(changes({"a", "b", "c"}, {"x", "y", "z"}).areComplete);
  EXPECT_FALSE(changes({"a", "b", "c"}, {"c", "a", "b"}).areComplete);
}

TEST(RowChanges, CompareIdsCanonically) {
  const page::RowChanges same = changes({"\u00e9", "b"}, {"e\u0301", "b"});
  EXPECT_TRUE(same.areComplete);
  EXPECT_THAT(same.removed, IsEmpty());
}

TEST(RowChanges, OfEqualIdsTheLastRowIsRemoved) {
  EXPECT_THAT(changes({"a", "b", "a"}, {"a", "b"}).removed, ElementsAre(2));
  const page::RowChanges moved = changes({"a", "b", "a"}, {"b", "a"});
  EXPECT_FALSE(moved.areComplete) << "the first row a is behind row b now";
}

TEST(RowChanges, LeadFromOneListToTheOther) {
  std::mt19937 random(7);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  int complete = 0;
  for (int round = 0; round < 3000; ++round) {
    IDs before;
    for (std::size_t i = below(12); i > 0; --i) before.push_back(std::string(1, 'a' + below(20)));
    IDs after = before;
    for (std::size_t edits = below(4); edits > 0; --edits) {
      const auto place = after.begin() + static_cast<long>(below(after.size() + 1));
      if (place != after.end() && below(2) == 0) {
        after.erase(place);
      } else {
        after.insert(place, std::string(1, 'a' + below(20)));
      }
    }
    const page::RowChanges told = changes(before, after, 8);
    if (!told.areComplete) continue;
    ++complete;
    ASSERT_EQ(followed(before, after, told), after) << ::testing::PrintToString(before);
  }
  EXPECT_GT(complete, 1500);
}
