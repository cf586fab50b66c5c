#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/ResultRows.hpp"
#include "apps/desk/store/Transaction.hpp"
#include "tests/apps/Repeated.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <fstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vemra::desk {
namespace {
constexpr std::size_t textSize = 20'000;

/// A store of one goal with three long keywords, which continue on pages of their own.
class TextBoundTest : public StoreFile {
 protected:
  TextBoundTest() {
    GetGoalSnapshotResponse result = goal("g", "t");
    const std::string text = repeated("x", textSize);
    result.goal.keywords = {text, text, text};
    GoalStore::open(file).import({result});
  }

  /// Links each page that is full of text to itself as its next page, so that its text never ends.
  void closeChains() const {
    constexpr std::size_t pageSize = 4096;
    constexpr std::size_t nextSize = 4;  // at the start of the page, its highest byte first
    std::string bytes = TemporaryFolder::readFile(file);
    int chains = 0;
    for (std::size_t at = 0; at < bytes.size(); at += pageSize) {
      if (bytes.compare(at + nextSize, pageSize - nextSize,
                        std::string(pageSize - nextSize, 'x')) != 0) {
        continue;
      }
      const std::size_t page = at / pageSize + 1;
      ASSERT_LT(page, 256u);
      bytes.replace(at, nextSize, {'\0', '\0', '\0', static_cast<char>(page)});
      ++chains;
    }
    ASSERT_GE(chains, 3);
    std::ofstream(file, std::ios::binary) << bytes;
  }

  /// Reads the goal in so many transactions, one after another; all of it must come.
  void read(std::size_t bound, int times = 1) {
    Database database(file, Database::Opening::existing, usualPatience);
    sqlite3_trace_v2(database.handle(), SQLITE_TRACE_STMT, countCheck, &checks);
    database.setTextBound(bound);
    for (int i = 0; i < times; ++i) {
      const Transaction transaction(database, Transaction::Kind::reading);
      const GetGoalSnapshotResponse result = readResultRows(database, 1);
      EXPECT_EQ(result.goal.keywords.size(), 3u);
      for (const std::string& text : result.goal.keywords) EXPECT_EQ(text.size(), textSize);
    }
  }

  static int countCheck(unsigned, void* checks, void*, void* sql) {
    if (std::string_view(static_cast<const char*>(sql)).starts_with("PRAGMA quick_check")) {
      ++*static_cast<int*>(checks);
    }
    return 0;
  }

  int checks = 0;
};

void expectLoop(const std::string& error, const std::string& file) {
  EXPECT_TRUE(error.starts_with(file + ": is damaged: SQLite found \"")) << error;
  EXPECT_NE(error.find("2nd reference to page"), std::string::npos) << error;
  EXPECT_EQ(error.find("***"), std::string::npos) << error;
}

TEST_F(TextBoundTest, ATextBeyondTheBoundIsRefusedWhenItsPagesFormACycle) {
  closeChains();
  expectLoop(errorOf([&] { read(textSize - 1); }), file);
}

TEST_F(TextBoundTest, TextsThatTogetherExceedTheBoundAreRefusedToo) {
  closeChains();
  expectLoop(errorOf([&] { read(3 * textSize - 1); }), file);
}

TEST_F(TextBoundTest, EachTransactionCountsFromZero) {
  read(4 * textSize, 3);
  EXPECT_EQ(checks, 0);
}

TEST_F(TextBoundTest, AWholeStoreBeyondTheBoundIsReadAndCheckedOnceATransaction) {
  read(0, 2);
  EXPECT_EQ(checks, 2);
}

}  // namespace
}  // namespace vemra::desk
