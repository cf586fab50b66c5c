#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/Transaction.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

using TransactionTest = StoreFile;

TEST_F(TransactionTest, ReadsInOneTransactionAreOfOneMoment) {
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
