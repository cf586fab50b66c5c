// Finding rows by their ids, in passes that end as early as possible.

#include "VemraPlatform/ui/Identity.hpp"
#include "VemraPlatform/ui/RowSource.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using Indexes = std::vector<std::size_t>;

/// Rows with these ids; records the last index whose id was read.
class Ids final : public RowSource {
 public:
  explicit Ids(std::vector<std::string> ids) : ids_(std::move(ids)) {}
  std::size_t count() const override { return ids_.size(); }
  std::string_view key(std::size_t index) const override {
    last = index;
    return ids_[index];
  }
  View row(std::size_t) const override { return View(); }

  mutable std::size_t last = 0;

 private:
  std::vector<std::string> ids_;
};

const Ids& fiveRows() {
  static const Ids rows({"a", "b", "a", "\u00E9", "a"});
  return rows;
}

}  // namespace

TEST(RowIdentityTest, CountsTheEqualIdsBeforeARow) {
  const std::vector<RowIdentity> identities = rowIdentities(fiveRows(), {0, 1, 2, 4});
  ASSERT_EQ(identities.size(), 4U);
  EXPECT_EQ(identities[0].occurrence, 0U);
  EXPECT_EQ(identities[1].key, "b");
  EXPECT_EQ(identities[1].occurrence, 0U);
  EXPECT_EQ(identities[2].occurrence, 1U);
  EXPECT_EQ(identities[3].occurrence, 2U);
}

TEST(RowIdentityTest, ReadsNoIdBehindTheLastWantedRow) {
  const Ids& rows = fiveRows();
  rowIdentities(rows, {0, 2});
  EXPECT_EQ(rows.last, 2U);
  locateRows(rows, {{"a", 1}, {"b", 0}});
  EXPECT_EQ(rows.last, 2U);
}

TEST(RowIdentityTest, FindsEachRowByIdAndOccurrenceInAnyFormOfTheId) {
  EXPECT_EQ(locateRows(fiveRows(), {{"a", 2}, {"e\u0301", 0}, {"a", 0}, {"a", 3}, {"x", 0}}),
            (Indexes{4, 3, 0, absentRow, absentRow}));
  EXPECT_EQ(locateRows(fiveRows(), {}), Indexes{});
  EXPECT_TRUE(rowIdentities(fiveRows(), {}).empty());
}

}  // namespace vemra::ui
