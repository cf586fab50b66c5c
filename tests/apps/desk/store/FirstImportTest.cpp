#include "apps/desk/store/Database.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/AtCommit.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"
#include "tests/apps/desk/store/SystemCallFault.hpp"

#include <cerrno>
#include <filesystem>
#include <optional>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
using Call = SystemCallFault::Call;

class FirstImportTest : public StoreFile {
 protected:
  bool isEmptyFolder() const { return std::filesystem::is_empty(folder.path()); }
};

TEST_F(FirstImportTest, MakesAStoreWithALog) {
  EXPECT_TRUE(GoalStore::importInto(file, {goal("g1", "One")}).empty());
  EXPECT_EQ(GoalStore::openExisting(file)->goals().size(), 1u);
  EXPECT_EQ(RawDatabase(file).value("PRAGMA journal_mode"), "wal");
}

TEST_F(FirstImportTest, ReportsOmittedOutcomes) {
  GoalStore::importInto(file, {goal("g1", "One", {outcome("o1", "p1", {})})});
  const auto leftOut = GoalStore::importInto(file, {goal("g1", "One", {outcome("o1", "p2", {})})});
  EXPECT_EQ(leftOut.size(), 1u);
  EXPECT_EQ(GoalStore::open(file).outcomes("g1").size(), 1u);
}

TEST_F(FirstImportTest, LeavesNoFileBehindWhenItFails) {
  const std::pair<Call, const char*> faults[] = {
      {Call::open, "goals.sqlite"},           {Call::open, "goals.sqlite-journal"},
      {Call::openForWriting, "goals.sqlite"}, {Call::openForWriting, "goals.sqlite-journal"},
      {Call::read, "goals.sqlite"},           {Call::write, "goals.sqlite"},
      {Call::write, "goals.sqlite-journal"},  {Call::lock, "goals.sqlite"}};
  for (const auto& [call, name] : faults) {
    const SystemCallFault fault(call, EIO, name, SystemCallFault::always);
    const std::string error = errorOf([&] { GoalStore::importInto(file, {goal("g1", "One")}); });
    EXPECT_GT(fault.count(), 0) << static_cast<int>(call) << name;
    EXPECT_NE(error, "no error") << static_cast<int>(call) << name;
    EXPECT_TRUE(isEmptyFolder()) << static_cast<int>(call) << name << error;
  }
}

TEST_F(FirstImportTest, LeavesNoFileBehindWhenAGoalIsRefused) {
  auto refused = goal("g1", "One");
  refused.people = {{"p1", "Ada", GoalWhyDTO::connection(INT64_MIN), {}}};
  EXPECT_NE(errorOf([&] { GoalStore::importInto(file, {refused}); }), "no error");
  EXPECT_TRUE(isEmptyFolder());
}

TEST_F(FirstImportTest, ALockThatCannotBeReleasedAfterTheCommitIsNoFailure) {
  for (const Call call : {Call::lock, Call::unlock}) {
    std::filesystem::remove(file);
    std::optional<SystemCallFault> fault;
    const AtCommit failing([&] {
      fault.emplace(call, ENOLCK, "goals.sqlite", 2);
      return 0;
    });
    EXPECT_EQ(errorOf([&] { GoalStore::importInto(file, {goal("g1", "One")}); }), "no error");
    EXPECT_GT(fault->count(), 0);
    fault.reset();
    EXPECT_EQ(GoalStore::openExisting(file)->goals().size(), 1u);
  }
}

TEST_F(FirstImportTest, KeepsAnEmptyFileThatItDidNotMake) {
  folder.write("goals.sqlite", "");
  const SystemCallFault fault(Call::write, EIO, "goals.sqlite", SystemCallFault::always);
  EXPECT_NE(errorOf([&] { GoalStore::importInto(file, {goal("g1", "One")}); }), "no error");
  EXPECT_TRUE(std::filesystem::exists(file));
}

// The other program has read the file, and writes nothing before its transaction ends.
TEST_F(FirstImportTest, KeepsAnEmptyFileThatAnotherProgramIsAboutToFill) {
  std::optional<Database> database(std::in_place, file, Database::Opening::orCreate, Patience(300));
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN; SELECT * FROM sqlite_schema"), "");
  database.reset();
  EXPECT_TRUE(std::filesystem::exists(file));
  EXPECT_EQ(other.run("CREATE TABLE t (c); COMMIT"), "");
  EXPECT_EQ(RawDatabase(file).value("SELECT count(*) FROM t"), "0");
}

TEST_F(FirstImportTest, WithoutEffectLeavesNoStoreInAWindowEither) {
  const SystemCallFault fault(Call::write, ENOSPC, "goals.sqlite", SystemCallFault::always);
  EXPECT_EQ(errorOf([&] { GoalStore::open(file); }),
            file + ": cannot be changed: the disk is full");
  EXPECT_TRUE(isEmptyFolder());
}

// Copying onto a store empties the file first: the file must not be removed at that moment.
TEST_F(FirstImportTest, AStoreMadeHereStaysWhenAnotherProgramEmptiesIt) {
  {
    const GoalStore store = GoalStore::open(file);
    std::filesystem::resize_file(file, 0);
    for (const char* suffix : {"-wal", "-shm"}) std::filesystem::remove(file + suffix);
  }
  EXPECT_TRUE(std::filesystem::exists(file));
}

}  // namespace
}  // namespace vemra::desk
