#include "apps/desk/store/GoalStore.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <chrono>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

class OpeningTest : public StoreFile {
 protected:
  OpeningTest() { GoalStore::open(file).import({goal("g1", "One")}); }
};

TEST_F(OpeningTest, AFinishedStoreIsOpenedWhileAnotherProgramWrites) {
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  EXPECT_EQ(errorOf([&] { GoalStore::open(file, Patience(0)); }), "no error");
}

// The store may be on a disk that is not mounted, so it is not a store without goals.
TEST_F(OpeningTest, ALinkThatLeadsNowhereIsNamed) {
  const std::string link = folder.file("link.sqlite");
  std::filesystem::create_symlink("/no/such/disk.sqlite", link);
  const std::string problem =
      link + ": is a symbolic link to \"/no/such/disk.sqlite\", where there is no file";
  EXPECT_EQ(errorOf([&] { GoalStore::open(link); }), problem);
  EXPECT_EQ(errorOf([&] { GoalStore::openExisting(link); }), problem);
  EXPECT_EQ(errorOf([&] { GoalStore::importInto(link, {goal("g1", "One")}); }), problem);
}

TEST_F(OpeningTest, TheModeIsChangedWhenAnotherProgramHasRead) {
  RawDatabase other(file);
  ASSERT_EQ(other.value("PRAGMA journal_mode = DELETE"), "delete");
  ASSERT_EQ(other.run("BEGIN; SELECT * FROM goals"), "");
  std::thread reader([&] {
    std::this_thread::sleep_for(milliseconds(200));
    other.run("COMMIT");
  });
  EXPECT_EQ(errorOf([&] { GoalStore::open(file, Patience(20'000)); }), "no error");
  reader.join();
  EXPECT_EQ(RawDatabase(file).value("PRAGMA journal_mode"), "wal");
}

TEST_F(OpeningTest, OpeningWaitsForTheModeUpToItsTimeLimit) {
  RawDatabase other(file);
  ASSERT_EQ(other.value("PRAGMA journal_mode = DELETE"), "delete");
  ASSERT_EQ(other.run("BEGIN; SELECT * FROM goals"), "");
  const auto start = Clock::now();
  EXPECT_EQ(errorOf([&] { GoalStore::open(file, Patience(200)); }),
            file + ": is in use by another program that does not let go of it");
  EXPECT_GE(Clock::now() - start, milliseconds(200));
  EXPECT_LT(Clock::now() - start, milliseconds(5000));
}

/// Sets other defaults, as a distribution may have built them into SQLite, on each connection that
/// is opened while it lives, and reads the connection's settings.
class OtherDefaults {
 public:
  OtherDefaults() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(apply)); }
  ~OtherDefaults() {
    sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(apply));
    last = nullptr;
  }
  static std::string value(const std::string& sql) {
    std::string value;
    const auto keep = [](void* context, int, char** columns, char**) {
      *static_cast<std::string*>(context) = columns[0];
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(last, sql.c_str(), keep, &value, nullptr), SQLITE_OK) << sql;
    return value;
  }

 private:
  static int apply(sqlite3* connection, const char**, const void*) {
    last = connection;
    return sqlite3_exec(connection,
                        "PRAGMA synchronous = OFF; PRAGMA mmap_size = 1048576;"
                        "PRAGMA locking_mode = EXCLUSIVE; PRAGMA foreign_keys = OFF;"
                        "PRAGMA recursive_triggers = ON; PRAGMA cell_size_check = OFF",
                        nullptr, nullptr, nullptr);
  }
  static inline sqlite3* last = nullptr;
};

TEST_F(OpeningTest, TheSettingsThatProtectDataDoNotDependOnHowSQLiteWasBuilt) {
  const OtherDefaults defaults;
  const GoalStore store = GoalStore::open(file);
  EXPECT_EQ(OtherDefaults::value("PRAGMA synchronous"), "2") << "2 is FULL";
  EXPECT_EQ(OtherDefaults::value("PRAGMA mmap_size"), "0");
  EXPECT_EQ(OtherDefaults::value("PRAGMA locking_mode"), "normal");
  EXPECT_EQ(OtherDefaults::value("PRAGMA foreign_keys"), "1");
  EXPECT_EQ(OtherDefaults::value("PRAGMA recursive_triggers"), "0");
  EXPECT_EQ(OtherDefaults::value("PRAGMA cell_size_check"), "1");
}

}  // namespace
}  // namespace vemra::desk
