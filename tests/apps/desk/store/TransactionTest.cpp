#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/Transaction.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/SampleResults.hpp"

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

TEST(TransactionTest, ReadsInOneTransactionAreOfOneMoment) {
  const TemporaryFolder folder;
  const std::string file = folder.file("goals.sqlite");
  GoalStore others = GoalStore::open(file);
  others.import({goal("g1", "One")});
  Database reader(file, Database::Opening::existing, usualPatience);
  const char* const count = "SELECT count(*) FROM goals";
  {
    const Transaction moment(reader, Transaction::Kind::reading);
    EXPECT_EQ(reader.number(count), 1);
    others.import({goal("g2", "Two")});
    EXPECT_EQ(reader.number(count), 1);
  }
  EXPECT_EQ(reader.number(count), 2);
}

}  // namespace
}  // namespace vemra::desk
