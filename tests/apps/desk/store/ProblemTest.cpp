#include "apps/desk/store/Problem.hpp"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vemra::desk {
namespace {

std::string problem(int code, sqlite3* connection) {
  return problemOf(code, connection).text;
}

TEST(ProblemTest, ConcernsTheContentWhenAnotherConnectionWouldFailToo) {
  for (const int code : {SQLITE_CONSTRAINT, SQLITE_TOOBIG, SQLITE_NOTADB, SQLITE_CORRUPT}) {
    EXPECT_TRUE(problemOf(code, nullptr).isOfContent) << code;
  }
  for (const int code : {SQLITE_CANTOPEN, SQLITE_FULL, SQLITE_IOERR, SQLITE_NOMEM, SQLITE_ERROR}) {
    EXPECT_FALSE(problemOf(code, nullptr).isOfContent) << code;
  }
}

TEST(ProblemTest, EachFailureThatNeedsNoStoreHasItsWords) {
  EXPECT_EQ(problem(SQLITE_NOTADB, nullptr), "is not an SQLite database");
  EXPECT_EQ(problem(SQLITE_CANTOPEN, nullptr), "cannot be opened: its folder may be read-only");
  EXPECT_EQ(problem(SQLITE_PERM, nullptr), "cannot be locked: Operation not permitted");
  EXPECT_EQ(problem(SQLITE_READONLY, nullptr), "is read-only");
  EXPECT_EQ(problem(SQLITE_READONLY_DIRECTORY, nullptr),
            "cannot be changed: its folder is read-only");
  EXPECT_EQ(problem(SQLITE_CORRUPT, nullptr), "is damaged");
  EXPECT_EQ(problem(SQLITE_FULL, nullptr), "cannot be changed: the disk is full");
  EXPECT_EQ(problem(SQLITE_NOMEM, nullptr), "needs more memory than there is");
  EXPECT_EQ(problem(SQLITE_IOERR_NOMEM, nullptr), "needs more memory than there is");
  EXPECT_EQ(problem(SQLITE_IOERR_SHORT_READ, nullptr), "is damaged: it ends too early");
  EXPECT_EQ(problem(SQLITE_TOOBIG, nullptr), "cannot hold a text as long as that");
  EXPECT_EQ(problem(SQLITE_MISUSE, nullptr),
            std::string("failed: ") + sqlite3_errstr(SQLITE_MISUSE));
}

TEST(ProblemTest, AFailedTransferNamesItsPurpose) {
  for (const int code : {SQLITE_IOERR_READ, SQLITE_IOERR_CORRUPTFS, SQLITE_IOERR_FSTAT,
                         SQLITE_IOERR_ACCESS, SQLITE_IOERR_SHMMAP, SQLITE_IOERR_MMAP}) {
    EXPECT_EQ(problem(code, nullptr), "cannot be read") << code;
  }
  for (const int code : {SQLITE_IOERR_LOCK, SQLITE_IOERR_RDLOCK, SQLITE_IOERR_UNLOCK,
                         SQLITE_IOERR_SHMLOCK, SQLITE_IOERR_CHECKRESERVEDLOCK}) {
    EXPECT_EQ(problem(code, nullptr), "cannot be locked") << code;
  }
  for (const int code : {SQLITE_IOERR_WRITE, SQLITE_IOERR_FSYNC, SQLITE_IOERR_TRUNCATE}) {
    EXPECT_EQ(problem(code, nullptr), "cannot be written") << code;
  }
}

TEST(ProblemTest, NamesTheCauseThatSQLiteHasLogged) {
  sqlite3_log(SQLITE_CANTOPEN, "os_unix.c:44133: (24) open(/a/b) - Too many open files");
  EXPECT_EQ(problem(SQLITE_CANTOPEN, nullptr), "cannot be opened: Too many open files");
  EXPECT_EQ(problem(SQLITE_CANTOPEN, nullptr), "cannot be opened: its folder may be read-only")
      << "a logged cause belongs to one failure";
  sqlite3_log(SQLITE_CANTOPEN, "os_unix.c:44133: (1) open(/a/b) - Operation not permitted");
  EXPECT_EQ(problem(SQLITE_CANTOPEN, nullptr), "cannot be opened: Operation not permitted");
}

TEST(ProblemTest, TakesNoOtherLineOfTheLogForACause) {
  const char* const none = "cannot be opened: its folder may be read-only";
  sqlite3_log(SQLITE_CANTOPEN, "statement 1: (24) is not a system call");
  EXPECT_EQ(problem(SQLITE_CANTOPEN, nullptr), none);
  sqlite3_log(SQLITE_CANTOPEN, "os_unix.c:44133 without a number");
  EXPECT_EQ(problem(SQLITE_CANTOPEN, nullptr), none);
  sqlite3_log(SQLITE_READONLY, "os_unix.c:44133: (24) open(/a/b) - Too many open files");
  EXPECT_EQ(problem(SQLITE_CANTOPEN, nullptr), none) << "from another failure";
}

}  // namespace
}  // namespace vemra::desk
