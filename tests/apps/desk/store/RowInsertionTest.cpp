#include "apps/desk/store/RowInsertion.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class RowInsertionTest : public StoreFile {
 protected:
  void SetUp() override {
    database.run("CREATE TABLE rows (number INTEGER PRIMARY KEY, text TEXT, other INTEGER) STRICT");
  }

  std::vector<std::string> texts() {
    Statement row(database, "SELECT number, text FROM rows ORDER BY number", {"rows", 1});
    std::vector<std::string> texts;
    row.query();
    while (row.next()) {
      row.expectPosition(0, texts.size());
      texts.push_back(row.text(1));
    }
    return texts;
  }

  Database database{file, Database::Opening::orCreate, usualPatience};
};

TEST_F(RowInsertionTest, InsertsEachRowOnceWhateverTheirNumber) {
  for (const std::size_t count : {0, 1, 2, 49, 50, 51, 99, 100, 101, 1234}) {
    database.run("DELETE FROM rows");
    std::vector<std::string> wanted;
    for (std::size_t i = 0; i < count; ++i) wanted.push_back("text " + std::to_string(i));
    RowInsertion insertion(database, "rows");
    for (std::size_t i = 0; i < count; ++i) insertion.add(i, wanted[i], std::int64_t{7});
    insertion.finish();
    EXPECT_EQ(texts(), wanted) << count;
  }
}

TEST_F(RowInsertionTest, KeepsTextsNumbersAndNilsAsTheyAre) {
  const std::string withNull("a\0b", 3);
  const std::optional<std::string> maybe("x");
  RowInsertion insertion(database, "rows");
  insertion.add(0, withNull, std::optional<std::int64_t>());
  insertion.add(1, std::string_view(), std::optional<std::int64_t>(-1));
  insertion.add(2, maybe, std::int64_t{5});
  insertion.finish();
  EXPECT_EQ(texts(), (std::vector<std::string>{withNull, "", "x"}));
  EXPECT_EQ(database.number("SELECT count(*) FROM rows WHERE other IS NULL"), 1);
  EXPECT_EQ(database.number("SELECT sum(other) FROM rows"), 4);
}

TEST_F(RowInsertionTest, MayBeUsedAgainAfterFinish) {
  RowInsertion insertion(database, "rows");
  insertion.add(0, "a", 1);
  insertion.finish();
  insertion.add(1, "b", 1);
  insertion.finish();
  insertion.finish();
  EXPECT_EQ(texts(), (std::vector<std::string>{"a", "b"}));
}

TEST_F(RowInsertionTest, ReportsRowsThatTheTableRefuses) {
  RowInsertion insertion(database, "rows");
  insertion.add(0, "a", 1);
  insertion.add(0, "b", 1);
  EXPECT_NE(errorOf([&] { insertion.finish(); }), "no error");
  RowInsertion illFormed(database, "rows");
  illFormed.add(0, "\xFF", 1);
  EXPECT_NE(errorOf([&] { illFormed.finish(); }), "no error");
  EXPECT_TRUE(texts().empty());
}

TEST_F(RowInsertionTest, DropsTheRowsThatTheTableRefuses) {
  for (const std::size_t rowsOfAFailure : {2, 50, 100}) {
    database.run("DELETE FROM rows");
    RowInsertion insertion(database, "rows");
    const auto addRefused = [&] {
      for (std::size_t i = 0; i + 1 < rowsOfAFailure; ++i) insertion.add(i, "refused", 1);
      insertion.add(rowsOfAFailure - 2, "refused", 1);
      insertion.finish();
    };
    EXPECT_NE(errorOf(addRefused), "no error");
    database.run("DELETE FROM rows");
    const std::vector<std::string> wanted(120, "taken");
    for (std::size_t i = 0; i < wanted.size(); ++i) insertion.add(i, wanted[i], 1);
    insertion.finish();
    EXPECT_EQ(texts(), wanted) << rowsOfAFailure;
  }
}

#ifndef NDEBUG
TEST_F(RowInsertionTest, AForgottenFinishIsAMistake) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto forget = [&] {
    RowInsertion insertion(database, "rows");
    insertion.add(0, "a", 1);
  };
  EXPECT_DEATH(forget(), "rows_ == 0");
}

TEST_F(RowInsertionTest, AnExceptionMayDropTheRows) {
  const auto interrupted = [&] {
    RowInsertion insertion(database, "rows");
    insertion.add(0, "a", 1);
    throw StoreError(file, "interrupted");
  };
  EXPECT_NE(errorOf(interrupted), "no error");
  EXPECT_TRUE(texts().empty());
}
#endif

}  // namespace
}  // namespace vemra::desk
