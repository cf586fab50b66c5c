#include "apps/desk/store/Statement.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <functional>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class StatementTest : public ::testing::Test {
 protected:
  /// The error of reading the one row of the query, behind "is damaged: ".
  std::string errorOf(const char* sql, RowsOf rows, const std::function<void(Statement&)>& read) {
    Statement row(database, sql, rows);
    row.query();
    EXPECT_TRUE(row.next());
    try {
      read(row);
    } catch (const StoreError& error) {
      const std::string start = database.file() + ": is damaged: ";
      const std::string text = error.what();
      EXPECT_TRUE(text.starts_with(start)) << text;
      return text.substr(start.size());
    }
    return "no error";
  }

  TemporaryFolder folder;
  Database database{folder.file("goals.sqlite"), Database::Opening::orCreate, usualPatience};
};

TEST_F(StatementTest, ValuesOfTheirTypesAreRead) {
  using namespace std::string_literals;
  Statement row(database, "SELECT ?1, ?2, ?3, ?4, ?5");
  // SQLite reads the texts when a row is fetched, so they live until the last one.
  const std::string text = "a\0b"s;
  const std::optional<std::string> none;
  const std::optional<std::string> empty = "";
  row.query(text, none, empty, INT64_MIN, std::int64_t{7});
  ASSERT_TRUE(row.next());
  EXPECT_EQ(row.text(0), text);
  EXPECT_EQ(row.optionalText(0), text);
  EXPECT_EQ(row.optionalText(1), std::nullopt);
  row.expectNull(1);
  EXPECT_EQ(row.optionalText(2), "");
  EXPECT_EQ(row.integer(3), INT64_MIN);
  EXPECT_EQ(row.index(4), 7u);
  row.expectPosition(4, 7);
  EXPECT_FALSE(row.next());
}

TEST_F(StatementTest, AnErrorNamesTheKeyOfTheRowAndTheColumn) {
  const auto readLast = [](Statement& row) { row.integer(2); };
  const char* const sql = "SELECT 3 AS goal, 'x' AS list, 2.5 AS position";
  EXPECT_EQ(errorOf(sql, {"texts", 2}, readLast),
            "texts (goal 3, list \"x\"): position: expected an integer; found 2.5");
  EXPECT_EQ(errorOf(sql, {"texts", 1}, readLast),
            "texts (goal 3): position: expected an integer; found 2.5");
  EXPECT_EQ(errorOf(sql, {}, readLast), "a query: position: expected an integer; found 2.5");
}

TEST_F(StatementTest, EveryOtherTypeIsAnError) {
  const auto text = [](Statement& row) { row.text(0); };
  const auto optional = [](Statement& row) { row.optionalText(0); };
  const auto integer = [](Statement& row) { row.integer(0); };
  const auto null = [](Statement& row) { row.expectNull(0); };
  const auto error = [&](const char* value, const auto& read) {
    const std::string message =
        errorOf((std::string("SELECT ") + value + " AS c").c_str(), {}, read);
    const std::string start = "a query: c: expected ";
    return message.starts_with(start) ? message.substr(start.size()) : message;
  };
  EXPECT_EQ(error("NULL", text), "a text; found NULL");
  EXPECT_EQ(error("1", text), "a text; found 1");
  EXPECT_EQ(error("x'6162'", text), "a text; found a blob");
  EXPECT_EQ(error("x'6162'", optional), "a text or NULL; found a blob");
  EXPECT_EQ(error("1.5", optional), "a text or NULL; found 1.5");
  EXPECT_EQ(error("NULL", integer), "an integer; found NULL");
  EXPECT_EQ(error("'1'", integer), "an integer; found \"1\"");
  EXPECT_EQ(error("1.0", integer), "an integer; found 1.0");
  EXPECT_EQ(error("''", null), "NULL; found \"\"");
  EXPECT_EQ(error("'a' || char(10)", null), "NULL; found \"a\\n\"") << "on one line";
  EXPECT_EQ(error("-1", [](Statement& row) { row.index(0); }), "0 or more; found -1");
  EXPECT_EQ(error("0", [](Statement& row) { row.index(0); }), "no error");
  EXPECT_EQ(error("1", [](Statement& row) { row.expectPosition(0, 2); }), "2; found 1");
  EXPECT_EQ(error("3", [](Statement& row) { row.expectPosition(0, 2); }), "2; found 3");
}

}  // namespace
}  // namespace vemra::desk
