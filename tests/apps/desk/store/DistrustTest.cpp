#include "apps/desk/store/Statement.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <sqlite3.h>

namespace vemra::desk {
namespace {

class DistrustTest : public ::testing::Test {
 protected:
  std::string errorOf(const char* sql) {
    try {
      database.run(sql);
    } catch (const StoreError& error) {
      return error.what();
    }
    return "no error";
  }

  TemporaryFolder folder;
  Database database{folder.file("goals.sqlite"), Database::Opening::orCreate, usualPatience};
};

TEST_F(DistrustTest, AConnectionNeitherTrustsASchemaNorWritesIt) {
  EXPECT_EQ(database.number("PRAGMA trusted_schema"), 0);
  EXPECT_EQ(database.number("PRAGMA cell_size_check"), 1);
  EXPECT_EQ(database.number("PRAGMA foreign_keys"), 1);
  database.run("CREATE TABLE t (a)");
  EXPECT_NE(errorOf("PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = ''"), "no error");
}

TEST_F(DistrustTest, ViewsAndAttachedFilesAreOff) {
  database.run("CREATE VIEW v AS SELECT 1");
  EXPECT_THAT(errorOf("SELECT * FROM v"), ::testing::HasSubstr("prohibited"));
  EXPECT_NE(errorOf("ATTACH ':memory:' AS more"), "no error");
}

TEST_F(DistrustTest, TriggersRunButCannotCallTheStoresFunction) {
  database.run(
      "CREATE TABLE t (a); CREATE TABLE u (a);"
      "CREATE TRIGGER copies AFTER INSERT ON t BEGIN INSERT INTO u VALUES (NEW.a); END;"
      "INSERT INTO t VALUES (7)");
  EXPECT_EQ(database.number("SELECT a FROM u"), 7);
  EXPECT_NE(errorOf("CREATE TRIGGER asks AFTER INSERT ON u "
                    "BEGIN SELECT same_text(NEW.a, NEW.a); END; INSERT INTO u VALUES (1)"),
            "no error");
}

TEST_F(DistrustTest, TheLimitsOfASchemaAreLittleMoreThanAStoreNeeds) {
  const auto limit = [&](int which) { return sqlite3_limit(database.handle(), which, -1); };
  EXPECT_EQ(limit(SQLITE_LIMIT_SQL_LENGTH), 20'000);
  EXPECT_EQ(limit(SQLITE_LIMIT_EXPR_DEPTH), 50);
  EXPECT_EQ(limit(SQLITE_LIMIT_COLUMN), 50);
  EXPECT_EQ(limit(SQLITE_LIMIT_COMPOUND_SELECT), 20);
  EXPECT_EQ(limit(SQLITE_LIMIT_TRIGGER_DEPTH), 10);
  EXPECT_EQ(limit(SQLITE_LIMIT_ATTACHED), 0);
  EXPECT_EQ(limit(SQLITE_LIMIT_WORKER_THREADS), 0);
}

}  // namespace
}  // namespace vemra::desk
